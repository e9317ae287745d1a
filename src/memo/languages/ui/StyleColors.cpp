// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "memo/languages/ui/StyleColors.h"

#include <cmath>

namespace {

// Relative luminance and contrast as in WCAG 2.1 (w3.org/TR/WCAG21, "relative luminance").
double linear(double channel)
{
    return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

} // namespace

std::optional<QColor> colorOfNumber(std::optional<qint64> number)
{
    if (!number || *number < 0 || *number > 0xFFFFFF)
        return std::nullopt;
    const int bgr = static_cast<int>(*number);
    return QColor(bgr & 0xFF, bgr >> 8 & 0xFF, bgr >> 16);
}

QColor readableOn(const QColor& paper)
{
    const double luminance =
        0.2126 * linear(paper.redF()) + 0.7152 * linear(paper.greenF()) + 0.0722 * linear(paper.blueF());
    return luminance > 0.179 ? Qt::black : Qt::white; // where both have the same contrast
}
