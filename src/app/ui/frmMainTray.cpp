// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The frame's life beside the desktop: reminders, the notification area, hiding, coming back and leaving.
#include "app/modSnipVale.h"
#include "app/ui/CommandBars.h"
#include "app/ui/frmMain.h"
#include "desktop/Desktop.h"
#include "desktop/Questions.h"
#include "explorer/ui/ToDoPane.h"
#include "explorer/ui/frmSnipValeS.h"
#include "tasks/ui/AlarmWindows.h"
#include "tasks/ui/frmSysTray.h"
#include "ui/widgets/Icons.h"

#include <QAction>
#include <QCloseEvent>
#include <QGuiApplication>

using namespace Qt::StringLiterals;

void frmMain::makeReminders()
{
    m_alarms = new AlarmWindows(m_program.archive, m_desktop.sound, m_program.AppPath, this);
    connect(&TimerTask, &QTimer::timeout, m_alarms, &AlarmWindows::check);
    connect(m_alarms, &AlarmWindows::answered, this, [this] {
        if (m_explorer)
            m_explorer->toDos().rowsChanged();
    });
    connect(m_alarms, &AlarmWindows::pendingChanged, this, [this](bool isPending) {
        if (m_tray)
            m_tray->flash(isPending);
    });
}

// The icon is made after the frame is on the screen: asking the desktop for a notification area takes a moment.
void frmMain::loadTray()
{
    if (!m_tray)
        m_tray = std::make_unique<frmSysTray>(
            TrayOwner{*this, [this] { runCommand(u"miHelpAbout"_s); },
                      [this] { return m_bars->action(u"miHelpAbout"_s)->isEnabled(); }, [this] { leave(); }},
            m_desktop.questions);
    m_tray->Load(m_program.archive.ArchivePath());
}

void frmMain::leave()
{
    m_reason = UnloadReason::Code;
    close();
    m_reason = UnloadReason::CloseBox;
}

void frmMain::endSession()
{
    m_reason = UnloadReason::SessionEnd;
    close();
    QCoreApplication::exit(); // a farewell that is still on the screen would have kept close() from doing anything
}

void frmMain::closeEvent(QCloseEvent* event)
{
    const UnloadReason reason = qGuiApp->isSavingSession() ? UnloadReason::SessionEnd : m_reason;
    bool cancel = reason == UnloadReason::Code && !m_noteWindows.closeNotes();
    if (m_tray && !cancel)
        m_tray->MeQueryUnload(*this, cancel, reason);
    event->setAccepted(!cancel);
    if (cancel) {
        m_noteWindows.saveEdited();
        return;
    }
    if (reason != UnloadReason::SessionEnd)
        m_desktop.questions.ask(u"Bye from SnipVale"_s, MessageStyle::Plain);
    m_noteWindows.saveNotes(); // when the system ends the session, nobody can be asked
    m_desktop.clipboard.wipe();
    TimerTask.stop();
    m_alarms->closeAll();
    if (m_tray)
        m_tray->MeUnload();
    QCoreApplication::exit(); // quit() would first ask each window that is still there
}

void frmMain::changeEvent(QEvent* event)
{
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        setUpIconTheme();
    if (event->type() == QEvent::WindowStateChange && m_tray)
        m_tray->MeResize(*this);
}

void frmMain::bringToFront()
{
    if (isHidden() && m_tray)
        overrideWindowState(m_tray->lastState()); // no window manager knows of a hidden one
    show();
    toForeground(*this);
}
