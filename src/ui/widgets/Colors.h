// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/Desktop.h"

#include <QColor>

// Picks a colour through the dialogs' seam, which speaks in 0x00BBGGRR. Empty when the user cancelled.
inline std::optional<QColor> pickColor(FileDialogs& files, const QColor& initial)
{
    const auto bgr = std::uint32_t(initial.red() | initial.green() << 8 | initial.blue() << 16);
    const auto chosen = files.pickColor(bgr);
    if (!chosen)
        return std::nullopt;
    return QColor(int(*chosen & 0xFF), int(*chosen >> 8 & 0xFF), int(*chosen >> 16 & 0xFF));
}
