// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/richtext/Rtf.h"

#include "ui/widgets/Colors.h"

#include <QGuiApplication>
#include <QPalette>

namespace rtf {

QColor automaticColor(const QColor& background)
{
    return background.isValid() ? blackOrWhiteOn(background) : QColor();
}

QColor linkColor()
{
    return QGuiApplication::palette().color(QPalette::Link);
}

QColor writtenLinkColor()
{
    return QColor(0, 0, 255);
}

bool isUsualLinkColor(const QColor& color)
{
    const QRgb rgb = color.rgb() & 0xFFFFFFU;
    return rgb == 0x0000FF || rgb == 0x0563C1 || rgb == 0x0000EE || rgb == 0x000080;
}

bool isAutomatic(const QColor& color, const QColor& background)
{
    const QColor black(Qt::black);
    return color.rgb() == black.rgb() && (!background.isValid() || automaticColor(background).rgb() == black.rgb());
}

QTextListFormat listFormat(int numbering, int level)
{
    static constexpr QTextListFormat::Style bullets[] = {QTextListFormat::ListDisc, QTextListFormat::ListCircle,
                                                         QTextListFormat::ListSquare};
    static constexpr QTextListFormat::Style numbers[] = {
        QTextListFormat::ListDecimal, QTextListFormat::ListUpperRoman, QTextListFormat::ListLowerRoman,
        QTextListFormat::ListUpperAlpha, QTextListFormat::ListLowerAlpha};
    QTextListFormat format;
    format.setIndent(level + 1);
    if (numbering == Bullet)
        format.setStyle(bullets[level % 3]);
    else
        format.setStyle(numbering >= Decimal && numbering <= LowerAlpha ? numbers[numbering]
                                                                        : QTextListFormat::ListDecimal);
    return format;
}

int numberingOf(QTextListFormat::Style style)
{
    switch (style) {
    case QTextListFormat::ListDecimal:
        return Decimal;
    case QTextListFormat::ListUpperRoman:
        return UpperRoman;
    case QTextListFormat::ListLowerRoman:
        return LowerRoman;
    case QTextListFormat::ListUpperAlpha:
        return UpperAlpha;
    case QTextListFormat::ListLowerAlpha:
        return LowerAlpha;
    default:
        return Bullet;
    }
}

} // namespace rtf
