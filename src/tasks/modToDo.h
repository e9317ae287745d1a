// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "archive/SqlText.h"

class Archive;

// What all that works with to-dos shares: the codes and the writers of single columns.

inline constexpr qint16 PriorityLowest = 1; // 0: none
inline constexpr qint16 PriorityUrgent = 6;
inline constexpr qint16 StatusCompleted = 3; // 0: none
inline constexpr qint16 StatusCancelled = 5;

// The text of a code ("Lowest", "In progress") and the key of its picture ("lowest", "inprogress"). Both are empty
// for 0 and for a code that is none.
QString priorityText(int code);
QString statusText(int code);
QString priorityImage(int code);
QString statusImage(int code);

// The rest throws when the archive cannot be written or no longer has the to-do.

// Writes the flag and the moment of the change; status and percentage stay.
void markToDoDone(Archive& archive, qint32 todoID, bool done);

// One step of priority up or down, within "Lowest" and "Urgent"; none is raised to "Lowest". The moment of the change
// is written even if there was no room to move.
void changeToDoPriority(Archive& archive, qint32 todoID, bool raise);

// Sets columns of one row, and the moment of the change.
void updateToDoRow(Archive& archive, qint32 todoID, const UpdateText& columns);

// The statement behind it.
QString toDoUpdate(UpdateText columns, qint32 todoID, const QDateTime& now);
