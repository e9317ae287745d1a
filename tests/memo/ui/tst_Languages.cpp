// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The languages, styles and keywords of the shipped archive, in the editor that shows them.

#include "archive/Archive.h"
#include "memo/code/cScintilla.h"
#include "memo/code/ui/ScintillaView.h"
#include "support/CoreSupport.h"
#include "support/Registry.h"
#include "ui/widgets/Colors.h"

#include <QSet>
#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

struct Language {
    qint32 id;
    QString lexerCode;
    QByteArrayList keywords;
};

// Where the words of a language may stand. "%" is the word.
QByteArrayList contextsOf(qint32 lexer)
{
    static const QMap<qint32, QByteArrayList> special = {
        {4, {"<%>", "<a %=1>"}},
        {29, {"<%>", "<a %=1>"}},
        {101, {"<%>", "<a %=1>"}},
        {12, {"%\n", "if a % b\n", "if % b echo\n", "copy b %\n"}},
        {18, {"%\n", "property a: b % c;\n", "exports a % b;\n"}},
        {37, {"      %\n"}},
        {38, {"a { %: 1 }"}},
        {39, {"%\n", "#%\n"}},
        {48, {"a: %\n"}},
        {49, {"\\% a\n"}},
        {71, {"REBOL []\n% a\n"}},
        {76, {"[%]\n"}},
        {116, {"@%{a,\n}\n"}},
    };
    return special.value(lexer, {"%\n", "a = %;\n"});
}

} // namespace

class tst_Languages : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void sample();
    void keywords();
    void styles();
    void contents();

private:
    QByteArray style(const QByteArray& text);
    QSet<QByteArray> deadWords(const QList<QByteArray>& words, const QByteArray& context);

    std::unique_ptr<ArchiveFixture> m_fixture;
    std::unique_ptr<ScintillaView> m_view;
    std::unique_ptr<cScintilla> m_editor;
    QList<Language> m_languages; // those with words or styles
};

void tst_Languages::initTestCase()
{
    m_fixture = std::make_unique<ArchiveFixture>();
    m_view = std::make_unique<ScintillaView>();
    m_editor = std::make_unique<cScintilla>(*m_view, m_fixture->archive);
    m_editor->Init();
    ArchiveUnit unit(m_fixture->archive);
    jet::Recordset rows = unit.Open(u"SELECT * FROM tab_memoType WHERE enabled = true AND memoTypeID > 1"_s);
    for (; !rows.eof(); rows.moveNext())
        m_languages.append({qint32(rows.integer(u"memoTypeID"_s)), rows.text(u"lexerCode"_s),
                            rows.text(u"keywords"_s).toUtf8().split(' ')});
    QVERIFY(m_languages.size() > 50);
}

// The style numbers of a text, byte by byte.
QByteArray tst_Languages::style(const QByteArray& text)
{
    m_view->setText(text);
    m_view->SendScintilla(QsciScintillaBase::SCI_COLOURISE, 0UL, -1L);
    QByteArray result;
    for (qsizetype i = 0; i < text.size(); ++i)
        result += static_cast<char>(m_view->send(SCI.GETSTYLEAT, static_cast<std::uintptr_t>(i)));
    return result;
}

// A sample has the styles of its language: at least three of them, all with a row.
void tst_Languages::sample()
{
    for (const Language& language : std::as_const(m_languages)) {
        const QString stem = QStringLiteral(SOURCE_DIR "/data/samples/") + language.lexerCode;
        const QByteArray own = bytesOf(u"%1.%2.txt"_s.arg(stem).arg(language.id));
        const QByteArray text = own.isEmpty() ? bytesOf(stem + u".txt"_s) : own;
        m_view->setText(text);
        m_editor->SetLexer(language.id);
        const QByteArray styled = style(text);
        QSet<char> used;
        for (qsizetype i = 0; i < text.size(); ++i)
            if (!QChar::isSpace(static_cast<uchar>(text[i])))
                used.insert(styled[i]);
        QSet<long> looks;
        for (const char number : std::as_const(used)) {
            const auto get = [&](unsigned message) { return m_view->SendScintilla(message, ulong(uchar(number))); };
            looks.insert(get(QsciScintillaBase::SCI_STYLEGETFORE) | get(QsciScintillaBase::SCI_STYLEGETBOLD) << 24 |
                         get(QsciScintillaBase::SCI_STYLEGETITALIC) << 25);
            QCOMPARE(
                m_fixture->value(u"SELECT COUNT(*) AS n FROM tab_style WHERE lexerCode = '%1' AND styleNumber = %2"_s
                                     .arg(language.lexerCode)
                                     .arg(int(uchar(number)))),
                u"1"_s);
        }
        QVERIFY2(used.size() >= 3 && looks.size() >= 3, qPrintable(stem));
    }
}

// The words that look like a word of no list, in one context.
QSet<QByteArray> tst_Languages::deadWords(const QList<QByteArray>& words, const QByteArray& context)
{
    const qsizetype place = context.indexOf('%');
    const auto look = [&](const QByteArray& word) { return style(QByteArray(context).replace('%', word))[place]; };
    const char plain = look("zqxjk");
    QSet<QByteArray> dead;
    for (const QByteArray& word : words)
        if (look(word) == plain)
            dead.insert(word);
    return dead;
}

// Every word of a list is seen by the lexer: it is written in the letter case and with the letters that the lexer
// compares, and it stands once.
void tst_Languages::keywords()
{
    for (const Language& language : std::as_const(m_languages)) {
        if (language.keywords.first().isEmpty() || language.id == 102 || language.id == 103)
            continue; // these get no list
        m_view->setText({});
        m_editor->SetLexer(language.id);
        QSet<QByteArray> left(language.keywords.begin(), language.keywords.end());
        QCOMPARE(left.size(), language.keywords.size());
        for (const QByteArray& context : contextsOf(language.id % 1000))
            left = deadWords(left.values(), context);
        QVERIFY2(left.isEmpty(),
                 qPrintable(language.lexerCode + QLatin1Char(' ') + QString::fromUtf8(left.values().join(' '))));
    }
}

void tst_Languages::styles()
{
    ArchiveUnit unit(m_fixture->archive);
    jet::Recordset rows = unit.Open(u"SELECT * FROM tab_style"_s);
    for (; !rows.eof(); rows.moveNext()) {
        const auto color = [&rows](const QString& column) {
            return *colorOfNumber(std::optional(rows.integer(column)));
        };
        const QString what = rows.text(u"lexerCode"_s) + u' ' + rows.text(u"styleNumber"_s);
        const bool isGuide = rows.integer(u"styleNumber"_s) == QsciScintillaBase::STYLE_INDENTGUIDE;
        QVERIFY2(isGuide || contrast(color(u"foreColor"_s), color(u"backColor"_s)) >= wellRead, qPrintable(what));
        QVERIFY2(rows.boolean(u"enable"_s) && !rows.boolean(u"invisible"_s), qPrintable(what));
        QVERIFY2(rows.isNull(u"fontName"_s) && rows.isNull(u"fontSize"_s), qPrintable(what));
    }
    // Red stays in the low byte: strings are a dark red.
    QCOMPARE(m_fixture->value(u"SELECT foreColor FROM tab_style WHERE lexerCode = 'SCLEX_CPP' AND styleNumber = 6"_s),
             QString::number(0x1515A3));
}

// What a new user finds: the languages that the memo editor offers, and two roots, whose elements go with them.
void tst_Languages::contents()
{
    QCOMPARE(m_fixture->value(u"SELECT name FROM tab_memoType WHERE memoTypeID = 1"_s), u"Plain text"_s);
    QCOMPARE(m_fixture->value(u"SELECT enabled FROM tab_memoType WHERE memoTypeID = 0"_s), u"0"_s);
    const QString offered =
        u"SELECT COUNT(*) AS n FROM tab_memoType WHERE enabled = true AND visible = true AND name IN "
        "('C / C++', 'C#', 'Java', 'JavaScript', 'HTML', 'Python', 'PHP', 'SQL', 'JSON', 'XML')"_s;
    QCOMPARE(m_fixture->value(offered), u"10"_s);
    ArchiveUnit unit(m_fixture->archive);
    QStringList roots;
    jet::Recordset rows = unit.Open(u"SELECT * FROM tab_category ORDER BY type"_s);
    for (; !rows.eof(); rows.moveNext())
        roots.append(rows.text(u"parentID"_s) + u' ' + rows.text(u"type"_s) + u' ' + rows.text(u"name"_s));
    QCOMPARE(roots.join(u','), u"0 0 Code,0 1 Bookmarks"_s);
    unit.Execute(u"INSERT INTO tab_memo (categoryID, memoTypeID, memoName) VALUES (1, 0, 'no language')"_s);
    unit.Execute(u"INSERT INTO tab_bookmark (categoryID, name) VALUES (2, 'here')"_s);
    unit.Execute(u"DELETE * FROM tab_category"_s);
    QVERIFY(unit.Open(u"SELECT * FROM tab_memo"_s).eof() && unit.Open(u"SELECT * FROM tab_bookmark"_s).eof());
}

SNIPVALE_TEST(tst_Languages)
#include "tst_Languages.moc"
