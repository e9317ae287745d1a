// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "memo/code/ScintillaCheck.h"

#include <algorithm>
#include <array>
#include <limits>

namespace {

enum class Kind : unsigned char {
    Free, // ignored, or harmless whatever it is
    Zero, // 0 only
    Flag, // 0 or 1
    Position, // 0 to the length
    PositionOrNone, // the same or -1
    Line, // of an existing line
    LineOrEnd, // the same or the line count
    Style, // 0 to 255
    Margin, // 0 to 4
    Marker, // 0 to 31
    MarkerOrAll, // the same or -1
    Symbol, // of a marker, one that needs no picture
    Color, // 0xBBGGRR
    Points, // a font size
    Pixels, // a width
    Choice4, // 0 to 3
    Guides, // -1 to 3
    EolMode, // 0 to 2
    Columns, // of a tab or an indent
    Milliseconds,
    Zoom, // points added to every size
    SearchFlags, // all but the regular expressions, which throw on a bad pattern
    WordSet, // of keywords, 0 to 8
    Lexer, // any 32-bit number
    TextLength, // no more than the text's
    Text,
};

struct Row {
    unsigned message;
    Kind wParam = Kind::Free;
    Kind lParam = Kind::Free;
};

using enum Kind;

// In the order of the numbers.
constexpr std::array table = std::to_array<Row>({
    {2001, TextLength, Text}, // ADDTEXT
    {2003, PositionOrNone, Text}, // INSERTTEXT
    {2004}, // CLEARALL
    {2005}, // CLEARDOCUMENTSTYLE
    {2006}, // GETLENGTH
    {2007, Position}, // GETCHARAT
    {2008}, // GETCURRENTPOS
    {2009}, // GETANCHOR
    {2010, Position}, // GETSTYLEAT
    {2011}, // REDO
    {2013}, // SELECTALL
    {2014}, // SETSAVEPOINT
    {2016}, // CANREDO
    {2021, Choice4}, // SETVIEWWS
    {2024, Line}, // GOTOLINE
    {2025, Position}, // GOTOPOS
    {2026, Position}, // SETANCHOR
    {2028}, // GETENDSTYLED
    {2029, EolMode}, // CONVERTEOLS
    {2030}, // GETEOLMODE
    {2031, EolMode}, // SETEOLMODE
    {2032, Position}, // STARTSTYLING
    {2036, Columns}, // SETTABWIDTH
    {2040, Marker, Symbol}, // MARKERDEFINE
    {2041, Marker, Color}, // MARKERSETFORE
    {2042, Marker, Color}, // MARKERSETBACK
    {2043, Line, Marker}, // MARKERADD
    {2044, Line, MarkerOrAll}, // MARKERDELETE
    {2045, MarkerOrAll}, // MARKERDELETEALL
    {2046, Line}, // MARKERGET
    {2047, Line}, // MARKERNEXT
    {2048, Line}, // MARKERPREVIOUS
    {2050}, // STYLECLEARALL
    {2051, Style, Color}, // STYLESETFORE
    {2052, Style, Color}, // STYLESETBACK
    {2053, Style, Flag}, // STYLESETBOLD
    {2054, Style, Flag}, // STYLESETITALIC
    {2055, Style, Points}, // STYLESETSIZE
    {2056, Style, Text}, // STYLESETFONT
    {2057, Style, Flag}, // STYLESETEOLFILLED
    {2058}, // STYLERESETDEFAULT
    {2059, Style, Flag}, // STYLESETUNDERLINE
    {2060, Style, Choice4}, // STYLESETCASE
    {2067, Flag, Color}, // SETSELFORE
    {2068, Flag, Color}, // SETSELBACK
    {2069, Color}, // SETCARETFORE
    {2074, Style, Flag}, // STYLESETVISIBLE
    {2075}, // GETCARETPERIOD
    {2076, Milliseconds}, // SETCARETPERIOD
    {2090}, // SETSTYLEBITS, which this component accepts and ignores
    {2091}, // GETSTYLEBITS
    {2122, Columns}, // SETINDENT
    {2123}, // GETINDENT
    {2124, Flag}, // SETUSETABS
    {2127, Line}, // GETLINEINDENTATION
    {2129, Position}, // GETCOLUMN
    {2132, Guides}, // SETINDENTATIONGUIDES
    {2133}, // GETINDENTATIONGUIDES
    {2134, Pixels}, // SETHIGHLIGHTGUIDE
    {2135}, // GETHIGHLIGHTGUIDE
    {2136, Line}, // GETLINEENDPOSITION
    {2140}, // GETREADONLY
    {2143}, // GETSELECTIONSTART
    {2145}, // GETSELECTIONEND
    {2152}, // GETFIRSTVISIBLELINE
    {2154}, // GETLINECOUNT
    {2159}, // GETMODIFY
    {2160, PositionOrNone, PositionOrNone}, // SETSEL
    {2164, Free, Position}, // POINTXFROMPOSITION
    {2165, Free, Position}, // POINTYFROMPOSITION
    {2166, Position}, // LINEFROMPOSITION
    {2167, LineOrEnd}, // POSITIONFROMLINE
    {2169}, // SCROLLCARET
    {2170, Free, Text}, // REPLACESEL
    {2171, Flag}, // SETREADONLY
    {2173}, // CANPASTE
    {2174}, // CANUNDO
    {2175}, // EMPTYUNDOBUFFER
    {2176}, // UNDO
    {2177}, // CUT
    {2178}, // COPY
    {2179}, // PASTE
    {2180}, // CLEAR
    {2181, Free, Text}, // SETTEXT
    {2190, Position}, // SETTARGETSTART
    {2191}, // GETTARGETSTART
    {2192, Position}, // SETTARGETEND
    {2193}, // GETTARGETEND
    {2194, TextLength, Text}, // REPLACETARGET
    {2197, TextLength, Text}, // SEARCHINTARGET
    {2198, SearchFlags}, // SETSEARCHFLAGS
    {2199}, // GETSEARCHFLAGS
    {2223, Line}, // GETFOLDLEVEL
    {2225, Line}, // GETFOLDPARENT
    {2228, Line}, // GETLINEVISIBLE
    {2230, Line}, // GETFOLDEXPANDED
    {2231, Line}, // TOGGLEFOLD
    {2232, Line}, // ENSUREVISIBLE
    {2233, Style}, // SETFOLDFLAGS, bits of a byte
    {2240, Margin, Choice4}, // SETMARGINTYPEN
    {2241, Margin}, // GETMARGINTYPEN
    {2242, Margin, Pixels}, // SETMARGINWIDTHN
    {2243, Margin}, // GETMARGINWIDTHN
    {2244, Margin}, // SETMARGINMASKN
    {2245, Margin}, // GETMARGINMASKN
    {2246, Margin, Flag}, // SETMARGINSENSITIVEN
    {2247, Margin}, // GETMARGINSENSITIVEN
    {2268, Choice4}, // SETWRAPMODE
    {2269}, // GETWRAPMODE
    {2276, Style, Text}, // TEXTWIDTH
    {2279, Line}, // TEXTHEIGHT
    {2282, TextLength, Text}, // APPENDTEXT
    {2333}, // ZOOMIN
    {2334}, // ZOOMOUT
    {2351, PositionOrNone, PositionOrNone}, // BRACEHIGHLIGHT
    {2352, PositionOrNone}, // BRACEBADLIGHT
    {2353, Position}, // BRACEMATCH
    {2359}, // SETMODEVENTMASK
    {2366}, // SEARCHANCHOR
    {2367, SearchFlags, Text}, // SEARCHNEXT
    {2368, SearchFlags, Text}, // SEARCHPREV
    {2373, Zoom}, // SETZOOM
    {2374}, // GETZOOM
    {2378}, // GETMODEVENTMASK
    {2481, Style}, // STYLEGETFORE
    {2482, Style}, // STYLEGETBACK
    {2483, Style}, // STYLEGETBOLD
    {2484, Style}, // STYLEGETITALIC
    {2485, Style}, // STYLEGETSIZE
    {2488, Style}, // STYLEGETUNDERLINE
    {2489, Style}, // STYLEGETCASE
    {2491, Style}, // STYLEGETVISIBLE
    {2662, Choice4}, // FOLDALL
    {4001, Lexer}, // SETLEXER
    {4002}, // GETLEXER
    {4003, Zero, PositionOrNone}, // COLOURISE, from the start: an end before it would be fatal
    {4004, Text, Text}, // SETPROPERTY
    {4005, WordSet, Text}, // SETKEYWORDS
});
static_assert(std::is_sorted(table.begin(), table.end(), [](Row a, Row b) { return a.message < b.message; }));

struct Range {
    std::intptr_t first;
    std::intptr_t last;
};

constexpr std::intptr_t lastInt = std::numeric_limits<qint32>::max();

Range rangeOf(Kind kind, EditorSize size, std::intptr_t textLength)
{
    switch (kind) {
    case Position:
        return {0, size.length};
    case PositionOrNone:
        return {-1, size.length};
    case Line:
        return {0, size.lines - 1};
    case LineOrEnd:
        return {0, size.lines};
    case TextLength:
        return {0, textLength};
    case Lexer:
        return {std::numeric_limits<qint32>::min(), lastInt};
    default:
        break;
    }
    static constexpr auto fixed = [] {
        std::array<Range, static_cast<std::size_t>(Text) + 1> ranges{};
        const auto set = [&ranges](Kind of, Range range) { ranges[static_cast<std::size_t>(of)] = range; };
        set(Flag, {0, 1});
        set(Style, {0, 255});
        set(Margin, {0, 4});
        set(Marker, {0, 31});
        set(MarkerOrAll, {-1, 31});
        set(Symbol, {0, 21});
        set(Color, {0, 0xFFFFFF});
        set(Points, {1, 400});
        set(Pixels, {0, 10000});
        set(Choice4, {0, 3});
        set(Guides, {-1, 3});
        set(EolMode, {0, 2});
        set(Columns, {1, 100});
        set(Milliseconds, {0, 60000});
        set(Zoom, {-10, 20});
        set(WordSet, {0, 8});
        return ranges;
    }();
    return fixed[static_cast<std::size_t>(kind)];
}

bool fits(Kind kind, std::intptr_t value, EditorSize size, std::intptr_t textLength)
{
    constexpr std::intptr_t wholeWord = 2, matchCase = 4, wordStart = 0x100000;
    if (kind == Free)
        return true;
    if (kind == Text)
        return false; // a number would be taken for an address
    if (kind == SearchFlags)
        return (value & ~(wholeWord | matchCase | wordStart)) == 0;
    const Range range = rangeOf(kind, size, textLength);
    return value >= range.first && value <= range.last;
}

const Row* rowOf(unsigned message)
{
    const auto* const row = std::lower_bound(table.begin(), table.end(), message,
                                             [](const Row& a, unsigned number) { return a.message < number; });
    if (row != table.end() && row->message == message)
        return row;
    qWarning("editor message %u has no row in the table of safe messages", message);
    return nullptr;
}

} // namespace

bool isSafeMessage(unsigned message, std::uintptr_t wParam, std::intptr_t lParam, EditorSize size)
{
    const Row* const row = rowOf(message);
    return row && fits(row->wParam, static_cast<std::intptr_t>(wParam), size, 0) && fits(row->lParam, lParam, size, 0);
}

bool isSafeTextMessage(unsigned message, std::uintptr_t wParam, qsizetype textLength, EditorSize size)
{
    const Row* const row = rowOf(message);
    return row && row->lParam == Text && fits(row->wParam, static_cast<std::intptr_t>(wParam), size, textLength);
}

bool isSafePairMessage(unsigned message)
{
    const Row* const row = rowOf(message);
    return row && row->wParam == Text && row->lParam == Text;
}
