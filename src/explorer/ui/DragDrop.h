// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "explorer/DragRules.h"
#include "explorer/ui/frmSnipValeS.h"

#include <QObject>
#include <QPersistentModelIndex>
#include <QPoint>
#include <array>
#include <functional>
#include <optional>
#include <vector>

class DropHover;
class ExplorerTreeView;
class ListView;
class QAbstractItemView;
class QDrag;
class QDropEvent;
class QMouseEvent;

// The views among which the explorer drags. All outlive it.
struct DragViews {
    CategoryTreeModel& model;
    ExplorerTreeView& tree;
    std::array<ListView*, std::size(elementKinds)> lists; // by kind
};

// Dragging in the explorer: selected elements of a list, or a category of the tree, onto a category of the tree.
// It watches the viewports from outside; the views need nothing for it. Errors and refusals are shown here. What is
// dropped is moved when the drag is over, so that no message opens while the pointer is still the drag's.
class DragDrop : public QObject {
    Q_OBJECT
public:
    DragDrop(frmSnipValeS& explorer, const ExplorerContext& context, const DragViews& views); // child of `explorer`

    // Runs a drag to its end: the windowing system's own loop, unless a platform has none.
    std::function<void(QDrag& drag)> runDrag;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Source {
        QAbstractItemView* view;
        QWidget* viewport; // its; a view in destruction must not be asked for it
        std::optional<ElementKind> kind; // of the list; none for the tree
    };
    void pressed(const Source& source, const QMouseEvent& event);
    bool moved(const Source& source, const QMouseEvent& event); // true: the view must not see it
    bool isOurs(const QDropEvent& event) const;

    void drag(const Source& source);
    void startFromList(ElementKind kind);
    void tvTreeView_OLEStartDrag();
    void exec(const Source& source);
    void tvTreeView_OLEDragOver(QDropEvent& event);
    bool tvTreeView_OLEDragDrop(const QModelIndex& node); // false after an error
    void dropElements(qint32 target);
    void dropCategory(qint32 target);
    void completeFromList(ElementKind kind, bool refill);
    void completeFromTree();

    ListView& listOf(ElementKind kind) const { return *m_views.lists[size_t(kind)]; }

    frmSnipValeS& m_explorer;
    ExplorerContext m_context;
    DragViews m_views;
    std::vector<Source> m_sources;
    DropHover* m_hover; // a child of the tree
    DragState m_drag;

    QPersistentModelIndex m_pressed; // what the button went down on; invalid when that starts no drag
    QPoint m_pressedAt; // in the viewport
    std::optional<qint32> m_selectedBefore; // the category of the tree before the button went down
    bool m_isTopDragged = false;
    bool m_swallowRelease = false; // of the button that ended a drag
    QPersistentModelIndex m_judged; // the node that the pointer was over last
    bool m_isAllowed = false; // to drop there
    QPersistentModelIndex m_dropped; // where the drag ended
};
