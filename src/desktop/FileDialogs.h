// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <cstdint>
#include <optional>

// Picking a file or a colour. Nothing is opened or written here; an empty answer means that the user cancelled.
class FileDialogs {
public:
    virtual ~FileDialogs() = default;
    // `filter` is in the classic form "All Files (*.*) |*.*": a label, a bar, a pattern.
    virtual std::optional<QString> openFile(const QString& title, const QString& filter) = 0;
    // Asks before an existing file is chosen. `suffix` (no dot) is added to a name typed without one.
    virtual std::optional<QString> saveFile(const QString& title, const QString& filter, const QString& suffix) = 0;
    // Colours are 0x00BBGGRR, red in the low byte.
    virtual std::optional<std::uint32_t> pickColor(std::uint32_t initial) = 0;
};
