// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "memo/ScintillaLanguages.h"
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

using namespace Qt::StringLiterals;

namespace {

constexpr unsigned GETSTYLEAT = 2010, CANUNDO = 2174, GETLINEVISIBLE = 2228, GETMARGINWIDTHN = 2243, COLOURISE = 4003,
                   MARKERGET = 2046, STYLEGETFORE = 2481, STYLEGETBACK = 2482, STYLEGETBOLD = 2483, STYLEGETSIZE = 2485,
                   STYLEGETCASE = 2489, STYLEGETVISIBLE = 2491, SETZOOM = 2373, GETINDENTATIONGUIDES = 2133,
                   SETREADONLY = 2171;

// The editor in a window, as the memo window sets it up, and a neighbour for the keyboard.
struct Pane {
    explicit Pane(Archive& archive) : code(view, archive)
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
    int style(const QByteArray& word)
    {
        view.send(COLOURISE, 0, -1);
        return static_cast<int>(view.send(GETSTYLEAT, static_cast<std::uintptr_t>(view.text().indexOf(word))));
    }
    QWidget window;
    QVBoxLayout layout{&window};
    ScintillaView view;
    QLineEdit neighbour;
    cScintilla code;
};

struct BarePane {
    ScriptedQuestions questions;
    ManualClock clock;
    Archive archive{questions, clock};
    Pane pane{archive};
};

} // namespace

class tst_ScintillaView : public QObject {
    Q_OBJECT
private slots:
    void text_data();
    void text();
    void setTextStartsAnew();
    void edits();
    void pasteAndDrop();
    void keyboard();
    void numberMargin();
    void foldingByMouse();
    void braceColors();
    void guides();
    void wildArguments();
    void wildNeighbours();
    void languageLeavesNothing();
    void languagesOfToday();
};

void tst_ScintillaView::text_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("line ends") << "a\r\nb\rc\nd\n\re\r"_ba;
    QTest::newRow("scripts") << u"Zażółć\tгęślą 日本語 \U0001F642\u0301\u200D\n"_s.toUtf8();
    QTest::newRow("zero bytes") << QByteArray("\0a\0\0\r\nb\0", 8);
    QTest::newRow("a zero byte") << QByteArray(1, '\0');
    QTest::newRow("byte order mark") << "\xEF\xBB\xBFx"_ba;
    QTest::newRow("not UTF-8") << "\xFF\xC0\x80 a\xE9"_ba;
    QTest::newRow("long") << "0123456789\r\n"_ba.repeated(100000);
}

void tst_ScintillaView::text()
{
    QFETCH(QByteArray, text);
    BarePane bare;
    ScintillaView& view = bare.pane.view;
    view.setText("what was there before");
    view.setText(text);
    QVERIFY(view.text() == text);
    QCOMPARE(view.send(SCI_GETLENGTH), text.size());
    view.setText({});
    QVERIFY(view.text().isEmpty());
}

void tst_ScintillaView::setTextStartsAnew()
{
    BarePane bare;
    auto& [window, layout, view, neighbour, code] = bare.pane;
    view.setText("one\ntwo\nthree\n"_ba.repeated(100));
    code.setCurLine(200);
    code.AddBookmark();
    QTest::keyClicks(&view, u"typed"_s);
    QVERIFY(view.send(CANUNDO));
    QCOMPARE(view.send(MARKERGET, 199), 1);
    for (const QByteArray& text : {"new\ntext"_ba, QByteArray("z\0z", 3)}) {
        view.setText(text);
        QCOMPARE(view.send(CANUNDO), 0);
        QCOMPARE(code.CurPosition(), 0);
        QCOMPARE(view.send(MARKERGET, 0), 0);
        view.send(SCI_UNDO);
        QCOMPARE(view.text(), text);
    }
}

void tst_ScintillaView::edits()
{
    BarePane bare;
    auto& [window, layout, view, neighbour, code] = bare.pane;
    QSignalSpy edited(&view, &ScintillaView::edited);
    view.setText("some text");
    view.setText(QByteArray("z\0z", 3));
    code.SetLexer(1);
    view.send(SCI_SELECTALL);
    QCOMPARE(edited.size(), 0);
    QTest::keyClick(&view, Qt::Key_Z); // replaces the selection
    QVERIFY(!edited.isEmpty());
    QCOMPARE(view.text(), "z"_ba);
    edited.clear();
    view.send(SCI_UNDO);
    QVERIFY(!edited.isEmpty());
    QCOMPARE(view.text(), QByteArray("z\0z", 3));
    edited.clear();
    {
        const ScintillaView::Silence silence(view);
        view.send(SCI_REDO);
        view.setText("x"); // its own silence must not end this one
        view.send(SCI_SELECTALL);
        view.send(SCI_CLEAR);
    }
    QCOMPARE(edited.size(), 0);
    QTest::keyClick(&view, Qt::Key_A);
    QCOMPARE(edited.size(), 1);
}

void tst_ScintillaView::pasteAndDrop()
{
    BarePane bare;
    auto& [window, layout, view, neighbour, code] = bare.pane;
    QGuiApplication::clipboard()->setText(u"日本\U0001F642\r\nż"_s);
    view.send(SCI_PASTE);
    QCOMPARE(QString::fromUtf8(view.text()), u"日本\U0001F642\nż"_s); // line ends of the editor
    view.send(SCI_SELECTALL);
    view.send(SCI_CUT);
    QCOMPARE(QGuiApplication::clipboard()->text(), u"日本\U0001F642\nż"_s);

    QSignalSpy edited(&view, &ScintillaView::edited);
    QMimeData mime;
    mime.setText(u"дроп"_s);
    QDragEnterEvent enter({60, 5}, Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
    QVERIFY(QCoreApplication::sendEvent(view.viewport(), &enter) && enter.isAccepted());
    QDropEvent drop({60, 5}, Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(view.viewport(), &drop);
    QCOMPARE(QString::fromUtf8(view.text()), u"дроп"_s);
    QCOMPARE(edited.size(), 1);
}

void tst_ScintillaView::keyboard()
{
    BarePane bare;
    auto& [window, layout, view, neighbour, code] = bare.pane;
    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    QTest::keyClick(&view, Qt::Key_Tab);
    QCOMPARE(view.text(), "\t"_ba);
    QVERIFY(view.hasFocus());
    QTest::keyClick(&view, Qt::Key_Tab, Qt::ControlModifier);
    QVERIFY(neighbour.hasFocus());
    view.setFocus();
    QTest::keyClick(&view, Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
    QVERIFY(!view.hasFocus());
    QCOMPARE(view.text(), "\t"_ba);
}

void tst_ScintillaView::numberMargin()
{
    BarePane bare;
    auto& [window, layout, view, neighbour, code] = bare.pane;
    const auto width = [&view = view] { return view.send(GETMARGINWIDTHN, 0); };
    QCOMPARE(width(), 25);
    view.setText("\n"_ba.repeated(54));
    QTRY_COMPARE(width(), 39);
    view.send(SETZOOM, 20);
    QTRY_VERIFY(width() > 39); // two digits of thirty points
    view.send(SETZOOM, 0);
    QTRY_COMPARE(width(), 39);
    code.SetDisplayLinenumbers(false);
    view.send(SETZOOM, 20);
    QCOMPARE(width(), 0);
    QCOMPARE(view.send(GETMARGINWIDTHN, 2), 16);
}

void tst_ScintillaView::foldingByMouse()
{
    ScintillaLanguages languages;
    languages.language(3, u"SCLEX_CPP"_s, u"int"_s);
    Pane pane(languages.archive);
    pane.view.setText("int f()\n{\n    a();\n    b();\n}\nint needle;\n");
    pane.code.SetLexer(3);
    pane.view.send(COLOURISE, 0, -1);
    QCOMPARE(pane.code.GetCurrentFoldinglevel() & 0xFFF, 0x400);
    QVERIFY(QTest::qWaitForWindowExposed(&pane.window));
    const QPoint box(25 + 16 + 8, pane.view.rectAt(8).center().y());
    QTest::mouseClick(pane.view.viewport(), Qt::LeftButton, {}, box);
    QCOMPARE(pane.view.send(GETLINEVISIBLE, 2), 0);
    QCOMPARE(pane.view.send(GETLINEVISIBLE, 3), 0);
    QCOMPARE(pane.view.send(GETLINEVISIBLE, 5), 1);
    // A match inside the fold is brought to light.
    QCOMPARE(pane.code.Find(u"b()"_s, 0, 0), 23);
    QCOMPARE(pane.view.send(GETLINEVISIBLE, 3), 1);
    QTest::mouseClick(pane.view.viewport(), Qt::LeftButton, {}, box);
    // A language without folds shows everything again.
    pane.code.SetLexer(1);
    QCOMPARE(pane.view.send(GETLINEVISIBLE, 3), 1);
    QCOMPARE(pane.view.send(SCI_GETFOLDLEVEL, 1), 0x400);
}

void tst_ScintillaView::braceColors()
{
    BarePane bare;
    auto& [window, layout, view, neighbour, code] = bare.pane;
    view.setText("x(a)");
    const auto paperOf = [&view = view](std::intptr_t position) {
        const QRect at = view.rectAt(position);
        return view.viewport()->grab(at).toImage().pixelColor(at.width() - 1, at.height() - 1);
    };
    code.SetLexer(1); // must not lose the colours
    code.setCurPosition(1);
    QTRY_VERIFY(paperOf(1) != Qt::white);
    const QColor matched = paperOf(1);
    QCOMPARE(paperOf(3), matched);
    view.setText("x(a");
    code.setCurPosition(1);
    QTRY_VERIFY(paperOf(1) != Qt::white && paperOf(1) != matched);
    code.setCurPosition(3);
    QTRY_COMPARE(paperOf(1), QColor(Qt::white));
}

void tst_ScintillaView::guides()
{
    BarePane bare;
    QVERIFY(bare.pane.view.send(GETINDENTATIONGUIDES) > 0);
    bare.pane.view.setText("x\n\t\tx\n");
    const auto picture = [&] { return bare.pane.view.viewport()->grab().toImage(); };
    const QImage with = picture();
    bare.pane.view.send(SCI_SETINDENTATIONGUIDES, 0);
    QVERIFY(picture() != with);
}

// Every message number that Scintilla knows with values that would end the process. What is left is that the
// process lives and the text is readable.
void tst_ScintillaView::wildArguments()
{
    BarePane bare;
    ScintillaView& view = bare.pane.view;
    const QByteArray text = "int f(x)\n{\n  żółć 日本\n}\n"_ba;
    const auto noWarnings = qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    const std::intptr_t values[] = {0,
                                    1,
                                    -1,
                                    -2,
                                    5,
                                    31,
                                    32,
                                    255,
                                    256,
                                    1000,
                                    100000,
                                    -100000,
                                    1LL << 31,
                                    1LL << 40,
                                    std::numeric_limits<std::intptr_t>::max(),
                                    std::numeric_limits<std::intptr_t>::min()};
    for (unsigned message = 2000; message < 4100; ++message) {
        if (message == 2800 || message == 3100)
            message += message == 2800 ? 200 : 900;
        view.setText(text);
        for (const std::intptr_t w : values) {
            for (const std::intptr_t l : values)
                view.send(message, static_cast<std::uintptr_t>(w), l);
            view.send(message, static_cast<std::uintptr_t>(w), QByteArray());
            view.send(message, static_cast<std::uintptr_t>(w), text);
        }
        view.send(message, "fold"_ba, ""_ba);
        view.grab();
    }
    qInstallMessageHandler(noWarnings);
    view.send(SETREADONLY, 0); // as one of them has left it
    view.setText(text);
    QCOMPARE(view.text(), text);
    QCOMPARE(view.send(SCI_GETCHARAT, 100), 0);
    QTest::ignoreMessage(QtWarningMsg, "editor message 2182 has no row in the table of safe messages");
    QCOMPARE(view.send(SCI_GETTEXT, 10, 4096), 0); // a number is never taken for an address
}

// Random sequences: state left by one message must not make the next one deadly.
void tst_ScintillaView::wildNeighbours()
{
    BarePane bare;
    ScintillaView& view = bare.pane.view;
    QRandomGenerator random(17);
    const auto noWarnings = qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    for (int round = 0; round < 60000; ++round) {
        const unsigned message = random.bounded(8) == 0 ? 4001 + random.bounded(5) : 2001 + random.bounded(500);
        const auto w = static_cast<std::uintptr_t>(random.bounded(-1, 40));
        if (random.bounded(4) == 0)
            view.send(message, w, "{ ż\n  x }\n"_ba.first(random.bounded(10)));
        else
            view.send(message, w, random.bounded(-1, 40));
        if (view.send(SCI_GETLENGTH) > 2000)
            view.setText("short again\n");
        if (round % 100 == 0)
            view.send(SETREADONLY, 0);
        if (round % 500 == 0)
            view.grab();
    }
    qInstallMessageHandler(noWarnings);
    view.setText("ż");
    QCOMPARE(view.text(), "ż"_ba);
}

void tst_ScintillaView::languageLeavesNothing()
{
    ScintillaLanguages languages;
    languages.language(3, u"SCLEX_CPP"_s, u"int"_s);
    for (const int style : {0, 5, 11, 32, 33})
        languages.style(
            u"SCLEX_CPP"_s, style,
            u"fontName, fontSize, foreColor, backColor, bold, italic, underline, invisible, [case], enable"_s,
            u"'DejaVu Sans', 17, 255, 65535, true, true, true, true, 1, true"_s);
    Pane pane(languages.archive);
    pane.view.setText("int a;\n");
    const auto look = [&pane] {
        QStringList all;
        for (std::uintptr_t style = 0; style < 128; ++style) {
            for (const unsigned get :
                 {STYLEGETFORE, STYLEGETBACK, STYLEGETBOLD, 2484U, STYLEGETSIZE, 2488U, STYLEGETCASE, STYLEGETVISIBLE})
                all.append(QString::number(pane.view.send(get, style)));
            all.append(pane.view.fontNameOf(static_cast<int>(style)));
        }
        return all;
    };
    const QStringList plain = look();
    pane.code.SetLexer(3);
    QVERIFY(look() != plain);
    QCOMPARE(pane.view.send(STYLEGETFORE, 5), 255);
    QCOMPARE(pane.view.send(STYLEGETSIZE, 32), 17);
    QCOMPARE(pane.style("int"), 5);
    for (const qint32 other : {1, 57, 9003}) { // none of them has a row
        pane.code.SetLexer(other);
        QCOMPARE(look(), plain);
        QVERIFY(pane.style("int") != 5); // words of the language before are gone, also within one lexer
        pane.code.SetLexer(3);
    }
}

void tst_ScintillaView::languagesOfToday()
{
    ScintillaLanguages languages;
    languages.language(3, u"SCLEX_CPP"_s, u"int"_s);
    languages.language(2003, u"SCLEX_CPP_JAVASCRIPT"_s, u"let"_s);
    languages.language(29, u"SCLEX_ASP"_s, u"b script"_s);
    languages.language(30, u"SCLEX_PHP"_s, u"echo"_s);
    Pane pane(languages.archive);
    const auto styleIn = [&pane](qint32 language, const QByteArray& text, const QByteArray& word) {
        pane.view.setText(text);
        pane.code.SetLexer(language);
        return pane.style(word);
    };
    constexpr int cWord = 5, cRawString = 20, cIdentifier = 11, basicWord = 84, scriptWord = 47, phpWord = 121;
    QCOMPARE(styleIn(2003, "let a = `if b`;", "if"), cRawString);
    QCOMPARE(styleIn(3, "let a = `if b`;", "b`"), cIdentifier); // the option went with the language
    QCOMPARE(styleIn(2003, "let a = 1;", "let"), cWord);
    QCOMPARE(styleIn(3, "#if 0\nint a;\n#endif\n", "int"), cWord); // not greyed out
    QCOMPARE(styleIn(29, "<b><% dim a %></b>", "dim"), basicWord);
    QCOMPARE(styleIn(102, "<b><% dim a %></b>", "dim") == basicWord, false); // it has no words
    QCOMPARE(styleIn(30, "<p><?php echo 1; ?>", "echo"), phpWord);
    QCOMPARE(styleIn(30, "echo 1;", "echo"), phpWord);
    languages.language(4, u"SCLEX_HTML"_s, u"b script"_s);
    QCOMPARE(styleIn(4, "<script>while (1);</script>", "while"), scriptWord);
}

SNIPVALE_TEST(tst_ScintillaView)
#include "tst_ScintillaView.moc"
