// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "jet/Types.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>

struct sqlite3;
struct sqlite3_stmt;

namespace jet {

// A prepared statement in SQLite's own SQL. Every function throws Error.
class Query {
public:
    Query(sqlite3* database, std::string_view sql);

    void bind(int place, const Cell& value); // from 1
    bool step(); // true: a row
    int tryStep() noexcept; // SQLite's result code instead of an Error
    void reset();
    sqlite3_stmt* handle() const { return m_statement.get(); }

    std::string_view text(int column) const; // until the next step
    std::int64_t integer(int column) const;

private:
    struct Finalize {
        void operator()(sqlite3_stmt* statement) const noexcept;
    };
    sqlite3* m_database;
    std::unique_ptr<sqlite3_stmt, Finalize> m_statement;
};

void runSql(sqlite3* database, const std::string& sql); // any number of statements, rows ignored
std::string firstText(sqlite3* database, std::string_view sql); // "" when there is no row

// The declared type of a column, asked of the file itself, in any letter case. Nothing when there is no such
// column. Throws Error when the file cannot be read.
std::optional<ColumnType> columnType(sqlite3* database, const std::string& table, const std::string& column);

// True for the counter key of a table: a column that is never Null. False also when there is no such column.
bool isCounterKey(sqlite3* database, const std::string& table, const std::string& column);

} // namespace jet
