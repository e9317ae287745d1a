// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "explorer/Search.h"
#include "explorer/ui/ElementListModel.h"

#include <QHash>
#include <functional>

// What a search found, of all kinds in one list: name, path of the category, language. The key of the category
// ("12 ID") is the tag of the cell with its path.
class SearchListModel final : public ElementListModel {
    Q_OBJECT
public:
    enum Column { NameColumn, CategoryColumn, TypeColumn };
    using PathOf = std::function<QString(qint32 categoryID)>;

    explicit SearchListModel(PathOf pathOf, QObject* parent = nullptr);
    void setHits(std::vector<SearchHit> hits);
    const std::vector<SearchHit>& hits() const { return m_hits; } // in the order of the search
    const SearchHit& hitAt(int row) const { return m_hits[size_t(elementAt(row))]; }

    QVariant data(const QModelIndex& index, int role) const override;

protected:
    int elementCount() const override { return int(m_hits.size()); }
    qint32 elementId(int element) const override { return m_hits[size_t(element)].id; }
    QString cellText(int element, int column) const override;
    QVariant cellIcon(int element, int column) const override;
    QString keySuffix(int element) const override { return m_hits[size_t(element)].keySuffix(); }
    QString tag(int element) const override { return m_hits[size_t(element)].tag(); }

private:
    PathOf m_pathOf;
    std::vector<SearchHit> m_hits;
    QHash<qint32, QString> m_paths; // of the categories of the hits, as they were when the hits came
};
