// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "explorer/ui/DragDrop.h"

#include "archive/Archive.h"
#include "archive/ErrorTrap.h"
#include "archive/SqlText.h"
#include "desktop/FrameServices.h"
#include "desktop/Questions.h"
#include "explorer/ui/CategoryTreeModel.h"
#include "explorer/ui/DragPicture.h"
#include "explorer/ui/DropHover.h"
#include "explorer/ui/ElementListModel.h"
#include "explorer/ui/ExplorerTreeView.h"

#include <QApplication>
#include <QDrag>
#include <QMimeData>
#include <QMouseEvent>
#include <QPointer>
#include <QScrollBar>
#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

// Carries the process id and nothing else: nothing is dragged between programs.
QString mimeType()
{
    return u"application/x-snipvale-drag"_s;
}

QByteArray processId()
{
    return QByteArray::number(QCoreApplication::applicationPid());
}

// A drop that will be refused must still arrive, so that the user is told why. So it is accepted as a link, and the
// link's pointer is the sign that forbids.
constexpr Qt::DropAction Refused = Qt::LinkAction;

QString keyOf(const QModelIndex& node)
{
    return node.data(CategoryTreeModel::KeyRole).toString();
}

DropTarget targetAt(const QModelIndex& node)
{
    return {keyOf(node), node.data(CategoryTreeModel::TagRole).toString()};
}

QString itemCount(const ElementListView& list)
{
    return QString::number(list.model()->rowCount());
}

QStringList expandedKeys(const QTreeView& tree, const QAbstractItemModel& model)
{
    QStringList keys;
    QModelIndexList waiting = {QModelIndex()};
    while (!waiting.isEmpty()) {
        const QModelIndex parent = waiting.takeLast();
        for (int row = 0; row < model.rowCount(parent); ++row)
            waiting.append(model.index(row, 0, parent));
        if (parent.isValid() && tree.isExpanded(parent))
            keys.append(keyOf(parent));
    }
    return keys;
}

} // namespace

DragDrop::DragDrop(frmSnipValeS& explorer, const ExplorerContext& context, const DragViews& views)
    : QObject(&explorer), runDrag([](QDrag& drag) { drag.exec(Qt::MoveAction | Refused, Qt::MoveAction); }),
      m_explorer(explorer), m_context(context), m_views(views),
      m_sources({{{&views.tree, views.tree.viewport(), DragSource::Category},
                  {&views.memos, views.memos.viewport(), DragSource::Memo},
                  {&views.bookmarks, views.bookmarks.viewport(), DragSource::Bookmark},
                  {&views.toDos, views.toDos.viewport(), DragSource::ToDo}}}),
      m_hover(new DropHover(views.tree))
{
    for (const Source& source : m_sources)
        source.viewport->installEventFilter(this);
    m_views.tree.viewport()->setAcceptDrops(true);
}

bool DragDrop::eventFilter(QObject* watched, QEvent* event)
{
    const auto source =
        std::find_if(m_sources.begin(), m_sources.end(), [watched](const Source& s) { return s.viewport == watched; });
    if (source == m_sources.end())
        return false;
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        pressed(*source, static_cast<const QMouseEvent&>(*event));
        return false;
    case QEvent::MouseButtonDblClick:
        m_pressed = QPersistentModelIndex();
        return false;
    case QEvent::MouseMove:
        return moved(*source, static_cast<const QMouseEvent&>(*event));
    case QEvent::MouseButtonRelease:
        // The view's own handling would take the end of a drag for a click.
        return std::exchange(m_swallowRelease, false);
    case QEvent::DragEnter:
    case QEvent::DragMove:
        if (source->kind == DragSource::Category)
            tvTreeView_OLEDragOver(static_cast<QDropEvent&>(*event));
        return source->kind == DragSource::Category;
    case QEvent::DragLeave:
        m_hover->clear();
        return false;
    case QEvent::Drop: {
        auto& drop = static_cast<QDropEvent&>(*event);
        drop.setAccepted(source->kind == DragSource::Category && isOurs(drop));
        if (drop.isAccepted())
            m_dropped = m_views.tree.indexAt(drop.position().toPoint());
        return true;
    }
    default:
        return false;
    }
}

void DragDrop::pressed(const Source& source, const QMouseEvent& event)
{
    m_swallowRelease = false;
    m_pressedAt = event.position().toPoint();
    m_selectedBefore = m_explorer.selectedKey();
    const QModelIndex index = source.view->indexAt(m_pressedAt);
    // Beside a node's text is the arrow that expands it.
    const bool onItem = event.button() == Qt::LeftButton && source.view->visualRect(index).contains(m_pressedAt);
    m_pressed = onItem ? index : QModelIndex();
}

bool DragDrop::moved(const Source& source, const QMouseEvent& event)
{
    if (!event.buttons().testFlag(Qt::LeftButton) || !m_pressed.isValid() ||
        m_pressed.model() != source.view->model() || !source.view->selectionModel()->isSelected(m_pressed))
        return false;
    // Even before the drag begins the view must not see the moves: it would select what it is drawn over.
    if ((event.position().toPoint() - m_pressedAt).manhattanLength() >= QApplication::startDragDistance())
        drag(source);
    return true;
}

bool DragDrop::isOurs(const QDropEvent& event) const
{
    return event.mimeData()->data(mimeType()) == processId();
}

// One drag from its start to its completion.
void DragDrop::drag(const Source& source)
{
    trapErrors(m_context.archive.questions(), u"tvTreeView_OLEStartDrag"_s, [&] {
        const bool fromTree = source.kind == DragSource::Category;
        if (fromTree)
            tvTreeView_OLEStartDrag();
        else
            startFromList(source.kind);
        const QPointer<DragDrop> alive(this);
        exec(source);
        if (!alive)
            return;
        m_pressed = QPersistentModelIndex();
        m_swallowRelease = true;
        m_drag.inProgress = false;
        m_hover->clear();
        const bool dropped = !m_dropped.isValid() || tvTreeView_OLEDragDrop(m_dropped);
        if (fromTree)
            completeFromTree();
        else
            completeFromList(listOf(source.kind), source.kind, dropped);
    });
}

void DragDrop::startFromList(DragSource kind)
{
    m_drag.inProgress = true;
    m_drag.source = kind;
    m_isTopDragged = false;
    m_context.frame.setStatus(kind == DragSource::Memo           ? u"Dragging memo elements ..."_s
                                  : kind == DragSource::Bookmark ? u"Dragging bookmark elements ..."_s
                                                                 : u"Dragging ToDo elements ..."_s);
}

void DragDrop::tvTreeView_OLEStartDrag()
{
    const QModelIndex node = m_views.tree.currentIndex();
    if (!node.isValid())
        return;
    m_drag.dragged = leadingNumber(keyOf(node));
    m_drag.text = node.data().toString();
    m_isTopDragged = m_drag.dragged == 0;
    if (m_isTopDragged)
        return;
    m_drag.inProgress = true;
    m_drag.source = DragSource::Category;
    m_context.frame.setStatus(u"Dragging category element '"_s + m_drag.text + u"' ..."_s);
}

void DragDrop::exec(const Source& source)
{
    m_judged = QPersistentModelIndex();
    m_isAllowed = false;
    m_dropped = QPersistentModelIndex();
    const bool fromTree = source.kind == DragSource::Category;
    const QModelIndex name = m_pressed.sibling(m_pressed.row(), fromTree ? 0 : listOf(source.kind).nameColumn());
    const QIcon icon = name.data(Qt::DecorationRole).value<QIcon>();
    const int count = int(source.view->selectionModel()->selectedRows().size());
    auto* data = new QMimeData;
    data->setData(mimeType(), processId());
    auto* drag = new QDrag(source.viewport); // deletes itself once it was run
    drag->setMimeData(data);
    drag->setPixmap(dragPicture(*source.view, icon, name.data().toString(), count));
    drag->setHotSpot({-14, -6}); // right below the pointer: the target stays in sight
    drag->setDragCursor(refusedPointer(*source.view), Refused);
    runDrag(*drag);
}

void DragDrop::tvTreeView_OLEDragOver(QDropEvent& event)
{
    event.ignore();
    if (!isOurs(event))
        return;
    trapErrors(m_context.archive.questions(), u"tvTreeView_OLEDragOver"_s, [&] {
        const QPoint at = event.position().toPoint();
        if (m_drag.inProgress)
            m_hover->moveTo(at);
        if (const QModelIndex node = m_views.tree.indexAt(at); node != m_judged) {
            m_judged = node;
            m_isAllowed = node.isValid() && dropRefusal(m_drag, targetAt(node), m_explorer).isEmpty();
        }
        event.setDropAction(m_isAllowed ? Qt::MoveAction : Refused);
        event.accept();
    });
}

bool DragDrop::tvTreeView_OLEDragDrop(const QModelIndex& node)
{
    Questions& questions = m_context.archive.questions();
    return trapErrors(questions, u"tvTreeView_OLEDragDrop"_s, [&] {
        const DropTarget target = targetAt(node);
        const bool isCategory = m_drag.source == DragSource::Category;
        if (const QString refusal = dropRefusal(m_drag, target, m_explorer); !refusal.isEmpty()) {
            questions.ask(refusal, MessageStyle::Exclamation);
            if (!isCategory && leadingNumber(target.key) == 0)
                m_context.frame.setStatus(u" ..."_s);
        } else if (isCategory) {
            dropCategory(target);
        } else if (!m_isTopDragged) { // the top carries nothing, whatever is selected in a list
            dropElements(target);
        }
    });
}

void DragDrop::dropElements(const DropTarget& target)
{
    std::vector<qint32> ids;
    for (const QString& key : listOf(m_drag.source).selectedKeys())
        ids.push_back(leadingNumber(key));
    if (ids.empty())
        return;
    const auto change = m_drag.source == DragSource::Memo ? ChangeMemoCategory
        : m_drag.source == DragSource::Bookmark           ? ChangeBookmarkCategory
                                                          : ChangeToDoCategory;
    change(m_context.archive, idList(ids), leadingNumber(target.key));
}

void DragDrop::dropCategory(const DropTarget& target)
{
    ChangeCategoryParent(m_context.archive, m_drag.dragged, leadingNumber(target.key));
    m_selectedBefore = QString::number(m_drag.dragged) + u" ID"_s;
    const QStringList expanded = expandedKeys(m_views.tree, m_views.model);
    m_explorer.LoadTreeView();
    for (const QString& key : expanded)
        m_views.tree.expand(m_views.model.indexOf(key));
    const QModelIndex node = m_views.model.indexOf(m_selectedBefore);
    if (!node.isValid())
        return;
    m_views.tree.selectSilently(node);
    m_explorer.tvTreeView_NodeClick(node);
}

void DragDrop::completeFromList(ElementListView& list, DragSource kind, bool refill)
{
    const QModelIndex node = m_views.tree.currentIndex();
    if (!node.isValid()) {
        m_context.frame.setStatus(u"SnipVale"_s);
        return;
    }
    if (refill)
        fillAgain(list, node);
    const QString word = kind == DragSource::Memo ? u"Memo"_s
        : kind == DragSource::Bookmark            ? u"Bookmark"_s
                                                  : u"ToDo"_s;
    m_context.frame.setStatus(word + u" -  items: "_s + itemCount(list));
}

// What was not moved stays selected and in its place.
void DragDrop::fillAgain(ElementListView& list, const QModelIndex& node)
{
    list.refill([&] { m_explorer.tvTreeView_NodeClick(node); });
}

// The press that began the drag selected a node, but showed nothing: the node that is shown is selected again.
void DragDrop::completeFromTree()
{
    ExplorerTreeView& tree = m_views.tree;
    const QModelIndex shown = m_selectedBefore.isEmpty() ? QModelIndex() : m_views.model.indexOf(m_selectedBefore);
    if (shown.isValid() && shown != tree.currentIndex()) {
        const int position = tree.verticalScrollBar()->value();
        tree.selectSilently(shown);
        tree.verticalScrollBar()->setValue(position);
    }
    const QString tag = m_explorer.selectedTag();
    m_context.frame.setStatus(tag == "category"_L1       ? u"Memo - items: "_s + itemCount(m_views.memos)
                                  : tag == "bookmark"_L1 ? u"Bookmark - items: "_s + itemCount(m_views.bookmarks)
                                  : tag == "todo"_L1     ? u"ToDo - items: "_s + itemCount(m_views.toDos)
                                                         : u"SnipVale"_s);
}

ElementListView& DragDrop::listOf(DragSource kind) const
{
    return kind == DragSource::Bookmark ? m_views.bookmarks : kind == DragSource::ToDo ? m_views.toDos : m_views.memos;
}
