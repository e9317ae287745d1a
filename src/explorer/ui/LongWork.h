// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QString>

class FrameServices;

// A sign for work that turns out to be long, and the Escape key to stop it. Make one, ask keepGoing() every few
// milliseconds. Once the work has lasted for its patience, the pointer is a busy one and the status says so. From then
// on windows are painted and keys are read, but whatever else the user does is dropped: nothing may change under the
// work.
class LongWork final : public QObject {
    Q_OBJECT
public:
    static constexpr int usualPatience = 200; // ms

    LongWork(FrameServices& frame, QString status, int patience = usualPatience);
    ~LongWork() override; // the pointer is the usual one again; the status is the caller's

    bool keepGoing(); // false once Escape was pressed
    bool isShown() const { return m_isShown; } // the status was changed
    bool isStopped() const { return m_isStopped; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    FrameServices& m_frame;
    QString m_status;
    int m_patience;
    QElapsedTimer m_clock;
    qint64 m_nextLook;
    bool m_isShown = false;
    bool m_isStopped = false;
};
