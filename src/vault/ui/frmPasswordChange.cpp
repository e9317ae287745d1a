// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "vault/ui/frmPasswordChange.h"

#include "archive/ErrorTrap.h"
#include "desktop/Desktop.h"
#include "desktop/Questions.h"
#include "desktop/SecretMemory.h"
#include "ui_frmPasswordChange.h"
#include "vault/modPassword.h"
#include "vault/ui/MasterPassword.h"

using namespace Qt::StringLiterals;

frmPasswordChange::frmPasswordChange(modPassword& passwords, const Desktop& desktop, QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::frmPasswordChange>()), m_passwords(passwords), m_desktop(desktop)
{
    m_ui->setupUi(this);
    m_boxes = {m_ui->txtPasswordOld, m_ui->txtPassword1, m_ui->txtPassword2};
    prepareSecretBoxes(m_boxes);
    wireShowHide(*m_ui->cmdShowHide, m_boxes);
    connect(m_ui->cmdOK, &QPushButton::clicked, this, &frmPasswordChange::cmdOK_Click);
    connect(m_ui->cmdClose, &QPushButton::clicked, this, &frmPasswordChange::reject);
    m_ui->txtPasswordOld->setFocus();
}

frmPasswordChange::~frmPasswordChange()
{
    wipeSecrets();
}

void frmPasswordChange::done(int result)
{
    wipeSecrets();
    QDialog::done(result);
}

void frmPasswordChange::wipeSecrets()
{
    wipe(m_stored);
    wipeBoxes(m_boxes);
}

bool frmPasswordChange::Form_Load()
{
    bool isReadable = false;
    QString error;
    keepError(error, [&] {
        const QString text = m_passwords.ReadMasterPwd();
        m_stored = m_passwords.DecryptMasterPwd(text);
        isReadable = text.isEmpty() || !m_stored.isEmpty();
    });
    if (!isReadable) {
        m_desktop.questions.ask(u"There is an error. I can't read old password."_s, MessageStyle::Critical);
        return false;
    }
    m_ui->lblMessage->setText(m_stored.isEmpty()
                                  ? u"There is no master password yet. It is chosen when the passwords are opened."_s
                                  : u"All accounts will be enciphered with the new password."_s);
    return true;
}

bool frmPasswordChange::isValid()
{
    const QString& typed = m_ui->txtPassword1->text();
    if (m_ui->txtPasswordOld->text().isEmpty())
        return complain(u"You must insert old password."_s, *m_ui->txtPasswordOld);
    if (m_ui->txtPasswordOld->text() != m_stored)
        return complain(u"Old password incorrect."_s, *m_ui->txtPasswordOld);
    if (typed.size() < modPassword::minimumLength)
        return complain(u"New password must be at least 6 chars."_s, *m_ui->txtPassword1);
    if (typed != m_ui->txtPassword2->text())
        return complain(u"Inserted passwords do not match."_s, *m_ui->txtPassword2);
    return true;
}

bool frmPasswordChange::complain(const QString& why, QLineEdit& box)
{
    m_desktop.questions.ask(why, MessageStyle::Exclamation);
    box.selectAll();
    box.setFocus();
    return false;
}

void frmPasswordChange::cmdOK_Click()
{
    if (!isValid())
        return;
    const bool wasUnlocked = m_passwords.isUnlocked();
    bool isChanged = false;
    trapErrors(m_desktop.questions, u"cmdOK_Click"_s, [&] { isChanged = change(); });
    if (isChanged)
        accept();
    else if (!wasUnlocked)
        m_passwords.lock(); // only the change needed it
}

bool frmPasswordChange::change()
{
    // The old password was typed just now: it is the session's, whatever that had before.
    m_passwords.setStoredText(m_passwords.ReadMasterPwd());
    if (!m_passwords.Unlock(m_stored))
        return complain(u"Old password incorrect."_s, *m_ui->txtPasswordOld);
    if (!confirmRisks())
        return false;
    QString typed = secretText(*m_ui->txtPassword1);
    const WipeAtEnd wiped(typed);
    if (!tellChoice(m_desktop.questions, m_passwords.ChangeMasterPassword(typed)))
        return false;
    m_desktop.questions.ask(u"Change Password completed!"_s, MessageStyle::Information);
    return true;
}

bool frmPasswordChange::confirmRisks()
{
    const ChangeRisks risks = readChangeRisks(m_passwords);
    return risks.isEmpty() ||
        m_desktop.questions.ask(risks.question(), MessageStyle::YesNoDefaultNo, u"Change master password"_s) ==
        Answer::Yes;
}
