// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "archive/ElementRecord.h"

// Days and the alarm are held without a time zone: an alarm in the hour that a change to summer time skips is kept as
// it is.
struct ToDoFields {
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
};

// The record of one to-do; the only place that reads and writes whole rows of tab_todo. No rule ties status,
// percentage and the done flag.
class cToDo final : public ElementRecord, public ToDoFields {
public:
    explicit cToDo(Archive& archive) : ElementRecord(archive, QStringLiteral("to-do")) { }

    qint32& key() override { return ToDoID; }
    void clear() override { static_cast<ToDoFields&>(*this) = {}; }
    bool Load() override;
    bool Save() override;
    bool Update() override;
    qint32 GetToDoCount(); // 0 on an error, without a message
};
