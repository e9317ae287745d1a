// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDateTime>
#include <QString>
#include <vector>

class Archive;

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

// Appends the four groups, each counted from its own present moment: overdue, due this second, due in 1 to 7 days, in
// 7 to 28 days. What is due later today is in no group, what is due in exactly 7 days in two: the moments are compared
// as they are, not day by day. Throws jet::Error; the groups read until then stay in `groups`.
void readDueGroups(Archive& archive, std::vector<DueGroup>& groups);
