// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QPersistentModelIndex>
#include <QPoint>
#include <QTimer>

class QTreeView;

// What a tree does while something is dragged over it: marks the node under the pointer, expands it, and scrolls
// while the pointer rests at an edge. It neither selects nor accepts anything.
class DropHover : public QObject {
    Q_OBJECT
public:
    explicit DropHover(QTreeView& view); // a child of the view; it takes over the view's painting of items

    void moveTo(const QPoint& viewportPosition);
    void clear(); // the pointer left, or the drag ended
    QModelIndex marked() const { return m_marked; } // invalid when the pointer is over no node

private:
    void mark(const QModelIndex& index);
    void expandMarked();
    bool scroll(bool really); // whether there is anything to scroll in the pointer's direction
    void scrollOn();

    QTreeView& m_view;
    QPersistentModelIndex m_marked;
    QPoint m_pointer;
    QTimer m_timer;
};
