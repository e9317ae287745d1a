// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "explorer/ui/SearchPane.h"

#include "archive/Archive.h"
#include "archive/ErrorTrap.h"
#include "archive/SqlText.h"
#include "desktop/FrameServices.h"
#include "desktop/Questions.h"
#include "explorer/BookmarkRows.h"
#include "explorer/MemoRows.h"
#include "explorer/ToDoRows.h"
#include "ui/widgets/Icons.h"
#include "ui_frmSnipValeS.h"

#include <QHeaderView>
#include <QSet>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr ElementKind kinds[] = {ElementKind::Memo, ElementKind::Bookmark, ElementKind::ToDo};

QString routineOf(ElementKind kind)
{
    return kind == ElementKind::Memo    ? u"SearchMemo"_s
        : kind == ElementKind::Bookmark ? u"SearchBookmark"_s
                                        : u"SearchToDo"_s;
}

} // namespace

SearchPane::SearchPane(Ui::frmSnipValeS& ui, const ExplorerContext& context, SortDirection& sort,
                       SearchListModel::PathOf pathOf, QObject* parent)
    : QObject(parent), m_ui(ui), m_context(context), m_model(new SearchListModel(std::move(pathOf), this))
{
    m_ui.lvwSearch->setList(m_model, SearchListModel::NameColumn);
    m_ui.lvwSearch->sortWith(sort);
    const int unit = m_ui.lvwSearch->fontMetrics().averageCharWidth();
    m_ui.lvwSearch->header()->resizeSection(SearchListModel::NameColumn, unit * 50);
    m_ui.lvwSearch->header()->resizeSection(SearchListModel::CategoryColumn, unit * 40);
    m_ui.picSearchClose->setIcon(themedIcon(u"window-close"_s));
    m_ui.txtSearchText->setMaxLength(8'000'000); // what is pasted is searched for whole
    m_ui.picSearch->hide();
    m_context.frame.checkCommand(u"Search"_s, false);
    wire();
    enableNeeding(false);
}

void SearchPane::wire()
{
    const ElementListView* list = m_ui.lvwSearch;
    connect(list, &ElementListView::openRequested, this, &SearchPane::openRequested);
    connect(list, &ElementListView::newRequested, this, &SearchPane::openRequested);
    connect(list, &ElementListView::deleteRequested, this, &SearchPane::DeleteSearchMemo);
    connect(list, &ElementListView::released, this, &SearchPane::enableNeeding);
    connect(list->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            [this, list] { enableNeeding(list->selectionModel()->hasSelection()); });
    connect(list, &ElementListView::menuRequested, this,
            [this](const QPoint& position) { m_context.frame.popupMenu(u"mnuSearch"_s, position); });
    connect(m_ui.chkMemo, &QCheckBox::toggled, this, [this](bool checked) {
        for (QCheckBox* field : {m_ui.chkMemoName, m_ui.chkSnipVale, m_ui.chkMemoNotes})
            field->setEnabled(checked);
    });
    connect(m_ui.txtSearchText, &QLineEdit::returnPressed, this, &SearchPane::cmdSearch_Click);
    connect(m_ui.cmdSearch, &QPushButton::clicked, this, &SearchPane::cmdSearch_Click);
    connect(m_ui.cmdCloseSearch, &QPushButton::clicked, this, &SearchPane::hide);
    connect(m_ui.picSearchClose, &QToolButton::clicked, this, &SearchPane::hide);
}

void SearchPane::enableNeeding(bool enabled)
{
    for (const char* name : {"miSearchOpenElement", "miSearchDeleteMemo", "miSearchSelectElementInTreeView"})
        m_context.frame.enableCommand(QString::fromLatin1(name), enabled);
}

void SearchPane::show()
{
    layoutPanes(true);
    m_ui.txtSearchText->setFocus();
    m_ui.txtSearchText->selectAll();
}

void SearchPane::hide()
{
    layoutPanes(false);
    enableNeeding(false);
}

void SearchPane::layoutPanes(bool showSearch)
{
    m_context.frame.checkCommand(u"Search"_s, showSearch);
    if (m_ui.picSearch->isHidden() != showSearch)
        return;
    m_ui.picSearch->setVisible(showSearch); // the splitter remembers how high it was
    if (showSearch && !m_ui.picSearch->property("sized").toBool()) {
        m_ui.picSearch->setProperty("sized", true);
        const int height = m_ui.hSplitter->height();
        m_ui.hSplitter->setSizes({height / 2, height - height / 2});
    }
}

void SearchPane::cmdSearch_Click()
{
    if (m_ui.txtSearchText->text().trimmed().isEmpty()) {
        m_context.archive.questions().ask(u"Please enter text to search for"_s, MessageStyle::Information);
        m_ui.txtSearchText->setFocus();
        return;
    }
    Search();
}

bool SearchPane::isChecked(ElementKind kind) const
{
    const QCheckBox* box = kind == ElementKind::Memo ? m_ui.chkMemo
        : kind == ElementKind::Bookmark              ? m_ui.chkBookmark
                                                     : m_ui.chkToDo;
    return box->isChecked();
}

void SearchPane::Search()
{
    if (std::none_of(std::begin(kinds), std::end(kinds), [this](ElementKind kind) { return isChecked(kind); })) {
        m_context.archive.questions().ask(u"Choose where you want to find your memos."_s, MessageStyle::Exclamation);
        return;
    }
    LongWork work(m_context.frame, u"Searching... press Escape to stop"_s, m_patience);
    std::vector<SearchHit> hits;
    for (const ElementKind kind : kinds)
        if (isChecked(kind) && !collect(kind, work, hits))
            return;
    showHits(std::move(hits));
    tellEnd(work);
}

// The status says "Searching" only when it took long; then it must say that it is over.
void SearchPane::tellEnd(const LongWork& work)
{
    if (work.isShown())
        m_context.frame.setStatus(u"Search -  items: "_s + QString::number(m_model->rowCount()));
}

void SearchPane::SearchMemo()
{
    searchAlone(ElementKind::Memo, false);
}

void SearchPane::SearchBookmark()
{
    searchAlone(ElementKind::Bookmark, m_ui.chkMemo->isChecked());
}

void SearchPane::SearchToDo()
{
    searchAlone(ElementKind::ToDo, m_ui.chkMemo->isChecked() || m_ui.chkBookmark->isChecked());
}

void SearchPane::searchAlone(ElementKind kind, bool keep)
{
    LongWork work(m_context.frame, u"Searching... press Escape to stop"_s, m_patience);
    std::vector<SearchHit> hits;
    if (keep)
        hits = m_model->hits();
    if (!collect(kind, work, hits))
        return;
    showHits(std::move(hits));
    tellEnd(work);
}

// False when it failed or was stopped; the user has been told then.
bool SearchPane::collect(ElementKind kind, LongWork& work, std::vector<SearchHit>& hits)
{
    const SearchFields fields{m_ui.chkMemoName->isChecked(), m_ui.chkSnipVale->isChecked(),
                              m_ui.chkMemoNotes->isChecked()};
    return trapErrors(m_context.archive.questions(), routineOf(kind),
                      [&] {
                          try {
                              searchElements(
                                  m_context.archive, kind, m_ui.txtSearchText->text(), fields,
                                  [&] { return work.keepGoing(); }, hits);
                          } catch (const jet::Error&) {
                              if (!work.isStopped())
                                  throw;
                          }
                          if (work.isStopped())
                              m_context.frame.setStatus(u"The search was stopped"_s);
                      }) &&
        !work.isStopped();
}

void SearchPane::showHits(std::vector<SearchHit> hits)
{
    m_model->setHits(std::move(hits));
    enableNeeding(false);
    m_ui.lblSearch->setText(u" Search: ("_s + QString::number(m_model->rowCount()) + u')');
}

std::vector<SearchHit> SearchPane::selectedHits() const
{
    std::vector<SearchHit> selected;
    if (m_ui.picSearch->isHidden())
        return selected;
    QModelIndexList rows = m_ui.lvwSearch->selectionModel()->selectedRows();
    std::sort(rows.begin(), rows.end());
    for (const QModelIndex& row : rows)
        selected.push_back(m_model->hitAt(row.row()));
    return selected;
}

std::optional<SearchHit> SearchPane::selectedHit() const
{
    const QModelIndex current = m_ui.lvwSearch->currentIndex();
    if (!m_ui.picSearch->isHidden() && current.isValid() && m_ui.lvwSearch->selectionModel()->isSelected(current))
        return m_model->hitAt(current.row());
    const std::vector<SearchHit> selected = selectedHits();
    return selected.empty() ? std::nullopt : std::optional(selected.front());
}

bool SearchPane::deleteHits(ElementKind kind, const std::vector<SearchHit>& selected)
{
    std::vector<qint32> ids;
    for (const SearchHit& hit : selected)
        if (hit.kind == kind)
            ids.push_back(hit.id);
    if (ids.empty())
        return false;
    // Each kind by its own statement: a bookmark may have the number of a memo.
    constexpr void (*statements[])(Archive&, const QString&) = {deleteMemos, deleteBookmarks, deleteToDos};
    statements[size_t(kind)](m_context.archive, idList(ids));
    const QSet<qint32> deleted(ids.begin(), ids.end());
    std::vector<SearchHit> rest = m_model->hits();
    std::erase_if(rest, [&](const SearchHit& hit) { return hit.kind == kind && deleted.contains(hit.id); });
    showHits(std::move(rest));
    return true;
}

void SearchPane::DeleteSearchMemo()
{
    bool anyDeleted = false;
    trapErrors(m_context.archive.questions(), u"DeleteSearchMemo"_s, [&] {
        const std::vector<SearchHit> selected = selectedHits();
        if (selected.empty() || !mayDeleteElements(m_context.archive.questions()))
            return;
        for (const ElementKind kind : kinds)
            anyDeleted = deleteHits(kind, selected) || anyDeleted;
    });
    if (anyDeleted)
        emit elementsDeleted();
}
