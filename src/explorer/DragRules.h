// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "archive/cCategory.h"

#include <optional>

class Archive;

// Reorganising the archive by dragging: what may be dropped where, and the statements that move it. Everything but
// the pointer and the windows.

// What is being dragged. `kind` and `isCategory` outlive their drag: a drag of the top node changes only `dragged` and
// `text`.
struct DragState {
    std::optional<ElementKind> kind; // of the elements dragged from a list; none before the first such drag
    bool isCategory = false; // a node of the tree is dragged, no elements
    qint32 dragged = 0; // the category dragged within the tree
    QString text; // its name
    bool inProgress = false;
};

// Empty when the drop is allowed, else the message (with the exclamation icon) that refuses it.
QString dropRefusal(const DragState& drag, const CategoryNode& target, const CategoryTree& tree);

// Whether the category `destination` lies anywhere below `source`. None lies below itself. Any depth.
bool IsParentNode(const CategoryTree& tree, qint32 source, qint32 destination);

// Files the elements of a list that idList() built in another category; only their category column changes.
// They throw jet::Error, and nothing is moved then.
void ChangeMemoCategory(Archive& archive, const QString& ids, qint32 target);
void ChangeBookmarkCategory(Archive& archive, const QString& ids, qint32 target);
void ChangeToDoCategory(Archive& archive, const QString& ids, qint32 target);

// Makes a category with all that is below it a child of another one, 0 for the top. The caller has asked
// dropRefusal() first. Throws jet::Error, and nothing is moved then.
void ChangeCategoryParent(Archive& archive, qint32 dragged, qint32 target);
