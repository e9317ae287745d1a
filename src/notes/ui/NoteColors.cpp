// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "notes/ui/NoteColors.h"

#include "ui/widgets/Colors.h"
#include "ui/widgets/DrawnIcon.h"

#include <QHash>
#include <QPainter>
#include <QPainterPath>
#include <QToolTip>

using namespace Qt::StringLiterals;

namespace {

constexpr QRgb lightRed = qRgb(0xFF, 0x80, 0x80);
constexpr QRgb lightGreen = qRgb(0x80, 0xFF, 0x80);
// The colour of an empty desktop: toolkits know none, as desktops have pictures. This is the blue that desktops had in
// the days when they had one, and white is readable on it.
constexpr QRgb desktopBlue = qRgb(0x3A, 0x6E, 0xA5);

// The text colour of the palette may be meant for another background: that of a dark desktop vanishes on light red.
QColor readableInk(const QColor& paper, const QColor& wanted)
{
    return contrast(paper, wanted) >= wellRead ? wanted : blackOrWhiteOn(paper);
}

QColor tint(const QString& name)
{
    static const QHash<QString, QColor> tints = {{u"red"_s, QColor(lightRed)},
                                                 {u"green"_s, QColor(lightGreen)},
                                                 {u"blue"_s, QColor(desktopBlue)},
                                                 {u"white"_s, QColor(Qt::white)}};
    return tints.value(name, QColor(0xFF, 0xF1, 0x76));
}

// All roles of one background, with edges and shadows to match.
QPalette paletteOf(const NoteColors& colors)
{
    QPalette palette(colors.paper);
    for (const QPalette::ColorRole role : {QPalette::Base, QPalette::Window, QPalette::Button})
        palette.setColor(role, colors.paper);
    for (const QPalette::ColorRole role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText})
        palette.setColor(role, colors.ink);
    return palette;
}

// A sheet whose lower right corner is turned up. A vector drawing, sharp at every scale.
class SheetIcon final : public DrawnIcon {
public:
    explicit SheetIcon(const QColor& paper) : m_paper(paper) { }

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override
    {
        const qreal unit = std::min(rect.width(), rect.height()) / 16.0;
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setOpacity(mode == QIcon::Disabled ? 0.4 : 1.0);
        painter->translate(rect.topLeft());
        painter->scale(unit, unit);
        painter->setPen(QPen(m_paper.darker(190), 1));
        painter->setBrush(m_paper);
        painter->drawPolygon(QPolygonF({{1.5, 1.5}, {14.5, 1.5}, {14.5, 10}, {10, 14.5}, {1.5, 14.5}}));
        painter->setBrush(m_paper.darker(130));
        painter->drawPolygon(QPolygonF({{14.5, 10}, {10, 10}, {10, 14.5}}));
        painter->setPen(QPen(readableInk(m_paper, Qt::darkGray), 1));
        for (const qreal y : {4.5, 7.5})
            painter->drawLine(QPointF(4, y), QPointF(12, y));
        painter->restore();
    }
    QIconEngine* clone() const override { return new SheetIcon(m_paper); }

private:
    QColor m_paper;
};

} // namespace

const QStringList& noteColorNames()
{
    static const QStringList names = {u"yellow"_s, u"red"_s, u"green"_s, u"blue"_s, u"white"_s};
    return names;
}

NoteColors noteColors(const QString& name, const QPalette& palette)
{
    const QColor text = palette.color(QPalette::Active, QPalette::Text);
    const auto on = [](const QColor& paper, const QColor& ink) { return NoteColors{paper, readableInk(paper, ink)}; };
    if (name == "red"_L1)
        return on(lightRed, text);
    if (name == "green"_L1)
        return on(lightGreen, text);
    if (name == "blue"_L1)
        return {desktopBlue, Qt::white};
    if (name == "white"_L1)
        return on(palette.color(QPalette::Active, QPalette::Light), text);
    const QPalette tip = QToolTip::palette();
    return on(tip.color(QPalette::Inactive, QPalette::ToolTipBase),
              tip.color(QPalette::Inactive, QPalette::ToolTipText));
}

QPalette paperPalette(const QString& name, const QPalette& application)
{
    const NoteColors colors = noteColors(name, application);
    QPalette palette = paletteOf(colors);
    QColor highlight = application.color(QPalette::Active, QPalette::Highlight);
    QColor highlighted = application.color(QPalette::Active, QPalette::HighlightedText);
    constexpr double visible = 1.8;
    if (contrast(highlight, colors.paper) < visible) {
        highlight = colors.ink;
        highlighted = colors.paper;
    }
    palette.setColor(QPalette::Highlight, highlight);
    palette.setColor(QPalette::HighlightedText, highlighted);
    return palette;
}

QPalette barPalette(const QString& name)
{
    const QColor bar = tint(name).darker(107);
    return paletteOf({bar, readableInk(bar, Qt::black)});
}

QIcon noteIcon(const QString& name)
{
    return QIcon(new SheetIcon(tint(name)));
}
