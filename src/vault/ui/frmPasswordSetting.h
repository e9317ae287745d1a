// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>
#include <QLineEdit>
#include <memory>

class modPassword;
struct Desktop;

namespace Ui {
class frmPasswordSetting;
}

// Asks for the master password, or for a new one when modPassword::storedText() is empty. Accepted when the vault is
// unlocked.
class frmPasswordSetting : public QDialog {
    Q_OBJECT
public:
    frmPasswordSetting(modPassword& passwords, const Desktop& desktop, QWidget* parent); // both outlive it
    ~frmPasswordSetting() override;

public slots:
    void done(int result) override;

private:
    void cmdOK_Click();
    void unlock();
    void choose();
    void refuse(const QString& why); // a new password: both boxes are typed again

    std::unique_ptr<Ui::frmPasswordSetting> m_ui;
    modPassword& m_passwords;
    const Desktop& m_desktop;
    QList<QLineEdit*> m_boxes;
    bool m_isNew;
};
