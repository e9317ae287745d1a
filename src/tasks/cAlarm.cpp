// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tasks/cAlarm.h"

#include "archive/Archive.h"
#include "archive/ErrorTrap.h"
#include "desktop/Clock.h"
#include "tasks/cAlarmQueue.h"
#include "tasks/modToDo.h"

#include <tuple>

using namespace Qt::StringLiterals;

namespace {

jet::LocalMoment moment(const QDateTime& time)
{
    return {time.date(), time.time()};
}

} // namespace

void cAlarm::Alarm()
{
    QList<qint32> due;
    QString error;
    // All rows are read before the first window opens: an answer must find the archive free to write to.
    const bool done = keepError(error, [&] {
        ArchiveUnit unit(m_archive);
        jet::Recordset rows =
            unit.Open(u"SELECT * FROM tab_ToDo WHERE tab_ToDo.alarmOn <> 0  AND  tab_ToDo.alarmDate < #"_s +
                      sqlDateTime(moment(m_archive.clock().now())) + u"# "_s);
        if (rows.eof())
            return;
        for (const int key = rows.index(u"todoID"_s); !rows.eof(); rows.moveNext())
            due.append(qint32(rows.integer(key)));
    });
    if (done)
        m_queue.setDue(due);
    else
        m_queue.checkFailed(error);
}

std::optional<AlarmRow> readAlarm(Archive& archive, qint32 todoID)
{
    ArchiveUnit unit(archive);
    const jet::Recordset row =
        unit.Open(u" SELECT * FROM tab_ToDo WHERE tab_ToDo.todoID = "_s + QString::number(todoID) + u" "_s);
    if (row.eof())
        return std::nullopt;
    AlarmRow alarm{row.text(u"name"_s), row.moment(row.index(u"alarmDate"_s)), false};
    const jet::LocalMoment now = moment(archive.clock().now());
    alarm.isDue =
        row.boolean(u"alarmOn"_s) && std::tie(alarm.moment.date, alarm.moment.time) <= std::tie(now.date, now.time);
    return alarm;
}

void UpdateAlarm(Archive& archive, qint32 todoID, const std::optional<jet::LocalMoment>& next)
{
    ArchiveUnit unit(archive);
    UpdateText columns(u"tab_ToDo"_s);
    columns.set(u"tab_todo.alarmOn"_s, next ? 1 : 0);
    columns.setDate(u"tab_todo.alarmDate"_s, next ? sqlDateTime(*next) : QString());
    updateToDoRow(unit, todoID, columns, archive.clock().now());
}
