// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "archive/cCategory.h"
#include "archive/cViewFilter.h"
#include "desktop/FrameServices.h"
#include "memo/cBookmark.h"
#include "memo/cMemo.h"
#include "notes/cNote.h"
#include "notes/ui/NoteWindows.h"
#include "tasks/cToDo.h"
#include "tasks/ui/frmSysTray.h"
#include "vault/cBlowfish.h"
#include "vault/cPassword.h"
#include "vault/modPassword.h"

#include <QMainWindow>
#include <QPointer>
#include <QTimer>
#include <memory>

class AlarmWindows;
class CommandBars;
class QLabel;
class QStackedWidget;
class frmHelp;
class frmNoteList;
class frmOptions;
class frmPasswordS;
class frmSnipValeS;
class modSnipVale;
struct Desktop;

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
    void ShowPasswordList(); // once the vault is unlocked
    void loadTray(); // at the start, once the frame is shown, and again for another archive
    void leave(); // ends the program; the close box only hides the frame
    void endSession(); // the same without a farewell: the system waits
    void bringToFront(); // from wherever it is: minimised, hidden, behind others

    // FrameServices
    void enableCommand(const QString& name, bool enabled) override;
    void checkCommand(const QString& name, bool checked) override;
    void runCommand(const QString& name) override;
    void setStatus(const QString& text) override;
    void popupMenu(const QString& name, const QPoint& screenPosition) override;
    void showView(const QString& name) override;

protected:
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void makeStatusBar();
    void makeCommands();
    void makeArchiveCommands();
    void makeViewCommands();
    void makeExplorerCommands();
    void makeVaultCommands();
    void makeNoteCommands();
    void makeToolCommands();
    void makeReminders();
    void handle(const QString& tool, const QString& routine, std::function<void()> action);
    void bringViewToFront(const QString& name, QWidget& view);
    void showBarOf(const QString& view);
    void checkView();
    void showOptions();
    void HelpManual();
    void showAbout();
    void closeViews();
    void loadExplorer();
    void loadPasswords();
    void loadNotes();
    void reportCompacted(qint64 before, qint64 now, const QString& damagedCopy);

    modSnipVale& m_program;
    const Desktop& m_desktop;
    CommandBars* m_bars;
    QStackedWidget* m_views;
    QLabel* m_status = nullptr;
    QTimer TimerTask;
    // The program-wide instances, made in this order.
    cViewFilter m_viewFilter;
    cMemo m_memo;
    cBookmark m_bookmark;
    cToDo m_toDo;
    cCategory m_category;
    cNote m_note;
    cPassword m_password;
    cBlowfish m_blowfish;
    modPassword m_vault;
    NoteWindows m_noteWindows;

    // The views; null while they are not loaded.
    frmSnipValeS* m_explorer = nullptr;
    frmPasswordS* m_passwords = nullptr;
    frmNoteList* m_notes = nullptr;
    AlarmWindows* m_alarms = nullptr;
    QPointer<frmOptions> m_options; // while it is open
    std::unique_ptr<frmHelp> m_help; // null until it is first asked for
    std::unique_ptr<frmSysTray> m_tray; // null until it is loaded
    QString m_viewInFront;
    UnloadReason m_reason = UnloadReason::CloseBox; // of the close event to come
};
