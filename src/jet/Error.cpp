// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "jet/Error.h"

#include <QFile>
#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace jet {
namespace {

QString describeConstraint(int code, const QString& engineText)
{
    const QString detail = u" ("_s + engineText + u')';
    switch (code) {
    case SQLITE_CONSTRAINT_COMMITHOOK: // see Connection::State
        return u"The changes were taken back after an error."_s;
    case SQLITE_CONSTRAINT_FOREIGNKEY:
        return u"You cannot add or change a record because a related record is required in another table."_s + detail;
    case SQLITE_CONSTRAINT_UNIQUE:
    case SQLITE_CONSTRAINT_PRIMARYKEY:
    case SQLITE_CONSTRAINT_ROWID:
        return u"The changes would create duplicate values in an index or a key."_s + detail;
    case SQLITE_CONSTRAINT_NOTNULL:
        return u"A required field is empty."_s + detail;
    default:
        return u"A value is not allowed in its field."_s + detail;
    }
}

QString describeReadOnly(int code, const QString& file)
{
    if (code == SQLITE_READONLY_DBMOVED)
        return u"The archive %1 was replaced or moved by another program. Nothing was changed; please try again."_s.arg(
            file);
    return u"The archive %1 cannot be changed: the file or its folder is write-protected."_s.arg(file);
}

} // namespace

Error::Error(const QString& description, int sqliteCode)
    : std::runtime_error((description.isEmpty() ? u"Unknown error of the archive"_s : description).toStdString()),
      m_code(sqliteCode)
{
}

void fail(const std::string& description)
{
    throw Error(QString::fromStdString(description));
}

QString describeSqlite(int code, const QString& engineText, const QString& path)
{
    const QString file = u'\'' + path + u'\'';
    switch (code & 0xFF) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        return u"The archive %1 is in use by another program. Please try again in a moment."_s.arg(file);
    case SQLITE_FULL:
        return u"The disk is full. Nothing was changed in the archive %1."_s.arg(file);
    case SQLITE_IOERR:
        return u"The archive %1 could not be read or written (%2). The disk may be full, damaged or no longer connected."_s
            .arg(file, engineText);
    case SQLITE_READONLY:
        return describeReadOnly(code, file);
    case SQLITE_CANTOPEN:
    case SQLITE_PERM:
        return u"The archive %1 could not be opened. Please check that you may read and write the file and its folder."_s
            .arg(file);
    case SQLITE_CORRUPT:
        return u"The archive %1 is damaged. Use Tools > Compact and repair to save what can be read. (%2)"_s.arg(
            file, engineText);
    case SQLITE_NOTADB:
        return u"Unrecognized database format %1."_s.arg(file);
    case SQLITE_CONSTRAINT:
        return describeConstraint(code, engineText);
    case SQLITE_INTERRUPT:
        return u"The operation was stopped."_s;
    case SQLITE_AUTH:
        return u"This statement is not allowed. (%1)"_s.arg(engineText);
    case SQLITE_NOMEM:
        return u"There is not enough memory for this operation."_s;
    case SQLITE_TOOBIG:
        return u"A value or the statement is too long."_s;
    default:
        return engineText.isEmpty() ? QString::fromUtf8(sqlite3_errstr(code)) : engineText;
    }
}

void throwSqliteError(sqlite3* database, int code)
{
    QString text = QString::fromUtf8(sqlite3_errstr(code)), path;
    if (database) {
        const int last = sqlite3_extended_errcode(database);
        if ((last & 0xFF) == (code & 0xFF)) {
            code = last;
            text = QString::fromUtf8(sqlite3_errmsg(database));
        }
        if (const char* name = sqlite3_db_filename(database, "main"))
            path = QFile::decodeName(name);
    }
    throw Error(describeSqlite(code, text, path), code);
}

} // namespace jet
