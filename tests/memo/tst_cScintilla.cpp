// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/CoreSupport.h"
#include "support/Registry.h"

#include "memo/code/ScintillaText.h"
#include "memo/code/cScintilla.h"

#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

// A code editor that only writes down what it is told: "2052 34 5" or "4005 0 'if else'". It knows the characters of
// its text and takes each for ten columns; its other answers are by script.
class Recorder : public CodeEditor {
public:
    std::intptr_t send(const EditorMessage& message, std::uintptr_t wParam, std::intptr_t lParam) override
    {
        const auto first = static_cast<std::intptr_t>(wParam);
        if (message.number == SCI.GETCHARAT.number)
            return first < content.size() ? content[first] : 0;
        if (message.number == SCI.GETCOLUMN.number)
            return first * 10;
        if (!answers.contains(message.number))
            sent.append(u"%1 %2 %3"_s.arg(message.number).arg(first).arg(lParam));
        return answers.value(message.number);
    }
    std::intptr_t send(const EditorMessage& message, std::uintptr_t wParam, const QByteArray& text) override
    {
        sent.append(u"%1 %2 '%3'"_s.arg(message.number).arg(wParam).arg(QString::fromUtf8(text)));
        return 0;
    }
    std::intptr_t send(const EditorMessage& message, const QByteArray& first, const QByteArray& second) override
    {
        sent.append(u"%1 '%2' '%3'"_s.arg(message.number).arg(QString::fromUtf8(first), QString::fromUtf8(second)));
        return 0;
    }
    QByteArray text() const override { return content; }
    void setText(const QByteArray& text) override { content = text; }
    QString take() { return std::exchange(sent, {}).join(u'|'); }

    QStringList sent; // but for what has an answer
    QMap<unsigned, std::intptr_t> answers;
    QByteArray content;
};

// An archive with a few languages of the test's own: a number, a name and a word; a number behind them is that of a
// style.
struct Desk : ArchiveFixture {
    Desk()
    {
        run(u"DELETE * FROM tab_style"_s);
        run(u"DELETE * FROM tab_memoType"_s);
        const QString rows = u"2 PYTHON def 22,3 CPP int 7,4 HTML b 4,5 XML xml,8 VB Dim 8,13 XCODE xcode,"
                             "29 ASP asp 29,30 PHP echo,1003 CPP_JAVA java,1069 PHP_BARE php,"
                             "2003 CPP_JAVASCRIPT let 33"_s;
        for (const QString& row : rows.split(u',')) {
            const QStringList parts = row.split(u' ');
            run(u"INSERT INTO tab_memoType (memoTypeID, name, lexerCode, keywords) VALUES (%1, 'L', 'SCLEX_%2', '%3')"_s
                    .arg(parts[0], parts[1], parts[2]));
            if (parts.size() > 3)
                style(parts[1], u"styleNumber, [case], enable"_s, parts[3] + u", 1, true"_s);
        }
    }
    void run(const QString& sql) { ArchiveUnit(archive).Execute(sql); }
    // `columns` and `values` are lists as they stand in a statement.
    void style(const QString& name, const QString& columns, const QString& values)
    {
        run(u"INSERT INTO tab_style (lexerCode, %2) VALUES ('SCLEX_%1', %3)"_s.arg(name, columns, values));
    }
    Recorder editor;
    cScintilla code{editor, archive, "3"};
};

const QString cppOptions = u"4004 'styling.within.preprocessor' '1'|4004 'lexer.cpp.track.preprocessor' '0'|"_s
                           u"4004 'lexer.cpp.backquoted.strings' '%1'|4004 'lexer.cpp.triplequoted.strings' '%2'|"_s;
const QString serverPageSets = u"4005 1 ' break case catc|4005 2 ' and as byref by|"_s
                               u"4005 3 ' and argv as arg|4005 4 ' and argv as arg"_s;

} // namespace

class tst_cScintilla : public QObject {
    Q_OBJECT
private slots:
    void numberMargin()
    {
        Desk desk;
        desk.code.setMatchBraces(false);
        std::intptr_t& lines = desk.editor.answers[SCI.GETLINECOUNT.number];
        // Halves go to the even neighbour: 0.5 to 0, 1.5 and 2.5 to 2, 5.5 to 6.
        for (const auto& [count, pixels] :
             {std::pair(1, 25), {5, 25}, {6, 32}, {15, 32}, {25, 32}, {55, 39}, {1000, 46}}) {
            lines = count;
            desk.code.SetDisplayLinenumbers(true);
            desk.code.onUpdateUi(); // as many digits as before
            QCOMPARE(desk.editor.take(), u"2242 0 %1"_s.arg(pixels));
        }
        lines = 10000;
        desk.code.onUpdateUi();
        QCOMPARE(desk.editor.take(), u"2242 0 53"_s);
    }

    void braces()
    {
        Desk desk;
        const QString none = u"2351 -1 -1"_s;
        // Text, caret, partner.
        const std::tuple<QByteArray, int, int, QString> rows[] = {
            {"a b", 1, 0, none},          {"f(x)", 4, 1, u"2351 1 3"_s}, // before the caret
            {"(x)", 1, 2, u"2351 2 0"_s}, {"[{}]", 1, 2, u"2351 2 1"_s}, // the caret's goes first
            {"<>", 1, 0, u"2351 0 1"_s},  {"(", 0, -1, u"2352 0 0"_s},   {QByteArray("a\0b", 3), 1, 0, none},
        };
        for (const auto& [text, caret, partner, messages] : rows) {
            cScintilla code(desk.editor, desk.archive);
            desk.editor.content = text;
            desk.editor.answers = {
                {SCI.GETLINECOUNT.number, 0}, {SCI.BRACEMATCH.number, partner}, {SCI.GETCURRENTPOS.number, caret}};
            code.onUpdateUi();
            const bool isPair = messages != none && partner >= 0;
            QCOMPARE(desk.editor.take(), messages + (isPair ? u"|2134 %1 0"_s.arg(partner * 10) : QString()));
        }
    }

    void setLexer()
    {
        Desk desk;
        const QString page = u"4001 4 0|2090 5 0|2090 7 0|4004 'asp.default.language' '%1'|2060 29 1"_s;
        const std::tuple<int, QByteArray, QString> rows[] = {
            {3, "", u"4001 3 0|2090 5 0|"_s + cppOptions.arg(0).arg(0) + u"2060 7 1|4005 0 'int'"_s}, // C++
            {29, "", page.arg(3) + u"|4005 0 'asp'|"_s + serverPageSets}, // server page
            {101, "", page.arg(1) + u"|4005 0 'asp'"_s}, // server page 101
            {102, "", page.arg(2)}, // 102 has no words
            {4, "", u"4001 4 0|2090 5 0|2090 7 0|2060 4 1|4005 0 'b'|"_s + serverPageSets}, // HTML
            {30, "<p><?php", u"4001 4 0|2090 5 0|2090 7 0|4005 0 'echo'|4005 4 'echo'"_s}, // PHP in HTML
            {30, "echo 1;", u"4001 69 0|2090 5 0|2090 7 0|4005 0 'echo'|4005 4 'echo'"_s}, // PHP alone
            {13, "", u"4001 3 0|2090 5 0|"_s + cppOptions.arg(0).arg(0) + u"4005 0 'xcode'"_s}, // Xcode goes as C++
            {41, "", u"4001 41 0|2090 5 0|4005 0 ''"_s}, // a name without a row
            {2, "", u"4001 2 0|2090 5 0|2060 22 1|4005 0 'def'"_s}, // Python
            {2003, "", u"4001 3 0|2090 5 0|"_s + cppOptions.arg(1).arg(0) + u"2060 33 1|4005 0 'let'"_s}, // JavaScript
            {1003, "", u"4001 3 0|2090 5 0|"_s + cppOptions.arg(0).arg(1) + u"4005 0 'java'"_s}, // Java
            {1069, "", u"4001 69 0|2090 5 0|4005 0 'php'|4005 4 'php'"_s}, // bare PHP
            {111, "", u"4001 111 0|2090 5 0"_s}, // no row for it
            {-7, "", u"4001 -7 0|2090 5 0"_s}, // a wild number
        };
        for (const auto& [number, text, expected] : rows) {
            desk.editor.sent.clear();
            desk.editor.content = text;
            desk.code.SetLexer(number);
            // Behind what every language has: from the lexer's number on, without folding. The built-in lists are long:
            // their first words tell them apart.
            QStringList messages = desk.editor.sent.sliced(desk.editor.sent.indexOf(u"2032 0 0"_s) + 1);
            messages.removeIf([](const QString& message) { return message.startsWith(u"4004 'fold"); });
            for (QString& message : messages)
                message.truncate(message.startsWith(u"4005") ? 24 : 1000);
            QCOMPARE(messages.join(u'|'), expected);
        }
        QCOMPARE((scriptKeywords() + basicKeywords() + serverPageKeywords()).simplified().count(' '), 144);
    }

    void defaultComesFirst()
    {
        Desk desk;
        desk.code.SetLexerDefault();
        const QString plain = desk.editor.take();
        // Copying the default style to all of them must not lose the brace colours.
        QVERIFY2(plain.startsWith(u"2058 0 0|2055 32 10|2056 32 'Courier New'|2050 0 0|2052 34 "), qPrintable(plain));
        desk.code.SetLexer(3);
        const QStringList sent = desk.editor.sent;
        QVERIFY(desk.editor.take().startsWith(plain));
        // Folding is an option of each lexer: it is sent behind the number.
        QVERIFY(sent.indexOf(u"4004 'fold' '1'"_s) > sent.indexOf(u"4001 3 0"_s));

        desk.run(u"DROP TABLE tab_style"_s);
        desk.questions.expect(QString());
        desk.code.SetLexer(3);
        QVERIFY(desk.questions.asked.last().text.startsWith(u"Error in SetLexer: "));
        QVERIFY(desk.editor.take().endsWith(plain)); // the default style is what remains
    }

    void stylesAndKeywords()
    {
        Desk desk;
        desk.style(
            u"XML"_s,
            u"styleNumber, fontName, fontSize, foreColor, backColor, bold, italic, underline, invisible, [case], "
            u"enable"_s,
            u"1, 'Żuk', 12, 255, 16777215, true, true, true, true, 2, true"_s);
        desk.style(u"XML"_s, u"styleNumber, fontName, fontSize, foreColor, backColor, enable"_s,
                   u"2, '', 0, Null, 0, true"_s);
        desk.style(u"XML"_s, u"styleNumber, foreColor, bold, enable"_s, u"3, 7, true, false"_s);
        desk.code.LoadStyles(5);
        QCOMPARE(desk.editor.take(),
                 u"2056 1 'Żuk'|2055 1 12|2051 1 255|2052 1 16777215|2053 1 1|2054 1 1|2059 1 1|2060 1 2|2074 1 0|"
                 u"2052 2 0|2060 2 0"_s);
        QCOMPARE(
            desk.statements.last(),
            u"SELECT tab_memoType.memoTypeID, tab_memoType.name, tab_style.*  FROM tab_memoType INNER JOIN tab_style "
            u"ON tab_memoType.lexerCode = tab_style.lexerCode  WHERE tab_memoType.memoTypeID = 5 "_s);

        QCOMPARE(keywordsOf(desk.archive, u"SCLEX_NONE"_s), QString());
        QVERIFY(!updateKeywords(desk.archive, u"SCLEX_NONE"_s, u"x"_s));
        const QString odd = u"it's 'ключ'\r\nfrom"_s;
        QVERIFY(updateKeywords(desk.archive, u"SCLEX_VB"_s, odd));
        QCOMPARE(desk.statements.last(),
                 u"UPDATE tab_memoType SET tab_memoType.keywords = 'it''s ''ключ''\r\nfrom' "
                 u" WHERE lexerCode = 'SCLEX_VB' "_s);
        QCOMPARE(keywordsOf(desk.archive, u"SCLEX_VB"_s), odd);
        QCOMPARE(desk.statements.last(),
                 u"SELECT memoTypeID,  keywords  FROM tab_memoType  WHERE lexerCode = 'SCLEX_VB' "_s);
        QCOMPARE(keywordsOf(desk.archive, u"SCLEX_XML"_s), u"xml"_s);
        QCOMPARE(lexerCodeOf(desk.archive, 5) + lexerCodeOf(desk.archive, 6), u"SCLEX_XML"_s);
    }

    void offsets()
    {
        const QByteArray utf8 = u"aż日\U0001F642z"_s.toUtf8(); // 1 + 2 + 3 + 4 + 1 bytes
        QList<qsizetype> positions;
        for (const int offset : {0, 1, 2, 3, 4, 5, 6, 99})
            positions.append(bytePosition(utf8, offset)); // inside the pair: its start
        QCOMPARE(positions, QList<qsizetype>({0, 1, 3, 6, 6, 10, 11, 11}));
        QCOMPARE(utf16Offset(utf8, 8), 3); // inside its bytes, too
        QCOMPARE(utf16Offset(utf8, 99), 6);

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

    void anyCase()
    {
        const QByteArray text = "дом ДОМА 🙂дом"; // Cyrillic letters have two bytes
        // From 1 on: from inside a letter.
        for (const auto& [from, first] : {std::pair(0, 0), {1, 7}, {8, 20}, {20, 20}, {21, -1}})
            QCOMPARE(findInAnyCase(text, from, "Дом", false),
                     std::pair(qsizetype(first), qsizetype(first < 0 ? -1 : first + 6)));
        QCOMPARE(findInAnyCase("x ДОМА.дом", 0, "Дом", true).first, 11);
        QCOMPARE(findInAnyCase("дом_ 1дом", 0, "Дом", true).first, -1);
        QCOMPARE(findInAnyCase("", 0, "Дом", true).first, -1);
    }
};

SNIPVALE_TEST(tst_cScintilla)
#include "tst_cScintilla.moc"
