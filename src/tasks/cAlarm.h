// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "jet/Value.h"

#include <QList>
#include <QSet>
#include <QString>
#include <functional>
#include <optional>

class Archive;
class Questions;

// The reminder of one to-do.
struct AlarmRow {
    QString name;
    jet::LocalMoment moment; // invalid for Null
    bool isDue = false; // armed, and no later than now
};

// None when there is no such to-do. Throws when the archive cannot be read.
std::optional<AlarmRow> readAlarm(Archive& archive, qint32 todoID);

// Arms the reminder for the moment `next`, or disarms it without one. Throws when the archive cannot be written or the
// to-do is gone.
void UpdateAlarm(Archive& archive, qint32 todoID, const std::optional<jet::LocalMoment>& next);

// The reminders on the screen, one window a to-do.
class AlarmForms {
public:
    virtual ~AlarmForms() = default;
    virtual bool isOpen(qint32 todoID) const = 0;
    virtual bool hasRoom() const = 0; // for one more
    // Shows the reminder. False when there is nothing to remind of any more. Throws when the row cannot be read.
    virtual bool open(qint32 todoID) = 0;
};

// Brings due to-dos to the screen, one at a time, so that the window system's messages are handled in between and a
// thousand that are due at once leave the desktop usable: those without room wait for their turn. A reminder that was
// closed without an answer comes back at the back, so that each one is seen. Nothing here is stored: the archive alone
// knows what is due.
class cAlarmQueue {
public:
    // `onAlert` sounds for each window that opens. All outlive the queue.
    cAlarmQueue(AlarmForms& forms, Questions& questions, std::function<void()> onAlert);

    void setDue(const QList<qint32>& todoIDs); // all that are due now
    // A check failed. It is shown once, not at each tick, until a check succeeds again.
    void checkFailed(const QString& description);
    // Opens the next one that waits. False when none waits or there is no room.
    bool openNext();
    qsizetype waiting() const { return m_waiting.size(); }
    void clear(); // another archive

private:
    AlarmForms& m_forms;
    Questions& m_questions;
    std::function<void()> m_onAlert;
    QList<qint32> m_waiting;
    QSet<QString> m_shownErrors; // of rows: a damaged one must not be shown at each tick
    QString m_lastFailure; // of the check
};

// One check for due reminders; made for each tick of the task timer. A reminder is due when it is armed and its moment
// lies before now, however long ago: what fell into a night, a sleep of the machine or a change of its time zone is
// found by the next check. The check writes nothing: a reminder stays armed until the user answers it.
class cAlarm {
public:
    cAlarm(Archive& archive, cAlarmQueue& queue) : m_archive(archive), m_queue(queue) { }

    // Hands the due to-dos, or why they could not be read, to the queue.
    void Alarm();

private:
    Archive& m_archive;
    cAlarmQueue& m_queue;
};
