// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "vault/ui/OpenVault.h"

#include "archive/ErrorTrap.h"
#include "desktop/Desktop.h"
#include "desktop/Questions.h"
#include "vault/MasterPasswordMessages.h"
#include "vault/modPassword.h"
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
