// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tasks/cAlarm.h"

#include <QDialog>
#include <QTimer>
#include <memory>

class Sound;

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
    // set to a later moment). Throws when the archive cannot be read.
    bool ShowAlert();
    void setWaiting(qsizetype reminders); // how many have no pop-up yet for want of room

private:
    void cmdOK_Click();

    std::unique_ptr<Ui::frmAlarm> m_ui;
    Archive& m_archive;
};

// The pop-ups on the screen: a cascade of at most `most`, the rest waits. Both given objects outlive this one.
class AlarmWindows final : public QObject, public AlarmForms {
    Q_OBJECT
public:
    static constexpr int most = 8;

    AlarmWindows(Archive& archive, Sound& sound, const QString& programFolder, QObject* parent);
    ~AlarmWindows() override; // closes all

    void check(); // a tick of the task timer; what is due opens once the event loop is free
    void closeAll(); // unanswered: another archive, or the end
    qsizetype waiting() const { return m_queue.waiting(); }

    // AlarmForms
    bool isOpen(qint32 todoID) const override;
    bool hasRoom() const override;
    bool open(qint32 todoID) override;

signals:
    void answered(); // a row was changed by a pop-up
    void pendingChanged(bool isPending); // a reminder waits for an answer, or none any more

private:
    void openNext();
    void closed();
    void showPending();
    void place(frmAlarm& form) const;

    Archive& m_archive;
    cAlarmQueue m_queue;
    QTimer m_next;
    bool m_isPending = false;
};
