// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/widgets/Colors.h"

#include "desktop/Desktop.h"

#include <algorithm>
#include <cmath>

QColor colorOfNumber(std::uint32_t bgr)
{
    return QColor(int(bgr & 0xFF), int(bgr >> 8 & 0xFF), int(bgr >> 16 & 0xFF));
}

std::optional<QColor> colorOfNumber(std::optional<qint64> number)
{
    if (!number || *number < 0 || *number > 0xFFFFFF)
        return std::nullopt;
    return colorOfNumber(static_cast<std::uint32_t>(*number));
}

std::uint32_t numberOfColor(const QColor& color)
{
    return std::uint32_t(color.red() | color.green() << 8 | color.blue() << 16);
}

double luminance(const QColor& color)
{
    const auto linear = [](double channel) {
        return channel <= 0.03928 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

double contrast(const QColor& a, const QColor& b)
{
    const double x = luminance(a) + 0.05;
    const double y = luminance(b) + 0.05;
    return x > y ? x / y : y / x;
}

QColor blackOrWhiteOn(const QColor& paper)
{
    return contrast(paper, Qt::black) >= contrast(paper, Qt::white) ? Qt::black : Qt::white;
}

QColor readableOn(const QColor& text, const QColor& paper)
{
    constexpr double tooPale = 3;
    if (!text.isValid() || contrast(text, paper) >= tooPale)
        return text;
    const bool darker = blackOrWhiteOn(paper) == Qt::black;
    QColor shown = text.toHsl();
    for (int i = 0; i < 40 && contrast(shown, paper) < wellRead; ++i) {
        const float lightness = shown.lightnessF();
        shown.setHslF(shown.hslHueF(), shown.hslSaturationF(),
                      std::clamp(darker ? lightness - 0.025F : lightness + 0.025F, 0.0F, 1.0F));
    }
    return shown.toRgb();
}

std::optional<QColor> pickColor(FileDialogs& files, const QColor& initial)
{
    const std::optional<std::uint32_t> chosen = files.pickColor(numberOfColor(initial));
    return chosen ? std::optional(colorOfNumber(*chosen)) : std::nullopt;
}
