// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "explorer/ui/ElementPanes.h"

#include "archive/Archive.h"
#include "archive/ErrorTrap.h"
#include "archive/SqlText.h"
#include "archive/cCategory.h"
#include "desktop/Desktop.h"
#include "desktop/FrameServices.h"
#include "desktop/Questions.h"
#include "explorer/ui/ElementLists.h"
#include "memo/ui/MemoPrint.h"
#include "memo/ui/frmBookmark.h"
#include "memo/ui/frmSnipVale.h"
#include "tasks/modToDo.h"
#include "tasks/ui/frmToDo.h"
#include "ui/widgets/ListView.h"

#include <QHeaderView>

using namespace Qt::StringLiterals;

ElementPane::ElementPane(const Place& place, CategoryList* model, QStringList needing, std::vector<int> widths)
    : QObject(place.parent), m_view(place.view), m_list(*model), m_context(place.context), m_listener(place.listener),
      m_words(wordsOf(model->kind())), m_needing(std::move(needing)), m_widths(std::move(widths))
{
    m_list.setParent(this);
    m_view.setList(&m_list, m_list.nameColumn());
    m_view.sortWith(place.sort);
    wire();
    enableNeeding(false);
}

void ElementPane::wire()
{
    connect(&m_view, &ListView::openRequested, this, &ElementPane::modifyElement);
    connect(&m_view, &ListView::deleteRequested, this, &ElementPane::deleteElements);
    connect(&m_view, &ListView::newRequested, this, [this] {
        if (m_context.category.CategoryID != 0)
            newElement();
    });
    connect(&m_view, &ListView::released, this, &ElementPane::enableNeeding);
    connect(&m_view, &ListView::selectionMade, this,
            [this] { enableNeeding(m_view.selectionModel()->hasSelection()); });
    connect(&m_view, &ListView::menuRequested, this,
            [this](const QPoint& position) { m_context.frame.popupMenu(u"mnu"_s + m_words.name, position); });
}

void ElementPane::enableNeedingButDelete(bool enabled)
{
    m_context.frame.enableCommand(u"mi%1Modify"_s.arg(m_words.name), enabled);
    for (const QString& command : m_needing)
        m_context.frame.enableCommand(command, enabled);
}

void ElementPane::enableNeeding(bool enabled)
{
    enableNeedingButDelete(enabled);
    m_context.frame.enableCommand(u"mi%1Delete"_s.arg(m_words.name), enabled);
}

void ElementPane::setInFront(bool inFront)
{
    if (!inFront)
        enableNeeding(false);
}

void ElementPane::makeColumns()
{
    const int unit = m_view.fontMetrics().averageCharWidth();
    for (size_t i = 0; i < m_widths.size(); ++i)
        m_view.header()->resizeSection(int(i), unit * m_widths[i]);
    m_widths.clear();
}

void ElementPane::fill()
{
    m_list.read(m_context.archive, m_context.category.CategoryID);
    // Nothing is selected in a list that was filled. The delete tool is left to the section and the mouse.
    enableNeedingButDelete(false);
    UpdateStatusBar();
}

void ElementPane::makeContents()
{
    trapErrors(m_context.archive.questions(), u"MakeLvw%1Contents"_s.arg(m_words.name), [&] { fill(); });
}

void ElementPane::refill()
{
    m_view.refill([this] { makeContents(); });
}

void ElementPane::clear()
{
    m_list.clear();
}

void ElementPane::UpdateStatusBar()
{
    m_context.frame.setStatus(m_words.status + QString::number(m_list.rowCount()));
}

void ElementPane::select(qint32 id)
{
    m_view.selectKey(ElementKey{m_list.kind(), id}.text());
}

std::vector<qint32> ElementPane::selectedIds() const
{
    return m_view.isVisibleTo(m_view.window()) ? m_view.selectedIds() : std::vector<qint32>();
}

qint32 ElementPane::selectedId() const
{
    return m_view.isVisibleTo(m_view.window()) ? m_view.selectedId() : 0;
}

void ElementPane::newElement()
{
    openElement(0);
}

void ElementPane::modifyElement()
{
    if (const qint32 id = selectedId())
        openElement(id);
}

void ElementPane::openElement(qint32 id)
{
    cViewFilter& filter = m_context.viewFilter;
    qint32* const edited[] = {&filter.EditingModeMemoID, &filter.EditingModeBookmarkID, &filter.EditingModeToDoID};
    *edited[size_t(m_list.kind())] = id;
    QWidget* window = m_view.window();
    window->setCursor(Qt::WaitCursor);
    trapErrors(m_context.archive.questions(), u"Modify"_s + m_words.name, [&] { showEditor(*window); });
    window->unsetCursor();
}

void ElementPane::deleteElements()
{
    trapErrors(m_context.archive.questions(), u"Delete"_s + m_words.name, [&] {
        const std::vector<qint32> ids = selectedIds();
        if (ids.empty() || !mayDeleteElements(m_context.archive.questions()))
            return;
        ::deleteElements(m_context.archive, m_list.kind(), idList(ids));
        m_view.refillAfterDelete([this] { makeContents(); });
    });
}

MemoPane::MemoPane(const Place& place)
    : ElementPane(place, new MemoList, {u"miMemoPrint"_s, u"miMemoPrintPreview"_s}, {60, 26})
{
}

void MemoPane::showEditor(QWidget& window)
{
    const ExplorerContext& c = context();
    frmSnipVale editor({c.archive, c.desktop, c.viewFilter, listener()}, c.memo, &window);
    if (editor.Form_Load())
        editor.exec();
}

void MemoPane::PrintMemo()
{
    const std::vector<qint32> ids = selectedIds();
    printMemos(view().window(), context().archive, context().desktop, {ids.begin(), ids.end()});
}

void MemoPane::PreviewMemo()
{
    const std::vector<qint32> ids = selectedIds();
    previewMemos(view().window(), context().archive, context().desktop, {ids.begin(), ids.end()});
}

BookmarkPane::BookmarkPane(const Place& place) : ElementPane(place, new BookmarkList, {u"miBookmarkVisit"_s}, {36, 40})
{
}

void BookmarkPane::showEditor(QWidget& window)
{
    const ExplorerContext& c = context();
    frmBookmark editor({c.archive, c.desktop, c.viewFilter, listener()}, c.bookmark, &window);
    if (editor.Form_Load())
        editor.exec();
}

void BookmarkPane::VisitBookmark()
{
    if (selectedId() == 0)
        return;
    trapErrors(context().archive.questions(), u"VisitBookmark"_s, [&] {
        const QString& link = static_cast<BookmarkList&>(list()).rowAt(view().selectedRow().row()).url;
        if (!link.isEmpty())
            context().desktop.shell.openLink(link);
    });
}

ToDoPane::ToDoPane(const Place& place)
    : ElementPane(place, new ToDoList, {u"miToDoIncreasePriority"_s, u"miToDoDecreasePriority"_s}, {8, 52, 14, 11, 17})
{
    connect(static_cast<ToDoList*>(&list()), &ToDoList::doneToggled, this, &ToDoPane::markDone);
}

void ToDoPane::showEditor(QWidget& window)
{
    const ExplorerContext& c = context();
    frmToDo editor({c.archive, c.desktop, c.viewFilter, listener()}, &window);
    if (editor.Form_Load())
        editor.exec();
}

void ToDoPane::rowsChanged()
{
    if (view().isVisibleTo(view().window()))
        refill();
}

void ToDoPane::markDone(qint32 id, bool done)
{
    trapErrors(context().archive.questions(), u"lvwToDo_ItemCheck"_s,
               [&] { markToDoDone(context().archive, id, done); });
    refill();
}

void ToDoPane::ToDoIncreasePriority()
{
    changePriority(u"ToDoIncreasePriority"_s, true);
}

void ToDoPane::ToDoDecreasePriority()
{
    changePriority(u"ToDoDecreasePriority"_s, false);
}

void ToDoPane::changePriority(const QString& routine, bool raise)
{
    const qint32 id = selectedId();
    const auto change = [&] { changeToDoPriority(context().archive, id, raise); };
    if (id != 0 && trapErrors(context().archive.questions(), routine, change))
        refill();
}
