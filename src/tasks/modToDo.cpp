// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tasks/modToDo.h"

#include "archive/Archive.h"
#include "archive/ErrorTrap.h"
#include "desktop/Clock.h"

#include <array>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

constexpr std::array<QStringView, 7> priorities = {u"", u"Lowest", u"Low", u"Normal", u"High", u"Highest", u"Urgent"};
constexpr std::array<QStringView, 6> statuses = {u"",          u"Created", u"In progress",
                                                 u"Completed", u"Paused",  u"Cancelled"};

template <size_t size>
QString textOf(const std::array<QStringView, size>& texts, int code)
{
    return code > 0 && size_t(code) < size ? texts[size_t(code)].toString() : QString();
}

QString imageOf(const QString& text)
{
    return text.toLower().remove(u' ');
}

// The other form in which a moment stands in a statement: fixed width, read as the same moment whatever order of day
// and month the user's region has.
QString changeMoment(const QDateTime& now)
{
    return now.toString(u"yyyy-MM-dd HH:mm:ss");
}

} // namespace

QString priorityText(int code)
{
    return textOf(priorities, code);
}

QString statusText(int code)
{
    return textOf(statuses, code);
}

QString priorityImage(int code)
{
    return imageOf(priorityText(code));
}

QString statusImage(int code)
{
    return imageOf(statusText(code));
}

QString sqlDate(const QDate& date)
{
    return date.isValid() ? u"%1-%2-%3"_s.arg(date.year()).arg(date.month()).arg(date.day()) : QString();
}

QString sqlTime(const QTime& time)
{
    return time.isValid() ? u"%1:%2:%3"_s.arg(time.hour()).arg(time.minute()).arg(time.second()) : QString();
}

QString sqlDateTime(const jet::LocalMoment& moment)
{
    return moment.isValid() ? sqlDate(moment.date) + u' ' + sqlTime(moment.time) : QString();
}

QString flagAssignment(const QString& column, bool on)
{
    return u"tab_todo."_s + column + (on ? u" = 1 ,  "_s : u" = 0 ,  "_s);
}

void updateToDoRow(ArchiveUnit& unit, qint32 todoID, const QString& assignments, const QDateTime& now)
{
    const int rows = unit.Execute(u"UPDATE tab_ToDo SET "_s + assignments + //
                                  u"tab_ToDo.dateLastMod = '"_s + changeMoment(now) + u"'  "_s + //
                                  u"WHERE (tab_ToDo.ToDoID = "_s + QString::number(todoID) + u" ) "_s);
    if (rows == 0) // another program deleted it: the change must not count as saved
        throw std::runtime_error("The to-do is no longer in the archive.");
}

bool markToDoDone(Archive& archive, qint32 todoID, bool done, QString& error)
{
    return keepError(error, [&] {
        ArchiveUnit unit(archive);
        updateToDoRow(unit, todoID, flagAssignment(u"done"_s, done), archive.clock().now());
    });
}

bool changeToDoPriority(Archive& archive, qint32 todoID, bool raise, QString& error)
{
    return keepError(error, [&] {
        ArchiveUnit unit(archive);
        qint64 priority = 0;
        {
            const jet::Recordset row =
                unit.Open(u" SELECT * FROM tab_todo "_s + u" WHERE todoID = "_s + QString::number(todoID) + u" "_s);
            if (!row.eof())
                priority = row.integer(u"priority"_s); // 0 for Null
        }
        if (raise && priority < PriorityUrgent)
            ++priority;
        else if (!raise && priority > PriorityLowest)
            --priority;
        updateToDoRow(unit, todoID, u"tab_todo.priority = "_s + QString::number(priority) + u" ,  "_s,
                      archive.clock().now());
    });
}
