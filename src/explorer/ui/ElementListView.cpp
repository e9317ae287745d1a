// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "explorer/ui/ElementListView.h"

#include "explorer/ui/ElementListModel.h"
#include "ui/widgets/PictureDelegate.h"
#include "ui/widgets/Selection.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QSet>
#include <algorithm>

namespace {

// A cell is one short line, however long the text is: laying out a megabyte of text takes seconds. Rows are equally
// high, and names begin at one place, whether or not there is a picture.
class CellDelegate final : public PictureDelegate {
public:
    explicit CellDelegate(ElementListView* view) : PictureDelegate(view), m_view(*view) { }
    QString displayText(const QVariant& value, const QLocale&) const override
    {
        QString text = value.toString().left(1000);
        for (QChar& c : text)
            if (c < QChar(32) || c == QChar::LineSeparator || c == QChar::ParagraphSeparator)
                c = u' ';
        return text;
    }
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        const QSize size = PictureDelegate::sizeHint(option, index);
        return {size.width(), std::max(size.height(), option.decorationSize.height() + 2)};
    }

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override
    {
        const QSize picture = option->decorationSize;
        PictureDelegate::initStyleOption(option, index);
        if (index.column() != m_view.list()->nameColumn() || option->features & QStyleOptionViewItem::HasDecoration)
            return;
        option->features |= QStyleOptionViewItem::HasDecoration;
        option->decorationSize = picture;
    }

private:
    const ElementListView& m_view;
};

} // namespace

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
    setItemDelegate(new CellDelegate(this));
    setIconSize(QSize(16, 16));
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
    const QModelIndex index = model()->index(list()->rowOf(key), list()->nameColumn());
    if (!index.isValid())
        return;
    selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    scrollTo(index);
}

void ElementListView::selectKeys(const QStringList& keys, const QString& current)
{
    const QSet<QString> wanted(keys.begin(), keys.end());
    const QItemSelection selection = wanted.isEmpty()
        ? QItemSelection()
        : selectionOf(*model(), [&](int row) { return wanted.contains(list()->keyOf(row)); });
    const QModelIndex focus = model()->index(list()->rowOf(current), list()->nameColumn());
    if (focus.isValid())
        selectionModel()->setCurrentIndex(focus, QItemSelectionModel::NoUpdate);
    selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
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
    case Qt::Key_Space:
        if (!toggleCheckBox())
            QTreeView::keyPressEvent(event);
        break;
    default:
        QTreeView::keyPressEvent(event);
    }
}

bool ElementListView::toggleCheckBox()
{
    const QModelIndex box = currentIndex().siblingAtColumn(0);
    if (!box.isValid() || !(box.flags() & Qt::ItemIsUserCheckable))
        return false;
    const bool isChecked = box.data(Qt::CheckStateRole).toInt() == Qt::Checked;
    return model()->setData(box, isChecked ? Qt::Unchecked : Qt::Checked, Qt::CheckStateRole);
}

void ElementListView::keyboardSearch(const QString& search)
{
    const int row = std::max(currentIndex().row(), 0);
    selectionModel()->setCurrentIndex(model()->index(row, list()->nameColumn()), QItemSelectionModel::NoUpdate);
    QTreeView::keyboardSearch(search);
}

void ElementListView::mouseDoubleClickEvent(QMouseEvent* event)
{
    QTreeView::mouseDoubleClickEvent(event);
    if (event->button() != Qt::LeftButton)
        return;
    const QModelIndex item = indexAt(event->position().toPoint());
    if (item.isValid() && (item.flags() & Qt::ItemIsUserCheckable))
        return; // two clicks at a check box
    if (item.isValid())
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
