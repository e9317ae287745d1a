// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "archive/Element.h"

#include <QAbstractTableModel>
#include <QStringList>
#include <vector>

// What the lists of the explorer share: columns by title, a key and a tag for each item (Qt::UserRole and the role
// after it), and sorting by the text that is shown, so that dates sort as their text.
class ElementListModel : public QAbstractTableModel {
    Q_OBJECT
public:
    enum Role { KeyRole = Qt::UserRole, TagRole };

    explicit ElementListModel(QStringList columns, QObject* parent = nullptr);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    // Stays in force when the list is filled again; column -1 is the archive's order.
    void sort(int column, Qt::SortOrder order) override;

protected:
    // The elements in the archive's order, by position.
    virtual int elementCount() const = 0;
    virtual ElementKey elementKey(int element) const = 0;
    virtual QString cellText(int element, int column) const = 0;
    virtual QVariant cellIcon(int element, int column) const = 0;
    virtual QString tag(int element) const = 0;

    // Calls `change`, which replaces all elements, inside a reset of the model.
    template <typename Change>
    void refill(Change&& change)
    {
        beginResetModel();
        change();
        arrange();
        endResetModel();
    }
    int elementAt(int row) const { return m_order[size_t(row)]; }

private:
    void arrange();
    QStringList m_columns;
    std::vector<int> m_order; // row -> element
    int m_sortColumn = -1;
    Qt::SortOrder m_sortOrder = Qt::AscendingOrder;
};
