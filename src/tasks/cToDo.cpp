// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tasks/cToDo.h"

#include "archive/Archive.h"
#include "archive/ErrorTrap.h"
#include "desktop/Clock.h"
#include "tasks/modToDo.h"

#include <algorithm>
#include <limits>
#include <type_traits>

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
    return keepError(m_lastError, [&] {
        ArchiveUnit unit(m_archive);
        const jet::Recordset row =
            unit.Open(u" SELECT * FROM tab_todo  WHERE todoID = "_s + QString::number(ToDoID) + u" "_s);
        if (row.eof())
            return;
        const auto number = [&](const QString& column, auto& field) {
            using Field = std::remove_reference_t<decltype(field)>;
            using Range = std::numeric_limits<Field>; // another program may have written more than fits
            if (!row.isNull(column))
                field = Field(std::clamp<qint64>(row.integer(column), Range::min(), Range::max()));
        };
        const auto moment = [&](const QString& column) { return row.moment(row.index(column)); };
        number(u"ToDoID"_s, ToDoID);
        number(u"categoryID"_s, CategoryID);
        ToDoName = row.text(u"name"_s);
        ToDoDescription = row.text(u"description"_s);
        if (!row.isNull(u"dateIn"_s))
            ToDoDateIn = row.dateTime(u"dateIn"_s);
        if (!row.isNull(u"dateLastMod"_s))
            ToDoDateLastMod = row.dateTime(u"dateLastMod"_s);
        StartDate = moment(u"startDate"_s).date;
        DueDate = moment(u"dueDate"_s).date;
        EndDate = moment(u"endDate"_s).date;
        AlarmDate = moment(u"alarmDate"_s);
        number(u"percentComplete"_s, PercentComplete);
        number(u"priority"_s, Priority);
        number(u"status"_s, Status);
        Resources = row.text(u"resources"_s);
        AlarmOn = row.boolean(u"alarmOn"_s);
        Done = row.boolean(u"done"_s);
    });
}

bool cToDo::Save()
{
    return trapErrors(m_archive.questions(), u"ToDo.Save"_s, [&] {
        ArchiveUnit unit(m_archive);
        jet::Recordset row = unit.Open(u"SELECT * FROM tab_ToDo where 1=2 "_s);
        const QString now = FormatDateSQL(m_archive.clock().now());
        row.AddNew({u"categoryID"_s, u"name"_s, u"description"_s, u"dateIn"_s, u"dateLastMod"_s, u"startDate"_s,
                    u"dueDate"_s, u"endDate"_s, u"alarmOn"_s, u"alarmDate"_s, u"percentComplete"_s, u"priority"_s,
                    u"status"_s, u"resources"_s, u"done"_s},
                   {qint64(CategoryID), ToDoName, ToDoDescription, now, now, valueOrNull(sqlDate(StartDate)),
                    valueOrNull(sqlDate(DueDate)), valueOrNull(sqlDate(EndDate)), AlarmOn,
                    valueOrNull(sqlDateTime(AlarmDate)), qint64(PercentComplete), qint64(Priority), qint64(Status),
                    Resources, Done});
        row.Update();
        ToDoID = qint32(row.integer(u"ToDoID"_s));
    });
}

bool cToDo::Update()
{
    return keepError(m_lastError, [&] {
        ArchiveUnit unit(m_archive);
        updateToDoRow(unit, ToDoID,
                      UpdateText(u"tab_ToDo"_s)
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
                      m_archive.clock().now());
    });
}

qint32 cToDo::GetToDoCount()
{
    qint32 count = 0;
    keepError(m_lastError, [&] {
        ArchiveUnit unit(m_archive);
        count = qint32(unit.Open(u"SELECT COUNT(todoID) AS ToDoCount FROM tab_todo  "_s).integer(u"ToDoCount"_s));
    });
    return count;
}
