// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>
#include <cstdint>
#include <limits>

// The messages of Scintilla's public interface that this program sends (scintilla.org/ScintillaDoc.html), so that the
// core builds without the component's headers. Debian builds Scintilla with its assertions on: a position past the end,
// a bad line or a wild count ends the whole program. So each message says what its two parameters may be.

struct EditorSize {
    std::intptr_t length = 0; // bytes
    std::intptr_t lines = 1;
    std::intptr_t sent = 0; // bytes of the text that goes with the message
};

// A number from `first` to `last`; `last` may be counted from a size of the editor on. A text is never a number, which
// would be taken for its address.
struct EditorRule {
    std::intptr_t first = std::numeric_limits<std::intptr_t>::min();
    std::intptr_t last = std::numeric_limits<std::intptr_t>::max();
    std::intptr_t EditorSize::*from = nullptr;
    bool isText = false;

    constexpr bool allows(std::intptr_t value, const EditorSize& size) const
    {
        return !isText && value >= first && value <= last + (from ? size.*from : 0);
    }
};

struct EditorMessage {
    unsigned number;
    EditorRule wParam = {}; // anything, or not used
    EditorRule lParam = {};
};

struct EditorMessages {
    using Is = EditorRule;
    static constexpr Is text{0, 0, nullptr, true}, sentLength{0, 0, &EditorSize::sent};
    static constexpr Is position{0, 0, &EditorSize::length}, positionOrNone{-1, 0, &EditorSize::length};
    static constexpr Is line{0, -1, &EditorSize::lines}, lineOrEnd{0, 0, &EditorSize::lines};
    static constexpr Is flag{0, 1}, style{0, 255}, margin{0, 4}, marker{0, 31}, color{0, 0xFFFFFF}, pixels{0, 10000};
    static constexpr Is searchFlags{0, 6}; // not the regular expressions, which throw on a bad pattern

    EditorMessage CLEARDOCUMENTSTYLE{2005};
    EditorMessage GETLENGTH{2006};
    EditorMessage GETCHARAT{2007, position};
    EditorMessage GETCURRENTPOS{2008};
    EditorMessage GETSTYLEAT{2010, position};
    EditorMessage REDO{2011};
    EditorMessage SELECTALL{2013};
    EditorMessage GETENDSTYLED{2028};
    EditorMessage CONVERTEOLS{2029, {0, 2}};
    EditorMessage SETEOLMODE{2031, {0, 2}};
    EditorMessage STARTSTYLING{2032, position};
    EditorMessage SETTABWIDTH{2036, {1, 100}};
    EditorMessage MARKERDEFINE{2040, marker, {0, 21}}; // a symbol that needs no picture
    EditorMessage MARKERADD{2043, line, marker};
    EditorMessage STYLECLEARALL{2050};
    EditorMessage STYLESETFORE{2051, style, color};
    EditorMessage STYLESETBACK{2052, style, color};
    EditorMessage STYLESETBOLD{2053, style, flag};
    EditorMessage STYLESETITALIC{2054, style, flag};
    EditorMessage STYLESETSIZE{2055, style, {1, 400}};
    EditorMessage STYLESETFONT{2056, style, text};
    EditorMessage STYLERESETDEFAULT{2058};
    EditorMessage STYLESETUNDERLINE{2059, style, flag};
    EditorMessage STYLESETCASE{2060, style, {0, 3}};
    EditorMessage STYLESETVISIBLE{2074, style, flag};
    EditorMessage SETCARETPERIOD{2076, {0, 60000}};
    EditorMessage SETSTYLEBITS{2090}; // which the component of today accepts and ignores
    EditorMessage SETINDENT{2122, {1, 100}};
    EditorMessage GETCOLUMN{2129, position};
    EditorMessage SETINDENTATIONGUIDES{2132, {-1, 3}};
    EditorMessage SETHIGHLIGHTGUIDE{2134, pixels};
    EditorMessage GETREADONLY{2140};
    EditorMessage GETSELECTIONSTART{2143};
    EditorMessage GETSELECTIONEND{2145};
    EditorMessage GETLINECOUNT{2154};
    EditorMessage SETSEL{2160, positionOrNone, positionOrNone};
    EditorMessage LINEFROMPOSITION{2166, position};
    EditorMessage POSITIONFROMLINE{2167, lineOrEnd};
    EditorMessage UNDO{2176};
    EditorMessage CUT{2177};
    EditorMessage COPY{2178};
    EditorMessage PASTE{2179};
    EditorMessage CLEAR{2180};
    EditorMessage SETTEXT{2181, {}, text};
    EditorMessage SETTARGETSTART{2190, position};
    EditorMessage GETTARGETSTART{2191};
    EditorMessage SETTARGETEND{2192, position};
    EditorMessage GETTARGETEND{2193};
    EditorMessage REPLACETARGET{2194, sentLength, text};
    EditorMessage SEARCHINTARGET{2197, sentLength, text};
    EditorMessage SETSEARCHFLAGS{2198, searchFlags};
    EditorMessage GETFOLDLEVEL{2223, line};
    EditorMessage TOGGLEFOLD{2231, line};
    EditorMessage ENSUREVISIBLE{2232, line};
    EditorMessage SETFOLDFLAGS{2233, {0, 255}};
    EditorMessage SETMARGINWIDTHN{2242, margin, pixels};
    EditorMessage SETMARGINMASKN{2244, margin};
    EditorMessage SETMARGINSENSITIVEN{2246, margin, flag};
    EditorMessage SETWRAPMODE{2268, {0, 3}};
    EditorMessage GETWRAPMODE{2269};
    EditorMessage BRACEHIGHLIGHT{2351, positionOrNone, positionOrNone};
    EditorMessage BRACEBADLIGHT{2352, positionOrNone};
    EditorMessage BRACEMATCH{2353, position};
    EditorMessage SETMODEVENTMASK{2359};
    EditorMessage SEARCHANCHOR{2366};
    EditorMessage SEARCHNEXT{2367, searchFlags, text};
    EditorMessage SETLEXER{4001, {std::numeric_limits<qint32>::min(), std::numeric_limits<qint32>::max()}};
    EditorMessage SETPROPERTY{4004, text, text};
    EditorMessage SETKEYWORDS{4005, {0, 8}, text};
};
inline constexpr EditorMessages SCI;
