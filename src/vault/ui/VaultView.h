// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/ui/FrameView.h"
#include "vault/cBlowfish.h"
#include "vault/cPassword.h"
#include "vault/modPassword.h"
#include "vault/ui/frmPasswordS.h"

// "Password", the view of the accounts, behind the master password; and the vault itself. Before the window is made,
// and again after each Lock, the user is asked for the master password.
class VaultView final : public FrameView {
public:
    // All outlive it.
    VaultView(Archive& archive, const Desktop& desktop, FrameServices& frame, QWidget& window, cViewFilter& filter);

    void registerCommands() override;
    QWidget* open() override;
    bool isOpen() const override { return m_window && m_vault.isUnlocked(); }
    void cameToFront() override;
    void wentBehind() override;
    void readAgain() override;
    void close() override; // and locks the vault

private:
    void makeWindow();
    void changeMaster();
    void resetMaster();
    void Lock();

    cBlowfish m_blowfish;
    modPassword m_vault;
    cPassword m_password;
    PasswordListContext m_context;
    frmPasswordS* m_window = nullptr;
};

// The master password's commands, each with its window. Errors are shown.

// Before the password list is shown: true when the vault is unlocked. It asks for the master password, or for a new one
// when there is none, unless the vault is unlocked in this session with the password that the archive still has. Until
// the vault is unlocked the list must not be filled.
bool openVault(modPassword& passwords, const Desktop& desktop, QWidget* parent);

// "miPasswordChange": true when the password was changed; the vault is unlocked then.
bool changeMasterPassword(modPassword& passwords, const Desktop& desktop, QWidget* parent);

// "miPasswordLost": true when the password was reset. The vault is locked then: close the password list.
bool resetMasterPassword(modPassword& passwords, const Desktop& desktop, QWidget* parent);
