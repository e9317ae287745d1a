// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>
#include <memory>

class modPassword;
struct Desktop;

namespace Ui {
class frmPasswordLost;
}

// Resets a forgotten master password; the accounts stay enciphered with it. Accepted when it was reset: the vault is
// locked then, and what the password list shows must go.
class frmPasswordLost : public QDialog {
    Q_OBJECT
public:
    frmPasswordLost(modPassword& passwords, const Desktop& desktop, QWidget* parent); // both outlive it
    ~frmPasswordLost() override;

private:
    void cmdResetPassword_Click();

    std::unique_ptr<Ui::frmPasswordLost> m_ui;
    modPassword& m_passwords;
    const Desktop& m_desktop;
};
