// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "explorer/Search.h"
#include "explorer/ui/ElementListModel.h"
#include "explorer/ui/LongWork.h"

#include <QHash>
#include <functional>
#include <optional>

class Archive;
class ListView;
struct SortDirection;

namespace Ui {
class frmSnipValeS;
}

// What a search found, of all kinds in one list: name, path of the category, language. The key of the category
// ("12 ID") is the tag of the cell with its path.
class SearchList final : public ElementListModel {
public:
    enum Column { NameColumn, CategoryColumn, TypeColumn };
    using PathOf = std::function<QString(qint32 categoryID)>;

    explicit SearchList(PathOf pathOf);
    void setHits(std::vector<SearchHit> hits);
    const std::vector<SearchHit>& hits() const { return m_hits; } // in the order of the search
    const SearchHit& hitAt(int row) const { return m_hits[size_t(elementAt(row))]; }

    QVariant data(const QModelIndex& index, int role) const override;

protected:
    int elementCount() const override { return int(m_hits.size()); }
    ElementKey elementKey(int element) const override { return m_hits[size_t(element)].key; }
    QString cellText(int element, int column) const override;
    QVariant cellIcon(int element, int column) const override;
    QString tag(int element) const override { return wordsOf(elementKey(element).kind).hitTag; }

private:
    PathOf m_pathOf;
    std::vector<SearchHit> m_hits;
    QHash<qint32, QString> m_paths; // of the categories of the hits, as they were when the hits came
};

// The search pane of the explorer: what to look for and where, and the list of what was found. Errors are shown here;
// the list keeps what it had then.
class SearchPane : public QObject {
    Q_OBJECT
public:
    SearchPane(Ui::frmSnipValeS& ui, Archive& archive, FrameServices& frame, SortDirection& sort,
               SearchList::PathOf pathOf, QObject* parent);

    void show(); // with the text selected, ready to be typed over
    void hide(); // the lists have the space again

    void Search(); // what is checked, in one go: an error or Escape leaves the list as it was
    // One kind. Hits of the kinds before it stay when their box is checked.
    void SearchMemo();
    void SearchBookmark();
    void SearchToDo();
    void DeleteSearchMemo(); // the selected hits, after a question

    std::optional<SearchHit> selectedHit() const; // the current one, else the first selected
    void setPatience(int milliseconds) { m_patience = milliseconds; } // see LongWork

signals:
    void openRequested();
    void elementsDeleted();

private:
    void wire();
    void layoutPanes(bool showSearch);
    void enableNeeding(bool enabled);
    void cmdSearch_Click();
    bool isChecked(ElementKind kind) const;
    void search(const std::vector<ElementKind>& kinds, bool keepHits);
    bool collect(ElementKind kind, LongWork& work, std::vector<SearchHit>& hits);
    void showHits(std::vector<SearchHit> hits);
    std::vector<qint32> selectedIds(ElementKind kind) const; // in list order

    Ui::frmSnipValeS& m_ui;
    Archive& m_archive;
    FrameServices& m_frame;
    SearchList* m_model;
    int m_patience = LongWork::usualPatience;
};
