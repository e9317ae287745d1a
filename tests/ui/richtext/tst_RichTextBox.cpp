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

namespace {

const QString note = u"{\\rtf1\\ansi{\\fonttbl{\\f0 Arial;}}\\f0\\fs20 one \\b two\\b0 three\\par second\\par}"_s;
const QString withPicture = u"{\\rtf1 a{\\pict 00}b\\trowd\\intbl c\\cell\\row{\\pict 00}}"_s;

void openLinkAt(RichTextBox& box, int position, Qt::KeyboardModifiers modifiers)
{
    QTextCursor cursor(box.document());
    cursor.setPosition(position);
    const QPoint place = box.cursorRect(cursor).center() + QPoint(2, 0);
    QTest::mouseClick(box.viewport(), Qt::LeftButton, modifiers, place);
}

} // namespace

class tst_RichTextBox : public QObject {
    Q_OBJECT
private slots:
    void keepsStoredText_data();
    void keepsStoredText();
    void editsOnlyByTheUser();
    void guard_data();
    void guard();
    void guardBehindTheDoors();
    void formatKeys();
    void typedNext();
    void bulletsAndLevels();
    void listKeys();
    void paragraphIndent();
    void colors();
    void links();
    void typingAfterLink();
    void menu();
    void replaceText();
    void readOnly();
    void clipboard();
    void paste_data();
    void paste();
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
    QFont font = s.box.font();
    font.setPointSize(14);
    s.box.setFont(font);
    s.box.selectAll();
    s.box.copy();
    s.box.resize(200, 300);
    s.key(Qt::Key_End);
    QCoreApplication::processEvents();
    QCOMPARE(s.box.rtf(), stored);
    QCOMPARE(s.edits.count(), 0);

    s.key(Qt::Key_X);
    QCOMPARE(s.edits.count(), 1);
    QVERIFY(s.box.rtf() != stored && s.box.rtf().startsWith(u"{\\rtf1"_s));
    QTextDocument written;
    rtf::read(s.box.rtf(), &written);
    QCOMPARE(written.toPlainText(), s.box.toPlainText());

    s.key(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(s.box.toPlainText(), shown);
    QCOMPARE(s.box.rtf(), stored); // all is as it was, the stored text too
    s.key(Qt::Key_A, Qt::ControlModifier);
    s.key(Qt::Key_Delete);
    QCOMPARE(s.box.rtf(), shown.isEmpty() ? stored : QString());
}

void tst_RichTextBox::editsOnlyByTheUser()
{
    Shown s(note);
    s.key(Qt::Key_X);
    s.box.setRtf(u"{\\rtf1 other}"_s);
    QCOMPARE(s.edits.count(), 1);
    QVERIFY(!s.box.document()->isUndoAvailable());
    s.key(Qt::Key_Z, Qt::ControlModifier); // must not bring the text of another record back
    QCOMPARE(s.box.toPlainText(), u"other"_s);
    s.box.run(RichTextCommand::Bold); // nothing selected: only for what is typed next
    QCOMPARE(s.edits.count(), 1);
    s.box.run(RichTextCommand::Center);
    QCOMPARE(s.edits.count(), 2);
}

void tst_RichTextBox::guard_data()
{
    using Act = std::function<void(Shown&)>;
    QTest::addColumn<Act>("act");
    const auto keyRow = [](const char* name, int key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::newRow(name) << Act([=](Shown& s) { s.key(key, modifiers); });
    };
    const auto commandRow = [](const char* name, RichTextCommand command) {
        QTest::newRow(name) << Act([command](Shown& s) { s.box.run(command); });
    };
    keyRow("letter", Qt::Key_X);
    keyRow("delete", Qt::Key_Delete);
    keyRow("backspace by word", Qt::Key_Backspace, Qt::ControlModifier);
    keyRow("enter", Qt::Key_Return);
    keyRow("tab", Qt::Key_Tab);
    keyRow("cut key", Qt::Key_X, Qt::ControlModifier);
    keyRow("paste key", Qt::Key_V, Qt::ControlModifier);
    keyRow("bold", Qt::Key_B, Qt::ControlModifier);
    commandRow("cut", RichTextCommand::Cut);
    commandRow("paste plain", RichTextCommand::PastePlain);
    commandRow("centre", RichTextCommand::Center);
    commandRow("bullets", RichTextCommand::Bullets);
    commandRow("indent", RichTextCommand::Indent);
    QTest::newRow("font") << Act([](Shown& s) { s.box.setPoints(30); });
    QTest::newRow("replace") << Act([](Shown& s) { s.box.replaceText(u"new"_s); });
    QTest::newRow("input method") << Act([](Shown& s) {
        QInputMethodEvent event(u"日"_s, {});
        QCoreApplication::sendEvent(&s.box, &event);
    });
    QTest::newRow("drop") << Act([](Shown& s) {
        QMimeData mime;
        mime.setText(u"dropped"_s);
        QDragEnterEvent enter({10, 10}, Qt::CopyAction, &mime, Qt::LeftButton, {});
        QCoreApplication::sendEvent(s.box.viewport(), &enter);
        QDropEvent event({10, 10}, Qt::CopyAction, &mime, Qt::LeftButton, {});
        QCoreApplication::sendEvent(s.box.viewport(), &event);
    });
}

void tst_RichTextBox::guard()
{
    QFETCH(std::function<void(Shown&)>, act);
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
    QCOMPARE(asked.size(), 1);
    QVERIFY2(asked[0].contains(u"2 pictures and 1 table that"_s), qPrintable(asked[0]));
    QCOMPARE(s.looks(), before);
    QCOMPARE(s.edits.count(), 0);
    QCOMPARE(s.box.rtf(), withPicture);

    answer = true;
    act(s);
    QVERIFY(s.looks() != before);
    QVERIFY(s.edits.count() > 0);
    QVERIFY(s.box.rtf() != withPicture);
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

void tst_RichTextBox::formatKeys()
{
    Shown s(note);
    s.select(0, 7); // "one two": mixed, so the first stroke makes all of it bold
    const std::pair<int, QString> steps[] = {
        {Qt::Key_B, u" bold -/-|one two}"_s},
        {Qt::Key_B, u"10 -/-|one two"_s},
        {Qt::Key_I, u" italic -/-|one two}"_s},
        {Qt::Key_U, u" italic underline -/-|one two}"_s}, // not "delete the line", as in a plain Qt box
        {Qt::Key_R, u"[align2 "_s},
        {Qt::Key_E, u"[align4 "_s},
    };
    for (const auto& [key, look] : steps) {
        s.key(key, Qt::ControlModifier);
        QVERIFY2(s.looks().contains(look), qPrintable(s.looks()));
    }
    QVERIFY(s.looks().contains(u"\n[align1 "_s)); // the other paragraph is not touched
    for (int i = 0; i < 6; ++i)
        s.key(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(s.box.rtf(), note);
}

void tst_RichTextBox::typedNext()
{
    Shown s;
    s.box.run(RichTextCommand::Bold);
    s.box.setFamily(u"DejaVu Serif"_s);
    s.box.setPoints(22);
    s.box.setColor(QColor(1, 2, 3));
    QCOMPARE(s.edits.count(), 0);
    QTest::keyClicks(&s.box, u"ab"_s);
    QCOMPARE(s.looks(), u"[align1 -]{DejaVu Serif 22 bold #010203/-|ab}\n"_s);
}

void tst_RichTextBox::bulletsAndLevels()
{
    Shown s(u"a\nb\nc\nd"_s);
    s.select(0, 5); // a, b, c
    s.box.run(RichTextCommand::Bullets);
    QCOMPARE(s.looks().count(u"list1 level1"_s), 3);
    s.select(2, 3);
    s.box.run(RichTextCommand::Indent);
    QVERIFY2(s.looks().contains(u"list2 level2 item0"_s) && s.looks().contains(u"list1 level1 item1"_s),
             qPrintable(s.looks()));
    s.box.run(RichTextCommand::Outdent);
    QVERIFY2(s.looks().contains(u"list1 level1 item2]"_s), qPrintable(s.looks()));
    s.select(0, 7); // d has none, so all get one
    QVERIFY(!s.box.look().bullets);
    s.box.run(RichTextCommand::Bullets);
    QVERIFY(s.box.look().bullets);
    s.box.run(RichTextCommand::Bullets);
    QVERIFY2(!s.looks().contains(u"list"_s) && !s.looks().contains(u"left"_s), qPrintable(s.looks()));
    for (int i = 0; i < 5; ++i)
        s.key(Qt::Key_Z, Qt::ControlModifier); // each command is one step
    QCOMPARE(s.box.rtf(), u"a\nb\nc\nd"_s);
}

void tst_RichTextBox::listKeys()
{
    Shown s;
    s.key(Qt::Key_L, Qt::ControlModifier | Qt::ShiftModifier);
    QTest::keyClicks(&s.box, u"a"_s);
    s.key(Qt::Key_Return);
    s.key(Qt::Key_Tab);
    QTest::keyClicks(&s.box, u"b"_s);
    s.key(Qt::Key_Return);
    QCOMPARE(listLevel(s.box.textCursor().block()), 1);
    s.key(Qt::Key_Return);
    QCOMPARE(listLevel(s.box.textCursor().block()), 0);
    s.key(Qt::Key_Return);
    QCOMPARE(listLevel(s.box.textCursor().block()), -1);
    s.key(Qt::Key_Tab);
    QTest::keyClicks(&s.box, u"c"_s);
    QCOMPARE(s.box.toPlainText(), u"a\nb\n\tc"_s);
}

void tst_RichTextBox::paragraphIndent()
{
    Shown s(u"a"_s);
    s.box.run(RichTextCommand::Outdent);
    QVERIFY(!s.looks().contains(u"left"_s));
    s.box.run(RichTextCommand::Indent);
    s.box.run(RichTextCommand::Indent);
    s.box.run(RichTextCommand::Outdent);
    QVERIFY2(s.looks().contains(u"left48"_s), qPrintable(s.looks()));
    QVERIFY(s.box.rtf().contains(u"\\li720"_s));
    for (int i = 0; i < 100; ++i)
        s.box.run(RichTextCommand::Indent);
    QVERIFY(s.box.document()->begin().blockFormat().leftMargin() < 1000);
}

// Text of no colour of its own takes the palette's, and black is such a text.
void tst_RichTextBox::colors()
{
    Shown s(u"{\\rtf1{\\colortbl;\\red255\\green0\\blue0;\\red255\\green255\\blue0;}a\\cf1 b\\cf0\\highlight2 c}"_s);
    QPalette dark = s.box.palette();
    dark.setColor(QPalette::Text, Qt::white);
    dark.setColor(QPalette::Base, QColor(30, 30, 30));
    s.box.setPalette(dark);
    s.select(0, 2);
    s.box.setColor(Qt::black);
    QVERIFY2(s.looks().contains(u"{ 12 -/-|ab}"_s), qPrintable(s.looks()));
    QVERIFY(!s.box.rtf().contains(u"\\cf"_s));
    s.box.setColor(QColor(0, 128, 0));
    QCOMPARE(s.box.look().color, QColor(0, 128, 0));
    QVERIFY(s.box.rtf().contains(u"\\red0\\green128\\blue0;"_s));
    s.select(0, 2);
    s.box.setColor(Qt::black);
    const QImage image =
        s.box.viewport()->grab(s.box.cursorRect(QTextCursor(s.box.document())).adjusted(0, 0, 5, 0)).toImage();
    bool isSeen = false; // black text on the dark page
    for (int x = 0; x < image.width(); ++x) {
        for (int y = 0; y < image.height(); ++y)
            isSeen = isSeen || qGray(image.pixel(x, y)) > 150;
    }
    QVERIFY(isSeen);
}

void tst_RichTextBox::links()
{
    Shown s(
        u"{\\rtf1 {\\field{\\*\\fldinst{HYPERLINK \"https://a.b\"}}{\\fldrslt anchor}} text (see http://c.d/e?f.)}"_s);
    QSignalSpy spy(&s.box, &RichTextBox::linkActivated);
    openLinkAt(s.box, 2, {});
    QCOMPARE(spy.count(), 0);
    openLinkAt(s.box, 2, Qt::ControlModifier);
    QCOMPARE(spy.value(0).value(0).toString(), u"https://a.b"_s);
    openLinkAt(s.box, 9, Qt::ControlModifier);
    QCOMPARE(spy.count(), 1);
    openLinkAt(s.box, 20, Qt::ControlModifier);
    QCOMPARE(spy.value(1).value(0).toString(), u"http://c.d/e?f"_s);
    s.select(0, 0);
    s.key(Qt::Key_Return, Qt::ControlModifier);
    QCOMPARE(spy.value(2).value(0).toString(), u"https://a.b"_s);
    s.box.setReadOnly(true);
    openLinkAt(s.box, 2, {});
    QCOMPARE(spy.count(), 4);
    QCOMPARE(s.edits.count(), 0);
}

void tst_RichTextBox::typingAfterLink()
{
    Shown s(u"{\\rtf1{\\field{\\*\\fldinst{HYPERLINK \"x\"}}{\\fldrslt ab}}}"_s);
    s.select(1, 1);
    s.key(Qt::Key_1);
    s.key(Qt::Key_End);
    s.key(Qt::Key_2);
    s.key(Qt::Key_3);
    QVERIFY2(s.looks().contains(u" x|a1b}"_s) && s.looks().contains(u"{ 12 -/-|23}"_s), qPrintable(s.looks()));
}

void tst_RichTextBox::menu()
{
    Shown s(note);
    s.box.setMenuNames({u"mnuX"_s, u"mnuXCut"_s, u"mnuXCopy"_s, u"mnuXPaste"_s});
    QAction extra(u"Extra"_s);
    s.box.addMenuActions({&extra});
    auto* menu = s.box.findChild<QMenu*>(u"mnuX"_s);
    QVERIFY(menu && menu->actions().contains(&extra));
    const auto item = [menu](const QString& name) { return menu->findChild<QAction*>(name); };
    QGuiApplication::clipboard()->setMimeData(new QMimeData);
    const auto open = [&](QContextMenuEvent::Reason reason) {
        QContextMenuEvent event(reason, QPoint(5, 5), s.box.viewport()->mapToGlobal(QPoint(5, 5)));
        QCoreApplication::sendEvent(s.box.viewport(), &event);
        return menu->isVisible();
    };
    const auto enabled = [&](QContextMenuEvent::Reason reason) {
        QStringList names;
        if (open(reason)) {
            for (const QString& name : {u"mnuXCut"_s, u"mnuXCopy"_s, u"mnuXPaste"_s})
                names += item(name)->isEnabled() ? QStringList(name.mid(4)) : QStringList();
        }
        menu->close();
        return names.join(u' ');
    };
    QCOMPARE(enabled(QContextMenuEvent::Keyboard), QString());
    s.select(0, 4);
    QCOMPARE(enabled(QContextMenuEvent::Mouse), u"Cut Copy"_s);
    item(u"mnuXCut"_s)->trigger();
    QCOMPARE(s.box.toPlainText(), u"twothree\nsecond"_s);
    QCOMPARE(enabled(QContextMenuEvent::Mouse), u"Paste"_s);
    item(u"mnuXPaste"_s)->trigger();
    QCOMPARE(s.box.toPlainText(), u"one twothree\nsecond"_s);
}

void tst_RichTextBox::replaceText()
{
    Shown s(u"{\\rtf1\\qc\\b{\\*\\pn\\pnlvlblt}a\\par b}"_s);
    QVERIFY(s.box.replaceText(u"x\n\ny"_s));
    QCOMPARE(s.edits.count(), 1);
    QCOMPARE(s.looks(), u"[align1 -]{ 0 -/-|x}\n[align1 -]\n[align1 -]{ 0 -/-|y}\n"_s);
    s.key(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(s.box.toPlainText(), u"a\nb"_s);
}

void tst_RichTextBox::readOnly()
{
    Shown s(note);
    s.box.setReadOnly(true);
    s.select(0, 5);
    const QString before = s.looks();
    for (int command = 0; command <= static_cast<int>(RichTextCommand::Indent); ++command)
        s.box.run(static_cast<RichTextCommand>(command));
    s.box.setPoints(40);
    s.key(Qt::Key_B, Qt::ControlModifier);
    s.key(Qt::Key_X);
    QCOMPARE(s.looks(), before);
    QCOMPARE(s.edits.count(), 0);
}

void tst_RichTextBox::clipboard()
{
    Shown s(u"{\\rtf1 a \\b bold\\b0  ż\\par{\\*\\pn\\pnlvlblt}item\\par}"_s);
    s.select(2, 13);
    s.box.run(RichTextCommand::Copy);
    const QMimeData* mime = QGuiApplication::clipboard()->mimeData();
    QCOMPARE(mime->text(), u"bold ż\nitem"_s);
    QVERIFY(mime->html().contains(u"font-weight:"_s));
    for (const QString& type : {u"text/rtf"_s, u"application/rtf"_s}) {
        QTextDocument document;
        QVERIFY(rtf::read(mime->data(type), &document).ok);
        QCOMPARE(document.toPlainText(), u"bold ż\nitem"_s);
        QVERIFY(describe(document).contains(u" bold -/-|bold}"_s));
    }
    Shown other;
    other.box.run(RichTextCommand::Paste);
    QVERIFY2(other.looks().contains(u" bold -/-|bold}"_s) && other.looks().contains(u"list1 level1"_s),
             qPrintable(other.looks()));
}

void tst_RichTextBox::paste_data()
{
    using Data = QMap<QString, QByteArray>;
    QTest::addColumn<Data>("data");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<QString>("part"); // of the description
    const auto row = [](const char* name, const Data& data, const QString& shown, const QString& part) {
        QTest::newRow(name) << data << shown << part;
    };
    row("rtf before html", {{u"text/rtf"_s, "{\\rtf1 \\i R}"}, {u"text/html"_s, "<b>H</b>"}, {u"text/plain"_s, "P"}},
        u"xRy"_s, u" italic -/-|R}"_s);
    row("application/rtf", {{u"application/rtf"_s, "{\\rtf1 \\b R\\par S\\par}"}}, u"xR\nSy"_s, u" bold -/-|R}"_s);
    row("broken rtf, good html", {{u"text/rtf"_s, "no"}, {u"text/html"_s, "<b>H</b>"}}, u"xHy"_s, u" bold -/-|H}"_s);
    row("black on white of a web page",
        {{u"text/html"_s, "<p style='color:#000;background:#fff'><span style='background-color:#ffffff'>H</span></p>"}},
        u"xHy"_s, u" -/-|H}"_s);
    row("html with a table and a picture", {{u"text/html"_s, "<table><tr><td>a<td>b</table><img src=x>"}},
        u"xa\tb\ny"_s, u"|a\tb}"_s);
    row("plain", {{u"text/plain"_s, "P\r\nQ"}}, u"xP\nQy"_s, u"|xP}"_s);
}

void tst_RichTextBox::paste()
{
    using Data = QMap<QString, QByteArray>;
    QFETCH(Data, data);
    QFETCH(QString, shown);
    QFETCH(QString, part);
    Shown s(u"xy"_s);
    s.select(1, 1);
    auto* mime = new QMimeData;
    for (auto it = data.cbegin(); it != data.cend(); ++it)
        mime->setData(it.key(), it.value());
    QGuiApplication::clipboard()->setMimeData(mime);
    QVERIFY(s.box.canPaste());
    s.key(Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(s.box.toPlainText(), shown);
    QVERIFY2(s.looks().contains(part), qPrintable(s.looks()));
    QCOMPARE(s.edits.count(), 1);
    s.key(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(s.box.toPlainText(), u"xy"_s);
}

SNIPVALE_TEST(tst_RichTextBox)
#include "tst_RichTextBox.moc"
