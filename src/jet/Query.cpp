// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "jet/Query.h"

#include "jet/Error.h"

#include <sqlite3.h>

namespace jet {

void Query::Finalize::operator()(sqlite3_stmt* statement) const noexcept
{
    sqlite3_finalize(statement);
}

Query::Query(sqlite3* database, std::string_view sql) : m_database(database)
{
    sqlite3_stmt* raw = nullptr;
    const char* rest = nullptr;
    if (sql.size() > 1'000'000'000)
        throwSqliteError(nullptr, SQLITE_TOOBIG);
    const int result = sqlite3_prepare_v2(database, sql.data(), int(sql.size()), &raw, &rest);
    m_statement.reset(raw);
    if (result != SQLITE_OK)
        throwSqliteError(database, result);
    if (!raw)
        fail("Syntax error: the statement is empty.");
}

void Query::bind(int place, const Cell& value)
{
    int result = SQLITE_OK;
    if (const auto* text = std::get_if<std::string>(&value))
        result = sqlite3_bind_text64(handle(), place, text->data(), text->size(), SQLITE_TRANSIENT, SQLITE_UTF8);
    else if (const auto* integer = std::get_if<std::int64_t>(&value))
        result = sqlite3_bind_int64(handle(), place, *integer);
    else if (const auto* real = std::get_if<double>(&value))
        result = sqlite3_bind_double(handle(), place, *real);
    else
        result = sqlite3_bind_null(handle(), place);
    if (result != SQLITE_OK)
        throwSqliteError(m_database, result);
}

int Query::tryStep() noexcept
{
    return sqlite3_step(handle());
}

bool Query::step()
{
    const int result = tryStep();
    if (result != SQLITE_ROW && result != SQLITE_DONE)
        throwSqliteError(m_database, result);
    return result == SQLITE_ROW;
}

void Query::reset()
{
    sqlite3_reset(handle());
}

std::string_view Query::text(int column) const
{
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(handle(), column));
    const int size = sqlite3_column_bytes(handle(), column);
    return text && size > 0 ? std::string_view(text, size_t(size)) : std::string_view();
}

std::int64_t Query::integer(int column) const
{
    return sqlite3_column_int64(handle(), column);
}

void runSql(sqlite3* database, const std::string& sql)
{
    if (const int result = sqlite3_exec(database, sql.c_str(), nullptr, nullptr, nullptr))
        throwSqliteError(database, result);
}

std::string firstText(sqlite3* database, std::string_view sql)
{
    Query query(database, sql);
    return query.step() ? std::string(query.text(0)) : std::string();
}

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
