// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tasks/modToDo.h"

#include "archive/Archive.h"
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

qint64 storedPriority(Archive& archive, qint32 todoID)
{
    ArchiveUnit unit(archive);
    const jet::Recordset row = unit.Open(u" SELECT * FROM tab_todo  WHERE todoID = %1 "_s.arg(todoID));
    return row.eof() ? 0 : row.integer(u"priority"_s); // 0 for Null
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

QString toDoUpdate(UpdateText columns, qint32 todoID, const QDateTime& now)
{
    columns.set(u"tab_ToDo.dateLastMod"_s, changeMoment(now));
    return columns.where(u"tab_ToDo.ToDoID"_s, todoID, u"  "_s);
}

void updateToDoRow(Archive& archive, qint32 todoID, const UpdateText& columns)
{
    if (ArchiveUnit(archive).Execute(toDoUpdate(columns, todoID, archive.clock().now())) == 0)
        throw std::runtime_error("The to-do is no longer in the archive."); // another program deleted it
}

void markToDoDone(Archive& archive, qint32 todoID, bool done)
{
    updateToDoRow(archive, todoID, UpdateText(u"tab_ToDo"_s).setFlag(u"tab_todo.done"_s, done));
}

void changeToDoPriority(Archive& archive, qint32 todoID, bool raise)
{
    qint64 priority = storedPriority(archive, todoID);
    if (raise && priority < PriorityUrgent)
        ++priority;
    else if (!raise && priority > PriorityLowest)
        --priority;
    updateToDoRow(archive, todoID, UpdateText(u"tab_ToDo"_s, u" ,  "_s).set(u"tab_todo.priority"_s, priority));
}
