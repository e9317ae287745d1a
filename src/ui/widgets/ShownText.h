// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

// The user's words in cells and tips. They may hold any character, and any number of them.

// The letter itself, or a blank for a control character, a break of the line or a mark that turns the direction of
// writing (Unicode Standard Annex 9).
QChar shownLetter(QChar letter);

// One short line: what a cell has room for. Laying out a megabyte takes seconds.
QString shownLine(const QString& text);

// The same from the first lines that are not blank, with " - " between them.
QString shownHeading(const QString& text);

// A tool tip that shows the words letter by letter on their lines: left to itself a tool tip guesses whether a text is
// HTML. No more of a long text than fits a tip; none for an empty one.
QString plainToolTip(const QString& text);
