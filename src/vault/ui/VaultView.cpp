// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "vault/ui/VaultView.h"

#include "archive/ErrorTrap.h"
#include "desktop/Desktop.h"
#include "desktop/Questions.h"
#include "vault/ui/MasterPassword.h"
#include "vault/ui/frmPasswordChange.h"
#include "vault/ui/frmPasswordLost.h"
#include "vault/ui/frmPasswordSetting.h"

using namespace Qt::StringLiterals;

namespace {

// Reads the stored text and mends a missing row. False when that is impossible (the message was shown).
bool readStoredText(modPassword& passwords, Questions& questions)
{
    QString stored = passwords.ReadMasterPwd();
    if (stored == modPassword::noRow) {
        questions.ask(u"I found a problem on DB reading options and I try to fix it for you."_s,
                      MessageStyle::Exclamation);
        if (!passwords.InsertMasterPwd()) {
            tellNothingToDo(questions);
            return false;
        }
        stored.clear();
    }
    passwords.setStoredText(stored);
    return true;
}

} // namespace

bool openVault(modPassword& passwords, const Desktop& desktop, QWidget* parent)
{
    bool isOpen = false;
    trapErrors(desktop.questions, u"OpenVault"_s, [&] {
        isOpen = passwords.isUnlocked() && passwords.matchesArchive();
        if (isOpen)
            return;
        passwords.lock();
        if (!readStoredText(passwords, desktop.questions))
            return;
        frmPasswordSetting window(passwords, desktop, parent);
        isOpen = window.exec() == QDialog::Accepted;
    });
    return isOpen;
}

bool changeMasterPassword(modPassword& passwords, const Desktop& desktop, QWidget* parent)
{
    frmPasswordChange window(passwords, desktop, parent);
    return window.Form_Load() && window.exec() == QDialog::Accepted;
}

bool resetMasterPassword(modPassword& passwords, const Desktop& desktop, QWidget* parent)
{
    frmPasswordLost window(passwords, desktop, parent);
    return window.exec() == QDialog::Accepted;
}

VaultView::VaultView(Archive& archive, const Desktop& desktop, FrameServices& frame, QWidget& window,
                     cViewFilter& filter)
    : FrameView(frame, window, u"Password"_s, u"barPassword"_s), m_vault(archive, m_blowfish),
      m_password(archive, m_vault), m_context{archive, desktop, frame, filter, m_password, m_vault}
{
}

void VaultView::registerCommands()
{
    using P = frmPasswordS;
    const auto command = [this](const char* tool, const char* routine, void (P::*action)()) {
        handle(tool, routine, [this, action] { (m_window->*action)(); });
        m_frame.enableCommand(QString::fromLatin1(tool), false); // the list enables it once it is unlocked
    };
    command("miPasswordNew", "NewPassword", &P::NewPassword);
    command("miPasswordModify", "ModifyPassword", &P::ModifyPassword);
    command("miPasswordDelete", "DeletePassword", &P::DeletePassword);
    command("miPasswordCopyPwd", "ClipboardPasswordCopy", &P::ClipboardPasswordCopy);
    command("miPasswordCopyUserName", "ClipboardUsernameCopy", &P::ClipboardUsernameCopy);
    command("miPasswordHideShow", "HideShowPwd", &P::HideShowPwd);
    command("miPasswordVisitURL", "VisitURLPassword", &P::VisitURLPassword);
    command("miPasswordExport", "ExportPasswordsToTextFile", &P::ExportPasswordsToTextFile);
    command("miPasswordCategory", "showCategories", &P::showCategories);
    // These leave in front what is there.
    m_frame.handleCommand(u"miPasswordLock"_s, u"Lock"_s, [this] { Lock(); });
    m_frame.enableCommand(u"miPasswordLock"_s, false);
    m_frame.handleCommand(u"miPasswordChange"_s, u"ActiveBar21_Click"_s, [this] { changeMaster(); });
    m_frame.handleCommand(u"miPasswordLost"_s, u"ActiveBar21_Click"_s, [this] { resetMaster(); });
}

void VaultView::makeWindow()
{
    if (m_window)
        return;
    m_window = new frmPasswordS(m_context, &m_frameWindow);
    m_window->hide(); // until it is brought to the front
}

QWidget* VaultView::open()
{
    const bool wasUnlocked = m_vault.isUnlocked();
    if (openVault(m_vault, m_context.desktop, &m_frameWindow)) {
        makeWindow();
        return m_window;
    }
    if (wasUnlocked && !m_vault.isUnlocked())
        Lock(); // another file lies in the archive's place: the list is of the one before
    return nullptr;
}

void VaultView::cameToFront()
{
    m_window->setInFront(true);
    m_frameWindow.activateWindow(); // a window manager can lose the focus where a message and its window close at once
}

void VaultView::wentBehind()
{
    m_window->setInFront(false);
}

void VaultView::readAgain()
{
    if (m_window && !m_window->isHidden())
        m_window->setInFront(true);
}

void VaultView::close()
{
    m_vault.lock();
    m_context.desktop.clipboard.wipe();
    if (!m_window)
        return;
    m_window->setInFront(false); // which disables its commands
    delete std::exchange(m_window, nullptr);
}

void VaultView::changeMaster()
{
    if (!changeMasterPassword(m_vault, m_context.desktop, &m_frameWindow))
        return;
    makeWindow(); // the vault is unlocked now, and locking it is the list's command
    m_window->enableCommands();
    readAgain();
}

void VaultView::resetMaster()
{
    if (resetMasterPassword(m_vault, m_context.desktop, &m_frameWindow))
        Lock();
}

void VaultView::Lock()
{
    if (m_window)
        m_window->Lock();
}
