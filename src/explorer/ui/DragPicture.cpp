// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "explorer/ui/DragPicture.h"

#include <QLocale>
#include <QPainter>
#include <QWidget>

namespace {

constexpr int Gap = 6; // all sizes in device-independent pixels
constexpr int IconSize = 16;

QPixmap transparent(const QWidget& widget, QSize size)
{
    const qreal ratio = widget.devicePixelRatioF();
    QPixmap pixmap((QSizeF(size) * ratio).toSize());
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);
    return pixmap;
}

} // namespace

QPixmap dragPicture(const QWidget& widget, const QIcon& icon, const QString& name, int count)
{
    const QFontMetrics metrics = widget.fontMetrics();
    QString line = name.simplified();
    line = metrics.elidedText(line, Qt::ElideRight, metrics.averageCharWidth() * 40);
    const QString badge = count > 1 ? QLocale().toString(count) : QString();
    const int height = std::max(metrics.height(), IconSize) + Gap;
    const int badgeWidth = badge.isEmpty() ? 0 : std::max(height - Gap, metrics.horizontalAdvance(badge) + 2 * Gap);
    const bool hasIcon = !icon.pixmap(IconSize).isNull(); // an icon theme may lack it
    const int textAt = hasIcon ? Gap + IconSize + Gap : Gap;
    const int width = textAt + metrics.horizontalAdvance(line) + Gap + (badgeWidth ? badgeWidth + Gap : 0);

    QPixmap picture = transparent(widget, {width, height});
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setFont(widget.font());
    const QPalette& colours = widget.palette();
    painter.setPen(colours.color(QPalette::Highlight));
    painter.setBrush(colours.color(QPalette::Base));
    painter.drawRoundedRect(QRectF(0.5, 0.5, width - 1, height - 1), 4, 4);
    icon.paint(&painter, Gap, (height - IconSize) / 2, IconSize, IconSize);
    painter.setPen(colours.color(QPalette::Text));
    painter.drawText(QRect(textAt, 0, width, height), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, line);
    if (badgeWidth > 0) {
        const QRectF pill(width - Gap - badgeWidth, Gap / 2.0, badgeWidth, height - Gap);
        painter.setPen(Qt::NoPen);
        painter.setBrush(colours.color(QPalette::Highlight));
        painter.drawRoundedRect(pill, pill.height() / 2, pill.height() / 2);
        painter.setPen(colours.color(QPalette::HighlightedText));
        painter.drawText(pill, Qt::AlignCenter, badge);
    }
    return picture;
}

QPixmap refusedPointer(const QWidget& widget)
{
    constexpr int side = 24;
    QPixmap pointer = transparent(widget, {side, side});
    QPainter painter(&pointer);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF ring(4, 4, side - 8, side - 8);
    // A white rim below, so that the sign stands out on any ground.
    for (const QPen& pen : {QPen(Qt::white, 6), QPen(QColor(0xb7, 0x1c, 0x1c), 3)}) {
        painter.setPen(pen);
        painter.drawEllipse(ring);
        painter.drawLine(QPointF(7, 7), QPointF(side - 7, side - 7));
    }
    return pointer;
}
