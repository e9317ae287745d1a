// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "jet/Database.h"

#include "jet/Error.h"
#include "jet/Files.h"
#include "jet/Query.h"
#include "jet/SqlFunctions.h"

#include <QFile>
#include <QFileInfo>
#include <QUrl>
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

} // namespace jet
