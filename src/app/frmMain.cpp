// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/frmMain.h"

#include "app/CommandBars.h"
#include "app/modSnipVale.h"
#include "archive/ErrorTrap.h"
#include "desktop/Desktop.h"
#include "desktop/Questions.h"
#include "explorer/BookmarkPane.h"
#include "explorer/MemoPane.h"
#include "explorer/SearchPane.h"
#include "explorer/ToDoPane.h"
#include "explorer/frmSnipValeS.h"
#include "tasks/AlarmWindows.h"
#include "tasks/frmSysTray.h"

#include <QLabel>
#include <QMenu>
#include <QStackedWidget>
#include <QStatusBar>
#include <QToolBar>

using namespace Qt::StringLiterals;

namespace {

constexpr int taskInterval = 15000; // ms

// A view of the side bar and the tool bar that goes with it.
struct ViewBar {
    const char16_t* view;
    const char16_t* bar;
};
constexpr ViewBar viewBars[] = {{u"Memo", u"barMemo"}, {u"Password", u"barPassword"}, {u"Note", u"barNote"}};

} // namespace

frmMain::frmMain(modSnipVale& program, const Desktop& desktop)
    : m_program(program), m_desktop(desktop), m_bars(new CommandBars(*this)), m_views(new QStackedWidget(this)),
      m_memo(program.archive), m_bookmark(program.archive), m_toDo(program.archive), m_category(program.archive)
{
    setObjectName(u"frmMain"_s);
    setCentralWidget(m_views);
    resize(1120, 720);
    makeStatusBar();
    m_bars->setFlatLook(m_program.XPLook);
    makeCommands();
    TimerTask.setObjectName(u"TimerTask"_s);
    TimerTask.setParent(this);
    makeReminders();
    TimerTask.start(taskInterval);
    showView(u"Memo"_s);
    setWindowTitle(m_program.captionWithPath());
    setStatus(u"Snip Vale"_s);
}

frmMain::~frmMain()
{
    TimerTask.setParent(nullptr); // a member, not the frame's to delete
    closeViews();
}

void frmMain::makeStatusBar()
{
    statusBar()->setObjectName(u"sbStatusBar"_s);
    m_status = new QLabel(this);
    m_status->setObjectName(u"status"_s);
    m_status->setTextFormat(Qt::PlainText);
    m_status->setIndent(6);
    statusBar()->addPermanentWidget(m_status, 1); // permanent: no passing hint may cover it
}

void frmMain::handle(const QString& tool, const QString& routine, std::function<void()> action)
{
    m_bars->handle(tool,
                   [this, routine, action = std::move(action)] { trapErrors(m_desktop.questions, routine, action); });
}

void frmMain::makeCommands()
{
    makeArchiveCommands();
    makeViewCommands();
    makeExplorerCommands();
    handle(u"miHelpWeb"_s, u"HelpWeb"_s, [this] { m_program.HelpWeb(); });
}

void frmMain::makeViewCommands()
{
    handle(u"Memo"_s, u"ActiveBar21_Click"_s, [this] { showView(u"Memo"_s); });
    const auto toggle = [this](const QString& tool, QWidget* widget) {
        m_bars->check(tool, true);
        handle(tool, u"ActiveBar21_Click"_s, [this, tool, widget] {
            widget->setVisible(widget->isHidden());
            m_bars->check(tool, !widget->isHidden());
        });
    };
    toggle(u"miViewTools"_s, m_bars->bar(u"barOutlook"_s));
    toggle(u"miViewStatusBar"_s, statusBar());
    handle(u"miViewToolBar"_s, u"ActiveBar21_Click"_s, [this] {
        for (const ViewBar& row : viewBars) {
            if (m_viewInFront != QStringView(row.view))
                continue;
            QToolBar* bar = m_bars->bar(QStringView(row.bar).toString());
            bar->setVisible(bar->isHidden());
            m_bars->check(u"miViewToolBar"_s, !bar->isHidden());
        }
    });
}

void frmMain::makeExplorerCommands()
{
    const auto command = [this](const char* tool, const char* routine, std::function<void(frmSnipValeS&)> action) {
        handle(QString::fromLatin1(tool), QString::fromLatin1(routine), [this, action = std::move(action)] {
            loadExplorer();
            action(*m_explorer);
        });
    };
    using E = frmSnipValeS;
    command("miCategoryNew", "NewCategory", &E::NewCategory);
    command("miCategoryModify", "ModifyCategory", &E::ModifyCategory);
    command("miCategoryDelete", "DeleteCategory", &E::DeleteCategory);
    command("miCategoryExpandAll", "CategoryExpandAll", [](E& e) { e.CategoryExpandAll(true); });
    command("miCategoryCollapseAll", "CategoryExpandAll", [](E& e) { e.CategoryExpandAll(false); });
    command("miMemoNew", "NewMemo", [](E& e) { e.memos().NewMemo(); });
    command("miMemoModify", "ModifyMemo", [](E& e) { e.memos().ModifyMemo(); });
    command("miMemoDelete", "DeleteMemo", [](E& e) { e.memos().DeleteMemo(); });
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
    handle(u"Search"_s, u"Search"_s, [this] {
        showView(u"Memo"_s);
        m_explorer->search().show();
    });
}

void frmMain::ActiveBar21_Click(const QString& tool)
{
    m_bars->run(tool);
}

void frmMain::loadExplorer()
{
    if (m_explorer)
        return;
    m_explorer =
        new frmSnipValeS({m_program.archive, m_desktop, *this, m_viewFilter, m_memo, m_bookmark, m_category}, m_views);
    m_views->addWidget(m_explorer);
}

void frmMain::showView(const QString& name)
{
    if (name != "Memo"_L1)
        return;
    loadExplorer();
    m_views->setCurrentWidget(m_explorer);
    showBarOf(name);
}

void frmMain::showBarOf(const QString& view)
{
    m_viewInFront = view;
    for (const ViewBar& row : viewBars) {
        const bool isInFront = view == QStringView(row.view);
        m_bars->bar(QStringView(row.bar).toString())->setVisible(isInFront);
        m_bars->check(QStringView(row.view).toString(), isInFront);
    }
    m_bars->check(u"miViewToolBar"_s, true);
}

void frmMain::closeViews()
{
    m_alarms->closeAll();
    delete m_explorer;
    m_explorer = nullptr;
}

void frmMain::enableCommand(const QString& name, bool enabled)
{
    m_bars->enable(name, enabled);
}

void frmMain::checkCommand(const QString& name, bool checked)
{
    m_bars->check(name, checked);
}

void frmMain::runCommand(const QString& name)
{
    m_bars->run(name);
}

void frmMain::setStatus(const QString& text)
{
    m_status->setText(text);
    m_status->repaint(); // long work may follow
}

void frmMain::popupMenu(const QString& name, const QPoint& screenPosition)
{
    if (QMenu* menu = m_bars->menu(name))
        menu->popup(screenPosition);
}
