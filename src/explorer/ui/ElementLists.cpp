// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "explorer/ui/ElementLists.h"

#include "tasks/modToDo.h"
#include "tasks/ui/TaskPictures.h"
#include "ui/widgets/Icons.h"

#include <QHash>

using namespace Qt::StringLiterals;

QIcon reportIcon(const QString& key)
{
    static const QHash<QString, QIcon> icons = {
        {u"memo"_s, themedIcon(u"format-text-code"_s)},
        {u"bookmark"_s, themedIcon(u"bookmarks"_s)},
        {u"todo"_s, themedIcon(u"view-task"_s)},
        {u"alarm"_s, themedIcon(u"appointment-reminder"_s)},
    };
    const auto found = icons.find(key);
    return found == icons.end() ? toDoIcon(key) : *found;
}

QVariant CategoryList::cellIcon(int, int column) const
{
    return column == nameColumn() ? QVariant(reportIcon(wordsOf(m_kind).image)) : QVariant();
}

MemoList::MemoList() : CategoryListOf(ElementKind::Memo, {u"Memo"_s, u"Date In"_s, u"Last Modified"_s}) { }

QString MemoList::cellText(int element, int column) const
{
    const MemoRow& row = m_rows[size_t(element)];
    return column == 0 ? row.name : shortMoment(column == 1 ? row.dateIn : row.dateLastMod);
}

BookmarkList::BookmarkList() : CategoryListOf(ElementKind::Bookmark, {u"Bookmark name"_s, u"Link"_s, u"Description"_s})
{
}

QString BookmarkList::cellText(int element, int column) const
{
    const BookmarkRow& row = m_rows[size_t(element)];
    return column == 0 ? row.name : column == 1 ? row.url : row.description;
}

ToDoList::ToDoList()
    : CategoryListOf(ElementKind::ToDo, {u"Done"_s, u"Name"_s, u"Priority"_s, u"Percent"_s, u"Status"_s, u"Due Date"_s})
{
}

Qt::ItemFlags ToDoList::flags(const QModelIndex& index) const
{
    const Qt::ItemFlags flags = ElementListModel::flags(index);
    return index.isValid() && index.column() == DoneColumn ? flags | Qt::ItemIsUserCheckable : flags;
}

QVariant ToDoList::data(const QModelIndex& index, int role) const
{
    if (role != Qt::CheckStateRole || !checkIndex(index, CheckIndexOption::IndexIsValid))
        return ElementListModel::data(index, role);
    if (index.column() != DoneColumn)
        return {};
    return rowAt(index.row()).done ? Qt::Checked : Qt::Unchecked;
}

bool ToDoList::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (role != Qt::CheckStateRole || index.column() != DoneColumn ||
        !checkIndex(index, CheckIndexOption::IndexIsValid))
        return false;
    emit doneToggled(rowAt(index.row()).id, value.toInt() == Qt::Checked);
    return true;
}

QString ToDoList::cellText(int element, int column) const
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

QVariant ToDoList::cellIcon(int element, int column) const
{
    const ToDoRow& row = m_rows[size_t(element)];
    const QString key = column == NameColumn ? (row.alarmOn ? u"alarm"_s : QString())
        : column == PriorityColumn           ? priorityImage(row.priority)
        : column == StatusColumn             ? statusImage(row.status)
                                             : QString();
    const QIcon icon = reportIcon(key);
    return icon.isNull() ? QVariant() : QVariant(icon);
}
