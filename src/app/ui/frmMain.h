// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "archive/Element.h"
#include "explorer/ui/ExplorerView.h"
#include "notes/ui/NoteWindows.h"
#include "notes/ui/frmNoteList.h"
#include "tasks/ui/frmSysTray.h"
#include "vault/ui/VaultView.h"

#include <QMainWindow>
#include <QTimer>
#include <array>
#include <memory>

class AlarmWindows;
class CommandBars;
class QLabel;
class QStackedWidget;
class frmHelp;
class modSnipVale;
struct Desktop;
namespace jet {
struct CompactResult;
}

// The program's one frame window: menus, bars, status bar, the task timer and the views. Everything that can be
// commanded arrives at ActiveBar21_Click by its name.
class frmMain final : public QMainWindow, public FrameServices {
    Q_OBJECT
public:
    frmMain(modSnipVale& program, const Desktop& desktop); // both outlive the frame
    ~frmMain() override;

    void ActiveBar21_Click(const QString& tool); // unknown and disabled tools do nothing
    void OpenArchive();
    void SaveArchiveAs();
    void CompactArchive();
    void ShowPasswordList() { showView(QStringLiteral("Password")); }
    void loadTray(); // at the start, once the frame is shown, and again for another archive
    void leave(); // ends the program; the close box only hides the frame
    void endSession(); // the same without a farewell: the system waits
    void bringToFront(); // from wherever it is: minimised, hidden, behind others

    // FrameServices
    void handleCommand(const QString& name, const QString& routine, std::function<void()> handler) override;
    void enableCommand(const QString& name, bool enabled) override;
    void checkCommand(const QString& name, bool checked) override;
    void setCommandIcon(const QString& name, const QIcon& icon) override;
    void runCommand(const QString& name) override;
    void setStatus(const QString& text) override;
    void popupMenu(const QString& name, const QPoint& screenPosition) override;
    bool showView(const QString& name) override;

protected:
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void makeStatusBar();
    void makeArchiveCommands();
    void makeViewCommands();
    void makeToolCommands();
    void makeReminders();
    void bringToFront(FrameView& view, QWidget& window);
    void showBarOf(const FrameView& view);
    void checkViewInFront();
    void closeViews();
    void reportCompacted(const jet::CompactResult& result);
    void showOptions();
    void HelpManual();
    void showAbout();

    modSnipVale& m_program;
    const Desktop& m_desktop;
    CommandBars* m_bars;
    QStackedWidget* m_views;
    QLabel* m_status = nullptr;
    QTimer TimerTask;
    cViewFilter m_viewFilter;
    NoteWindows m_noteWindows;
    ExplorerView m_explorer;
    VaultView m_vault;
    NotesView m_notes;
    const std::array<FrameView*, 3> m_allViews{&m_explorer, &m_vault, &m_notes};
    FrameView* m_viewInFront = nullptr;

    AlarmWindows* m_alarms = nullptr;
    std::unique_ptr<frmHelp> m_help; // null until it is first asked for
    std::unique_ptr<frmSysTray> m_tray; // null until it is loaded
    UnloadReason m_reason = UnloadReason::CloseBox; // of the close event to come
};
