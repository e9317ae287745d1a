// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The languages, styles and keywords of the shipped archive, in the editor that shows them.

#include "archive/Archive.h"
#include "memo/code/cScintilla.h"
#include "memo/code/ui/ScintillaView.h"
#include "support/CoreSupport.h"
#include "support/Registry.h"
#include "ui/widgets/Colors.h"

#include <QFile>
#include <QMap>
#include <QSet>
#include <QtTest>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

struct Language {
    qint32 id;
    QString name;
    QString lexerCode;
    QString keywords;
};

using Styles = QSet<int>;

// Text for the editor; an error names what was looked for.
QByteArray sampleOf(const Language& language)
{
    const QString folder = QStringLiteral(SOURCE_DIR "/data/samples/");
    for (const QString& name : {language.lexerCode + u'.' + QString::number(language.id), language.lexerCode}) {
        QFile file(folder + name + u".txt"_s);
        if (file.open(QIODevice::ReadOnly))
            return file.readAll();
    }
    return {};
}

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
    void sample_data() { languageRows(); }
    void sample();
    void keywords_data() { languageRows(); }
    void keywords();
    void styles();
    void offered();
    void contents();

private:
    void languageRows();
    const Language& current() const;
    QByteArray style(const QByteArray& text);
    QSet<QByteArray> deadWords(const QList<QByteArray>& words, const QByteArray& context);

    std::unique_ptr<ArchiveFixture> m_fixture;
    std::unique_ptr<ScintillaView> m_view;
    std::unique_ptr<cScintilla> m_editor;
    QMap<qint32, Language> m_languages;
    QMap<QString, Styles> m_styles;
};

void tst_Languages::initTestCase()
{
    m_fixture = std::make_unique<ArchiveFixture>();
    m_view = std::make_unique<ScintillaView>();
    m_editor = std::make_unique<cScintilla>(*m_view, m_fixture->archive);
    m_editor->Init();
    ArchiveUnit unit(m_fixture->archive);
    jet::Recordset rows = unit.Open(u"SELECT * FROM tab_memoType WHERE enabled = true"_s);
    for (; !rows.eof(); rows.moveNext()) {
        const auto id = static_cast<qint32>(rows.integer(u"memoTypeID"_s));
        m_languages.insert(id, {id, rows.text(u"name"_s), rows.text(u"lexerCode"_s), rows.text(u"keywords"_s)});
    }
    rows = unit.Open(u"SELECT lexerCode, styleNumber FROM tab_style"_s);
    for (; !rows.eof(); rows.moveNext()) {
        Styles& numbers = m_styles[rows.text(0)];
        QVERIFY2(!numbers.contains(static_cast<int>(rows.integer(1))), qPrintable(rows.text(0)));
        numbers.insert(static_cast<int>(rows.integer(1)));
    }
    QVERIFY(m_languages.size() > 50);
}

void tst_Languages::languageRows()
{
    QTest::addColumn<qint32>("id");
    for (const Language& language : std::as_const(m_languages))
        if (language.id > 1)
            QTest::newRow(qPrintable(language.name)) << language.id;
}

const Language& tst_Languages::current() const
{
    QFETCH(qint32, id);
    return *m_languages.constFind(id);
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

// A sample has the styles of its language: at least three of them, all with a row, none a mark of bad code.
void tst_Languages::sample()
{
    const Language& language = current();
    const QByteArray text = sampleOf(language);
    QVERIFY2(!text.isEmpty(), "no sample");
    m_view->setText(text);
    m_editor->SetLexer(language.id);
    const QByteArray styled = style(text);
    Styles used;
    for (qsizetype i = 0; i < text.size(); ++i)
        if (!QChar::isSpace(static_cast<uchar>(text[i])))
            used.insert(static_cast<uchar>(styled[i]));
    QVERIFY2(m_styles.value(language.lexerCode).contains(used), "a style has no row");
    QSet<std::intptr_t> looks;
    for (const int number : std::as_const(used)) {
        const auto get = [&](unsigned message) {
            return m_view->SendScintilla(message, static_cast<unsigned long>(number));
        };
        looks.insert(get(QsciScintillaBase::SCI_STYLEGETFORE) | get(QsciScintillaBase::SCI_STYLEGETBOLD) << 24 |
                     get(QsciScintillaBase::SCI_STYLEGETITALIC) << 25);
    }
    QVERIFY2(used.size() >= 3 && looks.size() >= 3, qPrintable(u"%1 styles"_s.arg(used.size())));
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
    const Language& language = current();
    const QList<QByteArray> words = language.keywords.toUtf8().split(' ');
    if (language.keywords.isEmpty() || language.id == 102 || language.id == 103)
        return; // these get no list
    m_view->setText({});
    m_editor->SetLexer(language.id);
    QSet<QByteArray> left(words.begin(), words.end());
    QCOMPARE(left.size(), words.size());
    for (const QByteArray& context : contextsOf(language.id % 1000))
        left = deadWords(left.values(), context);
    QByteArrayList dead = left.values();
    std::sort(dead.begin(), dead.end());
    QVERIFY2(dead.isEmpty(), dead.join(' ').constData());
}

void tst_Languages::styles()
{
    ArchiveUnit unit(m_fixture->archive);
    jet::Recordset rows = unit.Open(u"SELECT * FROM tab_style"_s);
    for (; !rows.eof(); rows.moveNext()) {
        const QString what = rows.text(u"lexerCode"_s) + u' ' + rows.text(u"styleNumber"_s);
        const auto color = [&rows](const QString& column) {
            return *colorOfNumber(std::optional(rows.integer(column)));
        };
        const bool isGuide = rows.integer(u"styleNumber"_s) == QsciScintillaBase::STYLE_INDENTGUIDE;
        QVERIFY2(isGuide || contrast(color(u"foreColor"_s), color(u"backColor"_s)) >= wellRead, qPrintable(what));
        QVERIFY2(rows.boolean(u"enable"_s) && !rows.boolean(u"invisible"_s), qPrintable(what));
        QVERIFY2(rows.isNull(u"fontName"_s) && rows.isNull(u"fontSize"_s), qPrintable(what));
    }
    // Red stays in the low byte: strings are a dark red.
    QCOMPARE(m_fixture->value(u"SELECT foreColor FROM tab_style WHERE lexerCode = 'SCLEX_CPP' AND styleNumber = 6"_s),
             QString::number(0x1515A3));
}

// What the memo editor's list shows, and that no language of the list lacks its words.
void tst_Languages::offered()
{
    QCOMPARE(m_fixture->value(u"SELECT name FROM tab_memoType WHERE memoTypeID = 1"_s), u"Plain text"_s);
    QCOMPARE(m_fixture->value(u"SELECT enabled FROM tab_memoType WHERE memoTypeID = 0"_s), u"0"_s);
    for (const QString& name :
         u"C / C++,C#,Java,JavaScript,HTML,Python,PHP,SQL,Rust,Go,JSON,Visual Basic,XML,Markdown"_s.split(u','))
        QVERIFY2(m_fixture->value(u"SELECT COUNT(memoTypeID) FROM tab_memoType WHERE enabled = true AND visible = true "
                                  "AND name = '%1'"_s.arg(name)) == u"1",
                 qPrintable(name));
    QVERIFY((u' ' + m_languages[4].keywords).contains(u" srcset "_s));
}

// What a new user finds: two roots, whose elements go with them.
void tst_Languages::contents()
{
    ArchiveUnit unit(m_fixture->archive);
    QStringList roots;
    jet::Recordset rows = unit.Open(u"SELECT * FROM tab_category ORDER BY type"_s);
    for (; !rows.eof(); rows.moveNext())
        roots.append(rows.text(u"parentID"_s) + u' ' + rows.text(u"type"_s) + u' ' + rows.text(u"name"_s));
    QCOMPARE(roots.join(u','), u"0 0 Code,0 1 Bookmarks"_s);
    QVERIFY(unit.Open(u"SELECT * FROM tab_note"_s).eof() && unit.Open(u"SELECT * FROM tab_password"_s).eof());
    unit.Execute(u"INSERT INTO tab_memo (categoryID, memoTypeID, memoName) VALUES (1, 0, 'no language')"_s);
    unit.Execute(u"INSERT INTO tab_bookmark (categoryID, name) VALUES (2, 'here')"_s);
    unit.Execute(u"DELETE * FROM tab_category"_s);
    QVERIFY(unit.Open(u"SELECT * FROM tab_memo"_s).eof() && unit.Open(u"SELECT * FROM tab_bookmark"_s).eof());
}

SNIPVALE_TEST(tst_Languages)
#include "tst_Languages.moc"
