// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "jet/Value.h"

#include <QDateTime>
#include <QString>

class Archive;

// The record of one to-do; the only place that reads and writes whole rows of tab_todo. Fields are plain, nothing
// validates them, and no rule ties status, percentage and the done flag. Days and the alarm are held without a time
// zone: an alarm in the hour that a change to summer time skips is kept as it is. Each method opens the archive for
// itself.
class cToDo {
public:
    explicit cToDo(Archive& archive) : m_archive(archive) { }

    qint32 ToDoID = 0;
    qint32 CategoryID = 0;
    QString ToDoName;
    QString ToDoDescription; // RTF
    QDateTime ToDoDateIn;
    QDateTime ToDoDateLastMod;
    QDate StartDate; // this one and the next three: invalid stands for Null
    QDate DueDate;
    QDate EndDate;
    jet::LocalMoment AlarmDate;
    qint16 PercentComplete = 0; // 0 to 100
    qint16 Priority = 0; // codes of modToDo
    qint16 Status = 0;
    QString Resources;
    bool AlarmOn = false;
    bool Done = false;

    // Reads row ToDoID. True also when there is no such row: the fields stay as they are then. An error gives false,
    // without a message: lastError() has it.
    bool Load();
    // Inserts a row, both dates now, and sets ToDoID to its key. An error is shown and gives false.
    bool Save();
    // Writes row ToDoID, its last date now. An error, also that the row is gone, gives false, without a message:
    // lastError() has it.
    bool Update();
    qint32 GetToDoCount(); // 0 on an error, without a message

    const QString& lastError() const { return m_lastError; }

private:
    Archive& m_archive;
    QString m_lastError;
};
