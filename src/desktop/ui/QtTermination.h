// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <array>
#include <functional>

class QSocketNotifier;

// The system asks the program to end: SIGTERM (a session that ends, a shutdown), SIGHUP, SIGINT. `onRequest` runs in
// the event loop, where it may write what is still open; a second request ends the program at once. One object a
// process; the signals have their old meaning again when it goes.
class QtTermination : public QObject {
    Q_OBJECT
public:
    explicit QtTermination(std::function<void()> onRequest);
    ~QtTermination() override;

private:
    std::function<void()> m_onRequest;
    QSocketNotifier* m_notifier = nullptr;
    std::array<int, 2> m_pipe{-1, -1}; // what a signal handler may safely write to, and its other end
};
