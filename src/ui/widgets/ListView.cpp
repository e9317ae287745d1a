// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/widgets/ListView.h"

#include "archive/SqlText.h"
#include "ui/widgets/CellDelegate.h"

#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QScrollBar>
#include <QSet>
#include <algorithm>
#include <utility>

namespace {

int combinationOf(const QKeyEvent& event)
{
    return event.key() | int(event.modifiers() & ~Qt::KeypadModifier);
}

// In runs, not row by row: there may be 100,000.
QItemSelection rowsWith(const QSet<QString>& keys, const QAbstractItemModel& model)
{
    QItemSelection selection;
    int first = -1;
    for (int row = 0, rows = keys.isEmpty() ? 0 : model.rowCount(); row <= rows; ++row) {
        const bool isInRun = row < rows && keys.contains(model.index(row, 0).data(Qt::UserRole).toString());
        if (isInRun && first < 0)
            first = row;
        if (!isInRun && first >= 0)
            selection.select(model.index(std::exchange(first, -1), 0), model.index(row - 1, 0));
    }
    return selection;
}

} // namespace

ListView::ListView(QWidget* parent) : QTreeView(parent)
{
    setRootIsDecorated(false);
    setItemsExpandable(false);
    setUniformRowHeights(true); // 100,000 rows are laid out at once only so
    setAllColumnsShowFocus(true);
    setSelectionMode(ExtendedSelection);
    setEditTriggers(NoEditTriggers);
    setAlternatingRowColors(true);
    setIconSize(QSize(16, 16));
    setItemDelegate(new CellDelegate(this));
    header()->setSectionsClickable(true);
    header()->setStretchLastSection(true);
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_F2})
        addKey(key, [this] { emit openRequested(); });
    addKey(Qt::Key_Insert, [this] { emit newRequested(); });
    addKey(Qt::Key_Delete, [this] { emit deleteRequested(); });
}

void ListView::setList(QAbstractItemModel* model, int nameColumn)
{
    m_nameColumn = nameColumn;
    setItemDelegate(new CellDelegate(this, nameColumn));
    setModel(model);
}

void ListView::sortWith(SortDirection& direction)
{
    connect(header(), &QHeaderView::sectionClicked, this, [this, &direction](int column) {
        direction.descending = !direction.descending;
        const Qt::SortOrder order = direction.descending ? Qt::DescendingOrder : Qt::AscendingOrder;
        header()->setSortIndicatorShown(true);
        header()->setSortIndicator(column, order);
        model()->sort(column, order);
        scrollTo(currentIndex());
    });
}

void ListView::addKey(QKeyCombination key, const std::function<void()>& routine)
{
    m_keys.insert(key.toCombined(), routine);
}

QString ListView::keyOf(int row) const
{
    return model()->index(row, 0).data(Qt::UserRole).toString();
}

QModelIndexList ListView::selectedRows() const
{
    QModelIndexList rows = selectionModel()->selectedRows();
    std::sort(rows.begin(), rows.end());
    return rows;
}

QModelIndex ListView::selectedRow() const
{
    const QModelIndex current = currentIndex().siblingAtColumn(0);
    if (current.isValid() && selectionModel()->isSelected(current))
        return current;
    return selectedRows().value(0);
}

QString ListView::selectedKey() const
{
    return selectedRow().data(Qt::UserRole).toString();
}

qint32 ListView::selectedId() const
{
    return leadingNumber(selectedKey());
}

QStringList ListView::selectedKeys() const
{
    QStringList keys;
    for (const QModelIndex& row : selectedRows())
        keys.append(row.data(Qt::UserRole).toString());
    return keys;
}

std::vector<qint32> ListView::selectedIds() const
{
    std::vector<qint32> ids;
    for (const QString& key : selectedKeys())
        ids.push_back(leadingNumber(key));
    return ids;
}

// The row of the first of them that is there.
QModelIndex ListView::find(const QStringList& keys) const
{
    for (const QString& key : keys)
        for (int row = 0, rows = key.isEmpty() ? 0 : model()->rowCount(); row < rows; ++row)
            if (keyOf(row) == key)
                return model()->index(row, m_nameColumn);
    return {};
}

void ListView::selectKey(const QString& key)
{
    selectionModel()->clear();
    const QModelIndex index = find({key});
    if (!index.isValid())
        return;
    selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    scrollTo(index);
}

void ListView::selectKeys(const QStringList& keys, const QString& current)
{
    const QItemSelection selection = rowsWith({keys.begin(), keys.end()}, *model());
    if (const QModelIndex focus = find({current}); focus.isValid())
        selectionModel()->setCurrentIndex(focus, QItemSelectionModel::NoUpdate);
    selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

bool ListView::isItemAt(const QPoint& viewportPosition) const
{
    return indexAt(viewportPosition).isValid();
}

void ListView::refill(const std::function<void()>& fill)
{
    fillAndSelect(fill, {});
}

void ListView::refillAfterDelete(const std::function<void()>& fill)
{
    fillAndSelect(fill, keysBesideSelection());
}

// Of the row after the last selected one, and of the nearest before it that is not selected.
QStringList ListView::keysBesideSelection() const
{
    const QModelIndexList rows = selectedRows();
    if (rows.isEmpty())
        return {};
    int before = rows.last().row();
    for (auto row = rows.crbegin(); row != rows.crend() && row->row() == before; ++row)
        --before;
    return {keyOf(rows.last().row() + 1), keyOf(before)};
}

void ListView::fillAndSelect(const std::function<void()>& fill, const QStringList& next)
{
    const QStringList selected = selectedKeys();
    const int currentRow = currentIndex().row();
    const QString current = keyOf(currentRow);
    const int seen = verticalScrollBar()->value();
    fill();
    const QModelIndex neighbour = find(next);
    const QString focus = keyOf(neighbour.row());
    selectKeys(neighbour.isValid() ? QStringList(focus) : selected, neighbour.isValid() ? focus : current);
    // What stands in the place of a row that is gone gets the focus, so that the keyboard goes on from there.
    if (currentRow >= 0 && !currentIndex().isValid())
        selectionModel()->setCurrentIndex(model()->index(std::min(currentRow, model()->rowCount() - 1), m_nameColumn),
                                          QItemSelectionModel::NoUpdate);
    doItemsLayout();
    verticalScrollBar()->setValue(seen);
    emit selectionMade(); // a reset of the model drops the selection without a word
}

bool ListView::event(QEvent* event)
{
    if (event->type() == QEvent::ShortcutOverride && m_keys.contains(combinationOf(static_cast<QKeyEvent&>(*event)))) {
        event->accept();
        return true;
    }
    return QTreeView::event(event);
}

void ListView::keyPressEvent(QKeyEvent* event)
{
    if (const auto routine = m_keys.constFind(combinationOf(*event)); routine != m_keys.cend())
        (*routine)();
    else if (event->key() != Qt::Key_Space || !toggleCheckBox())
        QTreeView::keyPressEvent(event);
}

bool ListView::toggleCheckBox()
{
    const QModelIndex box = currentIndex().siblingAtColumn(0);
    if (!(box.flags() & Qt::ItemIsUserCheckable))
        return false;
    const bool isChecked = box.data(Qt::CheckStateRole).toInt() == Qt::Checked;
    return model()->setData(box, isChecked ? Qt::Unchecked : Qt::Checked, Qt::CheckStateRole);
}

// Two quick clicks on a check box are two ticks. A cell that shows nothing else is all box.
bool ListView::isOnCheckBox(const QPoint& position) const
{
    const QModelIndex index = indexAt(position);
    if (!(index.flags() & Qt::ItemIsUserCheckable))
        return false;
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    option.rect = visualRect(index);
    option.index = index;
    option.features |= QStyleOptionViewItem::HasCheckIndicator | QStyleOptionViewItem::HasDisplay;
    return index.data().toString().isEmpty() ||
        style()->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &option, this).contains(position);
}

void ListView::keyboardSearch(const QString& search)
{
    const int row = std::max(currentIndex().row(), 0);
    selectionModel()->setCurrentIndex(model()->index(row, m_nameColumn), QItemSelectionModel::NoUpdate);
    QTreeView::keyboardSearch(search);
}

void ListView::mouseDoubleClickEvent(QMouseEvent* event)
{
    const QPoint position = event->position().toPoint();
    const bool isOnBox = isOnCheckBox(position);
    const bool isOnItem = isItemAt(position);
    QTreeView::mouseDoubleClickEvent(event);
    if (event->button() != Qt::LeftButton || isOnBox)
        return;
    if (isOnItem)
        emit openRequested();
    else
        emit newRequested();
}

void ListView::mouseReleaseEvent(QMouseEvent* event)
{
    QTreeView::mouseReleaseEvent(event);
    const bool overItem = isItemAt(event->position().toPoint());
    emit released(overItem);
    if (event->button() == Qt::RightButton)
        emit menuRequested(event->globalPosition().toPoint(), overItem);
}

void ListView::contextMenuEvent(QContextMenuEvent* event)
{
    const bool isKey = event->reason() == QContextMenuEvent::Keyboard;
    if (!isKey && QGuiApplication::mouseButtons() & Qt::RightButton)
        return; // the mouse asks when its button goes up
    const QModelIndex row = isKey ? selectedRow() : indexAt(event->pos());
    emit released(row.isValid());
    const QPoint beside = row.isValid() ? visualRect(row).center() : QPoint(8, 8);
    emit menuRequested(isKey ? viewport()->mapToGlobal(beside) : event->globalPos(), row.isValid());
}

void ListView::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected)
{
    QTreeView::selectionChanged(selected, deselected);
    emit selectionMade();
}
