// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "jet/Recordset.h"

#include "jet/Dates.h"
#include "jet/Dialect.h"
#include "jet/Query.h"

#include <algorithm>
#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace jet {
namespace {

std::string_view asView(const char* text)
{
    return text ? text : std::string_view();
}

std::string qualifiedName(const std::string& table, const std::string& name)
{
    return table.empty() ? name : table + '.' + name;
}

} // namespace

struct Recordset::State {
    struct Column {
        std::string name; // as the caller knows it
        std::string qualified; // table.column
        std::string table;
    };
    struct NewRow {
        std::string sql;
        std::vector<Cell> cells;
    };

    sqlite3* database = nullptr;
    std::unique_ptr<Query> query;
    sqlite3_stmt* row = nullptr; // of `query`, for the loops over many rows
    bool eof = true;
    std::vector<Column> columns;
    std::unique_ptr<NewRow> pending;

    void open(const std::string& sql, const std::vector<Cell>& binds);
    void readColumns();
    int find(const std::string& name) const;
    std::string table() const;
};

void Recordset::State::open(const std::string& sql, const std::vector<Cell>& binds)
{
    auto opened = std::make_unique<Query>(database, sql);
    for (size_t i = 0; i < binds.size(); ++i)
        opened->bind(int(i) + 1, binds[i]);
    const bool any = opened->step();
    query = std::move(opened);
    row = query->handle();
    eof = !any;
    readColumns();
}

void Recordset::State::readColumns()
{
    columns.clear();
    for (int i = 0, n = sqlite3_column_count(row); i < n; ++i) {
        const std::string table(asView(sqlite3_column_table_name(row, i)));
        const std::string origin(asView(sqlite3_column_origin_name(row, i)));
        std::string name(asView(sqlite3_column_name(row, i)));
        if (!origin.empty() && name.starts_with(origin + ":"))
            name = origin; // SQLite numbers equal names inside a nested join: name:1
        columns.push_back({name, qualifiedName(table, name), table});
    }
    // Two columns of one name are known as table.column.
    std::vector<std::string> keys;
    for (const Column& column : columns)
        keys.push_back(upper(column.name));
    for (size_t i = 0; i < columns.size(); ++i)
        if (std::count(keys.begin(), keys.end(), keys[i]) > 1)
            columns[i].name = columns[i].qualified;
}

int Recordset::State::find(const std::string& name) const
{
    const std::string wanted = upper(name);
    const auto byName =
        std::find_if(columns.begin(), columns.end(), [&](const Column& c) { return upper(c.name) == wanted; });
    if (byName != columns.end())
        return int(byName - columns.begin());
    const auto full =
        std::find_if(columns.begin(), columns.end(), [&](const Column& c) { return upper(c.qualified) == wanted; });
    return full == columns.end() ? -1 : int(full - columns.begin());
}

// The one table that a new row goes to.
std::string Recordset::State::table() const
{
    for (const Column& column : columns)
        if (column.table.empty() || column.table != columns.front().table)
            throw Error(u"Cannot add a record: the query does not read from one table alone."_s);
    return columns.front().table;
}

Recordset::Recordset(sqlite3* database, const Statement& statement) : m(std::make_unique<State>())
{
    m->database = database;
    m->open(statement.sql, statement.binds);
}

Recordset::Recordset(Recordset&&) noexcept = default;
Recordset& Recordset::operator=(Recordset&&) noexcept = default;
Recordset::~Recordset() = default;

bool Recordset::eof() const
{
    return m->eof;
}

void Recordset::moveNext()
{
    if (!m->eof)
        m->eof = !m->query->step();
}

int Recordset::index(const QString& name) const
{
    const int found = m->find(name.toStdString());
    if (found < 0)
        throw Error(
            u"Item cannot be found in the collection corresponding to the requested name or ordinal: '%1'."_s.arg(
                name));
    return found;
}

bool Recordset::isNull(int column) const
{
    return sqlite3_column_type(m->row, column) == SQLITE_NULL;
}

qint64 Recordset::integer(int column) const
{
    return sqlite3_column_int64(m->row, column);
}

bool Recordset::boolean(int column) const
{
    return sqlite3_column_int64(m->row, column) != 0;
}

QString Recordset::text(int column) const
{
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(m->row, column));
    return QString::fromUtf8(text, sqlite3_column_bytes(m->row, column));
}

QByteArrayView Recordset::view(int column) const
{
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(m->row, column));
    return QByteArrayView(text, sqlite3_column_bytes(m->row, column));
}

QDateTime Recordset::dateTime(int column) const
{
    return readDate(m->query->text(column));
}

LocalMoment Recordset::moment(int column) const
{
    return readMoment(m->query->text(column));
}

void Recordset::AddNew(const QStringList& names, const std::vector<Value>& values)
{
    m->pending.reset();
    if (names.isEmpty() || size_t(names.size()) != values.size())
        throw Error(u"Number of query values and destination fields are not the same."_s);
    const std::string table = m->table();
    auto row = std::make_unique<State::NewRow>();
    std::string columns, marks;
    for (size_t i = 0; i < values.size(); ++i) {
        const std::string name = names[qsizetype(i)].toStdString();
        const auto type = columnType(m->database, table, name);
        if (!type)
            index(u'?' + QString::fromStdString(name)); // throws the usual description
        columns += (columns.empty() ? "" : ", ") + quotedName(name);
        marks += marks.empty() ? "?" : ", ?";
        row->cells.push_back(coerce(toCell(values[i]), *type, name));
    }
    row->sql = "INSERT INTO " + quotedName(table) + " (" + columns + ") VALUES (" + marks + ")";
    m->pending = std::move(row);
}

void Recordset::Update()
{
    if (!m->pending)
        throw Error(u"Update or CancelUpdate without AddNew or Edit."_s);
    const auto row = std::move(m->pending);
    const std::string table = m->table();
    Query insert(m->database, row->sql);
    for (size_t i = 0; i < row->cells.size(); ++i)
        insert.bind(int(i) + 1, row->cells[i]);
    // The row with its key read back, or nothing.
    runSql(m->database, "SAVEPOINT jet_new");
    try {
        insert.step();
        insert.reset();
        m->open("SELECT * FROM " + quotedName(table) + " WHERE rowid = ?",
                {std::int64_t(sqlite3_last_insert_rowid(m->database))});
        runSql(m->database, "RELEASE jet_new");
    } catch (...) {
        sqlite3_exec(m->database, "ROLLBACK TO jet_new; RELEASE jet_new", nullptr, nullptr, nullptr);
        throw;
    }
}

} // namespace jet
