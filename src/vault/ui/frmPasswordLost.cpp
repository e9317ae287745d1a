// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "vault/ui/frmPasswordLost.h"

#include "archive/ErrorTrap.h"
#include "desktop/Desktop.h"
#include "desktop/Questions.h"
#include "ui_frmPasswordLost.h"
#include "vault/modPassword.h"
#include "vault/ui/MasterPassword.h"

using namespace Qt::StringLiterals;

frmPasswordLost::frmPasswordLost(modPassword& passwords, const Desktop& desktop, QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::frmPasswordLost>()), m_passwords(passwords), m_desktop(desktop)
{
    m_ui->setupUi(this);
    connect(m_ui->cmdResetPassword, &QPushButton::clicked, this, &frmPasswordLost::cmdResetPassword_Click);
    connect(m_ui->cmdClose, &QPushButton::clicked, this, &frmPasswordLost::reject);
    m_ui->cmdClose->setFocus();
}

frmPasswordLost::~frmPasswordLost() = default;

void frmPasswordLost::cmdResetPassword_Click()
{
    if (m_desktop.questions.ask(u"Are you sure you want to reset master password? "_s, MessageStyle::YesNoDefaultNo,
                                u"Reset master password"_s) != Answer::Yes)
        return;
    bool isReset = false;
    const bool ran =
        trapErrors(m_desktop.questions, u"cmdResetPassword_Click"_s, [&] { isReset = m_passwords.ResetMasterPwd(); });
    if (isReset)
        accept();
    else if (ran)
        tellNothingToDo(m_desktop.questions);
}
