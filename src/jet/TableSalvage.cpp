// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "jet/TableSalvage.h"

#include "jet/Dialect.h"
#include "jet/SqliteError.h"

#include <algorithm>
#include <deque>
#include <limits>
#include <sqlite3.h>

namespace jet {
namespace {

bool isUnreadable(int result)
{
    const int code = result & 0xFF;
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
    : m_table(table), m_from(from), m_to(to), m_upwards(from, selectRows(table, "")),
      m_downwards(from, selectRows(table, " DESC")), m_insert(to, insertRows(table, m_upwards.handle()))
{
}

void TableSalvage::run()
{
    // Beyond these, a key is damage itself; as the highest one it would end the giving out of new keys.
    constexpr Key first = std::numeric_limits<std::int32_t>::min(), last = std::numeric_limits<std::int32_t>::max();
    const std::optional<Key> low = copy(m_upwards, first, last, true);
    if (!low)
        return;
    const Key from = *low == first ? 0 : *low; // keys count from 1
    const std::optional<Key> high = copy(m_downwards, from, last, false);
    if (!high)
        return;
    constexpr Key farther = 100'000; // a good guess when the end of the table is gone
    copyBetween(from, std::min(*high, counter().value_or(*high == last ? from + farther : *high)));
}

// The big halves first, so that all that is sound between damaged places is found early.
void TableSalvage::copyBetween(Key low, Key high)
{
    struct Range {
        Key from, to;
    };
    std::deque<Range> ranges{{low, high}};
    constexpr int enough = 20'000; // looks in a row that found nothing more
    for (int fruitless = 0; !ranges.empty() && fruitless < enough; ++fruitless) {
        const Range range = ranges.front();
        ranges.pop_front();
        const std::int64_t rowsBefore = m_rows;
        const std::optional<Key> from =
            range.from <= range.to ? copy(m_upwards, range.from, range.to, true) : std::nullopt;
        const std::optional<Key> to = from ? copy(m_downwards, *from, range.to, false) : std::nullopt;
        if (m_rows > rowsBefore)
            fruitless = 0;
        if (!to || *to <= *from)
            continue;
        const Key middle = *from + (*to - *from) / 2;
        ranges.push_back({*from, middle});
        ranges.push_back({middle + 1, *to});
    }
}

// Nothing when all of the range was read, else the key behind the last row that could be read.
std::optional<TableSalvage::Key> TableSalvage::copy(Query& rows, Key from, Key to, bool upwards)
{
    rows.reset();
    rows.bind(1, Cell(from));
    rows.bind(2, Cell(to));
    for (Key next = upwards ? from : to;;) {
        const int result = rows.tryStep();
        if (isUnreadable(result))
            return next;
        if (result != SQLITE_ROW && result != SQLITE_DONE)
            throwSqliteError(m_from, result);
        if (result == SQLITE_DONE)
            return std::nullopt;
        const Key key = rows.integer(0);
        if (upwards ? key < next : key > next)
            return next; // pages in a wrong order; they could go round and round
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
    const int result = m_insert.tryStep();
    if (result == SQLITE_DONE)
        m_rows += sqlite3_changes(m_to); // none for a row that is there already
    else if ((result & 0xFF) != SQLITE_CONSTRAINT &&
             (result & 0xFF) != SQLITE_MISMATCH) // a row that damage made impossible
        throwSqliteError(m_to, result);
}

// The highest key that was ever given out, where the table counts and its counter can be read.
std::optional<TableSalvage::Key> TableSalvage::counter() const
{
    try {
        Query counter(m_from, "SELECT seq FROM sqlite_sequence WHERE name = ?");
        counter.bind(1, m_table);
        if (counter.step())
            return counter.integer(0);
    } catch (const Error&) {
    } // no table here counts, or the counters are damaged too
    return std::nullopt;
}

} // namespace jet
