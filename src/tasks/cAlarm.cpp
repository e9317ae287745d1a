// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tasks/cAlarm.h"

#include "archive/Archive.h"
#include "archive/ErrorTrap.h"
#include "archive/SqlText.h"
#include "desktop/Clock.h"
#include "tasks/modToDo.h"

#include <tuple>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

jet::LocalMoment presentMoment(const Archive& archive)
{
    const QDateTime now = archive.clock().now();
    return {now.date(), now.time()};
}

// All rows are read before the first window opens: an answer must find the archive free to write to.
QList<qint32> dueToDos(Archive& archive)
{
    QList<qint32> due;
    ArchiveUnit unit(archive);
    jet::Recordset rows =
        unit.Open(u"SELECT * FROM tab_ToDo WHERE tab_ToDo.alarmOn <> 0  AND  tab_ToDo.alarmDate < #%1# "_s.arg(
            sqlDateTime(presentMoment(archive))));
    for (; !rows.eof(); rows.moveNext())
        due.append(qint32(rows.integer(u"todoID"_s)));
    return due;
}

} // namespace

std::optional<AlarmRow> readAlarm(Archive& archive, qint32 todoID)
{
    ArchiveUnit unit(archive);
    const jet::Recordset row = unit.Open(u" SELECT * FROM tab_ToDo WHERE tab_ToDo.todoID = %1 "_s.arg(todoID));
    if (row.eof())
        return std::nullopt;
    AlarmRow alarm{row.text(u"name"_s), row.moment(row.index(u"alarmDate"_s)), false};
    const jet::LocalMoment now = presentMoment(archive);
    alarm.isDue =
        row.boolean(u"alarmOn"_s) && std::tie(alarm.moment.date, alarm.moment.time) <= std::tie(now.date, now.time);
    return alarm;
}

void UpdateAlarm(Archive& archive, qint32 todoID, const std::optional<jet::LocalMoment>& next)
{
    UpdateText columns(u"tab_ToDo"_s);
    columns.set(u"tab_todo.alarmOn"_s, next ? 1 : 0);
    columns.setDate(u"tab_todo.alarmDate"_s, next ? sqlDateTime(*next) : QString());
    updateToDoRow(archive, todoID, columns);
}

cAlarmQueue::cAlarmQueue(AlarmForms& forms, Questions& questions, std::function<void()> onAlert)
    : m_forms(forms), m_questions(questions), m_onAlert(std::move(onAlert))
{
}

void cAlarmQueue::setDue(const QList<qint32>& todoIDs)
{
    m_lastFailure.clear();
    const QSet<qint32> due(todoIDs.begin(), todoIDs.end());
    m_waiting.removeIf([&](qint32 id) { return !due.contains(id) || m_forms.isOpen(id); });
    const QSet<qint32> known(m_waiting.begin(), m_waiting.end());
    for (const qint32 id : todoIDs)
        if (!known.contains(id) && !m_forms.isOpen(id))
            m_waiting.append(id);
}

void cAlarmQueue::checkFailed(const QString& description)
{
    if (std::exchange(m_lastFailure, description) != description)
        reportError(m_questions, u"Alarm"_s, description);
}

bool cAlarmQueue::openNext()
{
    while (!m_waiting.isEmpty() && m_forms.hasRoom()) {
        const qint32 id = m_waiting.takeFirst();
        if (m_forms.isOpen(id))
            continue;
        QString error;
        bool isShown = false;
        keepError(error, [&] { isShown = m_forms.open(id); });
        if (isShown) {
            m_onAlert();
            return true;
        }
        if (error.isEmpty() || m_shownErrors.contains(error))
            continue;
        m_shownErrors.insert(error);
        reportError(m_questions, u"ShowAlert"_s, error);
        return true; // others worked while the message was up
    }
    return false;
}

void cAlarmQueue::clear()
{
    m_waiting.clear();
    m_shownErrors.clear();
    m_lastFailure.clear();
}

void cAlarm::Alarm()
{
    QList<qint32> due;
    QString error;
    if (keepError(error, [&] { due = dueToDos(m_archive); }))
        m_queue.setDue(due);
    else
        m_queue.checkFailed(error);
}
