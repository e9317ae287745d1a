// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tasks/ui/TaskPictures.h"

#include "ui/widgets/DrawnIcon.h"
#include "ui/widgets/Icons.h"

#include <QHash>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr int gridUnits = 16; // all places below are on a square of this many units

// Places of the drawing on whole pixels of the size that is asked for.
class PixelGrid {
public:
    explicit PixelGrid(qreal size) : m_scale(size / gridUnits) { }
    qreal at(qreal units) const { return qRound(units * m_scale); }

private:
    qreal m_scale;
};

void drawTile(QPainter& painter, qreal size, const QColor& color)
{
    QLinearGradient light(0, 0, 0, size);
    light.setColorAt(0, color.lighter(118));
    light.setColorAt(1, color);
    painter.setBrush(light);
    painter.drawRoundedRect(QRectF(0, 0, size, size), size / 5, size / 5);
}

// Three lines at equal distances, which matters more than their exact place.
void drawList(QPainter& painter, const PixelGrid& grid)
{
    const qreal line = std::max(1.0, grid.at(2));
    const qreal step = grid.at(4);
    const qreal top = std::floor((grid.at(gridUnits) - 2 * step - line) / 2);
    for (const int row : {0, 1, 2}) {
        painter.drawRect(QRectF(grid.at(3), top + row * step, line, line));
        painter.drawRect(QRectF(grid.at(6), top + row * step, grid.at(7), line));
    }
}

void drawBell(QPainter& painter, const PixelGrid& grid)
{
    const qreal middle = grid.at(8); // of an even number of pixels at the usual sizes
    const qreal left = grid.at(4);
    const qreal right = 2 * middle - left;
    const qreal brim = grid.at(10);
    QPainterPath bell(QPointF(left, brim));
    bell.cubicTo(left, grid.at(5), grid.at(5), grid.at(3), middle, grid.at(3));
    bell.cubicTo(2 * middle - grid.at(5), grid.at(3), right, grid.at(5), right, brim);
    bell.closeSubpath();
    painter.drawPath(bell);
    const qreal knob = grid.at(1);
    painter.drawRect(QRectF(middle - knob, grid.at(2), 2 * knob, 2 * knob));
    painter.drawRect(QRectF(grid.at(3), brim, 2 * (middle - grid.at(3)), std::max(1.0, grid.at(1.2))));
    const qreal clapper = std::max(1.0, grid.at(1.5));
    painter.drawEllipse(QRectF(middle - clapper, grid.at(12), 2 * clapper, std::max(2.0, grid.at(2))));
}

class TrayEngine final : public DrawnIcon {
public:
    explicit TrayEngine(TrayPicture picture) : m_picture(picture) { }

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode, QIcon::State) override
    {
        const int size = std::min(rect.width(), rect.height());
        painter->save();
        painter->translate(rect.topLeft() + QPoint(rect.width() - size, rect.height() - size) / 2); // whole pixels
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setPen(Qt::NoPen);
        const bool isBell = m_picture == TrayPicture::Flash1;
        drawTile(*painter, size, isBell ? QColor(0xd9, 0x4a, 0x00) : QColor(0x1f, 0x6f, 0xb2));
        painter->setBrush(Qt::white);
        isBell ? drawBell(*painter, PixelGrid(size)) : drawList(*painter, PixelGrid(size));
        painter->restore();
    }
    // A status notifier is sent pictures, not drawings: it asks for the sizes that there are.
    QList<QSize> availableSizes(QIcon::Mode, QIcon::State) override
    {
        QList<QSize> sizes;
        for (const int side : {16, 22, 24, 32, 48})
            sizes.append(QSize(side, side));
        return sizes;
    }
    QSize actualSize(const QSize& size, QIcon::Mode, QIcon::State) override { return size; }
    QIconEngine* clone() const override { return new TrayEngine(m_picture); }

private:
    TrayPicture m_picture;
};

} // namespace

QIcon trayPicture(TrayPicture picture)
{
    return QIcon(new TrayEngine(picture));
}

QIcon toDoIcon(const QString& key)
{
    // Dots of growing warmth for the priorities: no theme has pictures for six levels.
    static const QHash<QString, QIcon> icons = {
        {u"lowest"_s, dotIcon(QColor(0xBD, 0xC3, 0xC7))},  {u"low"_s, dotIcon(QColor(0x3D, 0xAE, 0xE9))},
        {u"normal"_s, dotIcon(QColor(0x27, 0xAE, 0x60))},  {u"high"_s, dotIcon(QColor(0xF6, 0x74, 0x00))},
        {u"highest"_s, dotIcon(QColor(0xED, 0x15, 0x15))}, {u"urgent"_s, dotIcon(QColor(0xB0, 0x1E, 0x6E))},
        {u"created"_s, themedIcon(u"document-new"_s)},     {u"inprogress"_s, themedIcon(u"media-playback-start"_s)},
        {u"completed"_s, themedIcon(u"task-complete"_s)},  {u"paused"_s, themedIcon(u"media-playback-pause"_s)},
        {u"cancelled"_s, themedIcon(u"dialog-cancel"_s)},
    };
    return icons.value(key);
}
