// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "explorer/ui/SearchPane.h"

#include "archive/Archive.h"
#include "archive/ErrorTrap.h"
#include "archive/SqlText.h"
#include "desktop/FrameServices.h"
#include "desktop/Questions.h"
#include "explorer/ui/ElementLists.h"
#include "ui/widgets/Icons.h"
#include "ui_frmSnipValeS.h"

#include <QHeaderView>
#include <QSet>
#include <algorithm>

using namespace Qt::StringLiterals;

SearchList::SearchList(PathOf pathOf)
    : ElementListModel({u"Memo"_s, u"Category"_s, u"Type"_s}), m_pathOf(std::move(pathOf))
{
}

void SearchList::setHits(std::vector<SearchHit> hits)
{
    refill([&] {
        m_hits = std::move(hits);
        m_paths.clear();
        for (const SearchHit& hit : m_hits)
            if (!m_paths.contains(hit.categoryID))
                m_paths.insert(hit.categoryID, m_pathOf(hit.categoryID));
    });
}

QVariant SearchList::data(const QModelIndex& index, int role) const
{
    if (role == TagRole && index.column() == CategoryColumn && checkIndex(index, CheckIndexOption::IndexIsValid))
        return CategoryNode{hitAt(index.row()).categoryID, {}, {}}.key();
    return ElementListModel::data(index, role);
}

QString SearchList::cellText(int element, int column) const
{
    const SearchHit& hit = m_hits[size_t(element)];
    return column == NameColumn ? hit.name : column == CategoryColumn ? m_paths.value(hit.categoryID) : hit.type;
}

QVariant SearchList::cellIcon(int element, int column) const
{
    return column == NameColumn ? QVariant(reportIcon(wordsOf(elementKey(element).kind).image)) : QVariant();
}

SearchPane::SearchPane(Ui::frmSnipValeS& ui, Archive& archive, FrameServices& frame, SortDirection& sort,
                       SearchList::PathOf pathOf, QObject* parent)
    : QObject(parent), m_ui(ui), m_archive(archive), m_frame(frame), m_model(new SearchList(std::move(pathOf)))
{
    m_model->setParent(this);
    m_ui.lvwSearch->setList(m_model);
    m_ui.lvwSearch->sortWith(sort);
    const int unit = m_ui.lvwSearch->fontMetrics().averageCharWidth();
    m_ui.lvwSearch->header()->resizeSection(SearchList::NameColumn, unit * 50);
    m_ui.lvwSearch->header()->resizeSection(SearchList::CategoryColumn, unit * 40);
    m_ui.picSearchClose->setIcon(themedIcon(u"window-close"_s));
    m_ui.txtSearchText->setMaxLength(8'000'000); // what is pasted is searched for whole
    m_ui.picSearch->hide();
    m_frame.checkCommand(u"Search"_s, false);
    wire();
    enableNeeding(false);
}

void SearchPane::wire()
{
    const ListView* list = m_ui.lvwSearch;
    connect(list, &ListView::openRequested, this, &SearchPane::openRequested);
    connect(list, &ListView::newRequested, this, &SearchPane::openRequested);
    connect(list, &ListView::deleteRequested, this, &SearchPane::DeleteSearchMemo);
    connect(list, &ListView::released, this, &SearchPane::enableNeeding);
    connect(list, &ListView::selectionMade, this,
            [this, list] { enableNeeding(list->selectionModel()->hasSelection()); });
    connect(list, &ListView::menuRequested, this,
            [this](const QPoint& position) { m_frame.popupMenu(u"mnuSearch"_s, position); });
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
        m_frame.enableCommand(QString::fromLatin1(name), enabled);
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
    m_frame.checkCommand(u"Search"_s, showSearch);
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
        m_archive.questions().ask(u"Please enter text to search for"_s, MessageStyle::Information);
        m_ui.txtSearchText->setFocus();
        return;
    }
    Search();
}

bool SearchPane::isChecked(ElementKind kind) const
{
    const QCheckBox* const boxes[] = {m_ui.chkMemo, m_ui.chkBookmark, m_ui.chkToDo};
    return boxes[size_t(kind)]->isChecked();
}

void SearchPane::Search()
{
    std::vector<ElementKind> checked;
    std::copy_if(std::begin(elementKinds), std::end(elementKinds), std::back_inserter(checked),
                 [this](ElementKind kind) { return isChecked(kind); });
    if (checked.empty())
        m_archive.questions().ask(u"Choose where you want to find your memos."_s, MessageStyle::Exclamation);
    else
        search(checked, false);
}

void SearchPane::SearchMemo()
{
    search({ElementKind::Memo}, false);
}

void SearchPane::SearchBookmark()
{
    search({ElementKind::Bookmark}, m_ui.chkMemo->isChecked());
}

void SearchPane::SearchToDo()
{
    search({ElementKind::ToDo}, m_ui.chkMemo->isChecked() || m_ui.chkBookmark->isChecked());
}

void SearchPane::search(const std::vector<ElementKind>& kinds, bool keepHits)
{
    LongWork work(m_frame, u"Searching... press Escape to stop"_s, m_patience);
    std::vector<SearchHit> hits;
    if (keepHits)
        hits = m_model->hits();
    for (const ElementKind kind : kinds)
        if (!collect(kind, work, hits))
            return;
    showHits(std::move(hits));
    if (work.isShown()) // the status says that it is searched; now it is over
        m_frame.setStatus(u"Search -  items: "_s + QString::number(m_model->rowCount()));
}

// False when it failed or was stopped; the user has been told then.
bool SearchPane::collect(ElementKind kind, LongWork& work, std::vector<SearchHit>& hits)
{
    const SearchFields fields{m_ui.chkMemoName->isChecked(), m_ui.chkSnipVale->isChecked(),
                              m_ui.chkMemoNotes->isChecked()};
    const auto read = [&] {
        try {
            std::vector<SearchHit> found = searchElements(m_archive, kind, m_ui.txtSearchText->text(), fields,
                                                          [&work] { return work.keepGoing(); });
            hits.insert(hits.end(), std::make_move_iterator(found.begin()), std::make_move_iterator(found.end()));
        } catch (const jet::Error&) {
            if (!work.isStopped())
                throw;
        }
        if (work.isStopped())
            m_frame.setStatus(u"The search was stopped"_s);
    };
    return trapErrors(m_archive.questions(), u"Search"_s + wordsOf(kind).name, read) && !work.isStopped();
}

void SearchPane::showHits(std::vector<SearchHit> hits)
{
    m_model->setHits(std::move(hits));
    enableNeeding(false);
    m_ui.lblSearch->setText(u" Search: ("_s + QString::number(m_model->rowCount()) + u')');
}

std::optional<SearchHit> SearchPane::selectedHit() const
{
    const QModelIndex row = m_ui.picSearch->isHidden() ? QModelIndex() : m_ui.lvwSearch->selectedRow();
    return row.isValid() ? std::optional(m_model->hitAt(row.row())) : std::nullopt;
}

std::vector<qint32> SearchPane::selectedIds(ElementKind kind) const
{
    QModelIndexList rows = m_ui.lvwSearch->selectionModel()->selectedRows();
    std::sort(rows.begin(), rows.end());
    std::vector<qint32> ids;
    for (const QModelIndex& row : rows)
        if (const ElementKey& key = m_model->hitAt(row.row()).key; key.kind == kind)
            ids.push_back(key.id);
    return ids;
}

void SearchPane::DeleteSearchMemo()
{
    std::vector<SearchHit> rest = m_model->hits();
    trapErrors(m_archive.questions(), u"DeleteSearchMemo"_s, [&] {
        if (!selectedHit() || !mayDeleteElements(m_archive.questions()))
            return;
        // Each kind by its own statement: a bookmark may have the number of a memo.
        for (const ElementKind kind : elementKinds) {
            const std::vector<qint32> ids = selectedIds(kind);
            if (ids.empty())
                continue;
            deleteElements(m_archive, kind, idList(ids));
            const QSet<qint32> deleted(ids.begin(), ids.end());
            std::erase_if(rest,
                          [&](const SearchHit& hit) { return hit.key.kind == kind && deleted.contains(hit.key.id); });
        }
    });
    if (rest.size() == m_model->hits().size())
        return;
    m_ui.lvwSearch->refillAfterDelete([&] { showHits(std::move(rest)); });
    emit elementsDeleted();
}
