// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "archive/Element.h"

#include <QDateTime>
#include <array>
#include <vector>

class Archive;

// How much the archive holds.
struct Summary {
    struct Kind {
        qint64 elements = 0, categories = 0;
    };
    std::array<Kind, std::size(elementKinds)> kinds;
    qint64 passwords = 0, notes = 0;
};
Summary readSummary(Archive& archive); // throws jet::Error

// The open to-dos by how soon they are due.
struct DueToDo {
    qint32 id = 0;
    qint32 categoryID = 0;
    QString name;
    QDateTime dueDate;
};
struct DueGroup {
    QString title;
    QString image; // "urgent", "high", "normal", "low"
    std::vector<DueToDo> toDos;
};
// The four groups, each counted from its own present moment: overdue, due this second, due in 1 to 7 days, in 7 to 28
// days. What is due later today is in no group, what is due in exactly 7 days in two: the moments are compared as they
// are, not day by day. Throws jet::Error.
std::vector<DueGroup> readDueGroups(Archive& archive);
