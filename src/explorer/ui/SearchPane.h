// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "explorer/ui/ElementListView.h"
#include "explorer/ui/ExplorerContext.h"
#include "explorer/ui/LongWork.h"
#include "explorer/ui/SearchListModel.h"

#include <QObject>
#include <optional>

namespace Ui {
class frmSnipValeS;
}

// The search pane of the explorer: what to look for and where, and the list of what was found. Errors are shown here;
// the list keeps what it had then.
class SearchPane : public QObject {
    Q_OBJECT
public:
    SearchPane(Ui::frmSnipValeS& ui, const ExplorerContext& context, SortDirection& sort,
               SearchListModel::PathOf pathOf, QObject* parent);

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
    void searchAlone(ElementKind kind, bool keep);
    bool collect(ElementKind kind, LongWork& work, std::vector<SearchHit>& hits);
    void tellEnd(const LongWork& work);
    void showHits(std::vector<SearchHit> hits);
    bool deleteHits(ElementKind kind, const std::vector<SearchHit>& selected); // true when there were any
    std::vector<SearchHit> selectedHits() const;

    Ui::frmSnipValeS& m_ui;
    ExplorerContext m_context;
    SearchListModel* m_model;
    int m_patience = LongWork::usualPatience;
};
