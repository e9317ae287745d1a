// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "jet/Salvage.h"

#include "jet/Database.h"
#include "jet/Dialect.h"
#include "jet/Query.h"
#include "jet/SqlFunctions.h"
#include "jet/TableSalvage.h"

#include <sqlite3.h>
#include <vector>

using namespace Qt::StringLiterals;

namespace jet {
namespace {

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
