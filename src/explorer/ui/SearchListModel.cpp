// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "explorer/ui/SearchListModel.h"

#include "explorer/ui/ReportIcons.h"

using namespace Qt::StringLiterals;

SearchListModel::SearchListModel(PathOf pathOf, QObject* parent)
    : ElementListModel({u"Memo"_s, u"Category"_s, u"Type"_s}, parent), m_pathOf(std::move(pathOf))
{
}

void SearchListModel::setHits(std::vector<SearchHit> hits)
{
    refill([&] {
        m_hits = std::move(hits);
        m_paths.clear();
        for (const SearchHit& hit : m_hits)
            if (!m_paths.contains(hit.categoryID))
                m_paths.insert(hit.categoryID, m_pathOf(hit.categoryID));
    });
}

QVariant SearchListModel::data(const QModelIndex& index, int role) const
{
    if (role == TagRole && index.column() == CategoryColumn && checkIndex(index, CheckIndexOption::IndexIsValid))
        return QString::number(hitAt(index.row()).categoryID) + u" ID"_s;
    return ElementListModel::data(index, role);
}

QString SearchListModel::cellText(int element, int column) const
{
    const SearchHit& hit = m_hits[size_t(element)];
    return column == NameColumn ? hit.name : column == CategoryColumn ? m_paths.value(hit.categoryID) : hit.type;
}

QVariant SearchListModel::cellIcon(int element, int column) const
{
    if (column != NameColumn)
        return {};
    return reportIcon(tag(element).toLower());
}
