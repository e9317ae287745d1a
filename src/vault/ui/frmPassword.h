// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/widgets/ElementEditor.h"

#include <memory>

class cPassword;

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
class frmPassword final : public ElementEditor {
    Q_OBJECT
public:
    frmPassword(const PasswordContext& context, QWidget* parent);
    ~frmPassword() override;

    bool Form_Load() override;

private:
    void LoadComboCategory(); // throws
    void VisitPassword();
    void VisitURL();

    ElementRecord& record() override;
    void startNew() override;
    void showRecord(bool isNew) override;
    bool transfer() override;

    void showDates();
    void wireControls();
    void cmdShowPwd_Click(bool show);
    void cmdGenerate_Click();

    std::unique_ptr<Ui::frmPassword> m_ui;
    PasswordContext m_context;
};
