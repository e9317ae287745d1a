// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/QtIcons.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace {

// Looking an icon up costs more than all the rest of a menu; most are never seen. So the theme is asked when a
// pixmap is wanted, and again after the theme changed.
class LazyIcon final : public QIconEngine {
public:
    explicit LazyIcon(QString name) : m_name(std::move(name)) { }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override
    {
        return icon().pixmap(size, mode, state);
    }
    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override
    {
        icon().paint(painter, rect, Qt::AlignCenter, mode, state);
    }
    QSize actualSize(const QSize& size, QIcon::Mode, QIcon::State) override { return size; }
    QString iconName() override { return m_name; }
    bool isNull() override { return false; }
    QIconEngine* clone() const override { return new LazyIcon(m_name); }

private:
    const QIcon& icon()
    {
        if (m_theme != QIcon::themeName()) {
            m_theme = QIcon::themeName();
            m_icon = QIcon::fromTheme(m_name);
        }
        return m_icon;
    }
    QString m_name;
    QString m_theme = u"?"_s;
    QIcon m_icon;
};

// A vector drawing, so that it is sharp at every scale.
class DotIcon final : public QIconEngine {
public:
    explicit DotIcon(const QColor& color) : m_color(color) { }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override
    {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return pixmap;
    }
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
    const QPalette palette = QGuiApplication::palette();
    const bool isDark = palette.color(QPalette::Window).lightness() < palette.color(QPalette::WindowText).lightness();
    const QString breeze = isDark ? u"breeze-dark"_s : u"breeze"_s;
    // A platform without a desktop (the tour's) knows no folder of themes.
    QStringList folders = QIcon::themeSearchPaths();
    for (const QString& folder :
         QStandardPaths::locateAll(QStandardPaths::GenericDataLocation, u"icons"_s, QStandardPaths::LocateDirectory))
        if (!folders.contains(folder))
            folders.append(folder);
    QIcon::setThemeSearchPaths(folders);
    const QString current = QIcon::themeName();
    if (current.isEmpty() || current == "hicolor"_L1 || current.startsWith("breeze"_L1))
        QIcon::setThemeName(breeze);
    else
        QIcon::setFallbackThemeName(breeze);
}

QIcon themedIcon(const QString& name)
{
    return QIcon(new LazyIcon(name));
}

QIcon dotIcon(const QColor& color)
{
    return QIcon(new DotIcon(color));
}
