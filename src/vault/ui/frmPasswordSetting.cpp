// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "vault/ui/frmPasswordSetting.h"

#include "desktop/Desktop.h"
#include "desktop/Questions.h"
#include "desktop/SecretMemory.h"
#include "ui_frmPasswordSetting.h"
#include "vault/modPassword.h"
#include "vault/ui/MasterPassword.h"

using namespace Qt::StringLiterals;

frmPasswordSetting::frmPasswordSetting(modPassword& passwords, const Desktop& desktop, QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::frmPasswordSetting>()), m_passwords(passwords), m_desktop(desktop),
      m_isNew(passwords.storedText().isEmpty())
{
    m_ui->setupUi(this);
    m_boxes = {m_ui->txtPassword1, m_ui->txtPassword2};
    prepareSecretBoxes(m_boxes);
    setWindowTitle(m_isNew ? u"New master password"_s : u"Master password"_s);
    m_ui->lblMessage->setText(m_isNew ? u"Choose a master password"_s : u"Insert master password"_s);
    m_ui->layFields->setRowVisible(m_ui->txtPassword2, m_isNew);
    wireShowHide(*m_ui->cmdShowHide, m_boxes);
    connect(m_ui->cmdOK, &QPushButton::clicked, this, &frmPasswordSetting::cmdOK_Click);
    connect(m_ui->cmdClose, &QPushButton::clicked, this, &frmPasswordSetting::reject);
    m_ui->txtPassword1->setFocus();
}

frmPasswordSetting::~frmPasswordSetting()
{
    wipeBoxes(m_boxes);
}

void frmPasswordSetting::done(int result)
{
    wipeBoxes(m_boxes);
    QDialog::done(result);
}

void frmPasswordSetting::cmdOK_Click()
{
    m_isNew ? choose() : unlock();
}

void frmPasswordSetting::unlock()
{
    QString typed = secretText(*m_ui->txtPassword1);
    const WipeAtEnd wiped(typed);
    if (m_passwords.Unlock(typed)) {
        accept();
        return;
    }
    m_desktop.questions.ask(u"Bad Password"_s, MessageStyle::Critical);
    m_ui->txtPassword1->selectAll();
    m_ui->txtPassword1->setFocus();
}

void frmPasswordSetting::choose()
{
    QString typed = secretText(*m_ui->txtPassword1);
    const WipeAtEnd wiped(typed);
    if (typed != m_ui->txtPassword2->text())
        refuse(u"The two passwords do not match. Retype."_s);
    else if (typed.size() < modPassword::minimumLength)
        refuse(u"Password lenght must be six chars or more."_s);
    else if (tellChoice(m_desktop.questions, m_passwords.ChooseMasterPassword(typed)))
        accept();
}

void frmPasswordSetting::refuse(const QString& why)
{
    m_desktop.questions.ask(why, MessageStyle::Exclamation);
    wipeBoxes(m_boxes);
    m_ui->txtPassword1->setFocus();
}
