// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "jet/Value.h"

#include <QString>
#include <optional>

class Archive;
class cAlarmQueue;

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
