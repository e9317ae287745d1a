// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "explorer/ui/ExplorerView.h"

#include "explorer/ui/ElementPanes.h"
#include "explorer/ui/SearchPane.h"
#include "explorer/ui/frmSnipValeS.h"

using namespace Qt::StringLiterals;

ExplorerView::ExplorerView(Archive& archive, const Desktop& desktop, FrameServices& frame, QWidget& window,
                           cViewFilter& filter)
    : FrameView(frame, window, u"Memo"_s, u"barMemo"_s), m_memo(archive), m_bookmark(archive),
      m_category(archive), m_context{archive, desktop, frame, filter, m_memo, m_bookmark, m_category}
{
}

void ExplorerView::registerCommands()
{
    using E = frmSnipValeS;
    const auto command = [this](const char* tool, const char* routine, std::function<void(E&)> action) {
        handle(tool, routine, [this, action = std::move(action)] { action(*m_window); });
    };
    command("miCategoryNew", "NewCategory", &E::NewCategory);
    command("miCategoryModify", "ModifyCategory", &E::ModifyCategory);
    command("miCategoryDelete", "DeleteCategory", &E::DeleteCategory);
    command("miCategoryExpandAll", "CategoryExpandAll", [](E& e) { e.CategoryExpandAll(true); });
    command("miCategoryCollapseAll", "CategoryExpandAll", [](E& e) { e.CategoryExpandAll(false); });
    command("miMemoNew", "NewMemo", [](E& e) { e.memos().NewMemo(); });
    command("miMemoModify", "ModifyMemo", [](E& e) { e.memos().ModifyMemo(); });
    command("miMemoDelete", "DeleteMemo", [](E& e) { e.memos().DeleteMemo(); });
    command("miMemoPrint", "PrintMemo", [](E& e) { e.memos().PrintMemo(); });
    command("miMemoPrintPreview", "PreviewMemo", [](E& e) { e.memos().PreviewMemo(); });
    command("miBookmarkNew", "NewBookmark", [](E& e) { e.bookmarks().NewBookmark(); });
    command("miBookmarkModify", "ModifyBookmark", [](E& e) { e.bookmarks().ModifyBookmark(); });
    command("miBookmarkVisit", "VisitBookmark", [](E& e) { e.bookmarks().VisitBookmark(); });
    command("miBookmarkDelete", "DeleteBookmark", [](E& e) { e.bookmarks().DeleteBookmark(); });
    command("miToDoNew", "NewToDo", [](E& e) { e.toDos().NewToDo(); });
    command("miToDoModify", "ModifyToDo", [](E& e) { e.toDos().ModifyToDo(); });
    command("miToDoDelete", "DeleteToDo", [](E& e) { e.toDos().DeleteToDo(); });
    command("miToDoIncreasePriority", "ToDoIncreasePriority", [](E& e) { e.toDos().ToDoIncreasePriority(); });
    command("miToDoDecreasePriority", "ToDoDecreasePriority", [](E& e) { e.toDos().ToDoDecreasePriority(); });
    command("miSearchOpenElement", "OpenSearchElement", &E::OpenSearchElement);
    command("miSearchDeleteMemo", "DeleteSearchMemo", [](E& e) { e.search().DeleteSearchMemo(); });
    command("miSearchSelectElementInTreeView", "SelectElementInTreeView", &E::SelectElementInTreeView);
    command("Search", "Search", [](E& e) { e.search().show(); });
}

QWidget* ExplorerView::open()
{
    if (!m_window) {
        m_wasBehind = false;
        m_window = new frmSnipValeS(m_context, &m_frameWindow);
    }
    return m_window;
}

// A new one has just read everything.
void ExplorerView::cameToFront()
{
    if (std::exchange(m_wasBehind, false))
        m_window->cameToFront();
}

void ExplorerView::toDosChanged()
{
    if (m_window)
        m_window->toDos().rowsChanged();
}

void ExplorerView::readAgain()
{
    if (m_window)
        m_window->LoadTreeView();
}

void ExplorerView::close()
{
    delete std::exchange(m_window, nullptr);
}
