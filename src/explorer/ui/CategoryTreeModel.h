// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "explorer/ArchiveRows.h"

#include <QAbstractItemModel>
#include <QHash>
#include <memory>
#include <span>
#include <vector>

// The category tree: one top node, "Code Root", that is no row of the archive, and the categories below it, each
// level in name order. Qt::UserRole is a node's key ("12 ID"), the role after it its tag.
class CategoryTreeModel : public QAbstractItemModel {
    Q_OBJECT
public:
    enum Role { KeyRole = Qt::UserRole, TagRole };

    explicit CategoryTreeModel(QObject* parent = nullptr);
    ~CategoryTreeModel() override;

    // Parents stand before their children; a row whose parent is unknown is left out.
    void setRows(std::span<const CategoryRow> rows);
    // Sorted in among its brothers; an invalid index when the parent is unknown or the category is there already.
    QModelIndex add(qint32 parentID, const CategoryNode& node);
    void rename(qint32 categoryID, const QString& text);
    void setSelected(const QModelIndex& index); // the node that shows its selected image

    QModelIndex rootIndex() const { return index(0, 0); } // of "Code Root"
    QModelIndex indexOf(qint32 categoryID) const; // invalid when unknown
    const CategoryNode* category(const QModelIndex& index) const; // null for an invalid index
    QString fullPath(const QModelIndex& index) const; // node texts from the top, joined by backslashes
    std::vector<qint32> childrenOf(qint32 categoryID) const;

    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    QModelIndex parent(const QModelIndex& child) const override;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;

private:
    struct Node;
    Node* nodeOf(const QModelIndex& index) const;
    QModelIndex indexFor(Node* node) const;
    Node* append(Node* parent, const CategoryNode& node); // no signals
    static void sortChildren(Node& node);

    std::unique_ptr<Node> m_root;
    QHash<qint32, Node*> m_byId;
    qint32 m_selected = 0;
};
