// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/richtext/RtfBuilder.h"

#include "ui/richtext/Rtf.h"

#include <QFont>
#include <QTextDocument>
#include <QTextList>

namespace rtf {

namespace {

constexpr int flushAt = 4096; // characters
constexpr int listStep = 720; // twips between two list levels
constexpr double pixelsPerTwip = 1.0 / 15; // at 96 dpi, which is what a document counts in

// Old style lists have no number of their own: their kind stands in, below zero.
int listKey(const ParaFormat& p, int level)
{
    const int list = p.listNumber > 0 ? p.listNumber : -1 - p.oldNumbering;
    return list * 16 + level;
}

int levelOf(const ParaFormat& p)
{
    const int level = p.listNumber > 0 ? p.listLevel : (p.left + listStep / 4) / listStep - 1;
    return qBound(0, level, maxListLevels - 1);
}

// None is where the paragraph's direction begins.
Qt::Alignment alignmentOf(const ParaFormat& p)
{
    switch (p.align) {
    case Align::Center:
        return Qt::AlignHCenter;
    case Align::Justify:
        return Qt::AlignJustify;
    case Align::Right:
        return p.rightToLeft ? Qt::Alignment() : Qt::AlignRight | Qt::AlignAbsolute;
    case Align::Left:
        break;
    }
    return p.rightToLeft ? Qt::AlignLeft | Qt::AlignAbsolute : Qt::Alignment();
}

// A line break of an old text processor must not become a paragraph of the document, nor may the characters
// that a QTextDocument keeps for itself come in from outside.
QChar allowed(QChar c)
{
    const char16_t u = c.unicode();
    if (u == 0x2029)
        return QChar(QChar::LineSeparator);
    const bool reserved = u == 0xFFFC || (u >= 0xFDD0 && u <= 0xFDEF) || u >= 0xFFFE;
    return reserved || (u < 0x20 && u != u'\t') ? QChar() : c;
}

} // namespace

Builder::Builder(QTextDocument& document, const Tables& tables) : m_tables(tables), m_cursor(&document)
{
    m_cursor.beginEditBlock();
}

void Builder::add(QChar character, const CharFormat& format)
{
    const QChar c = allowed(character);
    if (c.isNull() || format.hidden)
        return;
    if (!(format == m_format)) {
        flush();
        m_format = format;
    }
    m_text += c;
    if (m_text.size() >= flushAt && !c.isHighSurrogate())
        flush();
}

void Builder::setLink(const QString& address)
{
    flush();
    m_link = address;
}

void Builder::dropTrailingTab()
{
    if (m_text.endsWith(u'\t'))
        m_text.chop(1);
}

void Builder::flush()
{
    if (m_text.isEmpty())
        return;
    openParagraph();
    m_cursor.insertText(m_text, toText(m_format));
    m_text.clear();
}

void Builder::openParagraph()
{
    if (m_paragraphEnded)
        m_cursor.insertBlock(QTextBlockFormat(), QTextCharFormat());
    m_paragraphEnded = false;
}

void Builder::endParagraph(const ParaFormat& paragraph, const CharFormat& chars)
{
    flush();
    openParagraph();
    m_cursor.setBlockFormat(toBlock(paragraph));
    const int numbering = numberingOf(paragraph);
    if (numbering != NoNumber)
        addToList(paragraph, numbering);
    else
        m_lists.removeIf([](const auto& entry) { return entry.key() < 0; }); // an old style list ends here
    m_cursor.setBlockCharFormat(toText(chars));
    m_paragraphEnded = true;
}

void Builder::finish(const ParaFormat& paragraph, const CharFormat& chars)
{
    flush();
    if (!m_paragraphEnded)
        endParagraph(paragraph, chars);
    m_cursor.endEditBlock();
}

QTextCharFormat Builder::toText(const CharFormat& format) const
{
    QTextCharFormat text;
    const Font* font = m_tables.font(format.font);
    if (font && !font->name.trimmed().isEmpty())
        text.setFontFamilies({font->name.trimmed()});
    text.setFontPointSize(format.halfPoints / 2.0);
    if (format.bold)
        text.setFontWeight(QFont::Bold);
    if (format.italic)
        text.setFontItalic(true);
    if (format.underline)
        text.setFontUnderline(true);
    if (format.strike)
        text.setFontStrikeOut(true);
    if (format.allCaps || format.smallCaps)
        text.setFontCapitalization(format.allCaps ? QFont::AllUppercase : QFont::SmallCaps);
    if (format.script != 0)
        text.setVerticalAlignment(format.script > 0 ? QTextCharFormat::AlignSuperScript
                                                    : QTextCharFormat::AlignSubScript);
    setColors(text, format);
    return text;
}

void Builder::setColors(QTextCharFormat& text, const CharFormat& format) const
{
    const QColor background = m_tables.color(format.background);
    QColor color = m_tables.color(format.color);
    if (background.isValid())
        text.setBackground(background);
    if (!color.isValid() || isAutomatic(color, background))
        color = automaticColor(background);
    if (!m_link.isEmpty()) {
        text.setAnchor(true);
        text.setAnchorHref(m_link);
        if (!color.isValid() || isUsualLinkColor(color)) {
            color = linkColor();
            text.setFontUnderline(true);
        }
    }
    if (color.isValid())
        text.setForeground(color);
}

QTextBlockFormat Builder::toBlock(const ParaFormat& p) const
{
    QTextBlockFormat block;
    const Qt::Alignment alignment = alignmentOf(p);
    if (alignment)
        block.setAlignment(alignment);
    if (p.before != 0)
        block.setTopMargin(p.before * pixelsPerTwip);
    if (p.after != 0)
        block.setBottomMargin(p.after * pixelsPerTwip);
    if (p.right != 0)
        block.setRightMargin(p.right * pixelsPerTwip);
    if (p.rightToLeft)
        block.setLayoutDirection(Qt::RightToLeft);
    if (p.multiple && p.lineSpacing != 0 && p.lineSpacing != 240)
        block.setLineHeight(qAbs(p.lineSpacing) / 2.4, QTextBlockFormat::ProportionalHeight);
    else if (!p.multiple && p.lineSpacing != 0)
        block.setLineHeight(qAbs(p.lineSpacing) * pixelsPerTwip,
                            p.lineSpacing < 0 ? QTextBlockFormat::FixedHeight : QTextBlockFormat::MinimumHeight);
    const QColor background = m_tables.color(p.background);
    if (background.isValid())
        block.setBackground(background);
    if (numberingOf(p) == NoNumber) { // the indents of a list are its level
        if (p.left != 0)
            block.setLeftMargin(p.left * pixelsPerTwip);
        if (p.first != 0)
            block.setTextIndent(p.first * pixelsPerTwip);
    }
    return block;
}

int Builder::numberingOf(const ParaFormat& p) const
{
    if (p.listNumber <= 0)
        return p.oldNumbering;
    const auto list = m_tables.listOverrides.constFind(p.listNumber);
    if (list == m_tables.listOverrides.cend())
        return p.oldNumbering;
    const QList<int> levels = m_tables.lists.value(*list);
    if (levels.isEmpty())
        return Bullet;
    return levels.value(levelOf(p), levels.first());
}

void Builder::addToList(const ParaFormat& paragraph, int numbering)
{
    const int level = levelOf(paragraph);
    for (int deeper = level + 1; deeper < maxListLevels; ++deeper)
        m_lists.remove(listKey(paragraph, deeper)); // they count anew
    QTextList*& list = m_lists[listKey(paragraph, level)];
    if (list)
        list->add(m_cursor.block());
    else
        list = m_cursor.createList(listFormat(numbering, level));
}

} // namespace rtf
