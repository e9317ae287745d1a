// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "explorer/ui/ExplorerTreeView.h"

#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QScopedValueRollback>

ExplorerTreeView::ExplorerTreeView(QWidget* parent) : QTreeView(parent)
{
    setHeaderHidden(true);
    setEditTriggers(NoEditTriggers);
    setExpandsOnDoubleClick(true);
    setUniformRowHeights(true);
    setSelectionMode(SingleSelection);
}

void ExplorerTreeView::selectSilently(const QModelIndex& index)
{
    const QScopedValueRollback<bool> silent(m_silent, true);
    setCurrentIndex(index);
    scrollTo(index);
}

void ExplorerTreeView::currentChanged(const QModelIndex& current, const QModelIndex& previous)
{
    QTreeView::currentChanged(current, previous);
    // A mouse click counts when the button goes up: a press may begin a drag.
    if (!m_silent && current.isValid() && QGuiApplication::mouseButtons() == Qt::NoButton)
        emit nodeClicked(current);
}

void ExplorerTreeView::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Delete)
        emit deleteRequested();
    else if (event->key() == Qt::Key_F2)
        emit renameRequested();
    else
        QTreeView::keyPressEvent(event);
}

void ExplorerTreeView::mouseReleaseEvent(QMouseEvent* event)
{
    QTreeView::mouseReleaseEvent(event);
    const QModelIndex index = indexAt(event->position().toPoint());
    if (event->button() == Qt::LeftButton && index.isValid() && index == currentIndex())
        emit nodeClicked(index);
    if (event->button() == Qt::RightButton) {
        if (index.isValid() && index == currentIndex())
            emit nodeClicked(index);
        emit menuRequested(event->globalPosition().toPoint(), index.isValid());
    }
}

void ExplorerTreeView::contextMenuEvent(QContextMenuEvent* event)
{
    if (event->reason() != QContextMenuEvent::Keyboard)
        return; // the mouse asks when its button goes up
    const QModelIndex current = currentIndex();
    emit menuRequested(viewport()->mapToGlobal(visualRect(current).center()), current.isValid());
}
