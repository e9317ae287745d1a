// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "memo/languages/ui/OptionsListView.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QKeyEvent>

OptionsListView::OptionsListView(QWidget* parent) : QTreeView(parent)
{
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setEditTriggers(NoEditTriggers);
    header()->setSectionsMovable(false);
    header()->setHighlightSections(false);
}

// Two quick clicks on a check box are two ticks.
bool OptionsListView::isOnCheckBox(const QPoint& position) const
{
    const QModelIndex index = indexAt(position);
    if (!index.data(Qt::CheckStateRole).isValid())
        return false;
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    option.rect = visualRect(index);
    option.index = index;
    option.features |= QStyleOptionViewItem::HasCheckIndicator | QStyleOptionViewItem::HasDisplay;
    return style()->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &option, this).contains(position);
}

void OptionsListView::mouseDoubleClickEvent(QMouseEvent* event)
{
    const QPoint position = event->position().toPoint();
    const bool opens = event->button() == Qt::LeftButton && indexAt(position).isValid() && !isOnCheckBox(position);
    QTreeView::mouseDoubleClickEvent(event);
    if (opens)
        emit itemOpened();
}

void OptionsListView::keyPressEvent(QKeyEvent* event)
{
    const QModelIndex current = currentIndex();
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        if (current.isValid())
            emit itemOpened();
        return;
    }
    const QModelIndex first = current.siblingAtColumn(0);
    if (event->key() == Qt::Key_Space && (first.flags() & Qt::ItemIsUserCheckable)) {
        const bool isChecked = first.data(Qt::CheckStateRole).toInt() == Qt::Checked;
        model()->setData(first, isChecked ? Qt::Unchecked : Qt::Checked, Qt::CheckStateRole);
        return;
    }
    QTreeView::keyPressEvent(event);
}

void OptionsListView::contextMenuEvent(QContextMenuEvent* event)
{
    const QModelIndex current = currentIndex();
    if (event->reason() == QContextMenuEvent::Keyboard) {
        if (current.isValid())
            emit menuRequested(viewport()->mapToGlobal(visualRect(current).center()));
    } else if (indexAt(event->pos()).isValid()) { // the button's press made it current
        emit menuRequested(event->globalPos());
    }
}
