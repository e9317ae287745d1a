// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "explorer/ElementListView.h"

#include "explorer/ElementListModel.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <algorithm>

ElementListView::ElementListView(QWidget* parent) : QTreeView(parent)
{
    setRootIsDecorated(false);
    setItemsExpandable(false);
    setUniformRowHeights(true); // 100,000 rows are laid out at once only so
    setAllColumnsShowFocus(true);
    setSelectionMode(ExtendedSelection);
    setEditTriggers(NoEditTriggers);
    setAlternatingRowColors(true);
    setContextMenuPolicy(Qt::DefaultContextMenu);
    header()->setSectionsClickable(true);
    header()->setStretchLastSection(true);
    connect(header(), &QHeaderView::sectionClicked, this, &ElementListView::sortBy);
}

void ElementListView::setList(ElementListModel* model, SortDirection& direction)
{
    m_direction = &direction;
    setModel(model);
}

ElementListModel* ElementListView::list() const
{
    return static_cast<ElementListModel*>(model());
}

void ElementListView::sortBy(int column)
{
    m_direction->descending = !m_direction->descending;
    const Qt::SortOrder order = m_direction->descending ? Qt::DescendingOrder : Qt::AscendingOrder;
    header()->setSortIndicatorShown(true);
    header()->setSortIndicator(column, order);
    model()->sort(column, order);
    scrollTo(currentIndex());
}

QStringList ElementListView::selectedKeys() const
{
    QModelIndexList rows = selectionModel()->selectedRows();
    std::sort(rows.begin(), rows.end());
    QStringList keys;
    for (const QModelIndex& row : rows)
        keys.append(row.data(ElementListModel::KeyRole).toString());
    return keys;
}

void ElementListView::selectKey(const QString& key)
{
    selectionModel()->clear();
    const QModelIndex index = model()->index(list()->rowOf(key), 0);
    if (!index.isValid())
        return;
    selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    scrollTo(index);
}

bool ElementListView::isItemAt(const QPoint& viewportPosition) const
{
    return indexAt(viewportPosition).isValid();
}

void ElementListView::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_F2:
        emit openRequested();
        break;
    case Qt::Key_Delete:
        emit deleteRequested();
        break;
    default:
        QTreeView::keyPressEvent(event);
    }
}

void ElementListView::mouseDoubleClickEvent(QMouseEvent* event)
{
    QTreeView::mouseDoubleClickEvent(event);
    if (event->button() != Qt::LeftButton)
        return;
    if (isItemAt(event->position().toPoint()))
        emit openRequested();
    else
        emit newRequested();
}

void ElementListView::mouseReleaseEvent(QMouseEvent* event)
{
    QTreeView::mouseReleaseEvent(event);
    const bool overItem = isItemAt(event->position().toPoint());
    emit released(overItem);
    if (event->button() == Qt::RightButton)
        emit menuRequested(event->globalPosition().toPoint(), overItem);
}

void ElementListView::contextMenuEvent(QContextMenuEvent* event)
{
    if (event->reason() != QContextMenuEvent::Keyboard)
        return; // the mouse asks when its button goes up
    const QModelIndex current = currentIndex();
    const bool onItem = current.isValid() && selectionModel()->isSelected(current);
    emit released(onItem);
    emit menuRequested(viewport()->mapToGlobal(onItem ? visualRect(current).center() : QPoint(8, 8)), onItem);
}
