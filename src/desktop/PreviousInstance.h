// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QSocketNotifier>
#include <functional>
#include <memory>

// Whether the program already runs for the same home folder.
class PreviousInstance {
public:
    virtual ~PreviousInstance() = default;
    virtual bool isRunning() const = 0;
    virtual void bringToFront() = 0; // the running one; does nothing when there is none
    std::function<void()> onBringToFront; // another start asked this instance to show itself
};

// One datagram socket a home folder, in Linux' abstract name space (unix(7)): the name is free again the moment
// the process ends, however it ends, so no stale lock is ever left.
class SocketInstance final : public PreviousInstance {
public:
    explicit SocketInstance(const QString& homeFolder);
    ~SocketInstance() override;
    SocketInstance(const SocketInstance&) = delete;
    SocketInstance& operator=(const SocketInstance&) = delete;

    bool isRunning() const override { return m_isRunning; }
    void bringToFront() override;

private:
    void received();
    int m_socket = -1;
    bool m_isRunning = false;
    QByteArray m_name;
    std::unique_ptr<QSocketNotifier> m_notifier;
};
