// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Registry.h"
#include "ui/richtext/ShownBox.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QInputMethodEvent>
#include <QMenu>
#include <QMimeData>

using namespace Qt::StringLiterals;
using Command = RichTextCommand;
using Act = std::function<void(Shown&)>;
using Data = QMap<QString, QByteArray>;

namespace {

const QString note = u"{\\rtf1\\ansi{\\fonttbl{\\f0 Arial;}}\\f0\\fs20 one \\b two\\b0 three\\par second\\par}"_s;
const QString withPicture = u"{\\rtf1 a{\\pict 00}b\\trowd\\intbl c\\cell\\row{\\pict 00}}"_s;

Act key(int k, Qt::KeyboardModifiers modifiers = {})
{
    return [=](Shown& s) { s.key(k, modifiers); };
}

Act run(Command command)
{
    return [=](Shown& s) { s.box.run(command); };
}

void dropText(Shown& s)
{
    QMimeData mime;
    mime.setText(u"dropped"_s);
    QDragEnterEvent enter({10, 10}, Qt::CopyAction, &mime, Qt::LeftButton, {});
    QCoreApplication::sendEvent(s.box.viewport(), &enter);
    QDropEvent event({10, 10}, Qt::CopyAction, &mime, Qt::LeftButton, {});
    QCoreApplication::sendEvent(s.box.viewport(), &event);
}

void inputText(Shown& s)
{
    QInputMethodEvent event(u"日"_s, {});
    QCoreApplication::sendEvent(&s.box, &event);
}

} // namespace

class tst_RichTextBox : public QObject {
    Q_OBJECT
private slots:
    void keepsStoredText_data();
    void keepsStoredText();
    void guard_data();
    void guard();
    void guardBehindTheDoors();
    void looks_data();
    void looks();
    void typing();
    void blackOnDark();
    void links();
    void menu();
    void readOnly();
    void clipboard_data();
    void clipboard();
};

void tst_RichTextBox::keepsStoredText_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("shown");
    QTest::newRow("rtf") << note << u"one twothree\nsecond"_s;
    QTest::newRow("odd rtf") << u" {\\rtf1\\foo  x{\\*\\bar y}} tail \0"_s << u" x"_s;
    QTest::newRow("plain") << u"just\r\n{text} ż"_s << u"just\n{text} ż"_s;
    QTest::newRow("empty") << u""_s << u""_s;
    QTest::newRow("picture") << withPicture << u"abc"_s;
}

void tst_RichTextBox::keepsStoredText()
{
    QFETCH(QString, stored);
    QFETCH(QString, shown);
    Shown s(stored);
    s.box.setConfirm([](const QString&) { return true; });
    QCOMPARE(s.box.toPlainText(), shown);
    s.box.setFont(QFont(u"DejaVu Sans"_s, 14));
    s.box.run(Command::Bold); // nothing selected: only for what is typed next
    s.key(Qt::Key_End);
    QCoreApplication::processEvents();
    QCOMPARE(s.box.rtf(), stored);
    QCOMPARE(s.edits.count(), 0);

    s.key(Qt::Key_X);
    QCOMPARE(s.edits.count(), 1);
    QTextDocument written;
    QVERIFY(rtf::read(s.box.rtf(), &written).ok);
    QCOMPARE(written.toPlainText(), s.box.toPlainText());
    s.key(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(s.box.rtf(), stored); // all is as it was, the stored text too
    s.box.selectAll();
    s.key(Qt::Key_Delete);
    QCOMPARE(s.box.rtf(), shown.isEmpty() ? stored : QString());
    s.box.setRtf(u"{\\rtf1 other}"_s);
    s.key(Qt::Key_Z, Qt::ControlModifier); // must not bring the text of another record back
    QCOMPARE(s.box.toPlainText(), u"other"_s);
}

void tst_RichTextBox::guard_data()
{
    QTest::addColumn<Act>("act");
    const std::pair<const char*, Act> acts[] = {
        {"letter", key(Qt::Key_X)},
        {"backspace by word", key(Qt::Key_Backspace, Qt::ControlModifier)},
        {"enter", key(Qt::Key_Return)},
        {"tab", key(Qt::Key_Tab)},
        {"cut key", key(Qt::Key_X, Qt::ControlModifier)},
        {"paste key", key(Qt::Key_V, Qt::ControlModifier)},
        {"bold", key(Qt::Key_B, Qt::ControlModifier)},
        {"cut", run(Command::Cut)},
        {"paste plain", run(Command::PastePlain)},
        {"centre", run(Command::Center)},
        {"bullets", run(Command::Bullets)},
        {"indent", run(Command::Indent)},
        {"font", [](Shown& s) { s.box.setPoints(30); }},
        {"replace", [](Shown& s) { s.box.replaceText(u"new"_s); }},
        {"input method", inputText},
        {"drop", dropText},
    };
    for (const auto& [name, act] : acts)
        QTest::newRow(name) << act;
}

void tst_RichTextBox::guard()
{
    QFETCH(Act, act);
    Shown s(withPicture);
    QGuiApplication::clipboard()->setText(u"clip"_s);
    s.select(1, 2);
    const QString before = s.looks();
    act(s); // nobody to ask: safe
    QCOMPARE(s.looks(), before);

    QStringList asked;
    bool answer = false;
    s.box.setConfirm([&](const QString& message) {
        asked.append(message);
        return answer;
    });
    act(s);
    QVERIFY2(asked.join(u'|').contains(u"2 pictures and 1 table that"_s), qPrintable(asked.join(u'|')));
    QCOMPARE(s.looks(), before);
    QCOMPARE(s.edits.count(), 0);
    QCOMPARE(s.box.rtf(), withPicture);

    answer = true;
    act(s);
    QVERIFY(s.looks() != before && s.edits.count() > 0 && s.box.rtf() != withPicture);
    act(s);
    QCOMPARE(asked.size(), 2); // one Yes is enough
    s.box.setRtf(withPicture);
    s.select(1, 2);
    act(s);
    QCOMPARE(asked.size(), 3); // another text, another question
}

// A change that came on a way that is not watched is asked about afterwards and can be taken back.
void tst_RichTextBox::guardBehindTheDoors()
{
    Shown s(withPicture);
    bool answer = false;
    int asked = 0;
    s.box.setConfirm([&](const QString&) {
        ++asked;
        return answer;
    });
    s.box.insertPlainText(u"zz"_s);
    QCOMPARE(s.box.rtf(), withPicture);
    QTRY_COMPARE(asked, 1);
    QCOMPARE(s.box.toPlainText(), u"abc"_s);
    QCOMPARE(s.edits.count(), 0);
    answer = true;
    s.box.insertPlainText(u"zz"_s);
    QTRY_COMPARE(s.edits.count(), 1);
    QVERIFY(s.box.rtf().contains(u"zz"_s));
}

void tst_RichTextBox::looks_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<std::pair<int, int>>("selected");
    QTest::addColumn<QList<Act>>("acts");
    QTest::addColumn<QString>("part"); // of the description
    const auto row = [](const char* name, const QString& stored, int from, int to, const QList<Act>& acts,
                        const QString& part) { QTest::newRow(name) << stored << std::pair(from, to) << acts << part; };
    const auto ctrl = [](int k) { return key(k, Qt::ControlModifier); };
    row("mixed becomes bold", note, 0, 7, {ctrl(Qt::Key_B)}, u" bold -/-|one two}"_s);
    row("bold off", note, 0, 7, {ctrl(Qt::Key_B), ctrl(Qt::Key_B)}, u"{Arial 10 -/-|one two}"_s);
    row("not delete the line", note, 0, 7, {ctrl(Qt::Key_I), ctrl(Qt::Key_U)}, u" italic underline -/-|one }"_s);
    row("one paragraph", note, 0, 0, {ctrl(Qt::Key_R), ctrl(Qt::Key_E)}, u"[align4 -]{Arial 10 -/-|one }"_s);
    row("black is no colour", u"{\\rtf1{\\colortbl;\\red255;}a\\cf1 b}"_s, 0, 2,
        {[](Shown& s) { s.box.setColor(Qt::black); }}, u"{ 12 -/-|ab}"_s);
    row("a level deeper", u"a\nb\nc\nd"_s, 0, 5,
        {run(Command::Bullets), [](Shown& s) { s.select(2, 3); }, run(Command::Indent)},
        u"list1 level1 item0]{ 0 -/-|a}\n[align1 - list2 level2 item0]{ 0 -/-|b}\n[align1 - list1 level1 item1]"_s);
    row("and back", u"a\nb\nc"_s, 0, 5,
        {run(Command::Bullets), [](Shown& s) { s.select(2, 3); }, run(Command::Indent), run(Command::Outdent)},
        u"list1 level1 item2]{ 0 -/-|c}"_s);
    row("all or none", u"a\nb"_s, 0, 3, {run(Command::Bullets), run(Command::Bullets)},
        u"[align1 -]{ 0 -/-|a}\n[align1 -]{ 0 -/-|b}"_s);
    row("half an inch", u"a"_s, 0, 0, {run(Command::Indent), run(Command::Indent), run(Command::Outdent)},
        u"[align1 left48 -]"_s);
    row("never out on the left", u"a"_s, 0, 0, {run(Command::Outdent)}, u"[align1 -]"_s);
    row("text replaced", u"{\\rtf1\\qc\\b{\\*\\pn\\pnlvlblt}a\\par b}"_s, 0, 0,
        {[](Shown& s) { s.box.replaceText(u"x\n\ny"_s); }},
        u"[align1 -]{ 0 -/-|x}\n[align1 -]\n[align1 -]{ 0 -/-|y}\n"_s);
}

void tst_RichTextBox::looks()
{
    QFETCH(QString, stored);
    QFETCH(QList<Act>, acts);
    QFETCH(QString, part);
    using Range = std::pair<int, int>;
    QFETCH(Range, selected);
    Shown s(stored);
    s.select(selected.first, selected.second);
    for (const Act& act : acts)
        act(s);
    QVERIFY2(s.looks().contains(part), qPrintable(s.looks()));
    QTextDocument written;
    rtf::read(s.box.rtf(), &written);
    QCOMPARE(written.toPlainText(), s.box.toPlainText());
    while (s.box.document()->isUndoAvailable())
        s.key(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(s.box.rtf(), stored);
}

void tst_RichTextBox::typing()
{
    Shown s;
    s.box.run(Command::Bold);
    s.box.setFamily(u"DejaVu Serif"_s);
    s.box.setPoints(22);
    s.box.setColor(QColor(1, 2, 3));
    QCOMPARE(s.edits.count(), 0);
    QTest::keyClicks(&s.box, u"ab"_s);
    QCOMPARE(s.looks(), u"[align1 -]{DejaVu Serif 22 bold #010203/-|ab}\n"_s);

    Shown list;
    list.key(Qt::Key_L, Qt::ControlModifier | Qt::ShiftModifier);
    list.key(Qt::Key_A);
    list.key(Qt::Key_Return);
    list.key(Qt::Key_Tab);
    list.key(Qt::Key_B);
    for (const int level : {1, 0, -1}) {
        list.key(Qt::Key_Return);
        QCOMPARE(listLevel(list.box.textCursor().block()), level);
    }
    list.key(Qt::Key_Tab);
    list.key(Qt::Key_C);
    QCOMPARE(list.box.toPlainText(), u"a\nb\n\tc"_s);

    Shown link(u"{\\rtf1{\\field{\\*\\fldinst{HYPERLINK \"x\"}}{\\fldrslt ab}}}"_s);
    link.select(1, 1);
    for (const int k : {Qt::Key_1, Qt::Key_End, Qt::Key_2})
        link.key(k);
    QVERIFY2(link.looks().contains(u" x|a1b}{ 12 -/-|2}"_s), qPrintable(link.looks()));
}

void tst_RichTextBox::blackOnDark()
{
    Shown s(u"{\\rtf1{\\colortbl;\\red0;}\\cf1 ab}"_s);
    QPalette dark = s.box.palette();
    dark.setColor(QPalette::Text, Qt::white);
    dark.setColor(QPalette::Base, QColor(30, 30, 30));
    s.box.setPalette(dark);
    const QRect text = s.box.cursorRect(QTextCursor(s.box.document())).adjusted(0, 0, 5, 0);
    const QImage image = s.box.viewport()->grab(text).toImage();
    bool isSeen = false;
    for (int i = 0; i < image.width() * image.height(); ++i)
        isSeen = isSeen || qGray(image.pixel(i % image.width(), i / image.width())) > 150;
    QVERIFY(isSeen);
}

void tst_RichTextBox::links()
{
    Shown s(
        u"{\\rtf1 {\\field{\\*\\fldinst{HYPERLINK \"https://a.b\"}}{\\fldrslt anchor}} text (see http://c.d/e?f.)}"_s);
    QStringList opened;
    connect(&s.box, &RichTextBox::linkActivated, this, [&](const QString& address) { opened.append(address); });
    const auto click = [&](int position, Qt::KeyboardModifiers modifiers) {
        QTextCursor cursor(s.box.document());
        cursor.setPosition(position);
        const QPoint place = s.box.cursorRect(cursor).center() + QPoint(2, 0);
        QTest::mouseClick(s.box.viewport(), Qt::LeftButton, modifiers, place);
    };
    click(2, {});
    QVERIFY(opened.isEmpty());
    for (const int position : {2, 9, 20})
        click(position, Qt::ControlModifier);
    s.select(0, 0);
    s.key(Qt::Key_Return, Qt::ControlModifier);
    s.box.setReadOnly(true);
    click(20, {});
    QCOMPARE(opened.join(u' '), u"https://a.b http://c.d/e?f https://a.b http://c.d/e?f"_s);
    QCOMPARE(s.edits.count(), 0);
}

void tst_RichTextBox::menu()
{
    Shown s(note);
    s.box.setMenuNames({u"mnuX"_s, u"mnuXCut"_s, u"mnuXCopy"_s, u"mnuXPaste"_s});
    QMenu* menu = s.box.menu();
    const auto enabled = [&] {
        QContextMenuEvent event(QContextMenuEvent::Keyboard, {5, 5}, s.box.viewport()->mapToGlobal(QPoint(5, 5)));
        QCoreApplication::sendEvent(s.box.viewport(), &event);
        QStringList names;
        for (const QAction* action : menu->actions()) {
            if (menu->isVisible() && action->isEnabled() && action->objectName().startsWith(u"mnuX"))
                names += action->objectName().mid(4);
        }
        menu->close();
        return names.join(u' ');
    };
    QGuiApplication::clipboard()->setMimeData(new QMimeData);
    QCOMPARE(enabled(), QString());
    s.select(0, 4);
    QCOMPARE(enabled(), u"Cut Copy"_s);
    menu->findChild<QAction*>(u"mnuXCut"_s)->trigger();
    QCOMPARE(s.box.toPlainText(), u"twothree\nsecond"_s);
    QCOMPARE(enabled(), u"Paste"_s);
    menu->findChild<QAction*>(u"mnuXPaste"_s)->trigger();
    QCOMPARE(s.box.toPlainText(), u"one twothree\nsecond"_s);
}

void tst_RichTextBox::readOnly()
{
    Shown s(note);
    s.box.setReadOnly(true);
    s.select(0, 5);
    const QString before = s.looks();
    for (int command = 0; command <= static_cast<int>(Command::Indent); ++command)
        s.box.run(static_cast<Command>(command));
    s.box.setPoints(40);
    s.key(Qt::Key_B, Qt::ControlModifier);
    s.key(Qt::Key_X);
    QCOMPARE(s.looks(), before);
    QCOMPARE(s.edits.count(), 0);
}

void tst_RichTextBox::clipboard_data()
{
    QTest::addColumn<Data>("data");
    QTest::addColumn<QString>("part"); // of the description
    const auto row = [](const char* name, const Data& data, const QString& part) {
        QTest::newRow(name) << data << part;
    };
    row("rtf before html", {{u"text/rtf"_s, "{\\rtf1 \\i R}"}, {u"text/html"_s, "<b>H</b>"}, {u"text/plain"_s, "P"}},
        u"x}{ 12 italic -/-|R}"_s);
    row("application/rtf", {{u"application/rtf"_s, "{\\rtf1 \\b R\\par S\\par}"}}, u" bold -/-|R}\n"_s);
    row("broken rtf, good html", {{u"text/rtf"_s, "no"}, {u"text/html"_s, "<b>H</b>"}}, u" bold -/-|H}"_s);
    row("black on white of a web page",
        {{u"text/html"_s, "<p style='color:#000;background:#fff'><span style='background-color:#ffffff'>H</span></p>"}},
        u" -/-|H}"_s);
    row("html with a table and a picture", {{u"text/html"_s, "<table><tr><td>a<td>b</table><img src=x>"}}, u"|a\tb}"_s);
    row("plain", {{u"text/plain"_s, "P\r\nQ"}}, u"|xP}\n[align1 -]{ 0 -/-|Qy}"_s);
    // What the box itself copies.
    Shown s(u"{\\rtf1 a \\b bold\\b0  ż\\par{\\*\\pn\\pnlvlblt}item\\par}"_s);
    s.select(2, 13);
    s.box.run(Command::Copy);
    const QMimeData* mime = QGuiApplication::clipboard()->mimeData();
    row("own rtf", {{u"text/rtf"_s, mime->data(u"text/rtf"_s)}}, u" bold -/-|bold}{DejaVu Sans 12 -/-| ż}"_s);
    row("own html", {{u"text/html"_s, mime->html().toUtf8()}}, u" bold -/-|bold}"_s);
    row("own text", {{u"text/plain"_s, mime->text().toUtf8()}}, u"|xbold ż}\n[align1 -]{ 0 -/-|itemy}"_s);
}

void tst_RichTextBox::clipboard()
{
    QFETCH(Data, data);
    QFETCH(QString, part);
    Shown s(u"xy"_s);
    s.select(1, 1);
    auto* mime = new QMimeData;
    for (auto it = data.cbegin(); it != data.cend(); ++it)
        mime->setData(it.key(), it.value());
    QGuiApplication::clipboard()->setMimeData(mime);
    s.key(Qt::Key_V, Qt::ControlModifier);
    QVERIFY2(s.looks().contains(part), qPrintable(s.looks()));
    QCOMPARE(s.edits.count(), 1);
    s.key(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(s.box.toPlainText(), u"xy"_s);
}

SNIPVALE_TEST(tst_RichTextBox)
#include "tst_RichTextBox.moc"
