// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/richtext/RtfState.h"

#include <QColor>
#include <QTextListFormat>

// Decisions about looks that reading, writing and the editor must share, or a note would change a little each
// time it is saved.
namespace rtf {

// The colour of links on this desktop. It is never written: a link is written in the blue that other
// programs give it, and that blue is read as the desktop's colour, which can be seen on a dark page too.
QColor linkColor();
QColor writtenLinkColor();
bool isUsualLinkColor(const QColor& color);

// True when `color` on `background` (invalid for none) is what other programs write for a text of no colour:
// black on the page or on a light background.
bool isAutomatic(const QColor& color, const QColor& background);

// `numbering` is a Numbering; `level` counts from 0. Bullets differ by level.
QTextListFormat listFormat(int numbering, int level);
int numberingOf(QTextListFormat::Style style);

} // namespace rtf
