// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The views of the frame: explorer, password list, list of notes; and the commands that go to them.
#include "app/modSnipVale.h"
#include "app/ui/CommandBars.h"
#include "app/ui/frmHelp.h"
#include "app/ui/frmMain.h"
#include "desktop/Desktop.h"
#include "explorer/ui/BookmarkPane.h"
#include "explorer/ui/MemoPane.h"
#include "explorer/ui/SearchPane.h"
#include "explorer/ui/ToDoPane.h"
#include "explorer/ui/frmSnipValeS.h"
#include "notes/ui/NoteColors.h"
#include "notes/ui/frmNoteList.h"
#include "tasks/ui/AlarmWindows.h"
#include "vault/ui/OpenVault.h"
#include "vault/ui/frmPasswordS.h"

#include <QAction>
#include <QStackedWidget>
#include <QStatusBar>
#include <QToolBar>

using namespace Qt::StringLiterals;

namespace {

// A view of the side bar and the tool bar that goes with it.
struct ViewBar {
    const char16_t* view;
    const char16_t* bar;
};
constexpr ViewBar viewBars[] = {{u"Memo", u"barMemo"}, {u"Password", u"barPassword"}, {u"Note", u"barNote"}};

} // namespace

void frmMain::makeViewCommands()
{
    for (const ViewBar& row : viewBars) {
        const QString view = QStringView(row.view).toString();
        handle(view, u"ActiveBar21_Click"_s, [this, view] {
            showView(view);
            if (m_viewInFront == view)
                showBarOf(view);
        });
    }
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
            showView(u"Memo"_s);
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
    handle(u"Search"_s, u"Search"_s, [this] {
        showView(u"Memo"_s);
        m_explorer->search().show();
    });
}

void frmMain::makeVaultCommands()
{
    const auto command = [this](const char* tool, const char* routine, void (frmPasswordS::*action)()) {
        handle(QString::fromLatin1(tool), QString::fromLatin1(routine), [this, action] {
            showView(u"Password"_s);
            if (m_passwords && m_viewInFront == "Password"_L1)
                (m_passwords->*action)();
        });
    };
    using P = frmPasswordS;
    command("miPasswordNew", "NewPassword", &P::NewPassword);
    command("miPasswordModify", "ModifyPassword", &P::ModifyPassword);
    command("miPasswordDelete", "DeletePassword", &P::DeletePassword);
    command("miPasswordCopyPwd", "ClipboardPasswordCopy", &P::ClipboardPasswordCopy);
    command("miPasswordCopyUserName", "ClipboardUsernameCopy", &P::ClipboardUsernameCopy);
    command("miPasswordHideShow", "HideShowPwd", &P::HideShowPwd);
    command("miPasswordVisitURL", "VisitURLPassword", &P::VisitURLPassword);
    command("miPasswordExport", "ExportPasswordsToTextFile", &P::ExportPasswordsToTextFile);
    command("miPasswordCategory", "showCategories", &P::showCategories);
    handle(u"miPasswordLock"_s, u"Lock"_s, [this] {
        if (m_passwords)
            m_passwords->Lock();
    });
    for (const QString& tool : {u"New"_s, u"Modify"_s, u"Delete"_s, u"CopyPwd"_s, u"CopyUserName"_s, u"HideShow"_s,
                                u"VisitURL"_s, u"Export"_s, u"Category"_s, u"Lock"_s})
        m_bars->enable(u"miPassword"_s + tool, false); // the list enables them once it is unlocked
    handle(u"miPasswordChange"_s, u"ActiveBar21_Click"_s, [this] {
        if (!changeMasterPassword(m_vault, m_desktop, this))
            return;
        loadPasswords(); // the vault is unlocked now, and locking it is the list's command
        m_passwords->setInFront(m_viewInFront == "Password"_L1);
    });
    handle(u"miPasswordLost"_s, u"ActiveBar21_Click"_s, [this] {
        if (resetMasterPassword(m_vault, m_desktop, this) && m_passwords)
            m_passwords->Lock();
    });
}

void frmMain::makeNoteCommands()
{
    const auto command = [this](const QString& tool, const QString& routine, std::function<void(frmNoteList&)> action) {
        handle(tool, routine, [this, action = std::move(action)] {
            showView(u"Note"_s);
            action(*m_notes);
        });
    };
    command(u"miNoteNew"_s, u"NewNote"_s, &frmNoteList::NewNote);
    command(u"miNoteModify"_s, u"ModifyNote"_s, &frmNoteList::ModifyNote);
    command(u"miNoteDelete"_s, u"DeleteNote"_s, &frmNoteList::DeleteNote);
    for (const QString& tool : {u"miNoteModify"_s, u"miNoteDelete"_s})
        m_bars->enable(tool, false); // the list enables them with its selection, as the colours
    for (const QString& color : {u"Yellow"_s, u"Red"_s, u"Green"_s, u"Blue"_s, u"White"_s}) {
        const QString tool = u"miNoteColor"_s + color;
        command(tool, u"SetColor"_s, [color](frmNoteList& notes) { notes.SetColor(color.toLower()); });
        m_bars->action(tool)->setIcon(noteIcon(color.toLower()));
        m_bars->enable(tool, false);
    }
}

void frmMain::loadExplorer()
{
    if (m_explorer)
        return;
    m_explorer =
        new frmSnipValeS({m_program.archive, m_desktop, *this, m_viewFilter, m_memo, m_bookmark, m_category}, m_views);
    m_views->addWidget(m_explorer);
}

void frmMain::loadPasswords()
{
    if (m_passwords)
        return;
    m_passwords = new frmPasswordS({m_program.archive, m_desktop, *this, m_viewFilter, m_password, m_vault}, m_views);
    m_views->addWidget(m_passwords);
}

void frmMain::loadNotes()
{
    if (m_notes)
        return;
    m_notes = new frmNoteList({m_program.archive, m_desktop, *this, m_note, m_noteWindows}, m_views);
    m_views->addWidget(m_notes);
}

void frmMain::ShowPasswordList()
{
    const bool wasUnlocked = m_vault.isUnlocked();
    if (!openVault(m_vault, m_desktop, this)) {
        if (wasUnlocked && !m_vault.isUnlocked() && m_passwords)
            m_passwords->Lock(); // another file lies in the archive's place: the list is of the one before
        return;
    }
    loadPasswords();
    bringViewToFront(u"Password"_s, *m_passwords);
    m_passwords->setInFront(true);
    activateWindow(); // a window manager can lose the focus where a message and its window close at once
}

void frmMain::showView(const QString& name)
{
    const bool isLocked = name == "Password"_L1 && !m_vault.isUnlocked();
    if (name == m_viewInFront && m_views->currentWidget() && !isLocked) {
        checkView(); // no more: a tool bar that the user hid stays hidden, whatever command came here
        return;
    }
    if (name == "Memo"_L1) {
        const bool wasBehind = m_explorer != nullptr;
        loadExplorer();
        bringViewToFront(name, *m_explorer);
        if (wasBehind)
            m_explorer->cameToFront();
    } else if (name == "Note"_L1) {
        loadNotes();
        bringViewToFront(name, *m_notes);
    } else if (name == "Password"_L1) {
        checkView(); // it is not in front while its password is asked for
        ShowPasswordList();
    }
    checkView(); // a click on the command has moved its mark, wherever that led
}

void frmMain::bringViewToFront(const QString& name, QWidget& view)
{
    if (m_passwords && name != "Password"_L1)
        m_passwords->setInFront(false);
    m_views->setCurrentWidget(&view);
    showBarOf(name);
}

void frmMain::showBarOf(const QString& view)
{
    m_viewInFront = view;
    for (const ViewBar& row : viewBars)
        m_bars->bar(QStringView(row.bar).toString())->setVisible(view == QStringView(row.view));
    m_bars->check(u"miViewToolBar"_s, true);
}

void frmMain::checkView()
{
    for (const ViewBar& row : viewBars)
        m_bars->check(QStringView(row.view).toString(), m_viewInFront == QStringView(row.view));
}

// What is open belongs to the archive that is left. The notes are closed already, by NoteWindows::closeNotes().
void frmMain::closeViews()
{
    m_alarms->closeAll();
    m_vault.lock();
    if (m_passwords)
        m_passwords->setInFront(false); // which disables its commands
    for (QWidget* view : std::initializer_list<QWidget*>{m_explorer, m_passwords, m_notes})
        delete view;
    m_explorer = nullptr;
    m_passwords = nullptr;
    m_notes = nullptr;
    m_help.reset();
    m_desktop.clipboard.wipe();
}
