// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "explorer/ListDates.h"

#include <QString>
#include <optional>
#include <vector>

class Archive;

// What a to-do shows in the list of its category.
struct ToDoRow {
    qint32 id = 0;
    bool done = false;
    bool alarmOn = false;
    QString name;
    qint16 priority = 0; // codes of modToDo
    qint16 status = 0;
    std::optional<qint16> percent; // none for Null
    PackedMoment dueDate;
};

// The to-dos of a category in the archive's order. Throws jet::Error; `rows` keeps what it held then.
void readToDoRows(Archive& archive, qint32 categoryID, std::vector<ToDoRow>& rows);

// Deletes the to-dos of a list that idList() built. Throws jet::Error; nothing is deleted then.
void deleteToDos(Archive& archive, const QString& ids);
