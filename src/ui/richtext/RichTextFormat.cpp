// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/richtext/RichTextFormat.h"

#include "ui/richtext/Rtf.h"

#include <QRegularExpression>
#include <QStyle>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextList>
#include <functional>

namespace {

constexpr double indentStep = 48; // pixels, half an inch
constexpr double farthest = 20 * indentStep;

struct Edit {
    explicit Edit(QTextCursor& cursor) : m_cursor(cursor) { m_cursor.beginEditBlock(); }
    ~Edit() { m_cursor.endEditBlock(); }
    Edit(const Edit&) = delete;
    Edit& operator=(const Edit&) = delete;

private:
    QTextCursor& m_cursor;
};

// A selection that ends at the very start of a paragraph does not touch it.
QList<QTextBlock> blocksOf(const QTextCursor& cursor)
{
    const QTextDocument* document = cursor.document();
    QList<QTextBlock> blocks;
    const int end = cursor.selectionEnd();
    for (QTextBlock block = document->findBlock(cursor.selectionStart()); block.isValid(); block = block.next()) {
        if (!blocks.isEmpty() && block.position() >= end)
            break;
        blocks.append(block);
    }
    return blocks;
}

// Calls `visit` for each run of one format until it answers false.
void visitRuns(const QTextCursor& selection, const std::function<bool(const QTextCharFormat&)>& visit)
{
    const int start = selection.selectionStart();
    const int end = selection.selectionEnd();
    QTextBlock block = selection.document()->findBlock(start);
    for (; block.isValid() && block.position() < end; block = block.next()) {
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            const QTextFragment run = it.fragment();
            const bool isInside = run.position() < end && run.position() + run.length() > start;
            if (isInside && !visit(run.charFormat()))
                return;
        }
    }
}

QString familyOf(const QTextCharFormat& format, const QFont& standard)
{
    const QString family = format.fontFamilies().toStringList().value(0);
    return family.isEmpty() ? standard.family() : family;
}

double pointsOf(const QTextCharFormat& format, const QFont& standard)
{
    return format.fontPointSize() > 0 ? format.fontPointSize() : standard.pointSizeF();
}

void start(RichTextLook& look, const QTextCharFormat& format, const QFont& standard)
{
    look.bold = format.fontWeight() >= QFont::DemiBold;
    look.italic = format.fontItalic();
    look.underline = format.fontUnderline();
    look.family = familyOf(format, standard);
    look.points = pointsOf(format, standard);
    if (format.foreground().style() != Qt::NoBrush)
        look.color = format.foreground().color();
}

void mix(RichTextLook& look, const QTextCharFormat& format, const QFont& standard)
{
    look.bold = look.bold && format.fontWeight() >= QFont::DemiBold;
    look.italic = look.italic && format.fontItalic();
    look.underline = look.underline && format.fontUnderline();
    if (look.family != familyOf(format, standard))
        look.family.clear();
    if (!qFuzzyCompare(look.points, pointsOf(format, standard)))
        look.points = 0;
}

bool isBullet(const QTextBlock& block)
{
    return block.textList() && rtf::numberingOf(block.textList()->format().style()) == rtf::Bullet;
}

void addParagraphs(RichTextLook& look, const QTextCursor& cursor)
{
    const QList<QTextBlock> blocks = blocksOf(cursor);
    look.bullets = true;
    for (const QTextBlock& block : blocks) {
        const Qt::Alignment seen = QStyle::visualAlignment(block.textDirection(), block.blockFormat().alignment()) &
            Qt::AlignHorizontal_Mask & ~Qt::Alignment(Qt::AlignAbsolute);
        if (block == blocks.first())
            look.alignment = seen;
        else if (look.alignment != seen)
            look.alignment = {};
        look.bullets = look.bullets && isBullet(block);
    }
}

// Joins the list above that has this level and kind, or begins one.
void putIntoList(const QTextBlock& block, int numbering, int level)
{
    for (QTextBlock above = block.previous(); above.isValid() && listLevel(above) >= level; above = above.previous()) {
        QTextList* list = above.textList();
        if (listLevel(above) == level && rtf::numberingOf(list->format().style()) == numbering) {
            list->add(block);
            return;
        }
    }
    QTextCursor(block).createList(rtf::listFormat(numbering, level));
}

void makeBullet(const QTextBlock& block)
{
    const int level = qMax(0, listLevel(block));
    QTextBlockFormat format = block.blockFormat();
    format.clearProperty(QTextFormat::BlockLeftMargin); // the level is the indent of an item
    format.clearProperty(QTextFormat::TextIndent);
    format.clearProperty(QTextFormat::BlockIndent);
    QTextCursor(block).setBlockFormat(format);
    putIntoList(block, rtf::Bullet, level);
}

void makePlain(const QTextBlock& block)
{
    QTextBlockFormat format = block.blockFormat();
    format.setObjectIndex(-1);
    format.clearProperty(QTextFormat::BlockIndent);
    QTextCursor(block).setBlockFormat(format);
}

} // namespace

RichTextLook lookOf(const QTextCursor& cursor, const QTextCharFormat& typing, const QFont& standard)
{
    RichTextLook look;
    bool any = false;
    visitRuns(cursor, [&](const QTextCharFormat& format) {
        if (std::exchange(any, true))
            mix(look, format, standard);
        else
            start(look, format, standard);
        return true;
    });
    if (!any)
        start(look, typing, standard);
    addParagraphs(look, cursor);
    return look;
}

bool hasBackground(const QTextCursor& selection)
{
    bool found = false;
    visitRuns(selection, [&found](const QTextCharFormat& format) {
        found = format.background().style() != Qt::NoBrush;
        return !found;
    });
    return found;
}

void toggleBullets(QTextCursor selection)
{
    const Edit edit(selection);
    const QList<QTextBlock> blocks = blocksOf(selection);
    const bool haveAll = std::all_of(blocks.begin(), blocks.end(), isBullet);
    for (const QTextBlock& block : blocks)
        haveAll ? makePlain(block) : makeBullet(block);
}

void shiftIndent(QTextCursor selection, int step)
{
    const Edit edit(selection);
    for (const QTextBlock& block : blocksOf(selection)) {
        const int level = listLevel(block);
        if (level >= 0) {
            const int wanted = qBound(0, level + step, rtf::maxListLevels - 1);
            if (wanted != level)
                putIntoList(block, rtf::numberingOf(block.textList()->format().style()), wanted);
            continue;
        }
        QTextBlockFormat format = block.blockFormat();
        format.setLeftMargin(qBound(0.0, format.leftMargin() + step * indentStep, farthest));
        QTextCursor(block).setBlockFormat(format);
    }
}

void leaveList(QTextCursor selection)
{
    const Edit edit(selection);
    for (const QTextBlock& block : blocksOf(selection))
        makePlain(block);
}

int listLevel(const QTextBlock& block)
{
    const QTextList* list = block.textList();
    return list ? qBound(0, list->format().indent() + block.blockFormat().indent() - 1, rtf::maxListLevels - 1) : -1;
}

QString addressAround(const QString& text, qsizetype offset)
{
    static const QRegularExpression address(
        QStringLiteral(R"((?:\b(?:https?|ftp|file)://|\bmailto:)[^\s<>"\x{2028}]*[^\s<>"\x{2028}.,;:!?)'\]}])"));
    for (auto it = address.globalMatch(text); it.hasNext();) {
        const QRegularExpressionMatch match = it.next();
        if (match.capturedStart() <= offset && offset <= match.capturedEnd())
            return match.captured();
    }
    return {};
}
