// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tasks/cToDo.h"

#include "archive/Archive.h"
#include "archive/SqlText.h"
#include "desktop/Clock.h"
#include "tasks/modToDo.h"

using namespace Qt::StringLiterals;

namespace {

// A date text as a value of a new row.
jet::Value valueOrNull(const QString& text)
{
    return text.isEmpty() ? jet::Value() : jet::Value(text);
}

} // namespace

bool cToDo::Load()
{
    return readRow(u" SELECT * FROM tab_todo  WHERE todoID = %1 "_s.arg(ToDoID), [this](const jet::Recordset& row) {
        const auto moment = [&](const QString& column) { return row.moment(row.index(column)); };
        takeColumn(row, u"ToDoID"_s, ToDoID);
        takeColumn(row, u"categoryID"_s, CategoryID);
        takeColumn(row, u"name"_s, ToDoName);
        takeColumn(row, u"description"_s, ToDoDescription);
        takeColumn(row, u"dateIn"_s, ToDoDateIn);
        takeColumn(row, u"dateLastMod"_s, ToDoDateLastMod);
        StartDate = moment(u"startDate"_s).date;
        DueDate = moment(u"dueDate"_s).date;
        EndDate = moment(u"endDate"_s).date;
        AlarmDate = moment(u"alarmDate"_s);
        takeColumn(row, u"percentComplete"_s, PercentComplete);
        takeColumn(row, u"priority"_s, Priority);
        takeColumn(row, u"status"_s, Status);
        takeColumn(row, u"resources"_s, Resources);
        AlarmOn = row.boolean(u"alarmOn"_s);
        Done = row.boolean(u"done"_s);
    });
}

bool cToDo::Save()
{
    const QString now = FormatDateSQL(m_archive.clock().now());
    return insertRow(u"ToDo.Save"_s, u"SELECT * FROM tab_ToDo where 1=2 "_s,
                     {{u"categoryID"_s, qint64(CategoryID)},
                      {u"name"_s, ToDoName},
                      {u"description"_s, ToDoDescription},
                      {u"dateIn"_s, now},
                      {u"dateLastMod"_s, now},
                      {u"startDate"_s, valueOrNull(sqlDate(StartDate))},
                      {u"dueDate"_s, valueOrNull(sqlDate(DueDate))},
                      {u"endDate"_s, valueOrNull(sqlDate(EndDate))},
                      {u"alarmOn"_s, AlarmOn},
                      {u"alarmDate"_s, valueOrNull(sqlDateTime(AlarmDate))},
                      {u"percentComplete"_s, qint64(PercentComplete)},
                      {u"priority"_s, qint64(Priority)},
                      {u"status"_s, qint64(Status)},
                      {u"resources"_s, Resources},
                      {u"done"_s, Done}},
                     u"ToDoID"_s);
}

bool cToDo::Update()
{
    return updateRow(toDoUpdate(UpdateText(u"tab_ToDo"_s)
                                    .set(u"tab_todo.categoryID"_s, CategoryID)
                                    .set(u"tab_todo.name"_s, ToDoName)
                                    .set(u"tab_todo.description"_s, ToDoDescription)
                                    .setDate(u"tab_todo.startDate"_s, sqlDate(StartDate))
                                    .setDate(u"tab_todo.dueDate"_s, sqlDate(DueDate))
                                    .setDate(u"tab_todo.endDate"_s, sqlDate(EndDate))
                                    .setFlag(u"tab_todo.alarmOn"_s, AlarmOn)
                                    .setDate(u"tab_todo.alarmDate"_s, sqlDateTime(AlarmDate))
                                    .set(u"tab_todo.percentComplete"_s, PercentComplete)
                                    .set(u"tab_todo.priority"_s, Priority)
                                    .set(u"tab_todo.status"_s, Status)
                                    .set(u"tab_todo.resources"_s, Resources)
                                    .setFlag(u"tab_todo.done"_s, Done),
                                ToDoID, m_archive.clock().now()));
}

qint32 cToDo::GetToDoCount()
{
    return count(u"SELECT COUNT(todoID) AS ToDoCount FROM tab_todo  "_s, u"ToDoCount"_s);
}
