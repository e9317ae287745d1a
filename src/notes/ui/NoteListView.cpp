// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "notes/ui/NoteListView.h"
#include "ui/widgets/Selection.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QScrollBar>
#include <QSet>
#include <QStyledItemDelegate>
#include <algorithm>
#include <utility>

namespace {

// A note is one line, however long its text is: laying out a megabyte takes seconds.
class HeadingDelegate final : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;
    QString displayText(const QVariant& value, const QLocale&) const override { return noteHeading(value.toString()); }
    // As wide as the list, which an item always is at least; what does not fit ends with dots.
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const override
    {
        constexpr int gap = 8; // pixels of air between two lines
        return {1, std::max(option.fontMetrics.height(), option.decorationSize.height()) + gap};
    }
};

} // namespace

NoteListView::NoteListView(QWidget* parent) : QListView(parent)
{
    setItemDelegate(new HeadingDelegate(this));
    setUniformItemSizes(true); // 10,000 notes are laid out at once only so
    setSelectionMode(ExtendedSelection);
    setEditTriggers(NoEditTriggers);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setIconSize(QSize(22, 22));
    setAlternatingRowColors(true);
}

void NoteListView::setList(NoteListModel* model)
{
    m_list = model;
    setModel(model);
    connect(selectionModel(), &QItemSelectionModel::selectionChanged, this, &NoteListView::selectionMade);
}

std::vector<qint32> NoteListView::selectedIds() const
{
    QModelIndexList rows = selectionModel()->selectedRows();
    std::sort(rows.begin(), rows.end());
    std::vector<qint32> ids;
    for (const QModelIndex& row : rows)
        ids.push_back(m_list->idOf(row.row()));
    return ids;
}

qint32 NoteListView::selectedId() const
{
    if (const QModelIndex current = currentIndex(); current.isValid() && selectionModel()->isSelected(current))
        return m_list->idOf(current.row());
    const std::vector<qint32> ids = selectedIds();
    return ids.empty() ? 0 : ids.front();
}

void NoteListView::selectOnly(qint32 id)
{
    const QModelIndex index = m_list->index(m_list->rowOf(id));
    if (!index.isValid())
        return;
    selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect);
    scrollTo(index);
}

void NoteListView::refill(std::vector<NoteRow> rows)
{
    const std::vector<qint32> ids = selectedIds();
    const QSet<qint32> wanted(ids.begin(), ids.end());
    const int focus = currentIndex().row();
    const qint32 focused = focus < 0 ? 0 : m_list->idOf(focus);
    const int seen = verticalScrollBar()->value();
    m_list->setRows(std::move(rows));
    // What stands in the place of a deleted note gets the focus, so that the keyboard goes on from there.
    const int kept = focus < 0 ? -1 : m_list->rowOf(focused);
    const int next = kept >= 0 ? kept : std::min(focus, m_list->rowCount() - 1);
    if (next >= 0)
        selectionModel()->setCurrentIndex(m_list->index(next), QItemSelectionModel::NoUpdate);
    const QItemSelection selection = wanted.isEmpty()
        ? QItemSelection()
        : selectionOf(*m_list, [&](int row) { return wanted.contains(m_list->idOf(row)); });
    selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
    doItemsLayout();
    verticalScrollBar()->setValue(seen);
    emit selectionMade(); // a reset of the model drops the selection without a word
}

void NoteListView::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_F2:
        emit openRequested();
        break;
    case Qt::Key_Insert:
        emit newRequested();
        break;
    case Qt::Key_Delete:
        emit deleteRequested();
        break;
    default:
        QListView::keyPressEvent(event);
    }
}

void NoteListView::mouseDoubleClickEvent(QMouseEvent* event)
{
    QListView::mouseDoubleClickEvent(event);
    if (event->button() != Qt::LeftButton)
        return;
    if (indexAt(event->position().toPoint()).isValid())
        emit openRequested();
    else
        emit newRequested();
}

void NoteListView::mouseReleaseEvent(QMouseEvent* event)
{
    QListView::mouseReleaseEvent(event);
    if (event->button() == Qt::RightButton)
        emit menuRequested(event->globalPosition().toPoint());
}

void NoteListView::contextMenuEvent(QContextMenuEvent* event)
{
    if (event->reason() != QContextMenuEvent::Keyboard)
        return; // the mouse asks when its button goes up
    const QModelIndex current = currentIndex();
    emit menuRequested(viewport()->mapToGlobal(current.isValid() ? visualRect(current).center() : QPoint(8, 8)));
}
