// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

class Archive;
class CategoryTree;

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
