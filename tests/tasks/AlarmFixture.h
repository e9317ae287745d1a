// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/CoreSupport.h"

#include "archive/Archive.h"
#include "tasks/cToDo.h"

// An archive that was started once, and to-dos with reminders.
struct AlarmFixture : ArchiveFixture {
    AlarmFixture()
    {
        questions.expect(QString());
        UpdateArchiveVersion(archive);
        category = value(QStringLiteral("SELECT categoryID FROM tab_category WHERE type = 2")).toInt();
        questions.asked.clear();
        statements.clear();
    }
    qint32 add(const QDateTime& alarm, bool isOn = true, const QString& name = QStringLiteral("Call O'Hara"))
    {
        cToDo todo(archive);
        todo.CategoryID = category;
        todo.ToDoName = name;
        todo.AlarmOn = isOn;
        if (!alarm.isNull())
            todo.AlarmDate = {alarm.date(), alarm.time()};
        todo.Save();
        return todo.ToDoID;
    }
    void addMany(int count)
    {
        jet::Connection connection;
        connection.Open(archive.ConnectionString());
        jet::Connection::Transaction all(connection);
        for (int i = 0; i < count; ++i)
            connection.Execute(QStringLiteral("INSERT INTO tab_todo (categoryID, name, alarmOn, alarmDate) "
                                              "VALUES (%1, 'n%2', 1, '2026-3-1 8:0:0')")
                                   .arg(category)
                                   .arg(i + 1));
        all.commit();
    }
    void run(const QString& sql)
    {
        jet::Connection connection;
        connection.Open(archive.ConnectionString());
        connection.Execute(sql);
    }
    QString column(const QString& name, qint32 id)
    {
        return value(QStringLiteral("SELECT %1 FROM tab_todo WHERE todoID = %2").arg(name).arg(id));
    }
    qint32 category = 0;
};
