// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/ui/frmMain.h"

#include "app/modSnipVale.h"
#include "app/ui/CommandBars.h"
#include "app/ui/HelpTopics.h"
#include "app/ui/frmAbout.h"
#include "app/ui/frmHelp.h"
#include "app/ui/frmOptions.h"
#include "archive/Archive.h"
#include "archive/ErrorTrap.h"
#include "desktop/Desktop.h"
#include "desktop/Questions.h"
#include "jet/Maintenance.h"
#include "tasks/ui/frmAlarm.h"
#include "ui/widgets/Icons.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QFileInfo>
#include <QLabel>
#include <QMenu>
#include <QStackedWidget>
#include <QStatusBar>
#include <QToolBar>

using namespace Qt::StringLiterals;

namespace {

constexpr int taskInterval = 15000; // ms
const QString archiveFilter = u"SnipVale Archive (*.SVA) |*.SVA"_s;
const QString ownRoutine = u"ActiveBar21_Click"_s; // of commands without one of their own

} // namespace

frmMain::frmMain(modSnipVale& program, const Desktop& desktop)
    : m_program(program), m_desktop(desktop), m_bars(new CommandBars(*this)), m_views(new QStackedWidget(this)),
      m_noteWindows(program.archive), m_explorer(program.archive, desktop, *this, *this, m_viewFilter),
      m_vault(program.archive, desktop, *this, *this, m_viewFilter),
      m_notes(program.archive, desktop, *this, *this, m_noteWindows)
{
    setObjectName(u"frmMain"_s);
    setCentralWidget(m_views);
    resize(1120, 720);
    makeStatusBar();
    m_bars->setFlatLook(m_program.XPLook);
    makeArchiveCommands();
    makeViewCommands();
    makeToolCommands();
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

// ---- What the views ask for ------------------------------------------------------------------------------------

void frmMain::ActiveBar21_Click(const QString& tool)
{
    m_bars->run(tool);
}

void frmMain::handleCommand(const QString& name, const QString& routine, std::function<void()> handler)
{
    if (handler)
        handler = [this, routine, run = std::move(handler)] { trapErrors(m_desktop.questions, routine, run); };
    m_bars->handle(name, handler);
}

void frmMain::enableCommand(const QString& name, bool enabled)
{
    m_bars->enable(name, enabled);
}

void frmMain::checkCommand(const QString& name, bool checked)
{
    m_bars->check(name, checked);
}

void frmMain::setCommandIcon(const QString& name, const QIcon& icon)
{
    if (QAction* action = m_bars->action(name))
        action->setIcon(icon);
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

// ---- The views -------------------------------------------------------------------------------------------------

void frmMain::makeViewCommands()
{
    for (FrameView* view : m_allViews) {
        view->registerCommands();
        handleCommand(view->name, ownRoutine, [this, view] {
            if (showView(view->name))
                showBarOf(*view);
        });
    }
    const auto toggle = [this](const QString& tool, QWidget* widget) {
        m_bars->check(tool, true);
        handleCommand(tool, ownRoutine, [this, tool, widget] {
            widget->setVisible(widget->isHidden());
            m_bars->check(tool, !widget->isHidden());
        });
    };
    toggle(u"miViewTools"_s, m_bars->bar(u"barOutlook"_s));
    toggle(u"miViewStatusBar"_s, statusBar());
    handleCommand(u"miViewToolBar"_s, ownRoutine, [this] {
        QToolBar* bar = m_bars->bar(m_viewInFront->bar);
        bar->setVisible(bar->isHidden());
        m_bars->check(u"miViewToolBar"_s, !bar->isHidden());
    });
}

bool frmMain::showView(const QString& name)
{
    const auto* const found =
        std::find_if(m_allViews.begin(), m_allViews.end(), [&](const FrameView* view) { return view->name == name; });
    if (found == m_allViews.end())
        return false;
    FrameView& view = **found;
    checkViewInFront(); // a click on the command has moved its mark, and it may not come to the front
    if (m_viewInFront == &view && view.isOpen())
        return true; // no more: a tool bar that the user hid stays hidden, whatever command came here
    QWidget* window = view.open();
    if (window)
        bringToFront(view, *window);
    return window;
}

void frmMain::bringToFront(FrameView& view, QWidget& window)
{
    if (m_viewInFront && m_viewInFront != &view)
        m_viewInFront->wentBehind();
    m_viewInFront = &view;
    if (m_views->indexOf(&window) < 0)
        m_views->addWidget(&window);
    m_views->setCurrentWidget(&window);
    showBarOf(view);
    view.cameToFront();
    checkViewInFront();
}

void frmMain::showBarOf(const FrameView& view)
{
    for (const FrameView* other : m_allViews)
        m_bars->bar(other->bar)->setVisible(other == &view);
    m_bars->check(u"miViewToolBar"_s, true);
}

void frmMain::checkViewInFront()
{
    for (const FrameView* view : m_allViews)
        m_bars->check(view->name, view == m_viewInFront);
}

// What is open belongs to the archive that is left. The notes are closed already, by NoteWindows::closeNotes().
void frmMain::closeViews()
{
    m_alarms->closeAll();
    m_viewInFront = nullptr;
    for (FrameView* view : m_allViews)
        view->close();
    m_help.reset();
}

// ---- The archive -----------------------------------------------------------------------------------------------

void frmMain::makeArchiveCommands()
{
    handleCommand(u"miFileOpen"_s, u"OpenArchive"_s, [this] { OpenArchive(); });
    handleCommand(u"miFileSaveAs"_s, u"SaveArchiveAs"_s, [this] { SaveArchiveAs(); });
    handleCommand(u"miFileCompactDB"_s, u"CompactArchive"_s, [this] { CompactArchive(); });
    handleCommand(u"miFileExit"_s, ownRoutine, [this] { leave(); });
}

// For this run only: the settings keep naming the archive of the next start.
void frmMain::OpenArchive()
{
    const std::optional<QString> chosen = m_desktop.files.openFile(u"Open Archive"_s, archiveFilter);
    if (!chosen || !m_noteWindows.closeNotes())
        return;
    m_program.archive.setPath(*chosen);
    setWindowTitle(m_program.captionWithPath());
    setStatus(u"Opening archive... please wait"_s);
    closeViews();
    for (const FrameView* view : m_allViews)
        m_bars->bar(view->bar)->hide();
    loadTray();
    UpdateArchiveVersion(m_program.archive);
    showView(u"Memo"_s);
    setStatus(u"SnipVale"_s);
}

void frmMain::SaveArchiveAs()
{
    const std::optional<QString> chosen =
        m_desktop.files.saveFile(u"Save SnipVale Archive..."_s, archiveFilter, u"SVA"_s);
    if (!chosen)
        return;
    const QString& archive = m_program.archive.ArchivePath();
    if (chosen->trimmed().toLower() == archive.trimmed().toLower() || jet::isSameFile(*chosen, archive)) {
        m_desktop.questions.ask(u"Attention: it's forbidden to save on working archive! "_s, MessageStyle::Exclamation);
        return;
    }
    jet::copyArchive(archive, *chosen);
}

void frmMain::CompactArchive()
{
    const QString archive = m_program.archive.ArchivePath();
    const QString text = u"The following procedure will compact and repair the current archive!\r\n"
                         "You might do a backup copy of you archive  before starting.\r\n"
                         "Current archive: "_s +
        archive + u"\r\nConfirm procedure?"_s;
    if (m_desktop.questions.ask(text, MessageStyle::YesNo, u"Compact and repair archive"_s) != Answer::Yes)
        return;
    setStatus(u"Working... Please wait"_s);
    setCursor(Qt::WaitCursor);
    jet::CompactResult result;
    // In the archive's own folder, so that taking its place is one rename.
    const QString temporary = QFileInfo(archive).absolutePath() + u"/tmpCompactDB.sva"_s;
    const bool isDone =
        trapErrors(m_desktop.questions, u"CompactArchive"_s, [&] { result = jet::compactArchive(archive, temporary); });
    unsetCursor();
    setStatus(u"SnipVale"_s);
    if (isDone)
        reportCompacted(result);
}

void frmMain::reportCompacted(const jet::CompactResult& result)
{
    m_desktop.questions.ask(u"Done!\r\nFile lenght in byte before procedure: "_s + QString::number(result.bytesBefore) +
                                u"\r\nFile lenght in byte now: "_s + QString::number(result.bytesNow),
                            MessageStyle::Information);
    if (result.damagedCopy.isEmpty())
        return;
    m_desktop.questions.ask(u"The archive was damaged. What could be read is in the repaired archive.\r\n"
                            "The damaged file was kept as "_s +
                                result.damagedCopy,
                            MessageStyle::Exclamation);
    for (FrameView* view : m_allViews)
        view->readAgain();
}

// ---- Options, help, about --------------------------------------------------------------------------------------

void frmMain::makeToolCommands()
{
    handleCommand(u"miToolsOptions"_s, ownRoutine, [this] { showOptions(); });
    handleCommand(u"miHelpWeb"_s, u"HelpWeb"_s, [this] { m_program.HelpWeb(); });
    for (const QString& tool : {u"miHelpManual"_s, u"miHelp"_s})
        handleCommand(tool, u"HelpManual"_s, [this] { HelpManual(); });
    handleCommand(u"miHelpAbout"_s, ownRoutine, [this] { showAbout(); });
    new HelpKey([this] { runCommand(u"miHelpManual"_s); }, this);
}

void frmMain::showOptions()
{
    frmOptions options(m_program, m_desktop, *this, this);
    connect(&options, &frmOptions::lookChanged, m_bars, &CommandBars::setFlatLook);
    options.Form_Load(); // without the languages the rest can still be set
    options.exec();
}

// At the page about what the user is at, whichever window that is in.
void frmMain::HelpManual()
{
    const QString page =
        helpPageFor(QApplication::focusWidget() ? QApplication::focusWidget() : QApplication::activeWindow());
    if (!m_help)
        m_help = std::make_unique<frmHelp>(m_program.helpFolder(), m_desktop);
    m_help->showPage(page);
}

void frmMain::showAbout()
{
    frmAbout about({m_program.archive.ArchivePath(), m_program.AppPath, m_program.ShippedPath + u"/LICENSE"_s}, this);
    about.exec();
}

// ---- Beside the desktop: reminders, the notification area, hiding, coming back and leaving ---------------------

void frmMain::makeReminders()
{
    m_alarms = new AlarmWindows(m_program.archive, m_desktop.sound, m_program.AppPath, this);
    connect(&TimerTask, &QTimer::timeout, m_alarms, &AlarmWindows::check);
    connect(m_alarms, &AlarmWindows::answered, this, [this] { m_explorer.toDosChanged(); });
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
