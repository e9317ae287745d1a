// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/ui/QtTermination.h"

#include <QSocketNotifier>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace {

constexpr int signalsOfEnd[] = {SIGTERM, SIGHUP, SIGINT};
volatile std::sig_atomic_t writeEnd = -1;

extern "C" void requestEnd(int)
{
    const char one = 1;
    if (write(int(writeEnd), &one, 1) < 0)
        _exit(1); // nobody would ever hear of it
}

} // namespace

QtTermination::QtTermination(std::function<void()> onRequest) : m_onRequest(std::move(onRequest))
{
    if (pipe2(m_pipe.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    writeEnd = m_pipe[1];
    m_notifier = new QSocketNotifier(m_pipe[0], QSocketNotifier::Read, this);
    connect(m_notifier, &QSocketNotifier::activated, this, [this] {
        m_notifier->setEnabled(false);
        m_onRequest();
    });
    struct sigaction action = {};
    action.sa_handler = requestEnd;
    action.sa_flags = SA_RESTART | int(SA_RESETHAND);
    for (const int number : signalsOfEnd)
        sigaction(number, &action, nullptr);
}

QtTermination::~QtTermination()
{
    for (const int number : signalsOfEnd)
        std::signal(number, SIG_DFL);
    for (const int end : m_pipe)
        close(end);
}
