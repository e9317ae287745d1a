// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStyledItemDelegate>

// A cell of a list or tree: one short line, however long and odd its text is. Its picture keeps its colours when it is
// selected, and so does a cell that has a colour of its own.
class CellDelegate : public QStyledItemDelegate {
    Q_OBJECT
public:
    // Names in `pictureColumn` begin at one place, whether or not there is a picture, and rows are equally high.
    explicit CellDelegate(QObject* parent, int pictureColumn = -1);

    QString displayText(const QVariant& value, const QLocale& locale) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

private:
    int m_pictureColumn;
};
