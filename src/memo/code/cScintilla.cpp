// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "memo/code/cScintilla.h"

#include "archive/Archive.h"
#include "desktop/Questions.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr std::uintptr_t minusOne = static_cast<std::uintptr_t>(-1);
constexpr std::uintptr_t numberMargin = 0;
constexpr std::uintptr_t symbolMargin = 1;
constexpr std::uintptr_t foldMargin = 2;
constexpr int symbolMarginWidth = 16; // pixels

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

} // namespace

cScintilla::cScintilla(CodeEditor& editor, Archive& archive, const QByteArray& defaultScriptLanguage)
    : m_editor(editor), m_archive(archive), m_defaultScriptLanguage(defaultScriptLanguage)
{
}

void cScintilla::DoDefaultFolding(std::intptr_t position)
{
    const std::intptr_t line = m_editor.send(SCI_LINEFROMPOSITION, unsignedOf(position));
    m_editor.send(SCI_TOGGLEFOLD, unsignedOf(line));
}

int cScintilla::CharAtPos(std::intptr_t position) const
{
    return static_cast<int>(m_editor.send(SCI_GETCHARAT, unsignedOf(position))) & 0xFF;
}

std::intptr_t cScintilla::CurLine() const
{
    return GetCurrentLine() + 1;
}

void cScintilla::setCurLine(std::intptr_t line)
{
    const std::intptr_t wanted = std::clamp<std::intptr_t>(line, 1, TotalLines());
    setCurPosition(m_editor.send(SCI_POSITIONFROMLINE, unsignedOf(wanted - 1)));
}

std::intptr_t cScintilla::CurPosition() const
{
    return m_editor.send(SCI_GETCURRENTPOS);
}

void cScintilla::setCurPosition(std::intptr_t position)
{
    const std::intptr_t wanted = std::clamp<std::intptr_t>(position, 0, m_editor.send(SCI_GETLENGTH));
    m_editor.send(SCI_SETSEL, unsignedOf(wanted), wanted);
}

std::intptr_t cScintilla::Column() const
{
    return m_editor.send(SCI_GETCOLUMN, unsignedOf(CurPosition()));
}

std::intptr_t cScintilla::TotalLines() const
{
    return m_editor.send(SCI_GETLINECOUNT);
}

void cScintilla::SetDisplayFolding(bool on)
{
    m_displayFolding = on;
    m_editor.send(SCI_SETMARGINWIDTHN, foldMargin, on ? symbolMarginWidth : 0);
}

void cScintilla::SetDisplaySelection(bool on)
{
    m_displaySelection = on;
    m_editor.send(SCI_SETMARGINWIDTHN, symbolMargin, on ? symbolMarginWidth : 0);
}

void cScintilla::AddBookmark()
{
    m_editor.send(SCI_MARKERADD, unsignedOf(CurLine() - 1), 0);
}

void cScintilla::SetDisplayLinenumbers(bool on)
{
    m_displayLinenumbers = on;
    m_sizedLineCount = TotalLines();
    m_editor.send(SCI_SETMARGINWIDTHN, numberMargin, on ? GetLinenumberWidth() + 4 : 0);
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
    return m_editor.send(SCI_GETFOLDLEVEL, unsignedOf(GetCurrentLine()));
}

std::intptr_t cScintilla::GetCurrentLine() const
{
    return m_editor.send(SCI_LINEFROMPOSITION, unsignedOf(CurPosition()));
}

void cScintilla::Init()
{
    m_editor.send(SCI_CLEARDOCUMENTSTYLE);
    m_editor.send(SCI_SETINDENTATIONGUIDES, minusOne);
    m_editor.send(SCI_SETTABWIDTH, 4);
    m_editor.send(SCI_SETINDENT, 4);
    m_editor.send(SCI_SETCARETPERIOD, 400);
    sendFolding();
    m_editor.send(SCI_SETFOLDFLAGS, 16);
    m_editor.send(SCI_SETMARGINMASKN, foldMargin, 0xFE000000);
    m_editor.send(SCI_SETMARGINSENSITIVEN, foldMargin, 1);
    m_editor.send(SCI_SETMODEVENTMASK, 3);
    m_editor.send(SCI_MARKERDEFINE, 31, 7);
    m_editor.send(SCI_MARKERDEFINE, 30, 8);
    for (const std::uintptr_t marker : {29, 28, 25, 26, 27})
        m_editor.send(SCI_MARKERDEFINE, marker, 5);
    setBraceColors();
    m_editor.send(SCI_CONVERTEOLS, 2);
    m_editor.send(SCI_SETEOLMODE, 2);
    m_editor.send(SCI_MARKERDEFINE, 0, 0);
    SetDisplayLinenumbers(m_displayLinenumbers);
    SetDisplayFolding(m_displayFolding);
    SetDisplaySelection(m_displaySelection);
}

void cScintilla::setBraceColors()
{
    m_editor.send(SCI_STYLESETBACK, STYLE_BRACELIGHT, braceLightBack);
    m_editor.send(SCI_STYLESETBACK, STYLE_BRACEBAD, braceBadBack);
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
        m_editor.send(SCI_BRACEHIGHLIGHT, minusOne, -1);
        return;
    }
    const std::intptr_t partner = m_editor.send(SCI_BRACEMATCH, unsignedOf(brace), 0);
    if (partner < 0) {
        m_editor.send(SCI_BRACEBADLIGHT, unsignedOf(brace));
        return;
    }
    m_editor.send(SCI_BRACEHIGHLIGHT, unsignedOf(partner), brace);
    if (m_highlightGuide)
        m_editor.send(SCI_SETHIGHLIGHTGUIDE, unsignedOf(m_editor.send(SCI_GETCOLUMN, unsignedOf(partner))));
}

void cScintilla::onStyleNeeded()
{
    // The lexer styles the text. Asked for are only the numbers that a container's own styling would start from.
    const std::intptr_t styled = m_editor.send(SCI_GETENDSTYLED);
    m_editor.send(SCI_POSITIONFROMLINE, unsignedOf(m_editor.send(SCI_LINEFROMPOSITION, unsignedOf(styled))));
}

std::intptr_t cScintilla::Find(const QString& text, int flags, std::intptr_t start)
{
    const QByteArray wanted = text.toUtf8();
    const std::intptr_t length = m_editor.send(SCI_GETLENGTH);
    m_editor.send(SCI_SETSEARCHFLAGS, static_cast<std::uintptr_t>(flags));
    // The text may have become shorter since the last match.
    m_editor.send(SCI_SETTARGETSTART, unsignedOf(std::clamp<std::intptr_t>(start, 0, length)));
    m_editor.send(SCI_SETTARGETEND, unsignedOf(length));
    const std::intptr_t found = m_editor.send(SCI_SEARCHINTARGET, static_cast<std::uintptr_t>(wanted.size()), wanted);
    if (found < 0) {
        m_archive.questions().ask(u"Search reached end of document"_s, MessageStyle::Information);
        return -1;
    }
    const std::intptr_t first = m_editor.send(SCI_GETTARGETSTART);
    const std::intptr_t last = m_editor.send(SCI_GETTARGETEND);
    // A selection inside a folded block would be out of sight.
    m_editor.send(SCI_ENSUREVISIBLE, unsignedOf(m_editor.send(SCI_LINEFROMPOSITION, unsignedOf(first))));
    m_editor.send(SCI_SETSEL, unsignedOf(first), last);
    return first;
}

std::intptr_t cScintilla::ReplaceFound(const QString& replacement)
{
    const QByteArray text = replacement.toUtf8();
    m_editor.send(SCI_REPLACETARGET, static_cast<std::uintptr_t>(text.size()), text);
    return m_editor.send(SCI_GETTARGETEND);
}

void cScintilla::FindNext(const QString& text, int flags)
{
    m_editor.send(SCI_SEARCHANCHOR);
    const std::intptr_t result = m_editor.send(SCI_SEARCHNEXT, static_cast<std::uintptr_t>(flags), text.toUtf8());
    m_archive.questions().ask(u"nresult: "_s + QString::number(result), MessageStyle::Plain);
}
