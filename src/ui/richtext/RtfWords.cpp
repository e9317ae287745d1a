// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/richtext/RtfParser.h"

#include <QTextDocument>
#include <algorithm>
#include <utility>

// The control words that mean something here, and what each does.

namespace rtf {

namespace {

constexpr int farthest = 31680; // twips: 22 inches, the limit of word processors
constexpr int largestSize = 800; // half points

constexpr int ParaFormat::*paraValues[] = {&ParaFormat::left,       &ParaFormat::first,     &ParaFormat::right,
                                           &ParaFormat::before,     &ParaFormat::after,     &ParaFormat::lineSpacing,
                                           &ParaFormat::listNumber, &ParaFormat::listLevel, &ParaFormat::background};
enum ParaValue { Left, First, Right, Before, After, Spacing, ListNumber, ListLevel, Shading };

constexpr bool ParaFormat::*paraFlags[] = {&ParaFormat::multiple, &ParaFormat::rightToLeft, &ParaFormat::inTable};
enum ParaFlag { Multiple, RightToLeft, InTable, LeftToRight };

constexpr bool CharFormat::*charFlags[] = {&CharFormat::bold,     &CharFormat::italic, &CharFormat::underline,
                                           &CharFormat::strike,   &CharFormat::hidden, &CharFormat::allCaps,
                                           &CharFormat::smallCaps};
enum CharFlag { Bold, Italic, Underline, Strike, Hidden, AllCaps, SmallCaps };

enum CharValue { FontNumber, HalfPoints, Color, Background };
enum FontValue { Charset, FontCodePage };
enum ListValue { ListBegin, LevelNumbering, ListId };
enum OverrideValue { OverrideList, OverrideNumber };

constexpr Dest any = Dest::Any;
constexpr Dest body = Dest::Body;

constexpr int dest(Dest d)
{
    return static_cast<int>(d);
}

// The groups that hold nothing to show, and the words for an underline of some kind.
constexpr std::string_view skipped[] = {"aftncn",       "aftnsep",      "aftnsepc",
                                        "annotation",   "atnauthor",    "atnid",
                                        "bkmkend",      "bkmkstart",    "colorschememapping",
                                        "datastore",    "do",           "falt",
                                        "filetbl",      "footer",       "footerf",
                                        "footerl",      "footerr",      "footnote",
                                        "ftncn",        "ftnsep",       "ftnsepc",
                                        "generator",    "header",       "headerf",
                                        "headerl",      "headerr",      "info",
                                        "latentstyles", "levelnumbers", "leveltext",
                                        "listname",     "mmathPr",      "nonesttables",
                                        "nonshppict",   "objclass",     "objdata",
                                        "objname",      "panose",       "pntxta",
                                        "pntxtb",       "private",      "revtbl",
                                        "rsidtbl",      "shprslt",      "sp",
                                        "stylesheet",   "tc",           "template",
                                        "themedata",    "upr",          "userprops",
                                        "xe",           "xmlnstbl"};
constexpr std::string_view underlines[] = {"ul",        "uld",        "uldash",    "uldashd",    "uldashdd", "uldb",
                                           "ulhair",    "ulhwave",    "ulldash",   "ulth",       "ulthd",    "ulthdash",
                                           "ulthdashd", "ulthdashdd", "ulthldash", "ululdbwave", "ulw",      "ulwave"};

} // namespace

// In the order of their names, which the search relies on.
constexpr Parser::Word Parser::words[] = {
    {"ansicpg", &Parser::documentCodePage, 0, body},
    {"b", &Parser::charFlag, Bold, body},
    {"blue", &Parser::colorPart, 2, Dest::ColorTable},
    {"bullet", &Parser::symbol, 0x2022, any},
    {"caps", &Parser::charFlag, AllCaps, body},
    {"cb", &Parser::charValue, Background, body},
    {"cbpat", &Parser::paraValue, Shading, body},
    {"cell", &Parser::symbol, 0x9, body},
    {"cf", &Parser::charValue, Color, body},
    {"chcbpat", &Parser::charValue, Background, body},
    {"colortbl", &Parser::open, dest(Dest::ColorTable), any},
    {"column", &Parser::endParagraph, 0, body},
    {"cpg", &Parser::fontValue, FontCodePage, Dest::FontTable},
    {"deff", &Parser::defaultFont, 0, body},
    {"dn", &Parser::script, -1, body},
    {"emdash", &Parser::symbol, 0x2014, any},
    {"emspace", &Parser::symbol, 0x2003, any},
    {"endash", &Parser::symbol, 0x2013, any},
    {"enspace", &Parser::symbol, 0x2002, any},
    {"f", &Parser::fontNumber, 0, Dest::FontTable},
    {"f", &Parser::charValue, FontNumber, body},
    {"fcharset", &Parser::fontValue, Charset, Dest::FontTable},
    {"fi", &Parser::paraValue, First, body},
    {"field", &Parser::passThrough, 0, any},
    {"fldinst", &Parser::openInstruction, 0, any},
    {"fldrslt", &Parser::passThrough, 0, any},
    {"fonttbl", &Parser::open, dest(Dest::FontTable), any},
    {"fs", &Parser::charValue, HalfPoints, body},
    {"green", &Parser::colorPart, 1, Dest::ColorTable},
    {"highlight", &Parser::charValue, Background, body},
    {"i", &Parser::charFlag, Italic, body},
    {"ilvl", &Parser::paraValue, ListLevel, body},
    {"intbl", &Parser::paraFlag, InTable, body},
    {"lbr", &Parser::symbol, 0x2028, any},
    {"ldblquote", &Parser::symbol, 0x201C, any},
    {"levelnfc", &Parser::listValue, LevelNumbering, Dest::ListTable},
    {"li", &Parser::paraValue, Left, body},
    {"lin", &Parser::paraValue, Left, body},
    {"line", &Parser::symbol, 0x2028, any},
    {"list", &Parser::listValue, ListBegin, Dest::ListTable},
    {"listid", &Parser::overrideValue, OverrideList, Dest::ListOverrides},
    {"listid", &Parser::listValue, ListId, Dest::ListTable},
    {"listoverridetable", &Parser::open, dest(Dest::ListOverrides), any},
    {"listtable", &Parser::open, dest(Dest::ListTable), any},
    {"listtext", &Parser::numberText, 0, body},
    {"lquote", &Parser::symbol, 0x2018, any},
    {"ls", &Parser::overrideValue, OverrideNumber, Dest::ListOverrides},
    {"ls", &Parser::paraValue, ListNumber, body},
    {"ltrmark", &Parser::symbol, 0x200E, any},
    {"ltrpar", &Parser::paraFlag, LeftToRight, body},
    {"mac", &Parser::documentCodePage, 10000, body},
    {"nestcell", &Parser::symbol, 0x9, body},
    {"nestrow", &Parser::rowEnd, 0, body},
    {"nesttableprops", &Parser::passThrough, 0, any},
    {"nosupersub", &Parser::script, 0, body},
    {"object", &Parser::object, 0, body},
    {"page", &Parser::endParagraph, 0, body},
    {"par", &Parser::endParagraph, 0, body},
    {"pard", &Parser::resetParagraph, 0, body},
    {"pc", &Parser::documentCodePage, 437, body},
    {"pca", &Parser::documentCodePage, 850, body},
    {"pict", &Parser::picture, 0, any},
    {"plain", &Parser::resetChars, 0, body},
    {"pn", &Parser::open, dest(Dest::OldList), body},
    {"pndec", &Parser::oldListKind, Decimal, Dest::OldList},
    {"pnlcltr", &Parser::oldListKind, LowerAlpha, Dest::OldList},
    {"pnlcrm", &Parser::oldListKind, LowerRoman, Dest::OldList},
    {"pnlvl", &Parser::oldListKind, Decimal, Dest::OldList},
    {"pnlvlblt", &Parser::oldListKind, Bullet, Dest::OldList},
    {"pnlvlbody", &Parser::oldListKind, Decimal, Dest::OldList},
    {"pntext", &Parser::numberText, 0, body},
    {"pnucltr", &Parser::oldListKind, UpperAlpha, Dest::OldList},
    {"pnucrm", &Parser::oldListKind, UpperRoman, Dest::OldList},
    {"qc", &Parser::align, static_cast<int>(Align::Center), body},
    {"qj", &Parser::align, static_cast<int>(Align::Justify), body},
    {"ql", &Parser::align, static_cast<int>(Align::Left), body},
    {"qmspace", &Parser::symbol, 0x2005, any},
    {"qr", &Parser::align, static_cast<int>(Align::Right), body},
    {"rdblquote", &Parser::symbol, 0x201D, any},
    {"red", &Parser::colorPart, 0, Dest::ColorTable},
    {"result", &Parser::passThrough, 0, any},
    {"ri", &Parser::paraValue, Right, body},
    {"rin", &Parser::paraValue, Right, body},
    {"row", &Parser::rowEnd, 0, body},
    {"rquote", &Parser::symbol, 0x2019, any},
    {"rtlmark", &Parser::symbol, 0x200F, any},
    {"rtlpar", &Parser::paraFlag, RightToLeft, body},
    {"sa", &Parser::paraValue, After, body},
    {"sb", &Parser::paraValue, Before, body},
    {"scaps", &Parser::charFlag, SmallCaps, body},
    {"sect", &Parser::endParagraph, 0, body},
    {"shp", &Parser::object, 0, body},
    {"shpinst", &Parser::passThrough, 0, any},
    {"shppict", &Parser::passThrough, 0, any},
    {"shptxt", &Parser::passThrough, 0, any},
    {"sl", &Parser::paraValue, Spacing, body},
    {"slmult", &Parser::paraFlag, Multiple, body},
    {"strike", &Parser::charFlag, Strike, body},
    {"striked", &Parser::charFlag, Strike, body},
    {"sub", &Parser::script, -1, body},
    {"super", &Parser::script, 1, body},
    {"tab", &Parser::symbol, 0x9, any},
    {"trowd", &Parser::tableRow, 0, body},
    {"u", &Parser::unicode, 0, any},
    {"uc", &Parser::fallbackCount, 0, any},
    {"ulnone", &Parser::endUnderline, 0, body},
    {"up", &Parser::script, 1, body},
    {"v", &Parser::charFlag, Hidden, body},
    {"zwbo", &Parser::symbol, 0x200B, any},
    {"zwj", &Parser::symbol, 0x200D, any},
    {"zwnj", &Parser::symbol, 0x200C, any},
};

const Parser::Word* Parser::findWord(std::string_view name, Dest current)
{
    static constexpr Word skip{"", &Parser::skip, 0, any}, underline{"", &Parser::charFlag, Underline, body};
    static_assert(std::ranges::is_sorted(words, {}, &Word::name) && std::ranges::is_sorted(skipped) &&
                  std::ranges::is_sorted(underlines));
    if (std::ranges::binary_search(skipped, name))
        return &skip;
    if (current == body && std::ranges::binary_search(underlines, name))
        return &underline;
    const Word* word = std::ranges::lower_bound(words, name, {}, &Word::name);
    for (; word != std::end(words) && word->name == name; ++word) {
        if (word->dest == any || word->dest == current)
            return word;
    }
    return nullptr;
}

// --- groups

void Parser::open(const Control& c)
{
    m_state.dest = static_cast<Dest>(c.arg);
}

void Parser::skip(const Control&)
{
    m_state.dest = Dest::Skip;
}

void Parser::passThrough(const Control&) { }

void Parser::openInstruction(const Control&)
{
    m_instruction.clear();
    m_state.instruction = true;
    m_state.dest = Dest::FieldInstruction;
}

void Parser::picture(const Control&)
{
    ++m_info.pictures;
    m_state.dest = Dest::Skip;
}

// The group goes on: its text (\result, \shptxt) is worth showing.
void Parser::object(const Control&)
{
    ++m_info.objects;
}

void Parser::numberText(const Control&)
{
    m_state.numberText = true;
}

// --- characters

void Parser::unicode(const Control& c)
{
    put(QChar(static_cast<char16_t>(c.value & 0xFFFF))); // written as a signed 16-bit number
    m_skipped = m_state.fallback;
}

void Parser::fallbackCount(const Control& c)
{
    m_state.fallback = qBound(0, c.value, 16);
}

void Parser::symbol(const Control& c)
{
    put(QChar(static_cast<char16_t>(c.arg)));
}

// --- the tables at the head

void Parser::fontNumber(const Control& c)
{
    m_font = c.value;
    m_tables.fonts[m_font] = Font();
}

void Parser::fontValue(const Control& c)
{
    Font& font = m_tables.fonts[m_font];
    (c.arg == Charset ? font.charset : font.codePage) = c.value;
}

void Parser::colorPart(const Control& c)
{
    int parts[] = {0, 0, 0};
    if (m_color.isValid())
        m_color.getRgb(&parts[0], &parts[1], &parts[2]);
    parts[c.arg] = qBound(0, c.value, 255);
    m_color.setRgb(parts[0], parts[1], parts[2]);
}

void Parser::listValue(const Control& c)
{
    if (c.arg == ListBegin)
        m_levels.clear();
    else if (c.arg == ListId)
        m_tables.lists[c.value] = m_levels;
    else if (m_levels.size() < maxListLevels)
        m_levels.append(c.value);
}

void Parser::overrideValue(const Control& c)
{
    if (c.arg == OverrideList)
        m_override = c.value;
    else
        m_tables.listOverrides[c.value] = m_override;
}

void Parser::oldListKind(const Control& c)
{
    m_state.para.oldNumbering = c.arg;
}

void Parser::documentCodePage(const Control& c)
{
    const int page = c.arg != 0 ? c.arg : c.value;
    if (page > 0)
        m_codePage = page;
}

void Parser::defaultFont(const Control& c)
{
    m_tables.defaultFont = c.value;
}

// --- paragraphs

void Parser::endParagraph(const Control&)
{
    if (m_state.numberText)
        return;
    if (!m_state.para.inTable)
        m_inTable = false;
    m_builder.endParagraph(m_state.para, m_state.chars);
}

void Parser::resetParagraph(const Control&)
{
    m_state.para = ParaFormat();
}

// Rows that follow one another are one table.
void Parser::tableRow(const Control&)
{
    if (!std::exchange(m_inTable, true))
        ++m_info.tables;
}

void Parser::rowEnd(const Control&)
{
    m_builder.dropTrailingTab();
    m_builder.endParagraph(m_state.para, m_state.chars);
}

void Parser::paraValue(const Control& c)
{
    m_state.para.*paraValues[c.arg] = qBound(-farthest, c.value, farthest);
}

void Parser::paraFlag(const Control& c)
{
    if (c.arg == LeftToRight)
        m_state.para.rightToLeft = false;
    else
        m_state.para.*paraFlags[c.arg] = c.on();
}

void Parser::align(const Control& c)
{
    m_state.para.align = static_cast<Align>(c.arg);
}

// --- character formats

void Parser::resetChars(const Control&)
{
    m_state.chars = CharFormat();
}

void Parser::charValue(const Control& c)
{
    CharFormat& chars = m_state.chars;
    if (c.arg == FontNumber)
        chars.font = c.value;
    else if (c.arg == HalfPoints)
        chars.halfPoints = qBound(2, c.value, largestSize);
    else
        (c.arg == Color ? chars.color : chars.background) = c.value;
}

void Parser::charFlag(const Control& c)
{
    m_state.chars.*charFlags[c.arg] = c.on();
}

void Parser::endUnderline(const Control&)
{
    m_state.chars.underline = false;
}

void Parser::script(const Control& c)
{
    m_state.chars.script = c.on() ? c.arg : 0;
}

} // namespace rtf
