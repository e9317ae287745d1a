// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "jet/Maintenance.h"

#include "jet/Database.h"
#include "jet/Dialect.h"
#include "jet/Error.h"
#include "jet/Files.h"
#include "jet/Query.h"
#include "jet/Salvage.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>
#include <sqlite3.h>
#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace jet {
namespace {

// What SQLite may keep beside a file while it works on it.
const QStringList& sideSuffixes()
{
    static const QStringList suffixes{u"-journal"_s, u"-wal"_s, u"-shm"_s};
    return suffixes;
}

void removeSideFiles(const QString& path)
{
    for (const QString& suffix : sideSuffixes())
        removeFile(path + suffix);
}

// A file that is made beside its final place and vanishes unless it was moved there.
class WorkFile {
public:
    explicit WorkFile(const QString& path) : m_path(path) { remove(); }
    ~WorkFile()
    {
        try {
            if (!m_path.isEmpty())
                remove();
        } catch (const Error&) {
        } // nothing more can be done; the next run removes it first
    }
    WorkFile(const WorkFile&) = delete;
    WorkFile& operator=(const WorkFile&) = delete;

    const QString& path() const { return m_path; }
    void remove() const
    {
        removeFile(m_path);
        removeSideFiles(m_path);
    }
    void moveTo(const QString& target)
    {
        syncFile(m_path);
        removeSideFiles(m_path); // it was verified without them
        removeSideFiles(target); // nothing of the old file's may be played back into the new one
        replaceFile(m_path, target);
        syncFolderOf(target);
        m_path.clear();
    }

private:
    QString m_path;
};

// Keeps every other program out, rolls back what one of them has left undone.
void lock(sqlite3* database)
{
    runSql(database, "PRAGMA locking_mode=EXCLUSIVE; BEGIN EXCLUSIVE; COMMIT");
}

bool isRowMessage(std::string_view message)
{
    // A value against a rule of its column, not damage: the row can be read and is copied as it is.
    return message.starts_with("CHECK constraint failed") || message.starts_with("NULL value in ") ||
        message.starts_with("TEXT value in ") || message.starts_with("NUMERIC value in ") ||
        message.starts_with("non-unique entry");
}

bool isDamaged(sqlite3* database)
{
    try {
        Query check(database, "PRAGMA quick_check(100000)");
        while (check.step())
            if (check.text(0) != "ok" && !isRowMessage(check.text(0)))
                return true;
        return false;
    } catch (const Error& error) {
        if ((error.code() & 0xFF) != SQLITE_CORRUPT)
            throw;
        return true;
    }
}

std::vector<std::string> tableNames(sqlite3* database)
{
    std::vector<std::string> names;
    Query query(database, "SELECT name FROM sqlite_schema WHERE type = 'table' ORDER BY name");
    while (query.step())
        names.emplace_back(query.text(0));
    return names;
}

void verify(sqlite3* archive, const QString& copyPath)
{
    const Database copy = openUnchecked(copyPath);
    const std::vector<std::string> tables = tableNames(archive);
    bool right = !isDamaged(copy.get()) && tableNames(copy.get()) == tables;
    for (const std::string& table : tables) {
        const std::string count = "SELECT count(*) FROM " + quotedName(table);
        right = right && firstText(copy.get(), count) == firstText(archive, count);
    }
    if (!right)
        throw Error(u"The compacted copy is not right; the archive was left as it is."_s);
}

void requireRoom(sqlite3* database, const QString& path)
{
    const auto number = [&](const char* sql) { return QString::fromStdString(firstText(database, sql)).toLongLong(); };
    const qint64 needed = (number("PRAGMA page_count") - number("PRAGMA freelist_count")) * number("PRAGMA page_size");
    if (const qint64 free = freeBytesBeside(path); free >= 0 && free < needed)
        throw Error(describeSqlite(SQLITE_FULL, {}, path), SQLITE_FULL);
}

// False when the archive turned out to be damaged; nothing was changed then.
bool compactSound(const QString& archive, WorkFile& work)
{
    const Database database = openArchive(archive);
    lock(database.get());
    if (isDamaged(database.get()))
        return false;
    runSql(database.get(), "PRAGMA journal_mode=DELETE");
    requireRoom(database.get(), archive);
    Query vacuum(database.get(), "VACUUM INTO ?");
    vacuum.bind(1, QFile::encodeName(work.path()).toStdString());
    vacuum.step();
    vacuum.reset();
    verify(database.get(), work.path());
    giveModeAndOwner(archive, work.path());
    work.moveTo(archive);
    return true;
}

QString keepDamaged(const QString& archive)
{
    QString kept = archive + u".damaged"_s;
    for (int n = 2; !linkFile(archive, kept); ++n)
        kept = archive + u".damaged-%1"_s.arg(n);
    for (const QString& suffix : sideSuffixes())
        if (QFile::exists(archive + suffix))
            replaceFile(archive + suffix, kept + suffix);
    return kept;
}

QString salvage(const QString& archive, WorkFile& work)
{
    salvageArchive(archive, work.path());
    if (isDamaged(openUnchecked(work.path()).get()))
        throw Error(
            u"The archive is damaged, and what could be read of it could not be written. It was left as it is."_s);
    giveModeAndOwner(archive, work.path());
    const QString kept = keepDamaged(archive);
    work.moveTo(archive);
    return kept;
}

void requireApart(const QString& archive, const QString& other, const QString& description)
{
    bool apart = !isSameFile(archive, other) && archive != other;
    for (const QString& suffix : sideSuffixes()) // removing those must not hit the archive either
        apart = apart && !isSameFile(archive, other + suffix) && archive + suffix != other;
    if (!apart)
        throw Error(description);
    if (QFileInfo(other).isDir())
        throw Error(u"'%1' is a folder."_s.arg(other));
}

// Nobody may be in the middle of a change of the file that is about to be replaced.
Database lockReplaced(const QString& path)
{
    try {
        Database database = openArchive(path);
        lock(database.get());
        return database;
    } catch (const Error& error) {
        if ((error.code() & 0xFF) == SQLITE_BUSY || (error.code() & 0xFF) == SQLITE_READONLY)
            throw;
        return nullptr; // no archive, or a damaged one
    }
}

QString unusedNameBeside(const QString& path)
{
    const QFileInfo info(path);
    QString name;
    do {
        name = info.dir().filePath(
            u".%1.%2"_s.arg(info.fileName(), QString::number(QRandomGenerator::system()->generate(), 16)));
    } while (QFile::exists(name));
    return name;
}

void backUp(const QString& from, const QString& to)
{
    const Database source = openArchive(from);
    createEmptyFile(to);
    const Database target = openUnchecked(to);
    sqlite3_backup* backup = sqlite3_backup_init(target.get(), "main", source.get(), "main");
    if (!backup)
        throwSqliteError(target.get(), sqlite3_errcode(target.get()));
    const int result = sqlite3_backup_step(backup, -1);
    sqlite3_backup_finish(backup);
    if (result != SQLITE_DONE)
        throwSqliteError(target.get(), result);
    runSql(target.get(), "PRAGMA journal_mode=DELETE");
}

} // namespace

CompactResult compactArchive(const QString& path, const QString& temporary)
{
    const QString archive = realPath(path);
    const QString workPath = QDir(QFileInfo(archive).absolutePath()).filePath(QFileInfo(temporary).fileName());
    for (const QString& name : {temporary, workPath})
        requireApart(archive, name, u"The temporary file '%1' is the archive itself."_s.arg(name));

    requireArchive(archive); // else not even the temporary file is touched
    CompactResult result;
    result.bytesBefore = QFileInfo(archive).size();
    WorkFile work(workPath);
    try {
        result.wasDamaged = !compactSound(archive, work);
    } catch (const Error& error) {
        if ((error.code() & 0xFF) != SQLITE_CORRUPT)
            throw;
        result.wasDamaged = true;
    }
    if (result.wasDamaged) {
        work.remove();
        result.damagedCopy = salvage(archive, work);
    }
    result.bytesNow = QFileInfo(archive).size();
    return result;
}

void copyArchive(const QString& from, const QString& to)
{
    const QString source = realPath(from), target = realPath(to);
    requireApart(source, target, u"An archive cannot be copied onto itself."_s);
    WorkFile work(unusedNameBeside(target));
    backUp(source, work.path());
    if (!QFile::exists(target)) {
        work.moveTo(target);
        return;
    }
    if (!QFileInfo(target).isWritable())
        throw Error(describeSqlite(SQLITE_READONLY, {}, target), SQLITE_READONLY);
    const Database replaced = lockReplaced(target);
    giveModeAndOwner(target, work.path());
    work.moveTo(target);
}

bool isSameFile(const QString& a, const QString& b)
{
    struct stat first {
    }, second{};
    return stat(QFile::encodeName(a).constData(), &first) == 0 &&
        stat(QFile::encodeName(b).constData(), &second) == 0 && first.st_dev == second.st_dev &&
        first.st_ino == second.st_ino;
}

} // namespace jet
