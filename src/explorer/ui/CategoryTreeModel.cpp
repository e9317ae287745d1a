// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "explorer/ui/CategoryTreeModel.h"

#include "archive/SqlText.h"
#include "ui/widgets/Icons.h"

#include <algorithm>

using namespace Qt::StringLiterals;

struct CategoryTreeModel::Node {
    CategoryNode category;
    Node* parent = nullptr;
    int row = 0;
    std::vector<std::unique_ptr<Node>> children;
};

namespace {

bool comesBefore(const QString& a, const QString& b)
{
    return compareNames(a, b) < 0;
}

// Of a node with that tag. Only the folder of a memo category opens when it is selected.
QIcon folderIcon(const QString& tag, bool isSelected)
{
    static const QHash<QString, QIcon> icons = {{u"root"_s, themedIcon(u"folder-documents"_s)},
                                                {u"category"_s, themedIcon(u"folder"_s)},
                                                {u"bookmark"_s, themedIcon(u"folder-bookmark"_s)},
                                                {u"todo"_s, themedIcon(u"view-task"_s)}};
    static const QIcon open = themedIcon(u"folder-open"_s);
    return isSelected && tag == "category"_L1 ? open : icons.value(tag);
}

} // namespace

CategoryTreeModel::CategoryTreeModel(QObject* parent) : QAbstractItemModel(parent)
{
    setRows({});
}

CategoryTreeModel::~CategoryTreeModel()
{
    // A chain of thousands of nodes would be deleted by recursion otherwise.
    std::vector<std::unique_ptr<Node>> doomed;
    doomed.push_back(std::move(m_root));
    while (!doomed.empty()) {
        const std::unique_ptr<Node> node = std::move(doomed.back());
        doomed.pop_back();
        std::move(node->children.begin(), node->children.end(), std::back_inserter(doomed));
    }
}

void CategoryTreeModel::setRows(std::span<const CategoryRow> rows)
{
    beginResetModel();
    m_byId.clear();
    m_selected = 0;
    m_root = std::make_unique<Node>();
    m_root->category.text = u"Code Root"_s;
    m_byId.insert(0, m_root.get());
    for (const CategoryRow& row : rows)
        if (Node* parent = m_byId.value(row.parentID); parent && !m_byId.contains(row.node.id))
            append(parent, row.node);
    for (Node* node : std::as_const(m_byId))
        sortChildren(*node);
    endResetModel();
}

CategoryTreeModel::Node* CategoryTreeModel::append(Node* parent, const CategoryNode& category)
{
    auto node = std::make_unique<Node>();
    node->category = category;
    node->parent = parent;
    node->row = int(parent->children.size());
    m_byId.insert(category.id, node.get());
    parent->children.push_back(std::move(node));
    return parent->children.back().get();
}

void CategoryTreeModel::sortChildren(Node& node)
{
    std::stable_sort(node.children.begin(), node.children.end(),
                     [](const auto& a, const auto& b) { return comesBefore(a->category.text, b->category.text); });
    int row = 0;
    for (const auto& child : node.children)
        child->row = row++;
}

QModelIndex CategoryTreeModel::add(qint32 parentID, const CategoryNode& category)
{
    Node* parent = m_byId.value(parentID);
    if (!parent || m_byId.contains(category.id))
        return {};
    const auto place =
        std::upper_bound(parent->children.begin(), parent->children.end(), category.text,
                         [](const QString& text, const auto& node) { return comesBefore(text, node->category.text); });
    const int row = int(place - parent->children.begin());
    beginInsertRows(indexFor(parent), row, row);
    Node* node = append(parent, category);
    std::rotate(parent->children.begin() + row, parent->children.end() - 1, parent->children.end());
    for (int i = row; i < int(parent->children.size()); ++i)
        parent->children[size_t(i)]->row = i;
    endInsertRows();
    return indexFor(node);
}

void CategoryTreeModel::rename(qint32 categoryID, const QString& text)
{
    Node* node = m_byId.value(categoryID);
    if (!node || node == m_root.get())
        return;
    emit layoutAboutToBeChanged();
    const QModelIndexList before = persistentIndexList();
    node->category.text = text;
    sortChildren(*node->parent);
    QModelIndexList after;
    for (const QModelIndex& index : before)
        after.append(indexFor(nodeOf(index)));
    changePersistentIndexList(before, after);
    emit layoutChanged();
    emit dataChanged(indexFor(node), indexFor(node));
}

QModelIndex CategoryTreeModel::indexOf(qint32 categoryID) const
{
    Node* node = m_byId.value(categoryID);
    return node ? indexFor(node) : QModelIndex();
}

QString CategoryTreeModel::fullPath(const QModelIndex& index) const
{
    QStringList texts;
    for (const Node* node = nodeOf(index); node; node = node->parent)
        texts.prepend(node->category.text);
    return texts.join(u'\\');
}

std::vector<qint32> CategoryTreeModel::childrenOf(qint32 categoryID) const
{
    std::vector<qint32> children;
    if (const Node* node = m_byId.value(categoryID))
        for (const auto& child : node->children)
            children.push_back(child->category.id);
    return children;
}

const CategoryNode* CategoryTreeModel::category(const QModelIndex& index) const
{
    const Node* node = nodeOf(index);
    return node ? &node->category : nullptr;
}

CategoryTreeModel::Node* CategoryTreeModel::nodeOf(const QModelIndex& index) const
{
    return index.isValid() ? static_cast<Node*>(index.internalPointer()) : nullptr;
}

QModelIndex CategoryTreeModel::indexFor(Node* node) const
{
    return node ? createIndex(node->row, 0, node) : QModelIndex();
}

QModelIndex CategoryTreeModel::index(int row, int column, const QModelIndex& parent) const
{
    if (!hasIndex(row, column, parent))
        return {};
    const Node* node = nodeOf(parent);
    return createIndex(row, column, node ? node->children[size_t(row)].get() : m_root.get());
}

QModelIndex CategoryTreeModel::parent(const QModelIndex& child) const
{
    const Node* node = nodeOf(child);
    return node ? indexFor(node->parent) : QModelIndex();
}

int CategoryTreeModel::rowCount(const QModelIndex& parent) const
{
    if (parent.column() > 0)
        return 0;
    const Node* node = nodeOf(parent);
    return node ? int(node->children.size()) : 1;
}

int CategoryTreeModel::columnCount(const QModelIndex&) const
{
    return 1;
}

QVariant CategoryTreeModel::data(const QModelIndex& index, int role) const
{
    const Node* node = nodeOf(index);
    if (!node)
        return {};
    switch (role) {
    case Qt::DisplayRole:
        return node->category.text;
    case Qt::DecorationRole:
        return folderIcon(node->category.tag(), node->category.id == m_selected);
    case KeyRole:
        return node->category.key();
    case TagRole:
        return node->category.tag();
    default:
        return {};
    }
}

void CategoryTreeModel::setSelected(const QModelIndex& index)
{
    const Node* node = nodeOf(index);
    const QModelIndex before = indexFor(m_byId.value(m_selected));
    m_selected = node ? node->category.id : 0;
    emit dataChanged(before, before, {Qt::DecorationRole});
    emit dataChanged(index, index, {Qt::DecorationRole});
}
