// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

// Profile files ("snipvale.ini"): sections in brackets, key=value lines. Section and key names match in any
// letter case. What is not asked for (comments, unknown lines, the line ends) is never changed.

constexpr int longestProfileValue = 128; // characters: a buffer of 129

// The value, without blanks and one pair of quotes around it, cut to the longest that is read. `fallback`
// when the key is absent. Throws std::runtime_error when the file is there but cannot be read.
QString readProfile(const QString& file, const QString& section, const QString& key, const QString& fallback);

// False when it could not be written; the file is whole then, with its old contents.
bool writeProfile(const QString& file, const QString& section, const QString& key, const QString& value);

// "True", "False" in any letter case, or a number (0 is false). Throws std::invalid_argument for anything else.
bool textToBoolean(const QString& text);
