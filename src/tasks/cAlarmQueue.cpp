// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tasks/cAlarmQueue.h"

#include "archive/ErrorTrap.h"

#include <utility>

using namespace Qt::StringLiterals;

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
        if (m_forms.open(id, error)) {
            m_onAlert();
            return true;
        }
        if (error.isEmpty() || m_toldErrors.contains(error))
            continue;
        m_toldErrors.insert(error);
        reportError(m_questions, u"ShowAlert"_s, error);
        return true; // others worked while the message was up
    }
    return false;
}

void cAlarmQueue::clear()
{
    m_waiting.clear();
    m_toldErrors.clear();
    m_lastFailure.clear();
}
