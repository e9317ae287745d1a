// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>
#include <memory>

class Archive;

namespace Ui {
class frmAlarm;
}

// The pop-up of one due reminder. It stays above other windows, never takes the keyboard from them, and can be answered
// while an editor is open. OK stops the reminder or sets the next one; closing leaves it armed, so that the next check
// brings it back. Deletes itself when it is closed.
class frmAlarm final : public QDialog {
    Q_OBJECT
public:
    explicit frmAlarm(Archive& archive); // outlives the pop-up
    ~frmAlarm() override;

    qint32 ToDoID = 0;
    // Reads the to-do and fills the form; does not show it. False when there is nothing to remind of (gone, stopped or
    // set to a later moment), or on an error: `error` has its text then.
    bool ShowAlert(QString& error);
    void setWaiting(qsizetype reminders); // how many have no pop-up yet for want of room

private:
    void cmdOK_Click();

    std::unique_ptr<Ui::frmAlarm> m_ui;
    Archive& m_archive;
};
