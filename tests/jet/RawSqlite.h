// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QtTest>
#include <sqlite3.h>

// What another program may do to an archive: plain SQLite without any of our rules.
class RawSqlite {
public:
    explicit RawSqlite(const QString& path) { sqlite3_open(QFile::encodeName(path).constData(), &m_database); }
    ~RawSqlite() { sqlite3_close(m_database); }
    RawSqlite(const RawSqlite&) = delete;
    RawSqlite& operator=(const RawSqlite&) = delete;

    int run(const char* sql) { return sqlite3_exec(m_database, sql, nullptr, nullptr, nullptr); }
    QByteArray first(const char* sql)
    {
        QByteArray result;
        const auto keep = [](void* to, int, char** texts, char**) {
            *static_cast<QByteArray*>(to) = texts[0];
            return 1;
        };
        sqlite3_exec(m_database, sql, keep, &result, nullptr);
        return result;
    }

private:
    sqlite3* m_database = nullptr;
};

inline QByteArray bytesOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

inline void writeBytes(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}

// Every name in the folder with its content: equal when nothing was written there.
inline QStringList stateOf(const QString& folder)
{
    QStringList state;
    const QFileInfoList entries =
        QDir(folder).entryInfoList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Name);
    for (const QFileInfo& entry : entries)
        state.append(
            entry.fileName() + u' ' +
            QString::fromLatin1(QCryptographicHash::hash(bytesOf(entry.filePath()), QCryptographicHash::Sha1).toHex()));
    return state;
}
