// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/widgets/Icons.h"

#include "ui/widgets/DrawnIcon.h"

#include <QApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QStandardPaths>
#include <QStyle>
#include <QStyleOption>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

bool isDark(QPalette::ColorRole paper = QPalette::Window, QPalette::ColorRole ink = QPalette::WindowText)
{
    const QPalette palette = QGuiApplication::palette();
    return palette.color(paper).lightness() < palette.color(ink).lightness();
}

constexpr int builtInSizes[] = {16, 22, 32, 44, 48, 64, 96}; // pixels, as tools/makeicons renders them

// The rendered icon of that name at the size or the next larger one; null when it is not in data/icons/icons.txt.
QPixmap builtIn(const QString& name, const QSize& size, bool onDark)
{
    const int wanted = std::min(size.width(), size.height());
    const int* fitting = std::lower_bound(std::begin(builtInSizes), std::end(builtInSizes) - 1, wanted);
    const QString file = u":/icons/%1/%2/%3.png"_s.arg(onDark ? u"breeze-dark"_s : u"breeze"_s).arg(*fitting).arg(name);
    QPixmap picture(file, "PNG");
    if (picture.isNull() || *fitting == wanted)
        return picture;
    return picture.scaled(size, Qt::KeepAspectRatio, Qt::SmoothTransformation);
}

// Looking an icon up costs more than all the rest of a menu; most are never seen. So it is loaded when a pixmap is
// wanted.
class LazyIcon final : public QIconEngine {
public:
    explicit LazyIcon(QString name) : m_name(std::move(name)) { }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override
    {
        const bool isSelected = mode == QIcon::Selected;
        const QPixmap picture =
            builtIn(m_name, size, isSelected ? isDark(QPalette::Highlight, QPalette::HighlightedText) : isDark());
        if (picture.isNull())
            return QIcon::fromTheme(m_name).pixmap(size, 1.0, mode, state);
        if (mode == QIcon::Normal || isSelected) // as clear on the highlight as the text beside it
            return picture;
        QStyleOption option;
        option.palette = QGuiApplication::palette();
        const QPixmap made = QApplication::style()->generatedIconPixmap(mode, picture, &option);
        return mode == QIcon::Disabled ? faint(made) : made;
    }
    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override
    {
        const qreal scale = painter->device()->devicePixelRatioF();
        painter->drawPixmap(rect, pixmap(rect.size() * scale, mode, state));
    }
    QSize actualSize(const QSize& size, QIcon::Mode, QIcon::State) override { return size; }
    QString iconName() override { return m_name; }
    bool isNull() override { return false; }
    QIconEngine* clone() const override { return new LazyIcon(m_name); }

private:
    // The grey of the style alone can hardly be told from icons of one colour, least on a dark palette.
    static QPixmap faint(const QPixmap& grey)
    {
        QPixmap picture(grey.size());
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        painter.setOpacity(0.5);
        painter.drawPixmap(0, 0, grey);
        return picture;
    }

    QString m_name;
};

// A vector drawing, so that it is sharp at every scale.
class DotIcon final : public DrawnIcon {
public:
    explicit DotIcon(const QColor& color) : m_color(color) { }

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override
    {
        painter->setRenderHint(QPainter::Antialiasing);
        const qreal inset = rect.width() / 5.0;
        painter->setPen(QPen(m_color.darker(140), rect.width() / 16.0));
        painter->setBrush(mode == QIcon::Disabled ? QColor(Qt::gray) : m_color);
        painter->drawEllipse(QRectF(rect).adjusted(inset, inset, -inset, -inset));
    }
    QIconEngine* clone() const override { return new DotIcon(m_color); }

private:
    QColor m_color;
};

} // namespace

void setUpIconTheme()
{
    Q_INIT_RESOURCE(icons);
    // A platform without a desktop (the tour's) knows no folder of themes.
    QStringList folders = QIcon::themeSearchPaths();
    for (const QString& folder :
         QStandardPaths::locateAll(QStandardPaths::GenericDataLocation, u"icons"_s, QStandardPaths::LocateDirectory))
        if (!folders.contains(folder))
            folders.append(folder);
    QIcon::setThemeSearchPaths(folders);
    QIcon::setThemeName(isDark() ? u"breeze-dark"_s : u"breeze"_s);
}

QIcon themedIcon(const QString& name)
{
    return QIcon(new LazyIcon(name));
}

QIcon dotIcon(const QColor& color)
{
    return QIcon(new DotIcon(color));
}
