// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QWidget;
class modPassword;
struct Desktop;

// The master password's commands, each with its window. Errors are shown.

// Before the password list is shown: true when the vault is unlocked. It asks for the master password, or for a new one
// when there is none, unless the vault is unlocked in this session with the password that the archive still has. Until
// the vault is unlocked the list must not be filled.
bool openVault(modPassword& passwords, const Desktop& desktop, QWidget* parent);

// "miPasswordChange": true when the password was changed; the vault is unlocked then.
bool changeMasterPassword(modPassword& passwords, const Desktop& desktop, QWidget* parent);

// "miPasswordLost": true when the password was reset. The vault is locked then: close the password list.
bool resetMasterPassword(modPassword& passwords, const Desktop& desktop, QWidget* parent);
