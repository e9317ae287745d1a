// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/widgets/CellDelegate.h"

#include "ui/widgets/ShownText.h"

#include <QIcon>
#include <QWidget>
#include <algorithm>

CellDelegate::CellDelegate(QObject* parent, int pictureColumn)
    : QStyledItemDelegate(parent), m_pictureColumn(pictureColumn)
{
}

QString CellDelegate::displayText(const QVariant& value, const QLocale&) const
{
    return shownLine(value.toString());
}

QSize CellDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    const QSize size = QStyledItemDelegate::sizeHint(option, index);
    const int least = m_pictureColumn < 0 ? 0 : option.decorationSize.height() + 2;
    return {size.width(), std::max(size.height(), least)};
}

void CellDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const
{
    const QSize size = option->decorationSize;
    QStyledItemDelegate::initStyleOption(option, index);
    if (index.data(Qt::BackgroundRole).isValid())
        option->state &= ~QStyle::State_Selected;
    if (index.column() == m_pictureColumn) {
        option->features |= QStyleOptionViewItem::HasDecoration;
        option->decorationSize = size;
    }
    if (option->icon.isNull() || !(option->state & QStyle::State_Selected))
        return;
    // A style tints it with the colour of the selection, and thin line drawings are then hardly to be seen.
    const QPixmap picture = option->icon.pixmap(size, option->widget ? option->widget->devicePixelRatioF() : 1.0);
    option->icon = QIcon(picture);
    option->icon.addPixmap(picture, QIcon::Selected);
}
