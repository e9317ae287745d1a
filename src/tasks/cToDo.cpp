// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tasks/cToDo.h"

#include "archive/Archive.h"
#include "archive/ErrorTrap.h"
#include "archive/SqlText.h"
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

QString textAssignment(const QString& column, const QString& text)
{
    return u"tab_todo."_s + column + u" = '"_s + quoted(text) + u"' , "_s;
}

// The text of a date, or "" for Null.
QString dateAssignment(const QString& column, const QString& text)
{
    return u"tab_todo."_s + column + (text.isEmpty() ? u" = Null ,  "_s : u" = '"_s + text + u"' , "_s);
}

QString numberAssignment(const QString& column, qint32 number)
{
    return u"tab_todo."_s + column + u" = "_s + QString::number(number) + u" , "_s;
}

} // namespace

bool cToDo::Load()
{
    return keepError(m_lastError, [&] {
        ArchiveUnit unit(m_archive);
        const jet::Recordset row =
            unit.Open(u" SELECT * FROM tab_todo "_s + u" WHERE todoID = "_s + QString::number(ToDoID) + u" "_s);
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

QString cToDo::assignments() const
{
    return numberAssignment(u"categoryID"_s, CategoryID) + //
        textAssignment(u"name"_s, ToDoName) + //
        textAssignment(u"description"_s, ToDoDescription) + //
        dateAssignment(u"startDate"_s, sqlDate(StartDate)) + //
        dateAssignment(u"dueDate"_s, sqlDate(DueDate)) + //
        dateAssignment(u"endDate"_s, sqlDate(EndDate)) + //
        flagAssignment(u"alarmOn"_s, AlarmOn) + //
        dateAssignment(u"alarmDate"_s, sqlDateTime(AlarmDate)) + //
        numberAssignment(u"percentComplete"_s, PercentComplete) + //
        numberAssignment(u"priority"_s, Priority) + //
        numberAssignment(u"status"_s, Status) + //
        textAssignment(u"resources"_s, Resources) + //
        flagAssignment(u"done"_s, Done);
}

bool cToDo::Update()
{
    return keepError(m_lastError, [&] {
        ArchiveUnit unit(m_archive);
        updateToDoRow(unit, ToDoID, assignments(), m_archive.clock().now());
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
