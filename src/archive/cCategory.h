// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "archive/Element.h"

#include <vector>

class Archive;

// The node of a category in the tree.
struct CategoryNode {
    qint32 id = 0; // 0 for the top
    ElementKind kind = ElementKind::Memo;
    QString text;

    QString key() const { return QString::number(id) + QStringLiteral(" ID"); }
    QString tag() const { return id == 0 ? QStringLiteral("root") : wordsOf(kind).categoryTag; }
};

// The tree of categories as the category record and its editor see it. Nodes go by the number of their category.
class CategoryTree {
public:
    virtual ~CategoryTree() = default;
    virtual const CategoryNode* selectedNode() const = 0; // null when none is selected
    virtual std::vector<qint32> childrenOf(qint32 categoryID) const = 0; // in tree order; none for an unknown one
    virtual void renameNode(qint32 categoryID, const QString& text) = 0; // its siblings are sorted again
    virtual void addNode(qint32 parentID, const CategoryNode& node) = 0; // sorted in, then selected
    virtual void clickSelectedNode() = 0; // shows the selected category as a click does
};

// The record of one category, and at the same time the program's current category: the explorer fills it on
// each click, the category editor works on it. Fields are plain, nothing validates them. Load, Save, Update and
// Delete open the archive for themselves; on an error they show it and return false.
class cCategory {
public:
    explicit cCategory(Archive& archive) : m_archive(archive) { }

    qint16 EditingMode = 0; // -1: an existing category, 0: a new one; never stored
    qint32 CategoryParentID = 0;
    qint16 CategoryType = 0; // an ElementKind
    QString CategoryName;
    QString CategoryIDsPath; // filled by TraverseTree; never stored
    QString CategoryDescription;
    qint32 CategoryID = 0;

    bool Load(); // of CategoryID; fields stay as they are when there is no such row
    bool Save(); // a new row; CategoryID becomes its key
    bool Update(); // type, name and description; never the parent
    bool Delete(const QString& idsPath); // comma-separated keys; the elements filed in them go too

    // Appends "," and the key of each descendant of the node, depth first, to CategoryIDsPath.
    void TraverseTree(const CategoryTree& tree, const QString& key);

private:
    Archive& m_archive;
};
