// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Any text through the translator and, when it passes, through SQLite on a small archive in memory. Nothing but
// an Error may come of it, and nothing may reach another file.

#include "jet/Database.h"
#include "jet/Dialect.h"
#include "jet/Query.h"

#include <cstdint>
#include <sqlite3.h>

namespace {

jet::Database makeArchive()
{
    sqlite3* raw = nullptr;
    sqlite3_open(":memory:", &raw);
    jet::Database database(raw);
    sqlite3_db_config(raw, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
    sqlite3_db_config(raw, SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);
    sqlite3_db_config(raw, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
    jet::installTextRules(raw);
    for (
        const char* sql :
        {"CREATE TABLE tab_category (categoryID COUNTER, name TEXT(20), CONSTRAINT ID_PK PRIMARY KEY(categoryID))",
         "CREATE TABLE tab_todo (todoID COUNTER, categoryID LONG CONSTRAINT Rf REFERENCES tab_category (categoryID) ON "
         "UPDATE CASCADE ON DELETE CASCADE, name TEXT(255), dueDate DATETIME, done YESNO, case SHORT, CONSTRAINT ID_PK "
         "PRIMARY KEY(todoID))"})
        jet::runSql(raw, jet::translate(sql, raw).sql);
    jet::runSql(
        raw, "INSERT INTO tab_category (name) VALUES ('a'); INSERT INTO tab_todo (categoryID, name) VALUES (1, 'b')");
    jet::installGuard(raw);
    // An innocent statement may be long to run: that is no fault of the translator.
    sqlite3_progress_handler(
        raw, 20'000, [](void*) { return 1; }, nullptr);
    return database;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const jet::Database database = makeArchive();
    try {
        const jet::Statement statement = jet::translate({reinterpret_cast<const char*>(data), size}, database.get());
        jet::runSql(database.get(), "SAVEPOINT fuzz");
        try {
            jet::Query query(database.get(), statement.sql);
            for (std::size_t i = 0; i < statement.binds.size(); ++i)
                query.bind(static_cast<int>(i) + 1, statement.binds[i]);
            for (int rows = 0; rows < 100 && query.step(); ++rows) { }
        } catch (const jet::Error& error) {
            if (!*error.what())
                __builtin_trap();
        }
        jet::runSql(database.get(), "ROLLBACK TO fuzz; RELEASE fuzz");
    } catch (const jet::Error& error) {
        if (!*error.what())
            __builtin_trap();
    }
    return 0;
}
