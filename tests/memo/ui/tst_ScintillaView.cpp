// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "memo/code/ui/CodeEditorAccessible.h"
#include "memo/code/ui/frmScintillaFind.h"
#include "support/CoreSupport.h"
#include "support/Registry.h"

#include <QtTest>
#include <QtWidgets>
#include <bit>

using namespace Qt::StringLiterals;
using Qsci = QsciScintillaBase;

namespace {

// The editor, as the memo window sets it up.
struct Pane : ArchiveFixture {
    explicit Pane(const QByteArray& text = QByteArray())
    {
        view.resize(500, 300);
        code.Init();
        code.SetLexerDefault();
        view.setHandler(&code);
        view.setText(text);
        view.show();
    }
    ~Pane() { view.setHandler(nullptr); }
    long get(unsigned message, unsigned long parameter = 0, long second = 0)
    {
        return view.SendScintilla(message, parameter, second);
    }
    std::intptr_t firstStyle()
    {
        get(Qsci::SCI_COLOURISE, 0, -1);
        return view.send(SCI.GETSTYLEAT, 0);
    }
    ScintillaView view;
    cScintilla code{view, archive};
    QSignalSpy edited{&view, &ScintillaView::edited};
};

const auto allMessages = std::bit_cast<std::array<EditorMessage, sizeof(EditorMessages) / sizeof(EditorMessage)>>(SCI);

// Events for a screen reader, in words.
QString worded(const CodeEditorAccessible::Events& events)
{
    QStringList words;
    for (const auto& event : events) {
        if (const auto* inserted = dynamic_cast<QAccessibleTextInsertEvent*>(event.get()))
            words.append(u"+%1 %2"_s.arg(inserted->changePosition()).arg(inserted->textInserted()));
        else if (const auto* removed = dynamic_cast<QAccessibleTextRemoveEvent*>(event.get()))
            words.append(u"-%1 %2"_s.arg(removed->changePosition()).arg(removed->textRemoved()));
        else if (const auto* chosen = dynamic_cast<QAccessibleTextSelectionEvent*>(event.get()))
            words.append(u"selected %1 to %2"_s.arg(chosen->selectionStart()).arg(chosen->selectionEnd()));
        else if (const auto* caret = dynamic_cast<QAccessibleTextCursorEvent*>(event.get()))
            words.append(u"caret %1"_s.arg(caret->cursorPosition()));
    }
    return words.join(u", "_s);
}

const QString sample = u"Сниппет 日本\nif \U0001F642 żab\nend"_s;

// What a screen reader gets from the editor.
struct Reader : Pane {
    Reader() : Pane(sample.toUtf8()) { }
    QAccessibleInterface& reader = *QAccessible::queryAccessibleInterface(&view);
    QAccessibleTextInterface& text = *reader.textInterface();
};

using Range = std::pair<qsizetype, qsizetype>;

// The editor and its search dialog.
struct Finder : Pane {
    Finder() { dialog.show(); }
    void press(const char* button) { dialog.findChild<QAbstractButton*>(QLatin1String(button))->click(); }
    Range selection() { return {view.send(SCI.GETSELECTIONSTART), view.send(SCI.GETSELECTIONEND)}; }
    frmScintillaFind dialog{code, questions};
    QLineEdit& wanted = *dialog.findChild<QLineEdit*>(u"txtFind"_s);
    const QString endReached = u"Search reached end of document"_s;
};

} // namespace

class tst_ScintillaView : public QObject {
    Q_OBJECT
private slots:
    // A text comes back byte by byte, and nothing of the one before is left.
    void text()
    {
        Pane p;
        for (const QByteArray& text : {"a\r\nb\rc\nd\n\re\r"_ba, "\xEF\xBB\xBFx 日本 \U0001F642\u0301\n"_ba,
                                       QByteArray("\0a\0\0\r\nb\0", 8), "\xFF\xC0\x80 a\xE9"_ba, ""_ba}) {
            p.view.setText("one\ntwo\nthree\n"_ba.repeated(100));
            p.code.setCurLine(1);
            p.code.AddBookmark();
            QTest::keyClick(&p.view, Qt::Key_X);
            p.code.setCurLine(200);
            QVERIFY(p.get(Qsci::SCI_CANUNDO) && p.get(Qsci::SCI_MARKERGET, 0) == 1);
            p.view.setText(text);
            p.view.send(SCI.UNDO);
            QVERIFY(p.view.text() == text);
            QVERIFY(p.code.CurPosition() == 0 && p.get(Qsci::SCI_MARKERGET, 0) == 0);
        }
        p.view.setText("one\n\ttwo\nthree");
        p.code.setCurLine(2);
        p.code.AddBookmark();
        QCOMPARE(p.get(Qsci::SCI_MARKERGET, 1), 1);
        p.code.setCurPosition(5); // behind the tab
        QVERIFY(p.code.Column() == 4 && p.code.CurLine() == 2 && p.code.CharAtPos(5) == 't');
        p.code.setCurLine(1000);
        QCOMPARE(p.code.CurPosition(), 9);
        p.code.setCurPosition(1000);
        QCOMPARE(p.code.CurPosition(), 14);
        p.code.setCurPosition(-3);
        QCOMPARE(p.code.CurPosition(), 0);
    }

    void edits()
    {
        const QByteArray zeros("z\0z", 3);
        Pane p(zeros);
        p.code.SetLexer(1);
        p.view.send(SCI.SELECTALL);
        QCOMPARE(p.edited.size(), 0);
        QTest::keyClick(&p.view, Qt::Key_Z); // replaces the selection
        p.edited.clear();
        p.view.send(SCI.UNDO);
        QVERIFY(!p.edited.isEmpty() && p.view.text() == zeros);
        p.edited.clear();
        {
            const ScintillaView::Silence silence(p.view);
            p.view.setText("x"); // its own silence must not end this one
            p.view.send(SCI.SELECTALL);
            p.view.send(SCI.CLEAR);
        }
        QCOMPARE(p.edited.size(), 0);
        QTest::keyClick(&p.view, Qt::Key_A);
        QCOMPARE(p.edited.size(), 1);
    }

    void foldingByMouse()
    {
        Pane p("int f()\n{\n    a();\n    b();\n}\nint needle;\n");
        p.code.SetLexer(SCLEX_CPP);
        p.get(Qsci::SCI_COLOURISE, 0, -1);
        QVERIFY(QTest::qWaitForWindowExposed(&p.view));
        const QPoint box(25 + 16 + 8, p.view.rectAt(8).center().y());
        const auto isVisible = [&p](unsigned long line) { return p.get(Qsci::SCI_GETLINEVISIBLE, line) != 0; };
        QTest::mouseClick(p.view.viewport(), Qt::LeftButton, {}, box);
        QVERIFY(!isVisible(2) && !isVisible(3) && isVisible(5));
        // A match inside the fold is brought to light.
        QCOMPARE(p.code.Find(u"b()"_s, 0, 0), 23);
        QVERIFY(isVisible(3));
        QTest::mouseClick(p.view.viewport(), Qt::LeftButton, {}, box);
        // A language without folds shows everything again.
        p.code.SetLexer(1);
        QVERIFY(isVisible(3));
        QCOMPARE(p.view.send(SCI.GETFOLDLEVEL, 1), 0x400);
    }

    // Random sequences of messages with values that would end the process; and state left by one message must not make
    // the next one deadly. What is left is that the process lives and the text is readable.
    void wildMessages()
    {
        Pane p;
        const QByteArray text = "int f(x)\n{\n  żółć 日本\n}\n"_ba;
        using Limits = std::numeric_limits<std::intptr_t>;
        const std::intptr_t wild[] = {-2,      255,       256,       1000,          100000,
                                      -100000, 1LL << 31, 1LL << 40, Limits::max(), Limits::min()};
        QRandomGenerator random(17);
        const auto value = [&] { return random.bounded(3) == 0 ? wild[random.bounded(10)] : random.bounded(-1, 40); };
        for (int round = 0; round < 100000; ++round) {
            const EditorMessage& message = allMessages[random.bounded(quint32(allMessages.size()))];
            const auto w = static_cast<std::uintptr_t>(value());
            if (random.bounded(4) == 0)
                p.view.send(message, w, text.first(random.bounded(10)));
            else
                p.view.send(message, w, value());
            if (p.view.send(SCI.GETLENGTH) > 2000)
                p.view.setText(text);
            if (round % 100 < 2)
                p.get(Qsci::SCI_SETREADONLY, round % 2);
            if (round % 500 == 0)
                p.view.grab();
        }
        for (const EditorMessage& message : allMessages)
            p.view.send(message, "fold"_ba, ""_ba);
        p.view.setText(text);
        QCOMPARE(p.view.text(), text);
        QCOMPARE(p.view.send(SCI.GETCHARAT, 100), 0);
        QCOMPARE(p.view.send(SCI.SETTEXT, 0, 4096), 0); // a number is never taken for an address
        p.view.send(SCI.BRACEBADLIGHT, static_cast<std::uintptr_t>(-1)); // but minus one is none
    }

    void languageLeavesNothing()
    {
        Pane p("int a;\n");
        ArchiveUnit(p.archive).Execute(
            u"UPDATE tab_style SET fontName = 'Serif', fontSize = 17, foreColor = 255, backColor = 65535, "
            "bold = true, italic = true, underline = true, invisible = true, [case] = 1 WHERE lexerCode = 'SCLEX_CPP'"_s);
        const auto looks = [&p] {
            QList<long> all; // of a font's name its length
            for (unsigned long style = 0; style < 128; ++style) {
                for (unsigned message = Qsci::SCI_STYLEGETFORE; message <= Qsci::SCI_STYLEGETVISIBLE; ++message)
                    all.append(p.get(message, style));
            }
            return all;
        };
        const QList<long> plain = looks();
        p.code.SetLexer(SCLEX_CPP);
        QCOMPARE(p.get(Qsci::SCI_STYLEGETFORE, 5), 255);
        QCOMPARE(p.get(Qsci::SCI_STYLEGETSIZE, 5), 17);
        QCOMPARE(p.firstStyle(), 5);
        for (const qint32 other : {0, 9001, 57003}) { // none of them has a style
            p.code.SetLexer(other);
            QCOMPARE(looks(), plain);
            QVERIFY(p.firstStyle() != 5); // words of the language before are gone, also within one lexer
            p.code.SetLexer(SCLEX_CPP);
        }
    }

    void reader()
    {
        Reader r;
        QCOMPARE(r.reader.role(), QAccessible::EditableText);
        QCOMPARE(r.reader.text(QAccessible::Name), u"Code"_s);
        QCOMPARE(r.reader.text(QAccessible::Value), sample);
        QVERIFY(r.reader.state().multiLine && r.reader.state().editable);
        QCOMPARE(r.text.characterCount(), sample.size());
        const std::tuple<int, int, QString> parts[] = {
            {0, -1, sample}, {8, 10, u"日本"_s}, {14, 16, u"\U0001F642"_s}, {-5, 3, u"Сни"_s}, {9, 8, {}}};
        for (const auto& [from, to, text] : parts)
            QCOMPARE(r.text.text(from, to), text);
        QVERIFY(QTest::qWaitForWindowExposed(&r.view));
        const QRect first = r.text.characterRect(11);
        const QRect next = r.text.characterRect(12);
        QVERIFY(first.height() > 5 && r.reader.rect().contains(first) && next.left() == first.right() + 1);
        QCOMPARE(r.text.offsetAtPoint(next.center() - QPoint(1, 0)), 12);
        // Inside a pair the caret goes before it.
        for (const auto& [asked, got] : {std::pair(10, 10), {15, 14}, {100000, int(sample.size())}, {-4, 0}}) {
            r.text.setCursorPosition(asked);
            QCOMPARE(r.text.cursorPosition(), got);
        }
        QCOMPARE(r.text.selectionCount(), 0);
        r.text.setSelection(0, 16, 20);
        QCOMPARE(r.text.selectionCount(), 1);
        int start = 0;
        int end = 0;
        r.text.selection(0, &start, &end);
        QCOMPARE(r.text.text(start, end), u" żab"_s);
        QCOMPARE(worded(CodeEditorAccessible::caretEvents(r.view)), u"caret 20, selected 16 to 20"_s);
        r.text.removeSelection(0);
        QCOMPARE(r.text.selectionCount(), 0);
        QStringList changes;
        connect(&r.view, &Qsci::SCN_MODIFIED, this, [&](int position, int type, const char* text, int length) {
            changes.append(worded(CodeEditorAccessible::changeEvents(r.view, position, QByteArray(text, length),
                                                                     (type & Qsci::SC_MOD_INSERTTEXT) != 0)));
        });
        r.text.setCursorPosition(10); // behind the two ideographs
        QTest::keyClick(&r.view, Qt::Key_X);
        QTest::keyClick(&r.view, Qt::Key_Backspace);
        QCOMPARE(changes, QStringList({u"+10 x"_s, u"-10 x"_s}));
        QAccessibleEditableTextInterface& edit = *r.reader.editableTextInterface();
        edit.replaceText(14, 16, u"ż"_s);
        edit.insertText(0, u"\U0001F642"_s);
        edit.deleteText(2, 10);
        QCOMPARE(QString::fromUtf8(r.view.text()), u"\U0001F642日本\nif ż żab\nend"_s);
    }

    void findsOneAfterAnother()
    {
        Finder f;
        for (const auto& [button, message] :
             {std::pair("cmkFind", u"Enter text to find"_s), {"cmdReplace", u"Enter text to replace"_s}}) {
            f.questions.expect(message);
            f.press(button);
        }
        f.view.setText("żab zab żab"); // ż is two bytes
        f.code.setCurPosition(7); // does not matter: a dialog's first search begins at the top
        f.wanted.setText(u"ab"_s);
        f.press("cmkFind");
        QCOMPARE(f.selection(), Range(2, 4));
        QTest::keyClick(&f.wanted, Qt::Key_Return);
        QCOMPARE(f.selection(), Range(6, 8));
        f.wanted.setText(u"ŻAB"_s); // letter case of any script
        f.press("cmkFind");
        QCOMPARE(f.selection(), Range(9, 13));
        f.questions.expect(f.endReached);
        f.press("cmkFind");
        QCOMPARE(f.selection(), Range(9, 13));
        f.press("cmkFind"); // and from the top again
        QCOMPARE(f.selection(), Range(0, 4));
        f.dialog.close();
        f.dialog.show();
        f.press("cmkFind"); // a dialog that opens begins at the top
        QCOMPARE(f.selection(), Range(0, 4));
        f.view.setText("ŻAB"); // the last match is now far behind the end
        f.questions.expect(f.endReached);
        f.press("cmkFind");
        f.press("cmkFind");
        QCOMPARE(f.selection(), Range(0, 4));
        f.press("cmdClose");
        QVERIFY(!f.dialog.isVisible());
    }

    void findFlags()
    {
        const std::tuple<bool, bool, Range> rows[] = {
            {false, false, {0, 2}}, {true, false, {4, 6}}, {false, true, {8, 10}}, {true, true, {11, 13}}};
        for (const auto& [matchCase, wholeWord, found] : rows) {
            Finder f;
            f.view.setText("Ifs if_ IF if");
            f.wanted.setText(u"if"_s);
            if (matchCase)
                f.press("chkMatchCase");
            if (wholeWord)
                f.press("chkWholeWord");
            f.press("cmkFind");
            QCOMPARE(f.selection(), found);
        }
    }

    void replaces()
    {
        // Text, what to find, what to put there, result.
        const std::tuple<QString, QString, QString, QString> rows[] = {
            {u"a.a"_s, u"a"_s, u"aa"_s, u"aa.aa"_s}, // holds the searched text
            {u"aab"_s, u"ab"_s, u"b"_s, u"ab"_s}, // neighbours join to a new match
            {u"\U0001F642日 日\U0001F642"_s, u"日"_s, u"ждж"_s, u"\U0001F642ждж ждж\U0001F642"_s},
            {{}, u"a"_s, u"b"_s, {}}};
        for (const auto& [text, find, replacement, result] : rows) {
            Finder f;
            f.view.setText(text.toUtf8());
            f.wanted.setText(find);
            f.dialog.findChild<QLineEdit*>(u"txtReplace"_s)->setText(replacement);
            f.questions.expect(f.endReached);
            for (int presses = 0; f.questions.asked.isEmpty() && presses < 10; ++presses)
                f.press("cmdReplace");
            QCOMPARE(QString::fromUtf8(f.view.text()), result);
        }
    }
};

SNIPVALE_TEST(tst_ScintillaView)
#include "tst_ScintillaView.moc"
