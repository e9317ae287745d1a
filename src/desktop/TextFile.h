// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

// Text files as the user picks them.

// The lines of a file, joined with line feeds. UTF-8, UTF-16 with a byte order mark, or else Windows-1252. Throws
// std::runtime_error with a text for the user.
QString readTextFile(const QString& name);

// Writes bytes over a file, wholly or not at all. Throws std::runtime_error with a text for the user.
void writeTextFile(const QString& name, const QByteArray& bytes);
