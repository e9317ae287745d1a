// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Registry.h"
#include "ui/richtext/RichTextSupport.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QInputMethodEvent>
#include <QMenu>
#include <QMimeData>

using namespace Qt::StringLiterals;
using Command = RichTextCommand;
using Act = std::function<void(Shown&)>;

namespace {

const QString note = u"{\\rtf1\\ansi{\\fonttbl{\\f0 Arial;}}\\f0\\fs20 one \\b two\\b0 three\\par second\\par}"_s;
// Two pictures, the second written for old and new readers, one table of two rows, one object.
const QString withPicture =
    u"{\\rtf1 a{\\pict 00}b\\trowd\\intbl c\\cell\\row\\trowd\\intbl d\\cell\\row{\\*\\shppict{\\pict 00}}"
    "{\\nonshppict{\\pict 01}}{\\*\\foo x}{\\object{\\*\\objdata 00}}}"_s;

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
    void keepsStoredText()
    {
        const std::pair<QString, QString> rows[] = {
            {note, u"one twothree\nsecond"_s},
            // Characters above ASCII are no bytes of the file's code page.
            {u" {\\rtf1\\ansi\\ansicpg1251{\\*\\bar y}\\foo  é日😀\\'cf\\u322ły} tail \0"_s, u" é日😀Пły"_s},
            {u"just\r\n{text} ż"_s, u"just\n{text} ż"_s},
            {QString(), QString()},
            {withPicture, u"abc\nd"_s},
        };
        for (const auto& [stored, shown] : rows) {
            Shown s(stored);
            s.box.setConfirm([](const QString&) { return true; });
            QCOMPARE(s.box.toPlainText(), shown);
            s.box.setFont(QFont(u"DejaVu Sans"_s, 14));
            s.box.run(Command::Bold); // nothing selected: only for what is typed next
            QCoreApplication::processEvents();
            QVERIFY(s.box.rtf() == stored && s.edits.count() == 0);
            s.key(Qt::Key_X);
            QCOMPARE(s.edits.count(), 1);
            QTextDocument written;
            rtf::read(s.box.rtf(), &written);
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
    }

    void guard()
    {
        const Act replace = [](Shown& s) { s.box.replaceText(u"new"_s); };
        QList<Act> acts = {key(Qt::Key_X), key(Qt::Key_Backspace), key(Qt::Key_Return), replace, inputText, dropText};
        for (const Command command : {Command::Paste, Command::Bold, Command::Cut, Command::PastePlain, Command::Center,
                                      Command::Bullets, Command::Indent})
            acts.append(run(command));
        for (const Act& act : acts) {
            QGuiApplication::clipboard()->setText(u"clip"_s);
            Shown s(withPicture);
            s.select(1, 2);
            const QString before = s.looks();
            act(s); // nobody to ask: safe
            QCOMPARE(s.looks(), before);
            int asked = 0;
            bool answer = false;
            s.box.setConfirm([&](const QString& message) {
                asked += int(message.contains(u"2 pictures, 1 table and 1 embedded object that"));
                return answer;
            });
            act(s);
            QVERIFY(asked > 0 && s.looks() == before && s.edits.count() == 0 && s.box.rtf() == withPicture);
            answer = true;
            act(s);
            QVERIFY(s.looks() != before && s.edits.count() > 0 && s.box.rtf() != withPicture);
            act(s);
            QCOMPARE(asked, 2); // one Yes is enough
            s.box.setRtf(withPicture);
            s.select(1, 2);
            act(s);
            QCOMPARE(asked, 3); // another text, another question
        }
    }

    void guardBehindTheDoors()
    {
        Shown s(withPicture);
        bool answer = false;
        int asked = 0;
        s.box.setConfirm([&](const QString&) { return ++asked > 0 && answer; });
        s.box.insertPlainText(u"zz"_s);
        QCOMPARE(s.box.rtf(), withPicture);
        QTRY_COMPARE(asked, 1);
        QVERIFY(s.box.toPlainText() == u"abc\nd" && s.edits.count() == 0);
        answer = true;
        s.box.insertPlainText(u"zz"_s);
        QTRY_COMPARE(s.edits.count(), 1);
        QVERIFY(s.box.rtf().contains(u"zz"_s));
    }

    void looks()
    {
        struct Row {
            QString stored;
            int from, to;
            QList<Act> acts;
            QStringView part; // of the description
        };
        const auto ctrl = [](int k) { return key(k, Qt::ControlModifier); };
        const Act black = [](Shown& s) { s.box.setColor(Qt::black); };
        const Act replace = [](Shown& s) { s.box.replaceText(u"x\n\ny"_s); };
        const Act second = [](Shown& s) { s.select(2, 3); };
        const Act indent = run(Command::Indent), outdent = run(Command::Outdent), bullets = run(Command::Bullets);
        const Row rows[] = {
            {note, 0, 7, {ctrl(Qt::Key_B)}, u" bold -/-|one two}"},
            {note, 0, 7, {ctrl(Qt::Key_I), ctrl(Qt::Key_U)}, u" italic underline -/-|one }"}, // not delete the line
            {note, 0, 0, {ctrl(Qt::Key_R), ctrl(Qt::Key_E)}, u"[align4 -]{Arial 10 -/-|one }"},
            {u"{\\rtf1{\\colortbl;\\red255;}a\\cf1 b}"_s, 0, 2, {black}, u"{ 12 -/-|ab}"},
            {u"a\nb\nc"_s,
             0,
             5,
             {bullets, second, indent},
             u"list1 level1 item0]{ 0 -/-|a}\n[align1 - list2 level2 item0]{ 0 -/-|b}"},
            {u"a\nb\nc"_s, 0, 5, {bullets, second, indent, outdent}, u"list1 level1 item2]{ 0 -/-|c}"},
            {u"a\nb"_s, 0, 3, {bullets, bullets}, u"[align1 -]{ 0 -/-|a}\n[align1 -]{ 0 -/-|b}"},
            {u"a"_s, 0, 0, {outdent, indent, indent, outdent}, u"[align1 left48 -]"}, // never out on the left
            {u"{\\rtf1\\qc\\b a\\par b}"_s, 0, 0, {replace}, u"[align1 -]{ 0 -/-|x}\n[align1 -]\n[align1 -]{ 0 -/-|y}"},
        };
        for (const Row& row : rows) {
            Shown s(row.stored);
            s.select(row.from, row.to);
            for (const Act& act : row.acts)
                act(s);
            QVERIFY2(s.looks().contains(row.part), qPrintable(s.looks()));
            while (s.box.document()->isUndoAvailable())
                s.key(Qt::Key_Z, Qt::ControlModifier);
            QCOMPARE(s.box.rtf(), row.stored);
        }
    }

    void typing()
    {
        Shown s;
        s.box.run(Command::Bold);
        s.box.setPoints(22);
        s.box.setColor(QColor(1, 2, 3));
        QCOMPARE(s.edits.count(), 0);
        QTest::keyClicks(&s.box, u"ab"_s);
        QCOMPARE(s.looks(), u"[align1 -]{ 22 bold #010203/-|ab}\n"_s);

        Shown list;
        list.box.run(Command::Bullets);
        for (const int k : {Qt::Key_A, Qt::Key_Return, Qt::Key_Tab, Qt::Key_B})
            list.key(k);
        for (const int level : {1, 0, -1}) {
            list.key(Qt::Key_Return);
            QCOMPARE(listLevel(list.box.textCursor().block()), level);
        }
        list.key(Qt::Key_Tab);
        QCOMPARE(list.box.toPlainText(), u"a\nb\n\t"_s);

        Shown link(u"{\\rtf1{\\field{\\*\\fldinst{HYPERLINK \"x\"}}{\\fldrslt ab}}}"_s);
        link.select(1, 1);
        for (const int k : {Qt::Key_1, Qt::Key_End, Qt::Key_2})
            link.key(k);
        QVERIFY2(link.looks().contains(u" x|a1b}{ 12 -/-|2}"_s), qPrintable(link.looks()));
    }

    void links()
    {
        Shown s(
            u"{\\rtf1 {\\field{\\*\\fldinst{HYPERLINK \"https://a.b\"}}{\\fldrslt anchor}} text (see http://c.d/e?f.)}"_s);
        QStringList opened;
        connect(&s.box, &RichTextBox::linkActivated, this, [&](const QString& address) { opened.append(address); });
        const auto click = [&](int position, Qt::KeyboardModifiers modifiers) {
            s.select(position, position);
            const QPoint place = s.box.cursorRect().center() + QPoint(2, 0);
            QTest::mouseClick(s.box.viewport(), Qt::LeftButton, modifiers, place);
        };
        click(2, {});
        for (const int position : {2, 9, 20})
            click(position, Qt::ControlModifier);
        s.select(0, 0);
        s.key(Qt::Key_Return, Qt::ControlModifier);
        s.box.setReadOnly(true);
        click(20, {});
        QCOMPARE(opened.join(u' '), u"https://a.b http://c.d/e?f https://a.b http://c.d/e?f"_s);
    }

    void readOnly()
    {
        Shown s(note);
        s.box.setReadOnly(true);
        s.select(0, 5);
        const QString before = s.looks();
        const auto edits = s.edits.count();
        for (int command = 0; command <= static_cast<int>(Command::Indent); ++command)
            s.box.run(static_cast<Command>(command));
        s.key(Qt::Key_X);
        QVERIFY(s.looks() == before && s.edits.count() == edits);
    }

    void clipboard()
    {
        struct Row {
            QByteArray rtf, html, text;
            QStringView part; // of the description
        };
        QList<Row> rows = {
            {"{\\rtf1 \\i R\\par S\\par}", "<b>H</b>", "P", u"x}{ 12 italic -/-|R}\n"},
            {"no", "<b>H</b>", {}, u" bold -/-|H}"},
            // The black on white of a web page.
            {{}, "<p style='color:#000;background:#fff'><span style='background:#fff'>H</span></p>", {}, u" -/-|H}"},
            {{}, "<table><tr><td>a<td>b<tr><td>c<td>d</table><img src=x>", {}, u"|a\tb}"},
            {{}, {}, "P\r\nQ", u"|xP}\n[align1 -]{ 0 -/-|Qy}"}};
        // What the box itself copies.
        Shown own(u"{\\rtf1 a \\b bold\\b0  ż\\par{\\*\\pn\\pnlvlblt}item\\par}"_s);
        own.select(2, 13);
        own.box.run(Command::Copy);
        const QMimeData* copied = QGuiApplication::clipboard()->mimeData();
        rows.append({copied->data(u"text/rtf"_s), {}, {}, u" bold -/-|bold}{DejaVu Sans 12 -/-| ż}"});
        rows.append({{}, copied->html().toUtf8(), {}, u" bold -/-|bold}"});
        rows.append({{}, {}, copied->text().toUtf8(), u"|xbold ż}\n[align1 -]{ 0 -/-|itemy}"});
        for (const auto& [rtf, html, text, part] : rows) {
            Shown s(u"xy"_s);
            s.select(1, 1);
            auto* mime = new QMimeData;
            for (const auto& [type, data] : {std::pair("text/rtf", rtf), {"text/html", html}, {"text/plain", text}})
                if (!data.isEmpty())
                    mime->setData(QString::fromLatin1(type), data);
            QGuiApplication::clipboard()->setMimeData(mime);
            s.key(Qt::Key_V, Qt::ControlModifier);
            QVERIFY2(s.looks().contains(part), qPrintable(s.looks()));
            QCOMPARE(s.edits.count(), 1);
            s.key(Qt::Key_Z, Qt::ControlModifier);
            QCOMPARE(s.box.toPlainText(), u"xy"_s);
        }
    }
};

SNIPVALE_TEST(tst_RichTextBox)
#include "tst_RichTextBox.moc"
