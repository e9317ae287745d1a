// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tasks/cAlarmQueue.h"

#include <QObject>
#include <QTimer>

class Archive;
class Sound;
class frmAlarm;

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
    bool open(qint32 todoID, QString& error) override;

signals:
    void answered(); // a row was changed by a pop-up
    void pendingChanged(bool isPending); // a reminder waits for an answer, or none any more

private:
    void openNext();
    void closed();
    void tell();
    void place(frmAlarm& form) const;

    Archive& m_archive;
    cAlarmQueue m_queue;
    QTimer m_next;
    bool m_isPending = false;
};
