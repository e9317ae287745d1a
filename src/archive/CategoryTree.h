// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "archive/Element.h"

#include <QString>
#include <QStringList>

// The node of a category in the tree.
struct CategoryNode {
    qint32 id = 0; // 0 for the root
    ElementKind kind = ElementKind::Memo;
    QString text;

    QString key() const { return QString::number(id) + QStringLiteral(" ID"); }
    QString tag() const; // "root", "category", "bookmark", "todo"
    QString image() const; // the same word
    QString selectedImage() const; // "categoryOpen" for a memo category
};

// The tree of categories as the category record and its editor see it. Nodes go by their keys ("12 ID").
class CategoryTree {
public:
    virtual ~CategoryTree() = default;
    virtual QString selectedKey() const = 0; // empty when no node is selected
    virtual QString selectedTag() const = 0;
    virtual QStringList childKeys(const QString& key) const = 0; // in tree order; empty for an unknown key
    virtual void renameNode(const QString& key, const QString& text) = 0; // its siblings are sorted again
    virtual void addNode(const QString& parentKey, const CategoryNode& node) = 0; // sorted in, then selected
    virtual void clickSelectedNode() = 0; // shows the selected category as a click does
};
