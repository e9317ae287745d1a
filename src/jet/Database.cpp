// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "jet/Database.h"

#include "jet/Error.h"
#include "jet/Files.h"
#include "jet/LikePattern.h"
#include "jet/Query.h"
#include "jet/TextRules.h"

#include <QFile>
#include <QFileInfo>
#include <QUrl>
#include <algorithm>
#include <array>
#include <sqlite3.h>
#include <string_view>
#include <vector>

using namespace Qt::StringLiterals;

namespace jet {
namespace {

constexpr int busyMilliseconds = 2000;

Database openFile(const QByteArray& name, int flags)
{
    sqlite3* raw = nullptr;
    const int result =
        sqlite3_open_v2(name.constData(), &raw, flags | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE, nullptr);
    Database database(raw);
    if (result != SQLITE_OK)
        throw Error(
            describeSqlite(result, raw ? QString::fromUtf8(sqlite3_errmsg(raw)) : QString(), QFile::decodeName(name)),
            result);
    sqlite3_busy_timeout(raw, busyMilliseconds);
    return database;
}

QByteArray sqliteName(const QString& path)
{
    return QFile::encodeName(QFileInfo(path).absoluteFilePath()); // never read as a "file:" address
}

struct Header {
    bool isSqlite = false;
    bool usesLog = false; // write-ahead logging
    unsigned application = 0;
};

// The header is read by SQLite's own file layer: closing a descriptor of ours would drop the locks that other
// connections of this process hold on the file. Layout: https://www.sqlite.org/fileformat.html
Header readHeader(const QByteArray& name)
{
    sqlite3_vfs* vfs = sqlite3_vfs_find(nullptr);
    std::vector<std::max_align_t> memory(size_t(vfs->szOsFile) / sizeof(std::max_align_t) + 1);
    auto* file = reinterpret_cast<sqlite3_file*>(memory.data());
    // SQLite expects a file name of its own kind, with empty parameters behind it.
    const QByteArray full = name + QByteArray(4, '\0');
    int result = vfs->xOpen(vfs, full.constData(), file, SQLITE_OPEN_READONLY | SQLITE_OPEN_MAIN_DB, nullptr);
    if (result == SQLITE_OK) {
        std::array<unsigned char, 100> bytes{};
        result = file->pMethods->xRead(file, bytes.data(), int(bytes.size()), 0);
        file->pMethods->xClose(file);
        if (result == SQLITE_IOERR_SHORT_READ)
            return {};
        if (result == SQLITE_OK) {
            constexpr std::string_view magic("SQLite format 3\0", 16);
            const unsigned application =
                unsigned(bytes[68]) << 24 | unsigned(bytes[69]) << 16 | unsigned(bytes[70]) << 8 | bytes[71];
            return {std::equal(magic.begin(), magic.end(), bytes.begin(),
                               [](char c, unsigned char b) { return static_cast<unsigned char>(c) == b; }),
                    bytes[18] == 2 || bytes[19] == 2, application};
        }
    }
    throw Error(describeSqlite(result, QString::fromUtf8(sqlite3_errstr(result)), QFile::decodeName(name)), result);
}

bool hasCategories(sqlite3* database)
{
    return !firstText(database, "SELECT 1 FROM sqlite_schema WHERE type = 'table' AND lower(name) = 'tab_category'")
                .empty();
}

// An archive that went through a dump has lost its application id. It is looked at without locks or recovery, so
// that a stranger's file stays as it is.
bool looksLikeArchive(const QByteArray& name)
{
    if (QFile::exists(QFile::decodeName(name + "-journal")) || QFile::exists(QFile::decodeName(name + "-wal")))
        return hasCategories(openFile(name, SQLITE_OPEN_READWRITE).get());
    const QByteArray address = "file:" + QUrl::toPercentEncoding(QFile::decodeName(name), "/") + "?immutable=1";
    return hasCategories(openFile(address, SQLITE_OPEN_READONLY | SQLITE_OPEN_URI).get());
}

[[noreturn]] void failUnrecognized(const QString& path)
{
    throw Error(u"Unrecognized database format '%1'."_s.arg(path), SQLITE_NOTADB);
}

Header recognize(const QString& path)
{
    const QFileInfo info(path);
    if (path.isEmpty() || !info.exists())
        throw Error(u"Could not find file '%1'."_s.arg(path), SQLITE_CANTOPEN);
    if (!info.isFile())
        throw Error(u"'%1' is not a file."_s.arg(path), SQLITE_CANTOPEN);
    const Header header = readHeader(sqliteName(path));
    if (!header.isSqlite || (header.application && header.application != applicationId))
        failUnrecognized(path);
    if (!header.application && !looksLikeArchive(sqliteName(path)))
        failUnrecognized(path);
    return header;
}

void configure(sqlite3* database)
{
    for (const int off : {SQLITE_DBCONFIG_DQS_DML, SQLITE_DBCONFIG_DQS_DDL, SQLITE_DBCONFIG_TRUSTED_SCHEMA})
        sqlite3_db_config(database, off, 0, nullptr); // "name" is a name or an error, never a text
    for (const int on : {SQLITE_DBCONFIG_ENABLE_FKEY, SQLITE_DBCONFIG_DEFENSIVE})
        sqlite3_db_config(database, on, 1, nullptr);
    installTextRules(database);
    // The deletion of the journal is synced too: with less, a power cut could take the last change back.
    runSql(database, "PRAGMA synchronous=EXTRA");
}

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

void CloseDatabase::operator()(sqlite3* database) const noexcept
{
    sqlite3_set_authorizer(database, nullptr, nullptr);
    sqlite3_progress_handler(database, 0, nullptr, nullptr);
    sqlite3_commit_hook(database, nullptr, nullptr);
    sqlite3_close_v2(database);
}

Database openUnchecked(const QString& path)
{
    return openFile(sqliteName(path), SQLITE_OPEN_READWRITE);
}

Database openArchive(const QString& path)
{
    const Header header = recognize(path);
    Database database = openUnchecked(path);
    configure(database.get());
    if (header.usesLog) // by another tool. Stays so while somebody else has the file open.
        sqlite3_exec(database.get(), "PRAGMA journal_mode=DELETE", nullptr, nullptr, nullptr);
    return database;
}

QString engineVersion()
{
    return QString::fromLatin1(sqlite3_libversion());
}

void requireArchive(const QString& path)
{
    recognize(path);
}

Database createArchive(const QString& path)
{
    createEmptyFile(path);
    try {
        Database database = openUnchecked(path);
        configure(database.get());
        runSql(database.get(),
               "PRAGMA page_size=4096; PRAGMA auto_vacuum=NONE; PRAGMA encoding='UTF-8'; PRAGMA application_id=" +
                   std::to_string(applicationId) + "; PRAGMA user_version=" + std::to_string(formatVersion));
        return database;
    } catch (...) {
        QFile::remove(path);
        throw;
    }
}

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
