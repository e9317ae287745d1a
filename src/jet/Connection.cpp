// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "jet/Connection.h"

#include "jet/Database.h"
#include "jet/Dialect.h"
#include "jet/Error.h"
#include "jet/Query.h"

#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace jet {
namespace {

// The value of "Data Source" runs to the last semicolon: a path may hold one.
QString dataSource(const QString& connectionString)
{
    const QString key = u"Data Source="_s;
    const auto at = connectionString.indexOf(key, 0, Qt::CaseInsensitive);
    if (at < 0)
        throw Error(u"The connection string names no data source."_s);
    const auto from = at + key.size(), end = connectionString.lastIndexOf(u';');
    return connectionString.mid(from, end < from ? -1 : end - from);
}

void runChange(sqlite3* database, const Statement& statement)
{
    Query query(database, statement.sql);
    for (size_t i = 0; i < statement.binds.size(); ++i)
        query.bind(int(i) + 1, statement.binds[i]);
    while (query.step()) { }
}

// A table with its indexes, or nothing.
void runDefinition(sqlite3* database, const Statement& statement)
{
    runSql(database, "SAVEPOINT jet");
    try {
        runChange(database, statement);
        for (const std::string& more : statement.then)
            runSql(database, more);
        runSql(database, "RELEASE jet");
    } catch (...) {
        sqlite3_exec(database, "ROLLBACK TO jet; RELEASE jet", nullptr, nullptr, nullptr);
        throw;
    }
}

} // namespace

struct Connection::State {
    Database database;
    std::function<bool()> keepGoing;
    bool inTransaction = false;

    sqlite3* open() const
    {
        if (!database)
            throw Error(u"The connection is closed."_s);
        return database.get();
    }
    void use(Database opened)
    {
        database = std::move(opened);
        installGuard(database.get());
        sqlite3_commit_hook(database.get(), mayNotCommit, this);
    }
    // A full disk, for one, ends a transaction by itself. What follows in its scope must not be written alone.
    static int mayNotCommit(void* state) { return static_cast<State*>(state)->inTransaction ? 1 : 0; }
};

Connection::Connection() : m(std::make_unique<State>()) { }
Connection::~Connection() = default;

void Connection::Open(const QString& connectionString)
{
    Close();
    m->use(openArchive(dataSource(connectionString)));
    onProgress(m->keepGoing);
}

void Connection::Create(const QString& path)
{
    Close();
    m->use(createArchive(path));
    onProgress(m->keepGoing);
}

void Connection::Close()
{
    m->database.reset();
}

int Connection::Execute(const QString& sql)
{
    sqlite3* database = m->open();
    const Statement statement = translate(sql.toStdString(), database);
    if (statement.kind == Statement::Definition) {
        runDefinition(database, statement);
        return 0;
    }
    runChange(database, statement);
    return statement.kind == Statement::Change ? sqlite3_changes(database) : 0;
}

Recordset Connection::OpenRecordset(const QString& sql)
{
    sqlite3* database = m->open();
    const Statement statement = translate(sql.toStdString(), database);
    if (statement.kind != Statement::Query)
        throw Error(u"Invalid SQL statement; expected 'SELECT'."_s);
    return Recordset(database, statement);
}

QStringList Connection::tables()
{
    QStringList names;
    Query query(
        m->open(),
        "SELECT name FROM sqlite_schema WHERE type = 'table' AND substr(name, 1, 7) <> 'sqlite_' ORDER BY name");
    while (query.step()) {
        const std::string_view name = query.text(0);
        names.append(QString::fromUtf8(name.data(), qsizetype(name.size())));
    }
    return names;
}

void Connection::onProgress(std::function<bool()> keepGoing)
{
    constexpr int steps = 20'000; // about 5 ms at most
    m->keepGoing = std::move(keepGoing);
    if (!m->database)
        return;
    const auto ask = [](void* state) {
        try {
            return static_cast<State*>(state)->keepGoing() ? 0 : 1;
        } catch (...) { // must not pass through C code
            return 1;
        }
    };
    if (m->keepGoing)
        sqlite3_progress_handler(m->database.get(), steps, ask, m.get());
    else
        sqlite3_progress_handler(m->database.get(), 0, nullptr, nullptr);
}

Connection::Transaction::Transaction(Connection& connection) : m_connection(&connection)
{
    if (connection.m->inTransaction)
        throw Error(u"A transaction is already running on this connection."_s);
    runSql(connection.m->open(), "BEGIN IMMEDIATE");
    connection.m->inTransaction = true;
}

Connection::Transaction::~Transaction()
{
    if (!m_connection)
        return;
    State& state = *m_connection->m;
    state.inTransaction = false;
    if (state.database && !sqlite3_get_autocommit(state.database.get()))
        sqlite3_exec(state.database.get(), "ROLLBACK", nullptr, nullptr, nullptr);
}

void Connection::Transaction::commit()
{
    if (!m_connection)
        return;
    State& state = *m_connection->m;
    if (sqlite3_get_autocommit(state.open()))
        throw Error(describeSqlite(SQLITE_CONSTRAINT_COMMITHOOK, {}, {}), SQLITE_CONSTRAINT_COMMITHOOK);
    state.inTransaction = false;
    runSql(state.open(), "COMMIT");
    m_connection = nullptr;
}

} // namespace jet
