// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>
#include <QLineEdit>
#include <memory>

class modPassword;
struct Desktop;

namespace Ui {
class frmPasswordChange;
}

// Changes the master password and enciphers every account anew. Also works while the vault is locked, because it asks
// for the old password; it unlocks when it is accepted.
class frmPasswordChange : public QDialog {
    Q_OBJECT
public:
    frmPasswordChange(modPassword& passwords, const Desktop& desktop, QWidget* parent); // both outlive it
    ~frmPasswordChange() override;

    // Reads the stored password. False when it cannot be read (the message was shown): do not show the window then.
    bool Form_Load();

public slots:
    void done(int result) override;

private:
    void wipeSecrets();
    void cmdOK_Click();
    bool isValid();
    bool complain(const QString& why, QLineEdit& box);
    bool confirmRisks();
    bool change(); // throws

    std::unique_ptr<Ui::frmPasswordChange> m_ui;
    modPassword& m_passwords;
    const Desktop& m_desktop;
    QList<QLineEdit*> m_boxes;
    QString m_stored; // the master password
};
