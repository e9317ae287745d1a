// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "memo/code/cScintilla.h"

#include "archive/Archive.h"
#include "archive/ErrorTrap.h"
#include "desktop/Questions.h"
#include "memo/languages/StyleRows.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr std::uintptr_t minusOne = static_cast<std::uintptr_t>(-1);
constexpr std::uintptr_t numberMargin = 0;
constexpr std::uintptr_t symbolMargin = 1;
constexpr std::uintptr_t foldMargin = 2;
constexpr int symbolMarginWidth = 16; // pixels
constexpr std::uintptr_t phpWordSet = 4; // of the HTML and PHP lexers

// Black text keeps a contrast above 14 to 1 on both, and they stay apart for colour-blind eyes: one is blue and
// one is orange. Red is in the low byte.
constexpr std::intptr_t braceLightBack = 0xFFE6AE;
constexpr std::intptr_t braceBadBack = 0x9CC4FF;

bool isBrace(int character)
{
    return character != 0 && QByteArrayView("()[]{}<>").contains(static_cast<char>(character));
}

std::uintptr_t unsignedOf(std::intptr_t value)
{
    return static_cast<std::uintptr_t>(value);
}

// One style row. A row without a font, size or colour keeps the default style's.
void sendStyle(CodeEditor& editor, const jet::Recordset& row)
{
    const auto style = static_cast<std::uintptr_t>(row.integer(u"styleNumber"_s));
    const QString fontName = row.text(u"fontName"_s);
    if (!fontName.isEmpty())
        editor.send(SCI.STYLESETFONT, style, fontName.toUtf8());
    if (const qint64 size = row.integer(u"fontSize"_s); size != 0)
        editor.send(SCI.STYLESETSIZE, style, static_cast<std::intptr_t>(size));
    if (!row.isNull(u"foreColor"_s))
        editor.send(SCI.STYLESETFORE, style, static_cast<std::intptr_t>(row.integer(u"foreColor"_s)));
    if (!row.isNull(u"backColor"_s))
        editor.send(SCI.STYLESETBACK, style, static_cast<std::intptr_t>(row.integer(u"backColor"_s)));
    if (row.boolean(u"bold"_s))
        editor.send(SCI.STYLESETBOLD, style, 1);
    if (row.boolean(u"italic"_s))
        editor.send(SCI.STYLESETITALIC, style, 1);
    if (row.boolean(u"underline"_s))
        editor.send(SCI.STYLESETUNDERLINE, style, 1);
    editor.send(SCI.STYLESETCASE, style, static_cast<std::intptr_t>(row.integer(u"case"_s)));
    if (row.boolean(u"invisible"_s))
        editor.send(SCI.STYLESETVISIBLE, style, 0);
}

} // namespace

cScintilla::cScintilla(CodeEditor& editor, Archive& archive, const QByteArray& defaultScriptLanguage)
    : m_editor(editor), m_archive(archive), m_defaultScriptLanguage(defaultScriptLanguage)
{
}

void cScintilla::DoDefaultFolding(std::intptr_t position)
{
    const std::intptr_t line = m_editor.send(SCI.LINEFROMPOSITION, unsignedOf(position));
    m_editor.send(SCI.TOGGLEFOLD, unsignedOf(line));
}

int cScintilla::CharAtPos(std::intptr_t position) const
{
    return static_cast<int>(m_editor.send(SCI.GETCHARAT, unsignedOf(position))) & 0xFF;
}

std::intptr_t cScintilla::CurLine() const
{
    return GetCurrentLine() + 1;
}

void cScintilla::setCurLine(std::intptr_t line)
{
    const std::intptr_t wanted = std::clamp<std::intptr_t>(line, 1, TotalLines());
    setCurPosition(m_editor.send(SCI.POSITIONFROMLINE, unsignedOf(wanted - 1)));
}

std::intptr_t cScintilla::CurPosition() const
{
    return m_editor.send(SCI.GETCURRENTPOS);
}

void cScintilla::setCurPosition(std::intptr_t position)
{
    const std::intptr_t wanted = std::clamp<std::intptr_t>(position, 0, m_editor.send(SCI.GETLENGTH));
    m_editor.send(SCI.SETSEL, unsignedOf(wanted), wanted);
}

std::intptr_t cScintilla::Column() const
{
    return m_editor.send(SCI.GETCOLUMN, unsignedOf(CurPosition()));
}

std::intptr_t cScintilla::TotalLines() const
{
    return m_editor.send(SCI.GETLINECOUNT);
}

void cScintilla::SetDisplayFolding(bool on)
{
    m_displayFolding = on;
    m_editor.send(SCI.SETMARGINWIDTHN, foldMargin, on ? symbolMarginWidth : 0);
}

void cScintilla::SetDisplaySelection(bool on)
{
    m_displaySelection = on;
    m_editor.send(SCI.SETMARGINWIDTHN, symbolMargin, on ? symbolMarginWidth : 0);
}

void cScintilla::AddBookmark()
{
    m_editor.send(SCI.MARKERADD, unsignedOf(CurLine() - 1), 0);
}

void cScintilla::SetDisplayLinenumbers(bool on)
{
    m_displayLinenumbers = on;
    m_sizedLineCount = TotalLines();
    m_editor.send(SCI.SETMARGINWIDTHN, numberMargin, on ? GetLinenumberWidth() + 4 : 0);
}

int cScintilla::GetLinenumberWidth() const
{
    return (GetLinenumberChars() + 1) * 7;
}

int cScintilla::GetLinenumberChars() const
{
    // Rounding to the even neighbour makes 55 lines four characters wide. That is the width people know.
    int characters = 1;
    for (std::intptr_t n = TotalLines(); n > 0; ++characters) {
        const std::intptr_t whole = n / 10;
        const std::intptr_t rest = n % 10;
        n = whole + (rest > 5 || (rest == 5 && whole % 2 != 0) ? 1 : 0);
    }
    return characters;
}

std::intptr_t cScintilla::GetCurrentFoldinglevel() const
{
    return m_editor.send(SCI.GETFOLDLEVEL, unsignedOf(GetCurrentLine()));
}

std::intptr_t cScintilla::GetCurrentLine() const
{
    return m_editor.send(SCI.LINEFROMPOSITION, unsignedOf(CurPosition()));
}

void cScintilla::Init()
{
    m_editor.send(SCI.CLEARDOCUMENTSTYLE);
    m_editor.send(SCI.SETINDENTATIONGUIDES, minusOne);
    m_editor.send(SCI.SETTABWIDTH, 4);
    m_editor.send(SCI.SETINDENT, 4);
    m_editor.send(SCI.SETCARETPERIOD, 400);
    sendFolding();
    m_editor.send(SCI.SETFOLDFLAGS, 16);
    m_editor.send(SCI.SETMARGINMASKN, foldMargin, 0xFE000000);
    m_editor.send(SCI.SETMARGINSENSITIVEN, foldMargin, 1);
    m_editor.send(SCI.SETMODEVENTMASK, 3);
    m_editor.send(SCI.MARKERDEFINE, 31, 7);
    m_editor.send(SCI.MARKERDEFINE, 30, 8);
    for (const std::uintptr_t marker : {29, 28, 25, 26, 27})
        m_editor.send(SCI.MARKERDEFINE, marker, 5);
    setBraceColors();
    m_editor.send(SCI.CONVERTEOLS, 2);
    m_editor.send(SCI.SETEOLMODE, 2);
    m_editor.send(SCI.MARKERDEFINE, 0, 0);
    SetDisplayLinenumbers(m_displayLinenumbers);
    SetDisplayFolding(m_displayFolding);
    SetDisplaySelection(m_displaySelection);
}

void cScintilla::setBraceColors()
{
    m_editor.send(SCI.STYLESETBACK, STYLE_BRACELIGHT, braceLightBack);
    m_editor.send(SCI.STYLESETBACK, STYLE_BRACEBAD, braceBadBack);
}

void cScintilla::onUpdateUi()
{
    if (m_matchBraces)
        highlightBrace(braceAtCaret());
    const bool sameWidth = QString::number(TotalLines()).size() == QString::number(m_sizedLineCount).size();
    if (m_displayLinenumbers && !sameWidth)
        SetDisplayLinenumbers(true);
}

std::intptr_t cScintilla::braceAtCaret() const
{
    const std::intptr_t caret = CurPosition();
    if (isBrace(CharAtPos(caret)))
        return caret;
    return caret > 0 && isBrace(CharAtPos(caret - 1)) ? caret - 1 : -1;
}

void cScintilla::highlightBrace(std::intptr_t brace)
{
    if (brace < 0) {
        m_editor.send(SCI.BRACEHIGHLIGHT, minusOne, -1);
        return;
    }
    const std::intptr_t partner = m_editor.send(SCI.BRACEMATCH, unsignedOf(brace), 0);
    if (partner < 0) {
        m_editor.send(SCI.BRACEBADLIGHT, unsignedOf(brace));
        return;
    }
    m_editor.send(SCI.BRACEHIGHLIGHT, unsignedOf(partner), brace);
    if (m_highlightGuide)
        m_editor.send(SCI.SETHIGHLIGHTGUIDE, unsignedOf(m_editor.send(SCI.GETCOLUMN, unsignedOf(partner))));
}

void cScintilla::onStyleNeeded()
{
    // The lexer styles the text. Asked for are only the numbers that a container's own styling would start from.
    const std::intptr_t styled = m_editor.send(SCI.GETENDSTYLED);
    m_editor.send(SCI.POSITIONFROMLINE, unsignedOf(m_editor.send(SCI.LINEFROMPOSITION, unsignedOf(styled))));
}

std::intptr_t cScintilla::Find(const QString& text, int flags, std::intptr_t start)
{
    const QByteArray wanted = text.toUtf8();
    const std::intptr_t length = m_editor.send(SCI.GETLENGTH);
    m_editor.send(SCI.SETSEARCHFLAGS, static_cast<std::uintptr_t>(flags));
    // The text may have become shorter since the last match.
    m_editor.send(SCI.SETTARGETSTART, unsignedOf(std::clamp<std::intptr_t>(start, 0, length)));
    m_editor.send(SCI.SETTARGETEND, unsignedOf(length));
    const std::intptr_t found = m_editor.send(SCI.SEARCHINTARGET, static_cast<std::uintptr_t>(wanted.size()), wanted);
    if (found < 0) {
        m_archive.questions().ask(u"Search reached end of document"_s, MessageStyle::Information);
        return -1;
    }
    const std::intptr_t first = m_editor.send(SCI.GETTARGETSTART);
    const std::intptr_t last = m_editor.send(SCI.GETTARGETEND);
    // A selection inside a folded block would be out of sight.
    m_editor.send(SCI.ENSUREVISIBLE, unsignedOf(m_editor.send(SCI.LINEFROMPOSITION, unsignedOf(first))));
    m_editor.send(SCI.SETSEL, unsignedOf(first), last);
    return first;
}

std::intptr_t cScintilla::ReplaceFound(const QString& replacement)
{
    const QByteArray text = replacement.toUtf8();
    m_editor.send(SCI.REPLACETARGET, static_cast<std::uintptr_t>(text.size()), text);
    return m_editor.send(SCI.GETTARGETEND);
}

void cScintilla::FindNext(const QString& text, int flags)
{
    m_editor.send(SCI.SEARCHANCHOR);
    const std::intptr_t result = m_editor.send(SCI.SEARCHNEXT, static_cast<std::uintptr_t>(flags), text.toUtf8());
    m_archive.questions().ask(u"nresult: "_s + QString::number(result), MessageStyle::Plain);
}

// How a language dresses the editor: lexer, words and styles.

void cScintilla::SetLexerDefault()
{
    // A language may have dressed the default style itself; without a reset its bold type or its paper would be
    // copied into all the others.
    m_editor.send(SCI.STYLERESETDEFAULT);
    m_editor.send(SCI.STYLESETSIZE, STYLE_DEFAULT, 10);
    m_editor.send(SCI.STYLESETFONT, STYLE_DEFAULT, "Courier New"_ba);
    m_editor.send(SCI.STYLECLEARALL);
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
    m_editor.send(SCI.CLEARDOCUMENTSTYLE);
    m_editor.send(SCI.SETLEXER, SCLEX_NULL);
    m_editor.send(SCI.STARTSTYLING, 0);
}

void cScintilla::sendFolding()
{
    for (const char* name : {"fold", "fold.html", "fold.html.preprocessor", "fold.comment", "fold.at.else",
                             "fold.flags", "fold.preprocessor"})
        m_editor.send(SCI.SETPROPERTY, QByteArray(name), "1"_ba);
}

void cScintilla::setUpLanguage(qint32 n)
{
    SetLexerDefault();
    forgetLanguage();
    const LexerKind kind = lexerKind(n);
    const qint32 lexer = lexerToSend(n, m_editor.text());
    m_editor.send(SCI.SETLEXER, static_cast<std::uintptr_t>(lexer));
    sendFolding(); // a new lexer starts without them
    m_editor.send(SCI.SETSTYLEBITS, 5);
    if (kind == LexerKind::Unknown)
        return;
    if (kind == LexerKind::Html || kind == LexerKind::Asp || kind == LexerKind::ServerPage) {
        setUpServerPage(n);
        return;
    }
    if (kind == LexerKind::Markup)
        m_editor.send(SCI.SETSTYLEBITS, 7);
    const QString code = kind == LexerKind::OwnRow ? lexerCodeOf(m_archive, n) : lexerName(n);
    if (code.isEmpty())
        return;
    const QString words = keywordsOf(m_archive, code);
    for (const auto& [name, value] : lexerProperties(lexer, code))
        m_editor.send(SCI.SETPROPERTY, name, value);
    LoadStyles(n);
    setKeywords(0, words);
    // The lexers that stand in for PHP's own look for its words in another set.
    if (n == SCLEX_PHP || lexer == SCLEX_PHPSCRIPT)
        setKeywords(phpWordSet, words);
}

void cScintilla::setUpServerPage(qint32 n)
{
    m_editor.send(SCI.SETSTYLEBITS, 7);
    const LexerKind kind = lexerKind(n);
    if (kind == LexerKind::Asp)
        m_editor.send(SCI.SETPROPERTY, "asp.default.language"_ba, m_defaultScriptLanguage);
    if (kind == LexerKind::ServerPage)
        m_editor.send(SCI.SETPROPERTY, "asp.default.language"_ba, QByteArray::number(n - 100));
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
    m_editor.send(SCI.SETKEYWORDS, 1, scriptKeywords());
    m_editor.send(SCI.SETKEYWORDS, 2, basicKeywords());
    m_editor.send(SCI.SETKEYWORDS, 3, serverPageKeywords());
    m_editor.send(SCI.SETKEYWORDS, 4, serverPageKeywords());
}

void cScintilla::setKeywords(std::uintptr_t set, const QString& words)
{
    m_editor.send(SCI.SETKEYWORDS, set, words.toUtf8());
}
