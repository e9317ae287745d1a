// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "archive/cCategory.h"
#include "jet/Value.h"

#include <optional>
#include <vector>

class Archive;

// What the explorer shows of the archive: the categories in its tree, the elements of one category in its lists.
// All that reads or writes throws jet::Error.

// A category with its parent, as the tree is built from them.
struct CategoryRow {
    CategoryNode node;
    qint32 parentID = 0;
};
struct CategoryRows {
    std::vector<CategoryRow> reached; // from the top: parents before children, brothers in name order
    qint64 hidden = 0; // how many cannot be reached: their parent is missing, or they lie below themselves
};
CategoryRows readCategories(Archive& archive);

// A moment without time zone arithmetic, small enough to keep two for each of 100,000 rows.
struct PackedMoment {
    qint32 julianDay = 0; // 0: no date
    qint32 second = 0; // of the day
};
QString shortDate(PackedMoment moment); // "Short Date" of the user's locale; "" for no date
QString shortMoment(PackedMoment moment); // "Short Date" and "Short Time" with a blank between

struct MemoRow {
    qint32 id = 0;
    QString name;
    PackedMoment dateIn;
    PackedMoment dateLastMod;
};
struct BookmarkRow {
    qint32 id = 0;
    QString name;
    QString url;
    QString description; // on one line: each line break is " - "
};
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

// The elements of a category in the archive's order.
std::vector<MemoRow> readMemoRows(Archive& archive, qint32 categoryID);
std::vector<BookmarkRow> readBookmarkRows(Archive& archive, qint32 categoryID);
std::vector<ToDoRow> readToDoRows(Archive& archive, qint32 categoryID);

// Deletes the elements of a list that idList() built; after an error all are still there.
void deleteElements(Archive& archive, ElementKind kind, const QString& ids);
