// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "jet/Salvage.h"

#include "jet/Database.h"
#include "jet/Dialect.h"
#include "jet/Query.h"

#include <algorithm>
#include <deque>
#include <limits>
#include <optional>
#include <sqlite3.h>
#include <vector>

using namespace Qt::StringLiterals;

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

// Copies the rows of one damaged table, by ranges of keys. Where reading breaks off, the rest is tried from the
// other end, then in ever smaller halves, until only the keys in damaged pages are left. Keys have 32 bits.
class TableSalvage {
public:
    TableSalvage(sqlite3* from, sqlite3* to, const std::string& table); // throws Error
    void run(); // throws Error when `to` cannot be written

private:
    using Key = std::int64_t;

    void copyBetween(Key low, Key high);
    std::optional<Key> copy(Query& rows, Key from, Key to, bool upwards);
    void insertRow(sqlite3_stmt* row);
    std::optional<Key> counter() const;

    std::string m_table;
    sqlite3* m_from;
    sqlite3* m_to;
    Query m_upwards, m_downwards, m_insert;
    std::int64_t m_rows = 0; // copied so far
};

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

struct Definition {
    std::string type, name, sql;

    bool isOwn() const { return !sql.empty() && !name.starts_with("sqlite_"); } // not one that SQLite makes itself
    bool isUniqueIndex() const { return type == "index" && upper(sql).starts_with("CREATE UNIQUE"); }
};

std::vector<Definition> readDefinitions(sqlite3* from)
{
    std::vector<Definition> definitions;
    try {
        Query query(from, "SELECT type, name, sql FROM sqlite_schema ORDER BY rowid");
        while (query.step())
            definitions.push_back({std::string(query.text(0)), std::string(query.text(1)), std::string(query.text(2))});
    } catch (const Error& error) {
        throw Error(u"The archive is damaged at its very beginning: the list of its tables cannot be read. "
                    u"Please go back to a copy. (%1)"_s.arg(QString::fromUtf8(error.what())),
                    error.code());
    }
    return definitions;
}

// Keys that were given out once must not come again, even if their rows are lost.
void copyCounters(sqlite3* from, sqlite3* to)
{
    try {
        Query counters(from, "SELECT name, max(seq) FROM sqlite_sequence GROUP BY name");
        while (counters.step()) {
            for (const char* sql : {"INSERT INTO sqlite_sequence (name, seq) SELECT ?1, 0 WHERE ?1 NOT IN (SELECT name "
                                    "FROM sqlite_sequence)",
                                    "UPDATE sqlite_sequence SET seq = max(seq, ?2) WHERE name = ?1"}) {
                Query query(to, sql);
                query.bind(1, std::string(counters.text(0)));
                if (sqlite3_bind_parameter_count(query.handle()) > 1)
                    query.bind(2, counters.integer(1));
                query.step();
            }
        }
    } catch (const Error& error) {
        if ((error.code() & 0xFF) != SQLITE_CORRUPT && (error.code() & 0xFF) != SQLITE_ERROR)
            throw;
    }
}

// Elements whose category was lost would be in the file and yet nowhere in the program: they get a category named
// "Recovered" under the root of their tree.
void adoptOrphans(sqlite3* to, const std::string& table, const std::string& type)
{
    const std::string root =
        "coalesce((SELECT min(categoryID) FROM tab_category WHERE parentID = 0 AND type = " + type + "), 0)";
    const std::string lost = " NOT IN (SELECT categoryID FROM tab_category)";
    try {
        runSql(to,
               "INSERT INTO tab_category (categoryID, parentID, type, name) SELECT DISTINCT categoryID, " + root +
                   ", " + type + ", 'Recovered ' || categoryID FROM " + table + " WHERE categoryID" + lost);
        runSql(to,
               "UPDATE tab_category SET parentID = " + root + " WHERE type = " + type +
                   " AND parentID <> 0 AND parentID" + lost);
    } catch (const Error& error) {
        if ((error.code() & 0xFF) != SQLITE_ERROR) // an older archive without that table
            throw;
    }
}

void run(sqlite3* to, const Definition& definition)
{
    try {
        runSql(to, definition.sql);
    } catch (const Error& error) {
        if (definition.type == "table" || (error.code() & 0xFF) == SQLITE_FULL || (error.code() & 0xFF) == SQLITE_IOERR)
            throw;
    }
}

void copyAll(sqlite3* from, sqlite3* to)
{
    const std::vector<Definition> definitions = readDefinitions(from);
    const auto runAll = [&](auto&& wanted) {
        for (const Definition& definition : definitions)
            if (definition.isOwn() && wanted(definition))
                run(to, definition);
    };
    runAll([](const Definition& d) { return d.type == "table"; });
    runAll([](const Definition& d) { return d.isUniqueIndex(); });
    for (const Definition& definition : definitions)
        if (definition.type == "table" && definition.isOwn())
            TableSalvage(from, to, definition.name).run();
    copyCounters(from, to);
    adoptOrphans(to, "tab_memo", "0");
    adoptOrphans(to, "tab_bookmark", "1");
    adoptOrphans(to, "tab_todo", "2");
    runAll([](const Definition& d) { return d.type != "table" && !d.isUniqueIndex(); });
}

} // namespace

void salvageArchive(const QString& from, const QString& to)
{
    const Database source = openUnchecked(from);
    sqlite3_db_config(source.get(), SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
    installTextRules(source.get());
    // A file that is shorter than its header says can be opened only this way.
    runSql(source.get(), "PRAGMA writable_schema=ON");
    try {
        runSql(source.get(), "BEGIN IMMEDIATE");
    } catch (const Error& error) {
        if ((error.code() & 0xFF) == SQLITE_BUSY)
            throw;
    }

    const Database target = createArchive(to);
    // Values that break a rule of their column are kept: the user can mend them, what is gone is gone.
    runSql(target.get(), "PRAGMA foreign_keys=OFF; PRAGMA ignore_check_constraints=ON; PRAGMA synchronous=OFF; BEGIN");
    copyAll(source.get(), target.get());
    runSql(target.get(), "COMMIT");
}

} // namespace jet
