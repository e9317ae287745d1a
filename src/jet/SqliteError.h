// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "jet/Value.h"

struct sqlite3;

namespace jet {

// What a result code of SQLite means for the user. Never empty. `engineText` is SQLite's own description.
QString describeSqlite(int code, const QString& engineText, const QString& path);

// Throws the last failure of the connection, or `code` when that says more.
[[noreturn]] void throwSqliteError(sqlite3* database, int code);

} // namespace jet
