// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "explorer/ui/ToDoListModel.h"

#include "explorer/ui/ReportIcons.h"
#include "tasks/modToDo.h"

using namespace Qt::StringLiterals;

ToDoListModel::ToDoListModel(QObject* parent)
    : ElementListModel({u"Done"_s, u"Name"_s, u"Priority"_s, u"Percent"_s, u"Status"_s, u"Due Date"_s}, parent)
{
}

void ToDoListModel::setRows(std::vector<ToDoRow> rows)
{
    refill([&] { m_rows = std::move(rows); });
}

Qt::ItemFlags ToDoListModel::flags(const QModelIndex& index) const
{
    const Qt::ItemFlags flags = ElementListModel::flags(index);
    return index.isValid() && index.column() == DoneColumn ? flags | Qt::ItemIsUserCheckable : flags;
}

QVariant ToDoListModel::data(const QModelIndex& index, int role) const
{
    if (role != Qt::CheckStateRole || !checkIndex(index, CheckIndexOption::IndexIsValid))
        return ElementListModel::data(index, role);
    if (index.column() != DoneColumn)
        return {};
    return m_rows[size_t(elementAt(index.row()))].done ? Qt::Checked : Qt::Unchecked;
}

bool ToDoListModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (role != Qt::CheckStateRole || index.column() != DoneColumn ||
        !checkIndex(index, CheckIndexOption::IndexIsValid))
        return false;
    emit doneToggled(elementId(elementAt(index.row())), value.toInt() == Qt::Checked);
    return true;
}

QString ToDoListModel::cellText(int element, int column) const
{
    const ToDoRow& row = m_rows[size_t(element)];
    switch (column) {
    case NameColumn:
        return row.name;
    case PriorityColumn:
        return priorityText(row.priority);
    case PercentColumn:
        return row.percent ? QString::number(*row.percent) + u" %"_s : QString();
    case StatusColumn:
        return statusText(row.status);
    case DueDateColumn:
        return shortDate(row.dueDate);
    default:
        return {};
    }
}

QVariant ToDoListModel::cellIcon(int element, int column) const
{
    const ToDoRow& row = m_rows[size_t(element)];
    const QString key = column == NameColumn ? (row.alarmOn ? u"alarm"_s : QString())
        : column == PriorityColumn           ? priorityImage(row.priority)
        : column == StatusColumn             ? statusImage(row.status)
                                             : QString();
    const QIcon icon = reportIcon(key);
    return icon.isNull() ? QVariant() : QVariant(icon);
}

QString ToDoListModel::keySuffix(int) const
{
    return u" T_ID"_s;
}

QString ToDoListModel::tag(int) const
{
    return u"todo"_s;
}
