// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "memo/ScintillaLanguages.h"
#include "memo/ScintillaRecorder.h"
#include "support/Registry.h"

#include "memo/code/cScintilla.h"

#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

// The messages of SetLexer behind those of every language: from the lexer's number on, without folding.
QStringList languageMessages(const QStringList& sent)
{
    QStringList rest = sent.sliced(sent.indexOf(u"2032 0 0"_s) + 1);
    rest.removeIf([](const QString& message) { return message.startsWith(u"4004 'fold"); });
    return rest;
}

// The built-in lists are long: their first words tell them apart.
QStringList shortened(QStringList messages)
{
    for (QString& message : messages) {
        if (message.startsWith(u"4005") && message.size() > 24)
            message.truncate(24);
    }
    return messages;
}

const QString cppOptions = u"4004 'styling.within.preprocessor' '1'|4004 'lexer.cpp.track.preprocessor' '0'|"_s
                           u"4004 'lexer.cpp.backquoted.strings' '%1'|4004 'lexer.cpp.triplequoted.strings' '%2'|"_s;
const QString serverPageSets = u"4005 1 ' break case catc|4005 2 ' and as byref by|"_s
                               u"4005 3 ' and argv as arg|4005 4 ' and argv as arg"_s;

} // namespace

class tst_cScintillaLexer : public QObject {
    Q_OBJECT
private slots:
    void initTestCase();
    void setLexer_data();
    void setLexer();
    void defaultComesFirst();
    void names();
    void builtInWords();
    void styles();
    void keywords();
    void failure();

private:
    std::unique_ptr<ScintillaLanguages> m_desk; // of the rows of setLexer
};

void tst_cScintillaLexer::initTestCase()
{
    m_desk = std::make_unique<ScintillaLanguages>();
    ScintillaLanguages& desk = *m_desk;
    const QMap<int, std::pair<QString, QString>> languages = {
        {2, {u"SCLEX_PYTHON"_s, u"def"_s}},      {3, {u"SCLEX_CPP"_s, u"int if"_s}},
        {4, {u"SCLEX_HTML"_s, u"b script"_s}},   {5, {u"SCLEX_XML"_s, u"xml"_s}},
        {8, {u"SCLEX_VB"_s, u"Dim"_s}},          {13, {u"SCLEX_XCODE"_s, u"xcode"_s}},
        {29, {u"SCLEX_ASP"_s, u"asp"_s}},        {30, {u"SCLEX_PHP"_s, u"echo"_s}},
        {98, {u"SCLEX_MARKDOWN"_s, u"md"_s}},    {1003, {u"SCLEX_CPP_JAVA"_s, u"java"_s}},
        {1069, {u"SCLEX_PHP_BARE"_s, u"php"_s}}, {2003, {u"SCLEX_CPP_JAVASCRIPT"_s, u"let"_s}},
    };
    for (auto at = languages.begin(); at != languages.end(); ++at)
        desk.language(at.key(), at->first, at->second);
    desk.style(u"SCLEX_CPP"_s, 7, u"enable"_s, u"true"_s);
    desk.style(u"SCLEX_VB"_s, 8, u"enable, [case]"_s, u"true, 1"_s);
    desk.style(u"SCLEX_ASP"_s, 29, u"enable"_s, u"true"_s);
    desk.style(u"SCLEX_HTML"_s, 4, u"enable"_s, u"true"_s);
    desk.style(u"SCLEX_PYTHON"_s, 22, u"enable, [case]"_s, u"true, 2"_s);
    desk.style(u"SCLEX_CPP_JAVASCRIPT"_s, 33, u"enable"_s, u"true"_s);
}

void tst_cScintillaLexer::setLexer_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("messages");
    const auto row = [](const char* name, int number, const QString& messages, const QByteArray& text = {}) {
        QTest::newRow(name) << number << text << messages;
    };
    row("C++", 3, u"4001 3 0|2090 5 0|"_s + cppOptions.arg(0).arg(0) + u"2060 7 0|4005 0 'int if'"_s);
    row("Visual Basic", 8, u"4001 8 0|2090 5 0|2060 8 1|4005 0 'Dim'"_s);
    row("server page", 29,
        u"4001 4 0|2090 5 0|2090 7 0|4004 'asp.default.language' '3'|2060 29 0|4005 0 'asp'|"_s + serverPageSets);
    row("server page 101", 101, u"4001 4 0|2090 5 0|2090 7 0|4004 'asp.default.language' '1'|2060 29 0|4005 0 'asp'"_s);
    row("102 has no words", 102, u"4001 4 0|2090 5 0|2090 7 0|4004 'asp.default.language' '2'|2060 29 0"_s);
    row("103 has no words", 103, u"4001 4 0|2090 5 0|2090 7 0|4004 'asp.default.language' '3'|2060 29 0"_s);
    row("HTML", 4, u"4001 4 0|2090 5 0|2090 7 0|2060 4 0|4005 0 'b script'|"_s + serverPageSets);
    row("XML", 5, u"4001 5 0|2090 5 0|2090 7 0|4005 0 'xml'"_s);
    row("PHP in HTML", 30, u"4001 4 0|2090 5 0|2090 7 0|4005 0 'echo'|4005 4 'echo'"_s, "<p><?php"_ba);
    row("PHP alone", 30, u"4001 69 0|2090 5 0|2090 7 0|4005 0 'echo'|4005 4 'echo'"_s, "echo 1;"_ba);
    row("Xcode goes as C++", 13, u"4001 3 0|2090 5 0|"_s + cppOptions.arg(0).arg(0) + u"4005 0 'xcode'"_s);
    row("a name without a row", 41, u"4001 41 0|2090 5 0|4005 0 ''"_s);
    row("Python", 2, u"4001 2 0|2090 5 0|2060 22 2|4005 0 'def'"_s);
    row("a number of today", 98, u"4001 98 0|2090 5 0|4005 0 'md'"_s);
    row("JavaScript", 2003, u"4001 3 0|2090 5 0|"_s + cppOptions.arg(1).arg(0) + u"2060 33 0|4005 0 'let'"_s);
    row("Java", 1003, u"4001 3 0|2090 5 0|"_s + cppOptions.arg(0).arg(1) + u"4005 0 'java'"_s);
    row("bare PHP", 1069, u"4001 69 0|2090 5 0|4005 0 'php'|4005 4 'php'"_s);
    row("no row for it", 111, u"4001 111 0|2090 5 0"_s);
    row("no row for a thousand", 9003, u"4001 3 0|2090 5 0"_s);
    row("nothing", 0, u"4001 0 0|2090 5 0"_s);
    row("a wild number", -7, u"4001 -7 0|2090 5 0"_s);
}

void tst_cScintillaLexer::setLexer()
{
    QFETCH(int, number);
    QFETCH(QByteArray, text);
    QFETCH(QString, messages);
    ScintillaRecorder editor;
    editor.content = text;
    cScintilla code(editor, m_desk->archive, "3");
    code.SetLexer(number);
    QCOMPARE(shortened(languageMessages(editor.sent)).join(u'|'), messages);
}

void tst_cScintillaLexer::defaultComesFirst()
{
    ScintillaLanguages desk;
    ScintillaRecorder editor;
    cScintilla code(editor, desk.archive);
    code.SetLexerDefault();
    const QStringList plain = editor.take();
    QCOMPARE(plain.first(4), QStringList({u"2058 0 0"_s, u"2055 32 10"_s, u"2056 32 'Courier New'"_s, u"2050 0 0"_s}));
    // Copying the default style to all of them must not lose the brace colours.
    QVERIFY(plain[4].startsWith(u"2052 34 ") && plain[5].startsWith(u"2052 35 "));
    code.SetLexer(17);
    QCOMPARE(editor.sent.first(plain.size()), plain);
    // Folding is an option of each lexer: it is sent behind the number.
    QVERIFY(editor.sent.indexOf(u"4004 'fold' '1'"_s) > editor.sent.indexOf(u"4001 17 0"_s));
}

void tst_cScintillaLexer::names()
{
    const QMap<int, QString> some = {
        {2, QString()},
        {3, u"SCLEX_CPP"_s},
        {6, u"SCLEX_PERL"_s},
        {12, u"SCLEX_BATCH"_s},
        {13, u"SCLEX_XCODE"_s},
        {21, u"SCLEX_LISP"_s},
        {28, u"SCLEX_VBSCRIPT"_s},
        {29, u"SCLEX_ASP"_s},
        {30, u"SCLEX_PHP"_s},
        {31, u"SCLEX_BAAN"_s},
        {35, u"SCLEX_CPPNOCASE"_s},
        {41, u"SCLEX_ESCRIPT"_s},
        {42, QString()},
        {102, u"SCLEX_ASP"_s},
        {-1, QString()},
    };
    for (auto at = some.begin(); at != some.end(); ++at)
        QCOMPARE(lexerName(at.key()), at.value());
    QVERIFY(lexerToSend(1013, {}) == 3 && lexerToSend(1030, "x") == 69 && lexerToSend(1102, {}) == 4);
}

void tst_cScintillaLexer::builtInWords()
{
    const auto words = [](const QByteArray& list) { return list.simplified().split(' '); };
    QCOMPARE(words(scriptKeywords()).size(), 15);
    QCOMPARE(words(basicKeywords()).size(), 59);
    QCOMPARE(words(serverPageKeywords()).size(), 71);
    QVERIFY(basicKeywords().endsWith(" variant  request "));
    QVERIFY(serverPageKeywords().startsWith(" and argv ") && serverPageKeywords().endsWith(" __sleep __wakeup "));
    QVERIFY(serverPageKeywords().contains(" default do  die echo "));
}

void tst_cScintillaLexer::styles()
{
    ScintillaLanguages desk;
    desk.language(17, u"SCLEX_CONF"_s, u"on off"_s);
    desk.style(u"SCLEX_CONF"_s, 1,
               u"fontName, fontSize, foreColor, backColor, bold, italic, underline, invisible, "
               u"[case], enable"_s,
               u"'Żuk', 12, 255, 16777215, true, true, true, true, 2, true"_s);
    desk.style(u"SCLEX_CONF"_s, 2, u"fontName, fontSize, foreColor, backColor, enable"_s, u"'', 0, Null, 0, true"_s);
    desk.style(u"SCLEX_CONF"_s, 3, u"foreColor, bold, enable"_s, u"7, true, false"_s);
    desk.style(u"SCLEX_OTHER"_s, 4, u"foreColor, enable"_s, u"7, true"_s);
    ScintillaRecorder editor;
    cScintilla code(editor, desk.archive);
    code.LoadStyles(17);
    const QStringList expected = {u"2056 1 'Żuk'"_s, u"2055 1 12"_s, u"2051 1 255"_s, u"2052 1 16777215"_s,
                                  u"2053 1 1"_s,     u"2054 1 1"_s,  u"2059 1 1"_s,   u"2060 1 2"_s,
                                  u"2074 1 0"_s,     u"2052 2 0"_s,  u"2060 2 0"_s};
    QCOMPARE(editor.sent, expected);
    QCOMPARE(desk.statements.last(),
             u"SELECT tab_memoType.memoTypeID, tab_memoType.name, tab_style.*  FROM tab_memoType INNER JOIN tab_style "
             u"ON tab_memoType.lexerCode = tab_style.lexerCode  WHERE tab_memoType.memoTypeID = 17 "_s);
}

void tst_cScintillaLexer::keywords()
{
    ScintillaLanguages desk;
    desk.language(7, u"SCLEX_SQL"_s, u"select"_s);
    desk.language(6, u"SCLEX_PERL"_s, u"my"_s);
    QCOMPARE(keywordsOf(desk.archive, u"SCLEX_SQL"_s), u"select"_s);
    QCOMPARE(desk.statements.last(),
             u"SELECT memoTypeID,  keywords  FROM tab_memoType  WHERE lexerCode = 'SCLEX_SQL' "_s);
    QCOMPARE(keywordsOf(desk.archive, u"SCLEX_NONE"_s), QString());
    const QString odd = u"it's 'ключ'\r\nfrom"_s;
    updateKeywords(desk.archive, u"SCLEX_SQL"_s, odd);
    QCOMPARE(desk.statements.last(),
             u"UPDATE tab_memoType SET tab_memoType.keywords = 'it''s ''ключ''\r\nfrom' "
             u" WHERE lexerCode = 'SCLEX_SQL' "_s);
    QCOMPARE(keywordsOf(desk.archive, u"SCLEX_SQL"_s), odd);
    QCOMPARE(keywordsOf(desk.archive, u"SCLEX_PERL"_s), u"my"_s);
    QCOMPARE(lexerCodeOf(desk.archive, 6), u"SCLEX_PERL"_s);
    QCOMPARE(lexerCodeOf(desk.archive, 5), QString());
}

void tst_cScintillaLexer::failure()
{
    ScintillaLanguages desk;
    desk.language(3, u"SCLEX_CPP"_s, u"int"_s);
    desk.run(u"DROP TABLE tab_style"_s);
    ScintillaRecorder editor;
    cScintilla code(editor, desk.archive);
    code.SetLexerDefault();
    const QStringList plain = editor.take();
    desk.questions.expect(QString());
    code.SetLexer(3);
    const auto asked = desk.questions.asked.last();
    QVERIFY2(asked.text.startsWith(u"Error in SetLexer: ") && asked.text.size() > 25, qPrintable(asked.text));
    QCOMPARE(editor.sent.last(plain.size()), plain); // the default style is what remains
}

SNIPVALE_TEST(tst_cScintillaLexer)
#include "tst_cScintillaLexer.moc"
