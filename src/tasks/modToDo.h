// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "archive/SqlText.h"

#include <QString>

class Archive;
class ArchiveUnit;

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

// Writes the flag and the moment of the change; status and percentage stay. On an error false, without a message:
// `error` has the text then. A to-do that is no longer in the archive is an error.
bool markToDoDone(Archive& archive, qint32 todoID, bool done, QString& error);

// One step of priority up or down, within "Lowest" and "Urgent"; none is raised to "Lowest". The moment of the change
// is written even if there was no room to move. Errors as above.
bool changeToDoPriority(Archive& archive, qint32 todoID, bool raise, QString& error);

// Sets columns of one row and stamps the change with `now`. Throws when the archive cannot be written or no longer has
// the row.
void updateToDoRow(ArchiveUnit& unit, qint32 todoID, UpdateText columns, const QDateTime& now);
