// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/print/PrintColumn.h"

#include <QFontDatabase>
#include <QFontMetricsF>
#include <QPainter>
#include <QPrinter>
#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr qreal footerHeight = 24; // points
constexpr qreal columnGap = 14; // points

qreal luminance(const QColor& color)
{
    const auto linear = [](qreal part) {
        return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

qreal contrast(const QColor& a, const QColor& b)
{
    const qreal first = luminance(a);
    const qreal second = luminance(b);
    return (std::max(first, second) + 0.05) / (std::min(first, second) + 0.05);
}

} // namespace

qreal PrintPaper::points(qreal count) const
{
    return count * device->logicalDpiY() / 72;
}

PrintPaper paperOf(QPrinter& printer)
{
    PrintPaper paper{&printer, QSizeF(printer.width(), printer.height())};
    paper.size.rheight() -= paper.points(footerHeight);
    return paper;
}

QColor readableOn(const QColor& text, const QColor& paper)
{
    constexpr qreal tooPale = 3;
    constexpr qreal wellRead = 4.5;
    if (!text.isValid() || contrast(text, paper) >= tooPale)
        return text;
    const bool darker = luminance(paper) > 0.18;
    QColor shown = text.toHsl();
    for (int i = 0; i < 40 && contrast(shown, paper) < wellRead; ++i) {
        const float lightness = shown.lightnessF();
        shown.setHslF(shown.hslHueF(), shown.hslSaturationF(),
                      std::clamp(darker ? lightness - 0.025F : lightness + 0.025F, 0.0F, 1.0F));
    }
    return shown.toRgb();
}

char16_t printable(char16_t character)
{
    // Controls, objects, and marks that a text document keeps for itself. Hardly a font has pictures of the controls.
    const bool isControl = character < 0x20 || (character >= 0x7F && character < 0xA0);
    if ((isControl && character != u'\t') || character == QChar::ObjectReplacementCharacter ||
        (character >= 0xFDD0 && character <= 0xFDEF))
        return QChar::ReplacementCharacter;
    if (character == QChar::LineSeparator || character == QChar::ParagraphSeparator)
        return QChar::ReplacementCharacter;
    return character;
}

QString printable(const QString& text)
{
    QString shown = text;
    shown.replace(u"\r\n"_s, u"\n"_s).replace(u'\r', u'\n').replace(QChar::LineSeparator, u'\n');
    shown.replace(QChar::ParagraphSeparator, u'\n');
    for (qsizetype i = 0; i < shown.size(); ++i) {
        const QChar c = shown[i];
        if (c.isHighSurrogate() && i + 1 < shown.size() && shown[i + 1].isLowSurrogate())
            ++i;
        else if (c.isSurrogate())
            shown[i] = QChar::ReplacementCharacter;
        else if (c != u'\n')
            shown[i] = QChar(printable(c.unicode()));
    }
    return shown;
}

std::vector<PrintPage> paginate(const std::vector<const PrintColumn*>& columns, const PrintPaper& paper)
{
    std::vector<PrintPage> pages(1);
    const qreal bottom = paper.size.height();
    qreal top = 0;
    const auto turn = [&] {
        pages.emplace_back();
        top = 0;
    };
    for (const PrintColumn* column : columns) {
        const int rows = column->rowCount();
        if (rows == 0)
            continue;
        if (top > 0)
            top += paper.points(columnGap);
        const qreal beginning = column->heightOf(0) + (rows > 1 ? column->heightOf(1) : 0);
        if (top > 0 && top + beginning > bottom)
            turn();
        for (int row = 0; row < rows; ++row) {
            const qreal height = column->heightOf(row);
            if (top > 0 && top + height > bottom)
                turn();
            PrintPage& page = pages.back();
            if (page.empty() || page.back().column != column)
                page.push_back({column, top, row, row});
            page.back().end = row + 1;
            top += height;
        }
    }
    return pages;
}

void paintSlices(QPainter& painter, const PrintPage& page)
{
    for (const PrintSlice& slice : page) {
        painter.save();
        slice.column->paint(painter, slice.top, slice.first, slice.end);
        painter.restore();
    }
}

void paintFooter(QPainter& painter, const PrintPaper& paper, const QString& name, int page, int pageCount)
{
    QFont font = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
    font.setPointSizeF(8);
    painter.setFont(font);
    const QFontMetricsF metrics(font, paper.device);
    const qreal line = paper.size.height() + paper.points(8);
    painter.setPen(QPen(QColor(0xA0, 0xA0, 0xA0), paper.points(0.5)));
    painter.drawLine(QPointF(0, line), QPointF(paper.size.width(), line));
    painter.setPen(QColor(0x40, 0x40, 0x40));
    const QRectF rect(0, line + paper.points(2), paper.size.width(), metrics.height() + 1);
    const QString number = u"Page %1 of %2"_s.arg(page + 1).arg(pageCount);
    const qreal room = rect.width() - metrics.horizontalAdvance(number) - paper.points(12);
    painter.drawText(rect, Qt::AlignRight | Qt::AlignTop | Qt::TextSingleLine, number);
    const QString oneLine = printable(name.left(300)).replace(u'\n', u' ').replace(u'\t', u' ');
    painter.drawText(rect, Qt::AlignLeft | Qt::AlignTop | Qt::TextSingleLine,
                     metrics.elidedText(oneLine, Qt::ElideRight, room));
}
