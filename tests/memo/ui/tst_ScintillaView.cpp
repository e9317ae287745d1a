// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/CoreSupport.h"
#include "support/Registry.h"

#include "memo/code/cScintilla.h"
#include "memo/code/ui/ScintillaView.h"

#include <QClipboard>
#include <QDropEvent>
#include <QGuiApplication>
#include <QLineEdit>
#include <QMimeData>
#include <QRandomGenerator>
#include <QSignalSpy>
#include <QVBoxLayout>
#include <QtTest>
#include <bit>

using namespace Qt::StringLiterals;
using Qsci = QsciScintillaBase;

namespace {

// The editor in a window, as the memo window sets it up, and a neighbour for the keyboard.
struct Pane : ArchiveFixture {
    Pane()
    {
        layout.addWidget(&view);
        layout.addWidget(&neighbour);
        window.resize(500, 300);
        code.Init();
        code.SetLexerDefault();
        view.setHandler(&code);
        window.show();
        view.setFocus();
    }
    ~Pane()
    {
        view.setHandler(nullptr);
        view.setParent(nullptr);
        neighbour.setParent(nullptr);
    }
    long get(unsigned message, unsigned long parameter = 0, long second = 0)
    {
        return view.SendScintilla(message, parameter, second);
    }
    std::intptr_t firstStyle()
    {
        get(Qsci::SCI_COLOURISE, 0, -1);
        return view.send(SCI.GETSTYLEAT, 0);
    }
    QWidget window;
    QVBoxLayout layout{&window};
    ScintillaView view;
    QLineEdit neighbour;
    cScintilla code{view, archive};
    QSignalSpy edited{&view, &ScintillaView::edited};
};

const auto allMessages = std::bit_cast<std::array<EditorMessage, sizeof(EditorMessages) / sizeof(EditorMessage)>>(SCI);

} // namespace

class tst_ScintillaView : public QObject {
    Q_OBJECT
private slots:
    void setUp();
    void text();
    void caretAndBookmarks();
    void edits();
    void pasteAndDrop();
    void keyboard();
    void numberMargin();
    void foldingByMouse();
    void wildArguments();
    void wildNeighbours();
    void languageLeavesNothing();
};

// What Init asks for, as the component understood it.
void tst_ScintillaView::setUp()
{
    Pane p;
    const std::tuple<unsigned, unsigned long, long> expected[] = {
        {Qsci::SCI_GETTABWIDTH, 0, 4},
        {Qsci::SCI_GETINDENT, 0, 4},
        {Qsci::SCI_GETCARETPERIOD, 0, 400},
        {Qsci::SCI_GETEOLMODE, 0, Qsci::SC_EOL_LF},
        {Qsci::SCI_GETINDENTATIONGUIDES, 0, Qsci::SC_IV_LOOKBOTH},
        {Qsci::SCI_GETMODEVENTMASK, 0, Qsci::SC_MOD_INSERTTEXT | Qsci::SC_MOD_DELETETEXT},
        {Qsci::SCI_GETMARGINWIDTHN, 0, 25},
        {Qsci::SCI_GETMARGINWIDTHN, 1, 16},
        {Qsci::SCI_GETMARGINWIDTHN, 2, 16},
        {Qsci::SCI_GETMARGINMASKN, 2, long(Qsci::SC_MASK_FOLDERS)},
        {Qsci::SCI_GETMARGINSENSITIVEN, 2, 1},
        {Qsci::SCI_MARKERSYMBOLDEFINED, 0, Qsci::SC_MARK_CIRCLE},
        {Qsci::SCI_MARKERSYMBOLDEFINED, Qsci::SC_MARKNUM_FOLDER, Qsci::SC_MARK_PLUS},
        {Qsci::SCI_MARKERSYMBOLDEFINED, Qsci::SC_MARKNUM_FOLDEROPEN, Qsci::SC_MARK_MINUS},
        {Qsci::SCI_MARKERSYMBOLDEFINED, Qsci::SC_MARKNUM_FOLDERTAIL, Qsci::SC_MARK_EMPTY},
    };
    for (const auto& [message, parameter, value] : expected)
        QVERIFY2(qint32(p.get(message, parameter)) == qint32(value),
                 qPrintable(u"%1 of %2"_s.arg(message).arg(parameter)));
    p.code.SetDisplayFolding(false);
    p.code.SetDisplaySelection(false);
    QVERIFY(p.get(Qsci::SCI_GETMARGINWIDTHN, 1) == 0 && p.get(Qsci::SCI_GETMARGINWIDTHN, 2) == 0);
    const long paper = p.get(Qsci::SCI_STYLEGETBACK, STYLE_DEFAULT);
    const long match = p.get(Qsci::SCI_STYLEGETBACK, STYLE_BRACELIGHT),
               bad = p.get(Qsci::SCI_STYLEGETBACK, STYLE_BRACEBAD);
    QVERIFY(match != paper && bad != paper && match != bad);
    p.view.setText("a\r\nb\rc");
    p.code.Init();
    QCOMPARE(p.view.text(), "a\nb\nc"_ba);
}

// A text comes back byte by byte, and nothing of the one before is left.
void tst_ScintillaView::text()
{
    Pane p;
    for (const QByteArray& text :
         {"a\r\nb\rc\nd\n\re\r"_ba, u"Zażółć\tgęślą 日本語 \U0001F642\u0301\u200D\n"_s.toUtf8(), "\xEF\xBB\xBFx"_ba,
          QByteArray("\0a\0\0\r\nb\0", 8), "\xFF\xC0\x80 a\xE9"_ba, "0123456789\r\n"_ba.repeated(100000), ""_ba}) {
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
}

void tst_ScintillaView::caretAndBookmarks()
{
    Pane p;
    p.view.setText("one\n\ttwo\nthree");
    p.code.setCurLine(2);
    p.code.AddBookmark();
    QCOMPARE(p.get(Qsci::SCI_MARKERGET, 1), 1);
    p.code.setCurPosition(5); // behind the tab
    QVERIFY(p.code.Column() == 4 && p.code.CurLine() == 2 && p.code.CharAtPos(5) == 't');
    QStringList places;
    for (const std::intptr_t wild : {1000, -3}) {
        p.code.setCurLine(wild);
        places.append(QString::number(p.code.CurPosition()));
        p.code.setCurPosition(wild);
        places.append(QString::number(p.code.CurPosition()));
    }
    QCOMPARE(places.join(u' '), u"9 14 0 0"_s);
}

void tst_ScintillaView::edits()
{
    Pane p;
    const auto isEdit = [&p](const auto& act) {
        p.edited.clear();
        act();
        return !p.edited.isEmpty();
    };
    const QByteArray zeros("z\0z", 3);
    QVERIFY(!isEdit([&] {
        p.view.setText(zeros);
        p.code.SetLexer(1);
        p.view.send(SCI.SELECTALL);
    }));
    QVERIFY(isEdit([&] { QTest::keyClick(&p.view, Qt::Key_Z); })); // replaces the selection
    QVERIFY(isEdit([&] { p.view.send(SCI.UNDO); }) && p.view.text() == zeros);
    QVERIFY(!isEdit([&] {
        const ScintillaView::Silence silence(p.view);
        p.view.send(SCI.REDO);
        p.view.setText("x"); // its own silence must not end this one
        p.view.send(SCI.SELECTALL);
        p.view.send(SCI.CLEAR);
    }));
    QVERIFY(isEdit([&] { QTest::keyClick(&p.view, Qt::Key_A); }));
}

void tst_ScintillaView::pasteAndDrop()
{
    Pane p;
    QGuiApplication::clipboard()->setText(u"日本\U0001F642\r\nż"_s);
    p.view.send(SCI.PASTE);
    QCOMPARE(QString::fromUtf8(p.view.text()), u"日本\U0001F642\nż"_s); // line ends of the editor
    p.view.send(SCI.SELECTALL);
    p.view.send(SCI.CUT);
    QCOMPARE(QGuiApplication::clipboard()->text(), u"日本\U0001F642\nż"_s);
    p.edited.clear();
    QMimeData mime;
    mime.setText(u"дроп"_s);
    QDragEnterEvent enter({60, 5}, Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
    QVERIFY(QCoreApplication::sendEvent(p.view.viewport(), &enter) && enter.isAccepted());
    QDropEvent drop({60, 5}, Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(p.view.viewport(), &drop);
    QCOMPARE(QString::fromUtf8(p.view.text()), u"дроп"_s);
    QCOMPARE(p.edited.size(), 1);
}

void tst_ScintillaView::keyboard()
{
    Pane p;
    p.window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&p.window));
    QTest::keyClick(&p.view, Qt::Key_Tab);
    QVERIFY(p.view.hasFocus());
    QTest::keyClick(&p.view, Qt::Key_Tab, Qt::ControlModifier);
    QVERIFY(p.neighbour.hasFocus());
    p.view.setFocus();
    QTest::keyClick(&p.view, Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
    QVERIFY(!p.view.hasFocus());
    QCOMPARE(p.view.text(), "\t"_ba);
}

void tst_ScintillaView::numberMargin()
{
    Pane p;
    const auto width = [&p] { return p.get(Qsci::SCI_GETMARGINWIDTHN, 0); };
    p.view.setText("\n"_ba.repeated(54));
    QTRY_COMPARE(width(), 39);
    p.get(Qsci::SCI_SETZOOM, 20);
    QTRY_VERIFY(width() > 39); // two digits of thirty points
    p.code.SetDisplayLinenumbers(false);
    p.get(Qsci::SCI_SETZOOM, 0);
    QCOMPARE(width(), 0);
}

void tst_ScintillaView::foldingByMouse()
{
    Pane p;
    p.view.setText("int f()\n{\n    a();\n    b();\n}\nint needle;\n");
    p.code.SetLexer(SCLEX_CPP);
    p.get(Qsci::SCI_COLOURISE, 0, -1);
    QCOMPARE(p.code.GetCurrentFoldinglevel() & 0xFFF, 0x400);
    QVERIFY(QTest::qWaitForWindowExposed(&p.window));
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

// Every message with values that would end the process. What is left is that the process lives and the text is
// readable.
void tst_ScintillaView::wildArguments()
{
    Pane p;
    const QByteArray text = "int f(x)\n{\n  żółć 日本\n}\n"_ba;
    using Limits = std::numeric_limits<std::intptr_t>;
    const std::intptr_t values[] = {
        0, 1, -1, -2, 5, 31, 32, 255, 256, 1000, 100000, -100000, 1LL << 31, 1LL << 40, Limits::max(), Limits::min()};
    for (const EditorMessage& message : allMessages) {
        p.view.setText(text);
        for (const std::intptr_t w : values) {
            for (const std::intptr_t l : values)
                p.view.send(message, static_cast<std::uintptr_t>(w), l);
            p.view.send(message, static_cast<std::uintptr_t>(w), QByteArray());
            p.view.send(message, static_cast<std::uintptr_t>(w), text);
        }
        p.view.send(message, "fold"_ba, ""_ba);
        p.view.grab();
    }
    p.view.setText(text);
    QCOMPARE(p.view.text(), text);
    QCOMPARE(p.view.send(SCI.GETCHARAT, 100), 0);
    QCOMPARE(p.view.send(SCI.SETTEXT, 0, 4096), 0); // a number is never taken for an address
    p.view.send(SCI.BRACEBADLIGHT, static_cast<std::uintptr_t>(-1)); // but minus one is none
}

// Random sequences: state left by one message must not make the next one deadly.
void tst_ScintillaView::wildNeighbours()
{
    Pane p;
    QRandomGenerator random(17);
    for (int round = 0; round < 30000; ++round) {
        const EditorMessage& message = allMessages[random.bounded(quint32(allMessages.size()))];
        const auto w = static_cast<std::uintptr_t>(random.bounded(-1, 40));
        if (random.bounded(4) == 0)
            p.view.send(message, w, "{ ż\n  x }\n"_ba.first(random.bounded(10)));
        else
            p.view.send(message, w, random.bounded(-1, 40));
        if (p.view.send(SCI.GETLENGTH) > 2000)
            p.view.setText("short again\n");
        if (round % 100 < 2)
            p.get(Qsci::SCI_SETREADONLY, round % 2);
        if (round % 500 == 0)
            p.view.grab();
    }
    p.view.setText("ż");
    QCOMPARE(p.view.text(), "ż"_ba);
}

void tst_ScintillaView::languageLeavesNothing()
{
    Pane p;
    ArchiveUnit(p.archive).Execute(
        u"UPDATE tab_style SET fontName = 'DejaVu Sans', fontSize = 17, foreColor = 255, backColor = 65535, "
        "bold = true, italic = true, underline = true, invisible = true, [case] = 1 WHERE lexerCode = 'SCLEX_CPP'"_s);
    p.view.setText("int a;\n");
    const auto looks = [&p] {
        QStringList all;
        for (unsigned long style = 0; style < 128; ++style) {
            for (unsigned message = Qsci::SCI_STYLEGETFORE; message <= Qsci::SCI_STYLEGETVISIBLE; ++message)
                all.append(message == Qsci::SCI_STYLEGETFONT ? p.view.fontNameOf(int(style))
                                                             : QString::number(p.get(message, style)));
        }
        return all;
    };
    const QStringList plain = looks();
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

SNIPVALE_TEST(tst_ScintillaView)
#include "tst_ScintillaView.moc"
