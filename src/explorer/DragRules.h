// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

class Archive;
class CategoryTree;

// Reorganising the archive by dragging: what may be dropped where, and the statements that move it. Everything but
// the pointer and the windows.

enum class DragSource { None, Memo, Bookmark, ToDo, Category };

// What is being dragged. `source` outlives its drag: a drag of the top node changes only `dragged` and `text`.
struct DragState {
    DragSource source = DragSource::None;
    qint32 dragged = 0; // the category dragged within the tree
    QString text; // its name
    bool inProgress = false;
};

// The node that the pointer is over.
struct DropTarget {
    QString key; // "12 ID", the top is "0 ID"
    QString tag; // "root", "category", "bookmark", "todo"
};

// Empty when the drop is allowed, else the message (with the exclamation icon) that refuses it.
QString dropRefusal(const DragState& drag, const DropTarget& target, const CategoryTree& tree);

// Whether `destination` lies anywhere below `source`; both are keys. A node does not lie below itself. Any depth.
bool IsParentNode(const CategoryTree& tree, const QString& source, const QString& destination);

// Files the elements of a list that idList() built in another category; only their category column changes.
// They throw jet::Error, and nothing is moved then.
void ChangeMemoCategory(Archive& archive, const QString& ids, qint32 target);
void ChangeBookmarkCategory(Archive& archive, const QString& ids, qint32 target);
void ChangeToDoCategory(Archive& archive, const QString& ids, qint32 target);
// Makes a category with all that is below it a child of another one, 0 for the top. The caller has asked
// dropRefusal() first. Throws jet::Error, and nothing is moved then.
void ChangeCategoryParent(Archive& archive, qint32 dragged, qint32 target);
