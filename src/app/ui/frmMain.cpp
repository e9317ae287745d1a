// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/ui/frmMain.h"

#include "app/modSnipVale.h"
#include "app/ui/CommandBars.h"
#include "app/ui/frmHelp.h"
#include "archive/ErrorTrap.h"
#include "desktop/Desktop.h"

#include <QLabel>
#include <QMenu>
#include <QStackedWidget>
#include <QStatusBar>
#include <QToolBar>

using namespace Qt::StringLiterals;

namespace {

constexpr int taskInterval = 15000; // ms

} // namespace

frmMain::frmMain(modSnipVale& program, const Desktop& desktop)
    : m_program(program), m_desktop(desktop), m_bars(new CommandBars(*this)), m_views(new QStackedWidget(this)),
      m_memo(program.archive), m_bookmark(program.archive), m_toDo(program.archive), m_category(program.archive),
      m_note(program.archive), m_password(program.archive, m_vault), m_vault(program.archive, m_blowfish),
      m_noteWindows(program.archive)
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
    makeVaultCommands();
    makeNoteCommands();
    makeToolCommands();
}

void frmMain::ActiveBar21_Click(const QString& tool)
{
    m_bars->run(tool);
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
