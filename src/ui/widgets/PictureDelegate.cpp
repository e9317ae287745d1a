// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/widgets/PictureDelegate.h"

#include <QIcon>
#include <QWidget>

void PictureDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const
{
    const QSize size = option->decorationSize;
    QStyledItemDelegate::initStyleOption(option, index);
    if (option->icon.isNull() || !(option->state & QStyle::State_Selected))
        return;
    const QPixmap picture = option->icon.pixmap(size, option->widget ? option->widget->devicePixelRatioF() : 1.0);
    option->icon = QIcon(picture);
    option->icon.addPixmap(picture, QIcon::Selected);
}
