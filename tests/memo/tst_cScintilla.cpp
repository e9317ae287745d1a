// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "memo/ScintillaRecorder.h"
#include "support/CoreSupport.h"
#include "support/Registry.h"

#include "memo/code/ScintillaText.h"
#include "memo/code/cScintilla.h"

#include <QRandomGenerator>
#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

struct Desk {
    ScriptedQuestions questions;
    ManualClock clock;
    Archive archive{questions, clock};
    ScintillaRecorder editor;
    cScintilla code{editor, archive};
};

} // namespace

class tst_cScintilla : public QObject {
    Q_OBJECT
private slots:
    void init();
    void numberMargin_data();
    void numberMargin();
    void numberMarginFollowsTheText();
    void margins();
    void braces_data();
    void braces();
    void clicksAndCaret();
    void find();
    void offsets();
    void offsetsOfBrokenText();
    void anyCase();
};

void tst_cScintilla::init()
{
    Desk desk;
    desk.editor.answers[SCI_GETLINECOUNT] = 1;
    desk.code.Init();
    const QStringList begin = {u"2005 0 0"_s,
                               u"2132 -1 0"_s,
                               u"2036 4 0"_s,
                               u"2122 4 0"_s,
                               u"2076 400 0"_s,
                               u"4004 'fold' '1'"_s,
                               u"4004 'fold.html' '1'"_s,
                               u"4004 'fold.html.preprocessor' '1'"_s,
                               u"4004 'fold.comment' '1'"_s,
                               u"4004 'fold.at.else' '1'"_s,
                               u"4004 'fold.flags' '1'"_s,
                               u"4004 'fold.preprocessor' '1'"_s,
                               u"2233 16 0"_s,
                               u"2244 2 4261412864"_s,
                               u"2246 2 1"_s,
                               u"2359 3 0"_s,
                               u"2040 31 7"_s,
                               u"2040 30 8"_s,
                               u"2040 29 5"_s,
                               u"2040 28 5"_s,
                               u"2040 25 5"_s,
                               u"2040 26 5"_s,
                               u"2040 27 5"_s};
    QCOMPARE(desk.editor.sent.first(begin.size()), begin);
    const QStringList rest = desk.editor.sent.sliced(begin.size());
    QVERIFY(rest[0].startsWith(u"2052 34 "));
    QVERIFY(rest[1].startsWith(u"2052 35 "));
    QVERIFY(rest[0].section(u' ', 2) != rest[1].section(u' ', 2));
    QCOMPARE(
        rest.sliced(2),
        QStringList({u"2029 2 0"_s, u"2031 2 0"_s, u"2040 0 0"_s, u"2242 0 25"_s, u"2242 2 16"_s, u"2242 1 16"_s}));
}

void tst_cScintilla::numberMargin_data()
{
    QTest::addColumn<int>("lines");
    QTest::addColumn<int>("characters");
    QTest::addColumn<int>("pixels");
    QTest::newRow("one line") << 1 << 2 << 25;
    QTest::newRow("a half goes to the even 0") << 5 << 2 << 25;
    QTest::newRow("more than a half") << 6 << 3 << 32;
    QTest::newRow("14") << 14 << 3 << 32;
    QTest::newRow("a half goes to the even 2") << 15 << 3 << 32;
    QTest::newRow("2.5 goes to 2") << 25 << 3 << 32;
    QTest::newRow("55 goes to 6, then 1") << 55 << 4 << 39;
    QTest::newRow("1000") << 1000 << 5 << 46;
}

void tst_cScintilla::numberMargin()
{
    QFETCH(int, lines);
    Desk desk;
    desk.editor.answers[SCI_GETLINECOUNT] = lines;
    QTEST(desk.code.GetLinenumberChars(), "characters");
    QFETCH(int, pixels);
    QCOMPARE(desk.code.GetLinenumberWidth(), pixels - 4);
    desk.code.SetDisplayLinenumbers(true);
    desk.code.SetDisplayLinenumbers(false);
    QCOMPARE(desk.editor.sent, QStringList({u"2242 0 %1"_s.arg(pixels), u"2242 0 0"_s}));
}

void tst_cScintilla::numberMarginFollowsTheText()
{
    Desk desk;
    desk.code.setMatchBraces(false);
    const auto afterUpdate = [&desk](int lines) {
        desk.editor.answers[SCI_GETLINECOUNT] = lines;
        desk.code.onUpdateUi();
        return desk.editor.take();
    };
    desk.editor.answers[SCI_GETLINECOUNT] = 5;
    desk.code.SetDisplayLinenumbers(true);
    desk.editor.take();
    QCOMPARE(afterUpdate(9), QStringList()); // still one digit
    QCOMPARE(afterUpdate(10), QStringList(u"2242 0 32"_s));
    QCOMPARE(afterUpdate(10), QStringList());
    QCOMPARE(afterUpdate(9), QStringList(u"2242 0 32"_s));
    desk.code.SetDisplayLinenumbers(false);
    desk.editor.take();
    QCOMPARE(afterUpdate(100), QStringList());
}

void tst_cScintilla::margins()
{
    Desk desk;
    desk.code.SetDisplayFolding(true);
    desk.code.SetDisplayFolding(false);
    desk.code.SetDisplaySelection(true);
    desk.code.SetDisplaySelection(false);
    QCOMPARE(desk.editor.sent, QStringList({u"2242 2 16"_s, u"2242 2 0"_s, u"2242 1 16"_s, u"2242 1 0"_s}));
}

void tst_cScintilla::braces_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("caret");
    QTest::addColumn<int>("partner");
    QTest::addColumn<QStringList>("messages");
    const QStringList clear = {u"2351 -1 -1"_s};
    const auto pair = [](int brace, int partner) {
        return QStringList({u"2353 %1 0"_s.arg(brace), u"2351 %1 %2"_s.arg(partner).arg(brace), u"2134 7 0"_s});
    };
    QTest::newRow("none") << "a b"_ba << 1 << 0 << clear;
    QTest::newRow("start, none before") << "a"_ba << 0 << 0 << clear;
    QTest::newRow("empty text") << ""_ba << 0 << 0 << clear;
    QTest::newRow("at the caret") << "f(x)"_ba << 1 << 3 << pair(1, 3);
    QTest::newRow("before the caret") << "f(x)"_ba << 4 << 1 << pair(3, 1);
    QTest::newRow("the caret's goes first") << "[{}]"_ba << 1 << 2 << pair(1, 2);
    QTest::newRow("partner at 0") << "<>"_ba << 1 << 0 << pair(1, 0);
    QTest::newRow("unmatched") << "("_ba << 0 << -1 << QStringList({u"2353 0 0"_s, u"2352 0 0"_s});
    QTest::newRow("a zero byte is no brace") << QByteArray("a\0b", 3) << 1 << 0 << clear;
}

void tst_cScintilla::braces()
{
    QFETCH(QByteArray, text);
    QFETCH(int, caret);
    QFETCH(int, partner);
    QFETCH(QStringList, messages);
    Desk desk;
    desk.code.SetDisplayLinenumbers(false);
    desk.editor.take();
    for (qsizetype i = 0; i < text.size(); ++i)
        desk.editor.answersTo[{SCI_GETCHARAT, i}] = text[i];
    desk.editor.answers[SCI_GETCURRENTPOS] = caret;
    desk.editor.answers[SCI_BRACEMATCH] = partner;
    desk.editor.answersTo[{SCI_GETCOLUMN, partner}] = 7;
    desk.code.onUpdateUi();
    QCOMPARE(desk.editor.take(), messages);
    desk.code.setHighlightGuide(false);
    desk.code.onUpdateUi();
    messages.removeAll(u"2134 7 0"_s);
    QCOMPARE(desk.editor.take(), messages);
    desk.code.setMatchBraces(false);
    desk.code.onUpdateUi();
    QCOMPARE(desk.editor.take(), QStringList());
}

void tst_cScintilla::clicksAndCaret()
{
    Desk desk;
    desk.editor.answersTo[{SCI_LINEFROMPOSITION, 40}] = 3;
    desk.editor.answersTo[{SCI_GETFOLDLEVEL, 3}] = 0x2401;
    desk.editor.answersTo[{SCI_GETCOLUMN, 40}] = 6;
    desk.editor.answersTo[{SCI_POSITIONFROMLINE, 3}] = 34;
    desk.editor.answersTo[{SCI_POSITIONFROMLINE, 11}] = 90;
    desk.editor.answers = {
        {SCI_GETCURRENTPOS, 40}, {SCI_GETLINECOUNT, 12}, {SCI_GETLENGTH, 95}, {SCI_GETENDSTYLED, 40}};
    desk.code.onMarginClick(40);
    desk.code.AddBookmark();
    QCOMPARE(desk.editor.take(), QStringList({u"2231 3 0"_s, u"2043 3 0"_s}));
    QCOMPARE(desk.code.GetCurrentLine(), 3);
    QCOMPARE(desk.code.CurLine(), 4);
    QCOMPARE(desk.code.Column(), 6);
    QCOMPARE(desk.code.GetCurrentFoldinglevel(), 0x2401);
    desk.code.setCurLine(4);
    desk.code.setCurLine(1000);
    desk.code.setCurPosition(1000);
    desk.code.setCurPosition(-3);
    QCOMPARE(desk.editor.take(), QStringList({u"2160 34 34"_s, u"2160 90 90"_s, u"2160 95 95"_s, u"2160 0 0"_s}));
    desk.editor.recordQuestions = true;
    desk.code.onStyleNeeded();
    QCOMPARE(desk.editor.take(), QStringList({u"2028 0 0"_s, u"2166 40 0"_s, u"2167 3 0"_s}));
}

void tst_cScintilla::find()
{
    Desk desk;
    desk.editor.answers = {{SCI_GETLENGTH, 50},    {SCI_SEARCHINTARGET, 20}, {SCI_GETTARGETSTART, 20},
                           {SCI_GETTARGETEND, 24}, {SCI_SEARCHNEXT, -1},     {SCI_LINEFROMPOSITION, 2}};
    QCOMPARE(desk.code.Find(u"zł\U0001F642"_s, 6, 7), 20); // lengths are bytes
    QCOMPARE(desk.editor.take(),
             QStringList({u"2198 6 0"_s, u"2190 7 0"_s, u"2192 50 0"_s, u"2197 7 'zł\U0001F642'"_s, u"2232 2 0"_s,
                          u"2160 20 24"_s}));
    QCOMPARE(desk.code.ReplaceFound(u"ż"_s), 24);
    QCOMPARE(desk.editor.take(), QStringList(u"2194 2 'ż'"_s));

    desk.editor.answers[SCI_SEARCHINTARGET] = -1;
    desk.questions.expect(u"Search reached end of document"_s);
    QCOMPARE(desk.code.Find(u"x"_s, 0, 80), -1); // the text has become shorter than the last match
    QCOMPARE(desk.editor.take(), QStringList({u"2198 0 0"_s, u"2190 50 0"_s, u"2192 50 0"_s, u"2197 1 'x'"_s}));
    QCOMPARE(desk.questions.asked.last().style, MessageStyle::Information);

    desk.questions.expect(u"nresult: -1"_s);
    desk.code.FindNext(u"if"_s, 4);
    QCOMPARE(desk.editor.take(), QStringList({u"2366 0 0"_s, u"2367 4 'if'"_s}));
    QCOMPARE(desk.questions.asked.last().style, MessageStyle::Plain);
}

void tst_cScintilla::offsets()
{
    const QString text = u"aż日\U0001F642z"_s;
    const QByteArray utf8 = text.toUtf8(); // 1 + 2 + 3 + 4 + 1 bytes
    for (qsizetype offset : {0, 1, 2, 3, 5, 6}) {
        const qsizetype position = text.left(offset).toUtf8().size();
        QCOMPARE(utf16Offset(utf8, position), offset);
        QCOMPARE(bytePosition(utf8, offset), position);
    }
    QCOMPARE(bytePosition(utf8, 4), 6); // inside the pair: its start
    QCOMPARE(utf16Offset(utf8, 8), 3); // inside its bytes, too
    QCOMPARE(bytePosition(utf8, 99), utf8.size());
    QCOMPARE(utf16Offset(utf8, 99), text.size());
}

void tst_cScintilla::offsetsOfBrokenText()
{
    QRandomGenerator random(4);
    const QByteArray pool = "\xEF\xBB\xBF\xF0\x9F\x99\x82\xE0\x80\xED\xA0\xC0\xF4\x90\xC5\xBC a\xFF"_ba;
    for (int round = 0; round < 2000; ++round) {
        QByteArray bytes(random.bounded(12), '\0');
        for (char& byte : bytes)
            byte = pool[random.bounded(int(pool.size()))];
        const QString text = textOf(bytes);
        QCOMPARE(utf16Offset(bytes, bytes.size()), text.size());
        for (qsizetype offset = 0; offset <= text.size(); ++offset) {
            const qsizetype position = bytePosition(bytes, offset);
            QCOMPARE(textOf(bytes.left(position)), text.left(utf16Offset(bytes, position)));
        }
    }
}

void tst_cScintilla::anyCase()
{
    using Found = std::pair<qsizetype, qsizetype>;
    const QByteArray text = "дом ДОМА 🙂дом"; // Cyrillic letters have two bytes
    const QByteArray wanted = "Дом";
    QCOMPARE(findInAnyCase(text, 0, wanted, false), Found(0, 6));
    QCOMPARE(findInAnyCase(text, 1, wanted, false), Found(7, 13)); // from inside a letter
    QCOMPARE(findInAnyCase(text, 8, wanted, false), Found(20, 26));
    QCOMPARE(findInAnyCase(text, 20, wanted, false), Found(20, 26));
    QCOMPARE(findInAnyCase(text, 21, wanted, false), Found(-1, -1));
    QCOMPARE(findInAnyCase("x ДОМА.дом", 0, wanted, true), Found(11, 17));
    QCOMPARE(findInAnyCase("дом_ 1дом", 0, wanted, true), Found(-1, -1));
    QCOMPARE(findInAnyCase("", 0, wanted, true), Found(-1, -1));
}

SNIPVALE_TEST(tst_cScintilla)
#include "tst_cScintilla.moc"
