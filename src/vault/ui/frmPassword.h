// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>
#include <QSet>
#include <memory>

class Archive;
class cPassword;
class cViewFilter;
struct Desktop;

namespace Ui {
class frmPassword;
}

// What the account editor works on and with. All outlive it.
struct PasswordContext {
    Archive& archive;
    const Desktop& desktop;
    cViewFilter& viewFilter;
    cPassword& password;
    qint32 newCategoryID = 0; // of a new account, until the user picks another
};

// Creates or edits one account: the one whose identifier cViewFilter holds, or a new one when that is 0. The vault
// must be unlocked.
class frmPassword : public QDialog {
    Q_OBJECT
public:
    frmPassword(const PasswordContext& context, QWidget* parent);
    ~frmPassword() override;

    // Reads the account and shows it. False when it cannot be read (the message was shown): do not show the window
    // then, a save would empty the account.
    bool Form_Load();

    bool isDirty() const { return !m_edited.isEmpty(); }

public slots:
    void reject() override; // asks when there are unsaved changes

private:
    void LoadComboCategory(); // throws
    void VisitPassword(); // record to controls
    void VisitURL();

    bool loadRecord();
    void showDates();
    void wireFields();
    bool isEmptyField(const QString& text, QWidget* box, const QString& message);
    bool transfer(); // validates, then controls to record
    void cmdOK_Click();
    void cmdShowPwd_Click(bool show);
    void cmdGenerate_Click();

    std::unique_ptr<Ui::frmPassword> m_ui;
    PasswordContext m_context;
    QSet<const QWidget*> m_edited; // by the user since loading; all others keep what is stored, to the last character
};
