// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "explorer/ui/BookmarkListModel.h"

#include "explorer/ui/ReportIcons.h"

using namespace Qt::StringLiterals;

BookmarkListModel::BookmarkListModel(QObject* parent)
    : ElementListModel({u"Bookmark name"_s, u"Link"_s, u"Description"_s}, parent)
{
}

void BookmarkListModel::setRows(std::vector<BookmarkRow> rows)
{
    refill([&] { m_rows = std::move(rows); });
}

QString BookmarkListModel::cellText(int element, int column) const
{
    const BookmarkRow& row = m_rows[size_t(element)];
    return column == 0 ? row.name : column == 1 ? row.url : row.description;
}

QVariant BookmarkListModel::cellIcon(int, int column) const
{
    return column == 0 ? QVariant(reportIcon(u"bookmark"_s)) : QVariant();
}

QString BookmarkListModel::keySuffix(int) const
{
    return u" B_ID"_s;
}

QString BookmarkListModel::tag(int) const
{
    return u"bookmark"_s;
}
