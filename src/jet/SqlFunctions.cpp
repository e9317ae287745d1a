// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "jet/SqlFunctions.h"

#include "jet/Error.h"
#include "jet/LikePattern.h"
#include "jet/TextRules.h"
#include "jet/Types.h"

#include <algorithm>
#include <array>
#include <sqlite3.h>

namespace jet {
namespace {

std::string_view textOf(sqlite3_value* value)
{
    const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
    return text ? std::string_view(text, size_t(sqlite3_value_bytes(value))) : std::string_view();
}

Cell cellOf(sqlite3_value* value)
{
    switch (sqlite3_value_type(value)) {
    case SQLITE_NULL:
        return {};
    case SQLITE_INTEGER:
        return std::int64_t(sqlite3_value_int64(value));
    case SQLITE_FLOAT:
        return sqlite3_value_double(value);
    default:
        return std::string(textOf(value));
    }
}

void giveResult(sqlite3_context* context, const Cell& cell)
{
    if (const auto* text = std::get_if<std::string>(&cell))
        sqlite3_result_text64(context, text->data(), text->size(), SQLITE_TRANSIENT, SQLITE_UTF8);
    else if (const auto* integer = std::get_if<std::int64_t>(&cell))
        sqlite3_result_int64(context, *integer);
    else if (const auto* real = std::get_if<double>(&cell))
        sqlite3_result_double(context, *real);
}

// "text LIKE pattern" arrives as like(pattern, text). A pattern that does not change is compiled once.
void likeFunction(sqlite3_context* context, int, sqlite3_value** values)
{
    if (sqlite3_value_type(values[0]) == SQLITE_NULL || sqlite3_value_type(values[1]) == SQLITE_NULL)
        return;
    try {
        if (const auto* kept = static_cast<const LikePattern*>(sqlite3_get_auxdata(context, 0)))
            return sqlite3_result_int(context, kept->matches(textOf(values[1])));
        auto pattern = std::make_unique<LikePattern>(textOf(values[0]));
        sqlite3_result_int(context, pattern->matches(textOf(values[1])));
        sqlite3_set_auxdata(context, 0, pattern.release(), [](void* p) { delete static_cast<LikePattern*>(p); });
    } catch (const std::exception& error) {
        sqlite3_result_error(context, error.what(), -1);
    }
}

// jet_store(type, size, column, value)
void storeFunction(sqlite3_context* context, int, sqlite3_value** values)
{
    try {
        const ColumnType type{Type(sqlite3_value_int(values[0])), sqlite3_value_int(values[1])};
        giveResult(context, coerce(cellOf(values[3]), type, textOf(values[2])));
    } catch (const std::exception& error) {
        sqlite3_result_error(context, error.what(), -1);
    }
}

int compareFunction(void*, int aSize, const void* a, int bSize, const void* b)
{
    return compareText({static_cast<const char*>(a), size_t(aSize)}, {static_cast<const char*>(b), size_t(bSize)});
}

bool isPlainFunction(std::string_view name)
{
    constexpr std::array<std::string_view, 29> known{
        "abs",     "avg",   "ceil",      "coalesce", "count", "date",  "datetime", "floor",  "hex",  "ifnull",
        "iif",     "instr", "jet_store", "length",   "like",  "lower", "ltrim",    "max",    "min",  "nullif",
        "replace", "round", "rtrim",     "substr",   "sum",   "total", "trim",     "typeof", "upper"};
    std::string lower(name);
    std::transform(lower.begin(), lower.end(), lower.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? char(c | 0x20) : c; });
    return std::find(known.begin(), known.end(), lower) != known.end();
}

// The second wall behind the translator, which knows only the few kinds of statements that there are.
int guard(void*, int action, const char* first, const char* second, const char* database, const char*)
{
    const std::string_view name(second ? second : ""), schema(database ? database : "main");
    switch (action) {
    case SQLITE_SELECT:
    case SQLITE_TRANSACTION:
    case SQLITE_SAVEPOINT:
        return SQLITE_OK;
    case SQLITE_READ:
    case SQLITE_INSERT:
    case SQLITE_UPDATE:
    case SQLITE_DELETE:
    case SQLITE_CREATE_TABLE:
    case SQLITE_CREATE_INDEX:
    case SQLITE_DROP_TABLE:
    case SQLITE_DROP_INDEX:
    case SQLITE_REINDEX:
        return schema == "main" ? SQLITE_OK : SQLITE_DENY;
    case SQLITE_FUNCTION:
        return isPlainFunction(name) ? SQLITE_OK : SQLITE_DENY;
    case SQLITE_PRAGMA: // asked by us about relations, by way of its table
        return std::string_view(first) == "foreign_key_list" ? SQLITE_OK : SQLITE_DENY;
    default:
        return SQLITE_DENY;
    }
}

} // namespace

void installTextRules(sqlite3* database)
{
    constexpr int pure = SQLITE_UTF8 | SQLITE_DETERMINISTIC;
    int result = sqlite3_create_collation_v2(database, "NOCASE", SQLITE_UTF8, nullptr, compareFunction, nullptr);
    if (!result)
        result = sqlite3_create_function_v2(database, "like", 2, pure | SQLITE_INNOCUOUS, nullptr, likeFunction,
                                            nullptr, nullptr, nullptr);
    if (!result)
        result = sqlite3_create_function_v2(database, "jet_store", 4, pure, nullptr, storeFunction, nullptr, nullptr,
                                            nullptr);
    if (result)
        throwSqliteError(database, result);
}

void installGuard(sqlite3* database)
{
    sqlite3_limit(database, SQLITE_LIMIT_ATTACHED, 0);
    sqlite3_set_authorizer(database, guard, nullptr);
}

} // namespace jet
