// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "jet/Schema.h"

#include "jet/SqliteError.h"

#include <sqlite3.h>

namespace jet {

std::optional<ColumnType> columnType(sqlite3* database, const std::string& table, const std::string& column)
{
    const char* declared = nullptr;
    const int result = sqlite3_table_column_metadata(database, nullptr, table.c_str(), column.c_str(), &declared,
                                                     nullptr, nullptr, nullptr, nullptr);
    if (result == SQLITE_OK)
        return typeFromName(declared ? declared : "");
    if ((result & 0xFF) != SQLITE_ERROR)
        throwSqliteError(database, result);
    return std::nullopt;
}

bool isCounterKey(sqlite3* database, const std::string& table, const std::string& column)
{
    int isKey = 0, counts = 0;
    return sqlite3_table_column_metadata(database, nullptr, table.c_str(), column.c_str(), nullptr, nullptr, nullptr,
                                         &isKey, &counts) == SQLITE_OK &&
        isKey && counts;
}

} // namespace jet
