// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/PreviousInstance.h"

#include <QCryptographicHash>
#include <QFileInfo>
#include <cerrno>
#include <cstring>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

struct Address {
    sockaddr_un bytes{};
    socklen_t size = 0;
    explicit Address(const QByteArray& name)
    {
        bytes.sun_family = AF_UNIX;
        std::memcpy(bytes.sun_path + 1, name.constData(), size_t(name.size())); // the zero before it: abstract
        size = socklen_t(offsetof(sockaddr_un, sun_path) + 1 + size_t(name.size()));
    }
    const sockaddr* get() const { return reinterpret_cast<const sockaddr*>(&bytes); }
};

} // namespace

SocketInstance::SocketInstance(const QString& homeFolder)
{
    QString home = QFileInfo(homeFolder).canonicalFilePath();
    if (home.isEmpty())
        home = homeFolder;
    m_name = "snipvale-" + QByteArray::number(::getuid()) + '-' +
        QCryptographicHash::hash(home.toUtf8(), QCryptographicHash::Sha256).toHex();
    m_socket = ::socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    if (m_socket < 0)
        return;
    const Address address(m_name);
    if (::bind(m_socket, address.get(), address.size) != 0) {
        m_isRunning = errno == EADDRINUSE;
        return;
    }
    m_notifier = std::make_unique<QSocketNotifier>(m_socket, QSocketNotifier::Read);
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(), [this] { received(); });
}

SocketInstance::~SocketInstance()
{
    m_notifier.reset();
    if (m_socket >= 0)
        ::close(m_socket);
}

void SocketInstance::bringToFront()
{
    const Address address(m_name);
    if (m_isRunning)
        ::sendto(m_socket, "show", 4, 0, address.get(), address.size);
}

void SocketInstance::received()
{
    char bytes[16];
    bool asked = false;
    while (::recv(m_socket, bytes, sizeof bytes, 0) > 0)
        asked = true;
    if (asked && onBringToFront)
        onBringToFront();
}
