// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <optional>

class FileDialogs;

// Colours as numbers are 0x00BBGGRR, red in the low byte: so the archive, the code editor and the dialogs' seam have
// them.
QColor colorOfNumber(std::uint32_t bgr);
std::optional<QColor> colorOfNumber(std::optional<qint64> number); // nothing for none and for what is no colour
std::uint32_t numberOfColor(const QColor& color);

// Relative luminance (0 to 1) and contrast ratio (1 to 21) of the Web Content Accessibility Guidelines 2.1.
double luminance(const QColor& color);
double contrast(const QColor& a, const QColor& b);
constexpr double wellRead = 4.5; // the contrast that those ask for text of usual size

QColor blackOrWhiteOn(const QColor& paper); // whichever is easier to read
// `text` as it can be read on `paper`: the hue stays, but what is too pale becomes darker (on dark paper: lighter).
QColor readableOn(const QColor& text, const QColor& paper);

// Lets the user pick one; empty when that was cancelled.
std::optional<QColor> pickColor(FileDialogs& files, const QColor& initial);
