// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QtGlobal>
#include <optional>

// The colours of style rows: 0x00BBGGRR, as the code editor takes them.

// Nothing for Null and for a number that is no colour; the editor ignores both.
std::optional<QColor> colorOfNumber(std::optional<qint64> number);

// Black or white, whichever is easier to read on `paper`.
QColor readableOn(const QColor& paper);
