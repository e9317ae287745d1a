// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
// How a language dresses the editor: lexer, words and styles.
#include "memo/code/cScintilla.h"

#include "archive/Archive.h"
#include "archive/ErrorTrap.h"
#include "memo/languages/StyleRows.h"

using namespace Qt::StringLiterals;

namespace {

constexpr std::uintptr_t phpWordSet = 4; // of the HTML and PHP lexers

// One style row. A row without a font, size or colour keeps the default style's.
void sendStyle(CodeEditor& editor, const jet::Recordset& row)
{
    const auto style = static_cast<std::uintptr_t>(row.integer(u"styleNumber"_s));
    const QString fontName = row.text(u"fontName"_s);
    if (!fontName.isEmpty())
        editor.send(SCI_STYLESETFONT, style, fontName.toUtf8());
    if (const qint64 size = row.integer(u"fontSize"_s); size != 0)
        editor.send(SCI_STYLESETSIZE, style, static_cast<std::intptr_t>(size));
    if (!row.isNull(u"foreColor"_s))
        editor.send(SCI_STYLESETFORE, style, static_cast<std::intptr_t>(row.integer(u"foreColor"_s)));
    if (!row.isNull(u"backColor"_s))
        editor.send(SCI_STYLESETBACK, style, static_cast<std::intptr_t>(row.integer(u"backColor"_s)));
    if (row.boolean(u"bold"_s))
        editor.send(SCI_STYLESETBOLD, style, 1);
    if (row.boolean(u"italic"_s))
        editor.send(SCI_STYLESETITALIC, style, 1);
    if (row.boolean(u"underline"_s))
        editor.send(SCI_STYLESETUNDERLINE, style, 1);
    editor.send(SCI_STYLESETCASE, style, static_cast<std::intptr_t>(row.integer(u"case"_s)));
    if (row.boolean(u"invisible"_s))
        editor.send(SCI_STYLESETVISIBLE, style, 0);
}

} // namespace

void cScintilla::SetLexerDefault()
{
    // A language may have dressed the default style itself; without a reset its bold type or its paper would be
    // copied into all the others.
    m_editor.send(SCI_STYLERESETDEFAULT);
    m_editor.send(SCI_STYLESETSIZE, STYLE_DEFAULT, 10);
    m_editor.send(SCI_STYLESETFONT, STYLE_DEFAULT, "Courier New"_ba);
    m_editor.send(SCI_STYLECLEARALL);
    setBraceColors(); // the line above copied the default paper over them
}

void cScintilla::SetLexer(qint32 n)
{
    if (!trapErrors(m_archive.questions(), u"SetLexer"_s, [&] { setUpLanguage(n); }))
        SetLexerDefault(); // the failure may have come between two styles
}

void cScintilla::LoadStyles(qint32 n)
{
    ArchiveUnit unit(m_archive);
    for (jet::Recordset rows = openStyles(unit, n); !rows.eof(); rows.moveNext()) {
        if (rows.boolean(u"enable"_s))
            sendStyle(m_editor, rows);
    }
}

// A lexer keeps its words and options while its number stays, and a text keeps its fold boxes and hidden lines
// when the next lexer does not fold. The null lexer in between and a fresh styling run drop all of it.
void cScintilla::forgetLanguage()
{
    m_editor.send(SCI_CLEARDOCUMENTSTYLE);
    m_editor.send(SCI_SETLEXER, SCLEX_NULL);
    m_editor.send(SCI_STARTSTYLING, 0);
}

void cScintilla::sendFolding()
{
    for (const char* name : {"fold", "fold.html", "fold.html.preprocessor", "fold.comment", "fold.at.else",
                             "fold.flags", "fold.preprocessor"})
        m_editor.send(SCI_SETPROPERTY, QByteArray(name), "1"_ba);
}

void cScintilla::setUpLanguage(qint32 n)
{
    SetLexerDefault();
    forgetLanguage();
    const LexerKind kind = lexerKind(n);
    const qint32 lexer = lexerToSend(n, m_editor.text());
    m_editor.send(SCI_SETLEXER, static_cast<std::uintptr_t>(lexer));
    sendFolding(); // a new lexer starts without them
    m_editor.send(SCI_SETSTYLEBITS, 5);
    if (kind == LexerKind::Unknown)
        return;
    if (kind == LexerKind::Html || kind == LexerKind::Asp || kind == LexerKind::ServerPage) {
        setUpServerPage(n);
        return;
    }
    if (kind == LexerKind::Markup)
        m_editor.send(SCI_SETSTYLEBITS, 7);
    const QString code = kind == LexerKind::OwnRow ? lexerCodeOf(m_archive, n) : lexerName(n);
    if (code.isEmpty())
        return;
    const QString words = keywordsOf(m_archive, code);
    for (const auto& [name, value] : lexerProperties(lexer, code))
        m_editor.send(SCI_SETPROPERTY, name, value);
    LoadStyles(n);
    setKeywords(0, words);
    // The lexers that stand in for PHP's own look for its words in another set.
    if (n == SCLEX_PHP || lexer == SCLEX_PHPSCRIPT)
        setKeywords(phpWordSet, words);
}

void cScintilla::setUpServerPage(qint32 n)
{
    m_editor.send(SCI_SETSTYLEBITS, 7);
    const LexerKind kind = lexerKind(n);
    if (kind == LexerKind::Asp)
        m_editor.send(SCI_SETPROPERTY, "asp.default.language"_ba, m_defaultScriptLanguage);
    if (kind == LexerKind::ServerPage)
        m_editor.send(SCI_SETPROPERTY, "asp.default.language"_ba, QByteArray::number(n - 100));
    const QString words = keywordsOf(m_archive, lexerName(n));
    LoadStyles(kind == LexerKind::ServerPage ? SCLEX_ASP : n);
    if (kind != LexerKind::ServerPage)
        setMarkupKeywords(words);
    else if (n == 101)
        setKeywords(0, words); // 102 and 103 go without words, as they always did
}

void cScintilla::setMarkupKeywords(const QString& words)
{
    setKeywords(0, words);
    m_editor.send(SCI_SETKEYWORDS, 1, scriptKeywords());
    m_editor.send(SCI_SETKEYWORDS, 2, basicKeywords());
    m_editor.send(SCI_SETKEYWORDS, 3, serverPageKeywords());
    m_editor.send(SCI_SETKEYWORDS, 4, serverPageKeywords());
}

void cScintilla::setKeywords(std::uintptr_t set, const QString& words)
{
    m_editor.send(SCI_SETKEYWORDS, set, words.toUtf8());
}
