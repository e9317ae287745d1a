// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "vault/ui/frmPassword.h"

#include "archive/Archive.h"
#include "archive/Element.h"
#include "archive/ErrorTrap.h"
#include "desktop/Desktop.h"
#include "desktop/SecretMemory.h"
#include "desktop/TextForms.h"
#include "ui/widgets/Icons.h"
#include "ui/widgets/RawText.h"
#include "ui_frmPassword.h"
#include "vault/PasswordCategories.h"
#include "vault/cPassword.h"
#include "vault/modPassword.h"

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

frmPassword::frmPassword(const PasswordContext& context, QWidget* parent)
    : ElementEditor(context.archive, context.viewFilter.EditingModePasswordID, parent),
      m_ui(std::make_unique<Ui::frmPassword>()), m_context(context)
{
    m_ui->setupUi(this);
    m_ui->cmdVisitURL->setIcon(themedIcon(u"internet-services"_s));
    wireButtons(m_ui->cmdOK, nullptr, m_ui->cmdClose, Cancel::Asks);
    cmdShowPwd_Click(false);
    // Two boxes of free text: the notes are the larger one.
    m_ui->txtDescription->setFixedHeight(fontMetrics().lineSpacing() * 3 + m_ui->txtDescription->frameWidth() * 4);
}

frmPassword::~frmPassword() = default;

bool frmPassword::Form_Load()
{
    return trapErrors(m_context.archive.questions(), u"LoadComboCategory"_s, [this] { LoadComboCategory(); }) &&
        ElementEditor::Form_Load();
}

void frmPassword::LoadComboCategory()
{
    m_ui->cboCategory->addItem(u"Not specified"_s, 0);
    for (const PasswordCategory& row : passwordCategoriesByName(m_context.archive))
        m_ui->cboCategory->addItem(row.name, row.id);
}

ElementRecord& frmPassword::record()
{
    return m_context.password;
}

void frmPassword::startNew()
{
    m_context.password.clear();
    m_context.password.CategoryID = m_context.newCategoryID;
}

void frmPassword::showRecord(bool)
{
    VisitPassword();
    showDates();
    wireControls();
    m_ui->txtTitle->setFocus();
}

void frmPassword::VisitPassword()
{
    const cPassword& password = m_context.password;
    m_ui->txtTitle->setText(password.Title);
    m_ui->txtUserName->setText(password.UserName);
    m_ui->txtPassword->setText(password.Password);
    m_ui->txtURL->setText(password.URL);
    for (QLineEdit* box : {m_ui->txtTitle, m_ui->txtUserName, m_ui->txtPassword, m_ui->txtURL})
        box->setCursorPosition(0); // a long text shows its beginning
    m_ui->txtDescription->setPlainText(password.Description);
    m_ui->txtNotes->setPlainText(password.Notes);
    m_ui->cboCategory->setCurrentIndex(std::max(m_ui->cboCategory->findData(password.CategoryID), 0));
    m_ui->cmdVisitURL->setEnabled(!password.URL.isEmpty());
}

void frmPassword::showDates()
{
    const cPassword& password = m_context.password;
    const auto show = [](QLabel& label, const QString& caption, const QDateTime& date) {
        label.setText(caption + shortMoment(date));
        label.setVisible(date.isValid()); // a new account has none yet
    };
    show(*m_ui->lblDateIn, u"Created : "_s, password.PwdDateIn);
    show(*m_ui->lblDateLastMod, u"Last Mod.: "_s, password.PwdDateLastMod);
}

void frmPassword::wireControls()
{
    for (const QLineEdit* box : {m_ui->txtTitle, m_ui->txtUserName, m_ui->txtPassword, m_ui->txtURL})
        watch(box, &QLineEdit::textChanged);
    for (const QPlainTextEdit* box : {m_ui->txtDescription, m_ui->txtNotes})
        watch(box, &QPlainTextEdit::textChanged);
    watch(m_ui->cboCategory, &QComboBox::currentIndexChanged);
    connect(m_ui->txtURL, &QLineEdit::textChanged, m_ui->cmdVisitURL,
            [this](const QString& url) { m_ui->cmdVisitURL->setEnabled(!url.isEmpty()); });
    connect(m_ui->cmdVisitURL, &QPushButton::clicked, this, &frmPassword::VisitURL);
    connect(m_ui->cmdShowPwd, &QPushButton::toggled, this, &frmPassword::cmdShowPwd_Click);
    connect(m_ui->cmdGenerate, &QPushButton::clicked, this, &frmPassword::cmdGenerate_Click);
}

void frmPassword::cmdShowPwd_Click(bool show)
{
    m_ui->txtPassword->setEchoMode(show ? QLineEdit::Normal : QLineEdit::Password);
    m_ui->cmdShowPwd->setIcon(themedIcon(show ? u"view-hidden"_s : u"view-visible"_s));
    m_ui->cmdShowPwd->setToolTip(show ? u"Hide the password"_s : u"Show the password"_s);
}

// Shown, so that it can be judged and noted; Ctrl+Z in the box brings the one before back.
void frmPassword::cmdGenerate_Click()
{
    QString made = generatePassword();
    const WipeAtEnd wiped(made);
    m_ui->cmdShowPwd->setChecked(true);
    m_ui->txtPassword->selectAll();
    m_ui->txtPassword->insert(made);
    m_ui->txtPassword->setFocus();
}

bool frmPassword::transfer()
{
    // Blanks are no title. A user name or a password may be of blanks.
    if (isMissing(m_ui->txtTitle->text().trimmed(), m_ui->txtTitle, u"Please choose a title!"_s) ||
        isMissing(m_ui->txtUserName->text(), m_ui->txtUserName, u"Please choose a UserName!"_s) ||
        isMissing(m_ui->txtPassword->text(), m_ui->txtPassword, u"Please choose a password!"_s))
        return false;
    cPassword& password = m_context.password;
    const std::pair<const QLineEdit*, QString*> lines[] = {{m_ui->txtTitle, &password.Title},
                                                           {m_ui->txtUserName, &password.UserName},
                                                           {m_ui->txtPassword, &password.Password},
                                                           {m_ui->txtURL, &password.URL}};
    // What was not edited stays as it is stored, to the last character.
    for (const auto& [box, field] : lines)
        if (isEdited(box))
            *field = box->text();
    const std::pair<const QPlainTextEdit*, QString*> texts[] = {{m_ui->txtDescription, &password.Description},
                                                                {m_ui->txtNotes, &password.Notes}};
    for (const auto& [box, field] : texts)
        if (isEdited(box))
            *field = rawText(*box);
    password.CategoryID = m_ui->cboCategory->currentData().toInt();
    return true;
}

void frmPassword::VisitURL()
{
    trapErrors(m_context.archive.questions(), u"VisitURL"_s,
               [&] { m_context.desktop.shell.openLink(m_ui->txtURL->text()); });
}
