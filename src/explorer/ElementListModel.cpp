// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "explorer/ElementListModel.h"

#include "archive/SqlText.h"

#include <algorithm>
#include <numeric>

ElementListModel::ElementListModel(QStringList columns, QObject* parent)
    : QAbstractTableModel(parent), m_columns(std::move(columns))
{
}

QString ElementListModel::keyOf(int row) const
{
    return QString::number(elementId(elementAt(row))) + keySuffix();
}

int ElementListModel::rowOf(const QString& key) const
{
    const qint32 id = leadingNumber(key);
    for (int row = 0; row < int(m_order.size()); ++row)
        if (elementId(elementAt(row)) == id)
            return key.endsWith(keySuffix()) ? row : -1;
    return -1;
}

int ElementListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(m_order.size());
}

int ElementListModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(m_columns.size());
}

QVariant ElementListModel::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const int element = elementAt(index.row());
    switch (role) {
    case Qt::DisplayRole:
    case Qt::ToolTipRole:
        return cellText(element, index.column());
    case Qt::DecorationRole:
        return cellIcon(element, index.column());
    case KeyRole:
        return keyOf(index.row());
    case TagRole:
        return tag();
    default:
        return {};
    }
}

QVariant ElementListModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation == Qt::Horizontal && role == Qt::DisplayRole && section >= 0 && section < m_columns.size())
        return m_columns[section];
    return {};
}

void ElementListModel::sort(int column, Qt::SortOrder order)
{
    m_sortColumn = column;
    m_sortOrder = order;
    emit layoutAboutToBeChanged({}, VerticalSortHint);
    const QModelIndexList before = persistentIndexList();
    const std::vector<int> oldOrder = m_order;
    arrange();
    std::vector<int> newRow(m_order.size());
    for (size_t row = 0; row < m_order.size(); ++row)
        newRow[size_t(m_order[row])] = int(row);
    QModelIndexList after;
    for (const QModelIndex& old : before)
        after.append(index(newRow[size_t(oldOrder[size_t(old.row())])], old.column()));
    changePersistentIndexList(before, after);
    emit layoutChanged({}, VerticalSortHint);
}

void ElementListModel::arrange()
{
    m_order.resize(size_t(elementCount()));
    std::iota(m_order.begin(), m_order.end(), 0);
    if (m_sortColumn < 0)
        return;
    // The texts are made once, not at each comparison.
    std::vector<QString> texts(m_order.size());
    for (size_t i = 0; i < texts.size(); ++i)
        texts[i] = cellText(int(i), m_sortColumn).toCaseFolded();
    const bool ascending = m_sortOrder == Qt::AscendingOrder;
    std::stable_sort(m_order.begin(), m_order.end(), [&](int a, int b) {
        const int order = QString::compare(texts[size_t(a)], texts[size_t(b)]);
        return ascending ? order < 0 : order > 0;
    });
}
