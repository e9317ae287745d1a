// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/CoreSupport.h"

#include "jet/Connection.h"

#include <QDir>
#include <QtTest>
#include <sqlite3.h>

using namespace Qt::StringLiterals;

inline QString connectionString(const QString& path)
{
    return u"Provider=Microsoft.Jet.OLEDB.4.0;Data Source="_s + path + u';';
}

// What a failing piece of work says; "" when it did not fail.
template <typename Work>
QString errorOf(Work&& work)
{
    try {
        work();
        return {};
    } catch (const jet::Error& error) {
        return QString::fromUtf8(error.what());
    }
}

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

// Every name in the folder with its content: equal when nothing was written there.
inline QStringList stateOf(const QString& folder)
{
    QStringList state;
    for (const QFileInfo& entry : QDir(folder).entryInfoList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot))
        state.append(entry.fileName() + u' ' + QString::number(qHash(bytesOf(entry.filePath()))));
    return state;
}

// A small archive in a folder of its own, with the kinds of tables and names that the program has.
class JetFixture {
public:
    JetFixture()
    {
        connection.Create(path());
        for (const QString& sql : schema())
            connection.Execute(sql);
    }

    QString path(const QString& name = u"scratch.SVA"_s) const { return m_folder.filePath(name); }
    void reopen() { connection.Open(connectionString(path())); }

    // All columns of all rows: "1|x;2|y"
    QString rows(const QString& sql)
    {
        QStringList lines;
        for (jet::Recordset set = connection.OpenRecordset(sql); !set.eof(); set.moveNext()) {
            QStringList cells;
            for (int i = 0; i < columnsOf(sql); ++i)
                cells.append(set.isNull(i) ? u"Null"_s : set.text(i));
            lines.append(cells.join(u'|'));
        }
        return lines.join(u';');
    }
    void addMemos(int count)
    {
        jet::Connection::Transaction all(connection);
        jet::Recordset set = connection.OpenRecordset(u"SELECT * FROM tab_memo where 1=2 "_s);
        for (int i = 1; i <= count; ++i) {
            set.AddNew({u"categoryID"_s, u"memoTypeID"_s, u"memoName"_s, u"snipVale"_s, u"dateIn"_s},
                       {qint64(1), qint64(3), u"memo %1"_s.arg(i), QString(900, u'x'),
                        QDateTime(QDate(2024, 3, 7), QTime(9, 5))});
            set.Update();
        }
        all.commit();
    }

    jet::Connection connection;

private:
    static int columnsOf(const QString& sql) { return int(sql.left(sql.indexOf(u" FROM "_s)).count(u',')) + 1; }
    static QStringList schema()
    {
        const QString toCategory = u" REFERENCES tab_category (categoryID) ON UPDATE CASCADE ON DELETE CASCADE, "_s;
        return {
            u"CREATE TABLE tab_category ( categoryID COUNTER, parentID LONG, type SHORT, name TEXT(255), description LONGTEXT, CONSTRAINT ID_PK PRIMARY KEY(categoryID) )"_s,
            u"CREATE TABLE tab_memo ( memoID COUNTER, categoryID LONG CONSTRAINT RfCategory_Memo"_s + toCategory +
                u"memoTypeID LONG, memoName TEXT(255), dateIn DATETIME, dateLastMod DATETIME, openingState SHORT, memoDescription LONGTEXT, snipVale LONGTEXT, memoNotes LONGTEXT, CONSTRAINT ID_PK PRIMARY KEY(memoID) )"_s,
            u"CREATE TABLE tab_memoType ( memoTypeID LONG, name TEXT(50), lexerCode TEXT(64), enabled YESNO, visible YESNO, keywords LONGTEXT, CONSTRAINT ID_PK PRIMARY KEY (memoTypeID) )"_s,
            u"CREATE TABLE tab_style ( styleID COUNTER, lexerCode TEXT(64), fontName TEXT(50), fontSize SHORT, bold YESNO, case SHORT, CONSTRAINT ID_PK PRIMARY KEY(styleID) )"_s,
            u" CREATE TABLE tab_todo (  todoID        COUNTER,  categoryID    LONG CONSTRAINT RfCategory_Todo"_s +
                toCategory +
                u" name          TEXT(255),  description   LONGTEXT,  dateIn        DATETIME,  dateLastMod   DATETIME,  startDate     DATETIME,  dueDate       DATETIME,  endDate       DATETIME,  alarmOn       YESNO,    alarmDate     DATETIME,  priority          SHORT,  status            SHORT,  percentComplete   SHORT,  resources     LONGTEXT,  done          YESNO,  CONSTRAINT ID_PK PRIMARY KEY(todoID) )"_s,
            u"CREATE INDEX categoryID_IDX ON tab_todo (categoryID)"_s,
            u"CREATE TABLE tab_note ( noteID COUNTER, content LONGTEXT, color TEXT(16), noteDate DATETIME, CONSTRAINT ID_PK PRIMARY KEY(noteID) )"_s,
            u"CREATE TABLE tab_option ( code TEXT(64), options LONGTEXT, CONSTRAINT ID_PK PRIMARY KEY (code) )"_s,
            u"INSERT INTO tab_category (parentID, type, name) VALUES (0, 0, 'Code')"_s,
            u"INSERT INTO tab_category (parentID, type, name) VALUES (0, 2,'ToDo')"_s,
            u"INSERT INTO tab_memoType (memoTypeID, name, lexerCode, enabled) VALUES (3, 'C++', 'SCLEX_CPP', '1')"_s,
        };
    }

    QTemporaryDir m_folder;
};
