// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "jet/Types.h"

#include <optional>
#include <string>

struct sqlite3;

namespace jet {

// The declared type of a column, asked of the file itself, in any letter case. Nothing when there is no such
// column. Throws Error when the file cannot be read.
std::optional<ColumnType> columnType(sqlite3* database, const std::string& table, const std::string& column);

// True for the counter key of a table: a column that is never Null. False also when there is no such column.
bool isCounterKey(sqlite3* database, const std::string& table, const std::string& column);

} // namespace jet
