// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/CoreSupport.h"

#include "tasks/cToDo.h"

// To-dos with reminders.
struct AlarmFixture : StartedArchive {
    qint32 add(const QDateTime& alarm, bool isOn = true, const QString& name = QStringLiteral("Call O'Hara"))
    {
        cToDo todo(archive);
        todo.CategoryID = category;
        todo.ToDoName = name;
        todo.AlarmOn = isOn;
        todo.AlarmDate = {alarm.date(), alarm.time()};
        todo.Save();
        return todo.ToDoID;
    }
    void run(const QString& sql) { ArchiveUnit(archive).Execute(sql); }
    QString column(const QString& name, qint32 id)
    {
        return value(QStringLiteral("SELECT %1 FROM tab_todo WHERE todoID = %2").arg(name).arg(id));
    }
    qint32 category = value(QStringLiteral("SELECT categoryID FROM tab_category WHERE type = 2")).toInt();
};
