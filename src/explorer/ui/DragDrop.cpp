// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "explorer/ui/DragDrop.h"

#include "archive/Archive.h"
#include "archive/ErrorTrap.h"
#include "archive/SqlText.h"
#include "desktop/FrameServices.h"
#include "desktop/Questions.h"
#include "explorer/ui/CategoryTreeModel.h"
#include "explorer/ui/DropHover.h"
#include "explorer/ui/ExplorerTreeView.h"
#include "ui/widgets/ListView.h"

#include <QApplication>
#include <QDrag>
#include <QLocale>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>
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

std::vector<qint32> expandedCategories(const QTreeView& tree, const CategoryTreeModel& model)
{
    std::vector<qint32> expanded;
    QModelIndexList waiting = {QModelIndex()};
    while (!waiting.isEmpty()) {
        const QModelIndex parent = waiting.takeLast();
        for (int row = 0; row < model.rowCount(parent); ++row)
            waiting.append(model.index(row, 0, parent));
        if (parent.isValid() && tree.isExpanded(parent))
            expanded.push_back(model.category(parent)->id);
    }
    return expanded;
}

constexpr int Gap = 6; // all sizes in device-independent pixels
constexpr int IconSize = 16;

QPixmap transparent(const QWidget& widget, QSize size)
{
    const qreal ratio = widget.devicePixelRatioF();
    QPixmap pixmap((QSizeF(size) * ratio).toSize());
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);
    return pixmap;
}

// What hangs on the pointer while `count` things are dragged: icon and name of the first one and, for more than one, a
// badge with the count. Font, colours and pixel ratio are those of `widget`.
QPixmap dragPicture(const QWidget& widget, const QIcon& icon, const QString& name, int count)
{
    const QFontMetrics metrics = widget.fontMetrics();
    QString line = name.simplified();
    line = metrics.elidedText(line, Qt::ElideRight, metrics.averageCharWidth() * 40);
    const QString badge = count > 1 ? QLocale().toString(count) : QString();
    const int height = std::max(metrics.height(), IconSize) + Gap;
    const int badgeWidth = badge.isEmpty() ? 0 : std::max(height - Gap, metrics.horizontalAdvance(badge) + 2 * Gap);
    const bool hasIcon = !icon.pixmap(IconSize).isNull(); // an icon theme may lack it
    const int textAt = hasIcon ? Gap + IconSize + Gap : Gap;
    const int width = textAt + metrics.horizontalAdvance(line) + Gap + (badgeWidth ? badgeWidth + Gap : 0);

    QPixmap picture = transparent(widget, {width, height});
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setFont(widget.font());
    const QPalette& colours = widget.palette();
    painter.setPen(colours.color(QPalette::Highlight));
    painter.setBrush(colours.color(QPalette::Base));
    painter.drawRoundedRect(QRectF(0.5, 0.5, width - 1, height - 1), 4, 4);
    icon.paint(&painter, Gap, (height - IconSize) / 2, IconSize, IconSize);
    painter.setPen(colours.color(QPalette::Text));
    painter.drawText(QRect(textAt, 0, width, height), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, line);
    if (badgeWidth > 0) {
        const QRectF pill(width - Gap - badgeWidth, Gap / 2.0, badgeWidth, height - Gap);
        painter.setPen(Qt::NoPen);
        painter.setBrush(colours.color(QPalette::Highlight));
        painter.drawRoundedRect(pill, pill.height() / 2, pill.height() / 2);
        painter.setPen(colours.color(QPalette::HighlightedText));
        painter.drawText(pill, Qt::AlignCenter, badge);
    }
    return picture;
}

// The pointer over a place that will refuse the drop; its hot spot is the middle.
QPixmap refusedPointer(const QWidget& widget)
{
    constexpr int side = 24;
    QPixmap pointer = transparent(widget, {side, side});
    QPainter painter(&pointer);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF ring(4, 4, side - 8, side - 8);
    // A white rim below, so that the sign stands out on any ground.
    for (const QPen& pen : {QPen(Qt::white, 6), QPen(QColor(0xb7, 0x1c, 0x1c), 3)}) {
        painter.setPen(pen);
        painter.drawEllipse(ring);
        painter.drawLine(QPointF(7, 7), QPointF(side - 7, side - 7));
    }
    return pointer;
}

} // namespace

DragDrop::DragDrop(frmSnipValeS& explorer, const ExplorerContext& context, const DragViews& views)
    : QObject(&explorer), runDrag([](QDrag& drag) { drag.exec(Qt::MoveAction | Refused, Qt::MoveAction); }),
      m_explorer(explorer), m_context(context), m_views(views),
      m_sources({{&views.tree, views.tree.viewport(), std::nullopt}}), m_hover(new DropHover(views.tree))
{
    for (const ElementKind kind : elementKinds)
        m_sources.push_back({&listOf(kind), listOf(kind).viewport(), kind});
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
        if (!source->kind)
            tvTreeView_OLEDragOver(static_cast<QDropEvent&>(*event));
        return !source->kind;
    case QEvent::DragLeave:
        m_hover->clear();
        return false;
    case QEvent::Drop: {
        auto& drop = static_cast<QDropEvent&>(*event);
        drop.setAccepted(!source->kind && isOurs(drop));
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
    const CategoryNode* selected = m_explorer.selectedNode();
    m_selectedBefore = selected ? std::optional(selected->id) : std::nullopt;
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
        const std::optional<ElementKind> kind = source.kind;
        if (kind)
            startFromList(*kind);
        else
            tvTreeView_OLEStartDrag();
        const QPointer<DragDrop> alive(this);
        exec(source);
        if (!alive)
            return;
        m_pressed = QPersistentModelIndex();
        m_swallowRelease = true;
        m_drag.inProgress = false;
        m_hover->clear();
        const bool dropped = !m_dropped.isValid() || tvTreeView_OLEDragDrop(m_dropped);
        if (kind)
            completeFromList(*kind, dropped);
        else
            completeFromTree();
    });
}

void DragDrop::startFromList(ElementKind kind)
{
    m_drag.inProgress = true;
    m_drag.kind = kind;
    m_drag.isCategory = false;
    m_isTopDragged = false;
    m_context.frame.setStatus(u"Dragging %1 elements ..."_s.arg(wordsOf(kind).inDrag));
}

void DragDrop::tvTreeView_OLEStartDrag()
{
    const CategoryNode* node = m_explorer.selectedNode();
    if (!node)
        return;
    m_drag.dragged = node->id;
    m_drag.text = node->text;
    m_isTopDragged = m_drag.dragged == 0;
    if (m_isTopDragged)
        return;
    m_drag.inProgress = true;
    m_drag.isCategory = true;
    m_context.frame.setStatus(u"Dragging category element '"_s + m_drag.text + u"' ..."_s);
}

void DragDrop::exec(const Source& source)
{
    m_judged = QPersistentModelIndex();
    m_isAllowed = false;
    m_dropped = QPersistentModelIndex();
    const QModelIndex name = m_pressed.sibling(m_pressed.row(), source.kind ? listOf(*source.kind).nameColumn() : 0);
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
            m_isAllowed = node.isValid() && dropRefusal(m_drag, *m_views.model.category(node), m_explorer).isEmpty();
        }
        event.setDropAction(m_isAllowed ? Qt::MoveAction : Refused);
        event.accept();
    });
}

bool DragDrop::tvTreeView_OLEDragDrop(const QModelIndex& node)
{
    Questions& questions = m_context.archive.questions();
    return trapErrors(questions, u"tvTreeView_OLEDragDrop"_s, [&] {
        const CategoryNode target = *m_views.model.category(node);
        if (const QString refusal = dropRefusal(m_drag, target, m_explorer); !refusal.isEmpty()) {
            questions.ask(refusal, MessageStyle::Exclamation);
            if (!m_drag.isCategory && target.id == 0)
                m_context.frame.setStatus(u" ..."_s);
        } else if (m_drag.isCategory) {
            dropCategory(target.id);
        } else if (!m_isTopDragged) { // the top carries nothing, whatever is selected in a list
            dropElements(target.id);
        }
    });
}

void DragDrop::dropElements(qint32 target)
{
    constexpr void (*changes[])(Archive&, const QString&, qint32) = {ChangeMemoCategory, ChangeBookmarkCategory,
                                                                     ChangeToDoCategory};
    const std::vector<qint32> ids = listOf(*m_drag.kind).selectedIds();
    if (!ids.empty())
        changes[size_t(*m_drag.kind)](m_context.archive, idList(ids), target);
}

void DragDrop::dropCategory(qint32 target)
{
    ChangeCategoryParent(m_context.archive, m_drag.dragged, target);
    m_selectedBefore = m_drag.dragged;
    const std::vector<qint32> expanded = expandedCategories(m_views.tree, m_views.model);
    m_explorer.LoadTreeView();
    for (const qint32 category : expanded)
        m_views.tree.expand(m_views.model.indexOf(category));
    const QModelIndex node = m_views.model.indexOf(m_drag.dragged);
    if (!node.isValid())
        return;
    m_views.tree.selectSilently(node);
    m_explorer.tvTreeView_NodeClick(node);
}

void DragDrop::completeFromList(ElementKind kind, bool refill)
{
    const QModelIndex node = m_views.tree.currentIndex();
    if (!node.isValid()) {
        m_context.frame.setStatus(u"SnipVale"_s);
        return;
    }
    ListView& list = listOf(kind);
    if (refill) // what was not moved stays selected and in its place
        list.refill([&] { m_explorer.tvTreeView_NodeClick(node); });
    m_context.frame.setStatus(u"%1 -  items: %2"_s.arg(wordsOf(kind).name).arg(list.model()->rowCount()));
}

// The press that began the drag selected a node, but showed nothing: the node that is shown is selected again.
void DragDrop::completeFromTree()
{
    ExplorerTreeView& tree = m_views.tree;
    const QModelIndex shown = m_selectedBefore ? m_views.model.indexOf(*m_selectedBefore) : QModelIndex();
    if (shown.isValid() && shown != tree.currentIndex()) {
        const int position = tree.verticalScrollBar()->value();
        tree.selectSilently(shown);
        tree.verticalScrollBar()->setValue(position);
    }
    const CategoryNode* node = m_explorer.selectedNode();
    if (!node || node->id == 0)
        m_context.frame.setStatus(u"SnipVale"_s);
    else
        m_context.frame.setStatus(
            u"%1 - items: %2"_s.arg(wordsOf(node->kind).name).arg(listOf(node->kind).model()->rowCount()));
}
