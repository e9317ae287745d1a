// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "richtext/RtfParser.h"

#include <QTextDocument>
#include <algorithm>
#include <iterator>
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

} // namespace

// In the order of their names, which the search relies on.
constexpr Parser::Word Parser::words[] = {
    {"aftncn", any, &Parser::skip, 0},
    {"aftnsep", any, &Parser::skip, 0},
    {"aftnsepc", any, &Parser::skip, 0},
    {"annotation", any, &Parser::skip, 0},
    {"ansicpg", body, &Parser::documentCodePage, 0},
    {"atnauthor", any, &Parser::skip, 0},
    {"atnid", any, &Parser::skip, 0},
    {"b", body, &Parser::charFlag, Bold},
    {"bkmkend", any, &Parser::skip, 0},
    {"bkmkstart", any, &Parser::skip, 0},
    {"blue", Dest::ColorTable, &Parser::colorPart, 2},
    {"bullet", any, &Parser::symbol, 0x2022},
    {"caps", body, &Parser::charFlag, AllCaps},
    {"cb", body, &Parser::charValue, Background},
    {"cbpat", body, &Parser::paraValue, Shading},
    {"cell", body, &Parser::symbol, 0x9},
    {"cf", body, &Parser::charValue, Color},
    {"chcbpat", body, &Parser::charValue, Background},
    {"colorschememapping", any, &Parser::skip, 0},
    {"colortbl", any, &Parser::open, dest(Dest::ColorTable)},
    {"column", body, &Parser::endParagraph, 0},
    {"cpg", Dest::FontTable, &Parser::fontValue, FontCodePage},
    {"datastore", any, &Parser::skip, 0},
    {"deff", body, &Parser::defaultFont, 0},
    {"dn", body, &Parser::script, -1},
    {"do", any, &Parser::skip, 0},
    {"emdash", any, &Parser::symbol, 0x2014},
    {"emspace", any, &Parser::symbol, 0x2003},
    {"endash", any, &Parser::symbol, 0x2013},
    {"enspace", any, &Parser::symbol, 0x2002},
    {"f", Dest::FontTable, &Parser::fontNumber, 0},
    {"f", body, &Parser::charValue, FontNumber},
    {"falt", any, &Parser::skip, 0},
    {"fcharset", Dest::FontTable, &Parser::fontValue, Charset},
    {"fi", body, &Parser::paraValue, First},
    {"field", any, &Parser::passThrough, 0},
    {"filetbl", any, &Parser::skip, 0},
    {"fldinst", any, &Parser::openInstruction, 0},
    {"fldrslt", any, &Parser::passThrough, 0},
    {"fonttbl", any, &Parser::open, dest(Dest::FontTable)},
    {"footer", any, &Parser::skip, 0},
    {"footerf", any, &Parser::skip, 0},
    {"footerl", any, &Parser::skip, 0},
    {"footerr", any, &Parser::skip, 0},
    {"footnote", any, &Parser::skip, 0},
    {"fs", body, &Parser::charValue, HalfPoints},
    {"ftncn", any, &Parser::skip, 0},
    {"ftnsep", any, &Parser::skip, 0},
    {"ftnsepc", any, &Parser::skip, 0},
    {"generator", any, &Parser::skip, 0},
    {"green", Dest::ColorTable, &Parser::colorPart, 1},
    {"header", any, &Parser::skip, 0},
    {"headerf", any, &Parser::skip, 0},
    {"headerl", any, &Parser::skip, 0},
    {"headerr", any, &Parser::skip, 0},
    {"highlight", body, &Parser::charValue, Background},
    {"i", body, &Parser::charFlag, Italic},
    {"ilvl", body, &Parser::paraValue, ListLevel},
    {"info", any, &Parser::skip, 0},
    {"intbl", body, &Parser::paraFlag, InTable},
    {"latentstyles", any, &Parser::skip, 0},
    {"lbr", any, &Parser::symbol, 0x2028},
    {"ldblquote", any, &Parser::symbol, 0x201C},
    {"levelnfc", Dest::ListTable, &Parser::listValue, LevelNumbering},
    {"levelnumbers", any, &Parser::skip, 0},
    {"leveltext", any, &Parser::skip, 0},
    {"li", body, &Parser::paraValue, Left},
    {"lin", body, &Parser::paraValue, Left},
    {"line", any, &Parser::symbol, 0x2028},
    {"list", Dest::ListTable, &Parser::listValue, ListBegin},
    {"listid", Dest::ListOverrides, &Parser::overrideValue, OverrideList},
    {"listid", Dest::ListTable, &Parser::listValue, ListId},
    {"listname", any, &Parser::skip, 0},
    {"listoverridetable", any, &Parser::open, dest(Dest::ListOverrides)},
    {"listtable", any, &Parser::open, dest(Dest::ListTable)},
    {"listtext", body, &Parser::numberText, 0},
    {"lquote", any, &Parser::symbol, 0x2018},
    {"ls", Dest::ListOverrides, &Parser::overrideValue, OverrideNumber},
    {"ls", body, &Parser::paraValue, ListNumber},
    {"ltrmark", any, &Parser::symbol, 0x200E},
    {"ltrpar", body, &Parser::paraFlag, LeftToRight},
    {"mac", body, &Parser::documentCodePage, 10000},
    {"mmathPr", any, &Parser::skip, 0},
    {"nestcell", body, &Parser::symbol, 0x9},
    {"nestrow", body, &Parser::rowEnd, 0},
    {"nesttableprops", any, &Parser::passThrough, 0},
    {"nonesttables", any, &Parser::skip, 0},
    {"nonshppict", any, &Parser::skip, 0},
    {"nosupersub", body, &Parser::script, 0},
    {"objclass", any, &Parser::skip, 0},
    {"objdata", any, &Parser::skip, 0},
    {"object", body, &Parser::object, 0},
    {"objname", any, &Parser::skip, 0},
    {"page", body, &Parser::endParagraph, 0},
    {"panose", any, &Parser::skip, 0},
    {"par", body, &Parser::endParagraph, 0},
    {"pard", body, &Parser::resetParagraph, 0},
    {"pc", body, &Parser::documentCodePage, 437},
    {"pca", body, &Parser::documentCodePage, 850},
    {"pict", any, &Parser::picture, 0},
    {"plain", body, &Parser::resetChars, 0},
    {"pn", body, &Parser::open, dest(Dest::OldList)},
    {"pndec", Dest::OldList, &Parser::oldListKind, Decimal},
    {"pnlcltr", Dest::OldList, &Parser::oldListKind, LowerAlpha},
    {"pnlcrm", Dest::OldList, &Parser::oldListKind, LowerRoman},
    {"pnlvl", Dest::OldList, &Parser::oldListKind, Decimal},
    {"pnlvlblt", Dest::OldList, &Parser::oldListKind, Bullet},
    {"pnlvlbody", Dest::OldList, &Parser::oldListKind, Decimal},
    {"pntext", body, &Parser::numberText, 0},
    {"pntxta", any, &Parser::skip, 0},
    {"pntxtb", any, &Parser::skip, 0},
    {"pnucltr", Dest::OldList, &Parser::oldListKind, UpperAlpha},
    {"pnucrm", Dest::OldList, &Parser::oldListKind, UpperRoman},
    {"private", any, &Parser::skip, 0},
    {"qc", body, &Parser::align, static_cast<int>(Align::Center)},
    {"qj", body, &Parser::align, static_cast<int>(Align::Justify)},
    {"ql", body, &Parser::align, static_cast<int>(Align::Left)},
    {"qmspace", any, &Parser::symbol, 0x2005},
    {"qr", body, &Parser::align, static_cast<int>(Align::Right)},
    {"rdblquote", any, &Parser::symbol, 0x201D},
    {"red", Dest::ColorTable, &Parser::colorPart, 0},
    {"result", any, &Parser::passThrough, 0},
    {"revtbl", any, &Parser::skip, 0},
    {"ri", body, &Parser::paraValue, Right},
    {"rin", body, &Parser::paraValue, Right},
    {"row", body, &Parser::rowEnd, 0},
    {"rquote", any, &Parser::symbol, 0x2019},
    {"rsidtbl", any, &Parser::skip, 0},
    {"rtlmark", any, &Parser::symbol, 0x200F},
    {"rtlpar", body, &Parser::paraFlag, RightToLeft},
    {"sa", body, &Parser::paraValue, After},
    {"sb", body, &Parser::paraValue, Before},
    {"scaps", body, &Parser::charFlag, SmallCaps},
    {"sect", body, &Parser::endParagraph, 0},
    {"shp", body, &Parser::object, 0},
    {"shpinst", any, &Parser::passThrough, 0},
    {"shppict", any, &Parser::passThrough, 0},
    {"shprslt", any, &Parser::skip, 0},
    {"shptxt", any, &Parser::passThrough, 0},
    {"sl", body, &Parser::paraValue, Spacing},
    {"slmult", body, &Parser::paraFlag, Multiple},
    {"sp", any, &Parser::skip, 0},
    {"strike", body, &Parser::charFlag, Strike},
    {"striked", body, &Parser::charFlag, Strike},
    {"stylesheet", any, &Parser::skip, 0},
    {"sub", body, &Parser::script, -1},
    {"super", body, &Parser::script, 1},
    {"tab", any, &Parser::symbol, 0x9},
    {"tc", any, &Parser::skip, 0},
    {"template", any, &Parser::skip, 0},
    {"themedata", any, &Parser::skip, 0},
    {"trowd", body, &Parser::tableRow, 0},
    {"u", any, &Parser::unicode, 0},
    {"uc", any, &Parser::fallbackCount, 0},
    {"ul", body, &Parser::charFlag, Underline},
    {"uld", body, &Parser::charFlag, Underline},
    {"uldash", body, &Parser::charFlag, Underline},
    {"uldashd", body, &Parser::charFlag, Underline},
    {"uldashdd", body, &Parser::charFlag, Underline},
    {"uldb", body, &Parser::charFlag, Underline},
    {"ulhair", body, &Parser::charFlag, Underline},
    {"ulhwave", body, &Parser::charFlag, Underline},
    {"ulldash", body, &Parser::charFlag, Underline},
    {"ulnone", body, &Parser::endUnderline, 0},
    {"ulth", body, &Parser::charFlag, Underline},
    {"ulthd", body, &Parser::charFlag, Underline},
    {"ulthdash", body, &Parser::charFlag, Underline},
    {"ulthdashd", body, &Parser::charFlag, Underline},
    {"ulthdashdd", body, &Parser::charFlag, Underline},
    {"ulthldash", body, &Parser::charFlag, Underline},
    {"ululdbwave", body, &Parser::charFlag, Underline},
    {"ulw", body, &Parser::charFlag, Underline},
    {"ulwave", body, &Parser::charFlag, Underline},
    {"up", body, &Parser::script, 1},
    {"upr", any, &Parser::skip, 0},
    {"userprops", any, &Parser::skip, 0},
    {"v", body, &Parser::charFlag, Hidden},
    {"xe", any, &Parser::skip, 0},
    {"xmlnstbl", any, &Parser::skip, 0},
    {"zwbo", any, &Parser::symbol, 0x200B},
    {"zwj", any, &Parser::symbol, 0x200D},
    {"zwnj", any, &Parser::symbol, 0x200C},
};

const Parser::Word* Parser::findWord(std::string_view name, Dest current)
{
    static_assert(std::is_sorted(std::begin(words), std::end(words),
                                 [](const Word& a, const Word& b) { return a.name < b.name; }));
    const Word* word = std::lower_bound(std::begin(words), std::end(words), name,
                                        [](const Word& a, std::string_view b) { return a.name < b; });
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
