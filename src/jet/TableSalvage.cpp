// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "jet/TableSalvage.h"

#include "jet/Dialect.h"

#include <algorithm>
#include <limits>
#include <sqlite3.h>
#include <vector>

namespace jet {
namespace {

bool isUnreadable(const Error& error)
{
    const int code = error.code() & 0xFF;
    return code == SQLITE_CORRUPT || code == SQLITE_IOERR || code == SQLITE_NOTADB;
}

std::string selectRows(const std::string& table, const char* order)
{
    return "SELECT rowid, * FROM " + quotedName(table) + " NOT INDEXED WHERE rowid BETWEEN ? AND ? ORDER BY rowid" +
        order;
}

std::string insertRows(const std::string& table, sqlite3_stmt* rows)
{
    std::string marks = "?";
    for (int i = sqlite3_column_count(rows); i > 2; --i)
        marks += ", ?";
    return "INSERT OR IGNORE INTO " + quotedName(table) + " VALUES (" + marks + ")";
}

} // namespace

TableSalvage::TableSalvage(sqlite3* from, sqlite3* to, const std::string& table)
    : m_table(table), m_from(from), m_upwards(from, selectRows(table, "")),
      m_downwards(from, selectRows(table, " DESC")), m_insert(to, insertRows(table, m_upwards.handle()))
{
}

void TableSalvage::run()
{
    constexpr Key first = std::numeric_limits<Key>::min(), last = std::numeric_limits<Key>::max();
    const std::optional<Key> low = copy(m_upwards, first, last, true);
    if (!low)
        return;
    const Key from = *low == first ? 0 : *low; // keys count from 1
    const std::optional<Key> high = copy(m_downwards, from, last, false);
    if (high)
        copyAround(from, *high == last ? highestKey(from) : *high);
}

void TableSalvage::copyAround(Key low, Key high)
{
    struct Range {
        Key from, to;
    };
    std::vector<Range> ranges{{low, high}};
    // Each round looks twice. The limit is for keys that are astronomically far apart.
    for (int rounds = 1'000'000; !ranges.empty() && rounds; --rounds) {
        const Range range = ranges.back();
        ranges.pop_back();
        const std::optional<Key> from = copy(m_upwards, range.from, range.to, true);
        const std::optional<Key> to = from ? copy(m_downwards, *from, range.to, false) : std::nullopt;
        if (!to || *to <= *from)
            continue;
        const Key middle = *from + (*to - *from) / 2;
        ranges.push_back({middle + 1, *to});
        ranges.push_back({*from, middle});
    }
}

// Nothing when all of the range was read, else the key behind the last row that could be read.
std::optional<TableSalvage::Key> TableSalvage::copy(Query& rows, Key from, Key to, bool upwards)
{
    rows.reset();
    rows.bind(1, Cell(from));
    rows.bind(2, Cell(to));
    for (Key next = upwards ? from : to;;) {
        try {
            if (!rows.step())
                return std::nullopt;
        } catch (const Error& error) {
            if (!isUnreadable(error))
                throw;
            return next;
        }
        const Key key = rows.integer(0);
        insertRow(rows.handle());
        if (key == (upwards ? to : from))
            return std::nullopt;
        next = upwards ? key + 1 : key - 1;
    }
}

void TableSalvage::insertRow(sqlite3_stmt* row)
{
    m_insert.reset();
    for (int i = 1, n = sqlite3_column_count(row); i < n; ++i)
        sqlite3_bind_value(m_insert.handle(), i, sqlite3_column_value(row, i));
    try {
        m_insert.step();
    } catch (const Error& error) {
        const int code = error.code() & 0xFF;
        if (code != SQLITE_CONSTRAINT && code != SQLITE_MISMATCH) // those: a row that damage made impossible
            throw;
    }
}

// What the table's counter remembers; else a good guess, when the end of the table is gone.
TableSalvage::Key TableSalvage::highestKey(Key atLeast) const
{
    constexpr Key farther = 100'000;
    try {
        Query counter(m_from, "SELECT seq FROM sqlite_sequence WHERE name = ?");
        counter.bind(1, m_table);
        if (counter.step())
            return std::max(counter.integer(0), atLeast);
    } catch (const Error&) {
    } // no table here counts, or the counters are damaged too
    return atLeast + farther;
}

} // namespace jet
