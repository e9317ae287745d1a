// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "explorer/ToDoRows.h"
#include "explorer/ui/ElementListModel.h"

// The to-dos of one category. The first column is the check box of the done flag: setData() of Qt::CheckStateRole
// only tells of the wish, the list shows what the archive holds.
class ToDoListModel final : public ElementListModel {
    Q_OBJECT
public:
    enum Column { DoneColumn, NameColumn, PriorityColumn, PercentColumn, StatusColumn, DueDateColumn };

    explicit ToDoListModel(QObject* parent = nullptr);
    void setRows(std::vector<ToDoRow> rows);

    int nameColumn() const override { return NameColumn; }
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;

signals:
    void doneToggled(qint32 todoID, bool done); // the list may be filled again meanwhile

protected:
    int elementCount() const override { return int(m_rows.size()); }
    qint32 elementId(int element) const override { return m_rows[size_t(element)].id; }
    QString cellText(int element, int column) const override;
    QVariant cellIcon(int element, int column) const override;
    QString keySuffix(int) const override;
    QString tag(int) const override;

private:
    std::vector<ToDoRow> m_rows;
};
