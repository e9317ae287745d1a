// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "explorer/ui/MemoListModel.h"

#include "explorer/ui/ReportIcons.h"

using namespace Qt::StringLiterals;

MemoListModel::MemoListModel(QObject* parent) : ElementListModel({u"Memo"_s, u"Date In"_s, u"Last Modified"_s}, parent)
{
}

void MemoListModel::setRows(std::vector<MemoRow> rows)
{
    refill([&] { m_rows = std::move(rows); });
}

QString MemoListModel::cellText(int element, int column) const
{
    const MemoRow& row = m_rows[size_t(element)];
    return column == 0 ? row.name : shortMoment(column == 1 ? row.dateIn : row.dateLastMod);
}

QVariant MemoListModel::cellIcon(int, int column) const
{
    return column == 0 ? QVariant(reportIcon(u"memo"_s)) : QVariant();
}

QString MemoListModel::keySuffix(int) const
{
    return u" M_ID"_s;
}

QString MemoListModel::tag(int) const
{
    return u"Memo"_s;
}
