// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/ui/QtClipboard.h"

#include "desktop/SecretMemory.h"

#include <QClipboard>
#include <QCryptographicHash>
#include <QGuiApplication>
#include <QMimeData>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

QByteArray fingerprint(const QString& text)
{
    QByteArray bytes = text.toUtf8();
    const WipeAtEnd wiped(bytes);
    return QCryptographicHash::hash(bytes, QCryptographicHash::Sha256);
}

} // namespace

QtClipboard::QtClipboard(std::chrono::milliseconds period, QObject* parent) : QObject(parent)
{
    m_timer.setSingleShot(true);
    m_timer.setInterval(period);
    connect(&m_timer, &QTimer::timeout, this, &QtClipboard::wipe);
    connect(qGuiApp, &QGuiApplication::aboutToQuit, this, &QtClipboard::wipe);
}

QtClipboard::~QtClipboard()
{
    wipe();
}

void QtClipboard::copySecret(const QString& text)
{
    auto data = std::make_unique<QMimeData>();
    data->setText(text);
    // What KeePassXC and KDE agreed on; other managers of Linux desktops follow it.
    data->setData(u"x-kde-passwordManagerHint"_s, "secret");
    QGuiApplication::clipboard()->setMimeData(data.release(), QClipboard::Clipboard);
    // A picture that is copied later has the text "", too.
    m_fingerprint = text.isEmpty() ? QByteArray() : fingerprint(text);
    m_timer.start();
}

void QtClipboard::wipe()
{
    m_timer.stop();
    if (m_fingerprint.isEmpty() || !qGuiApp)
        return;
    QClipboard* clipboard = QGuiApplication::clipboard();
    if (fingerprint(clipboard->text(QClipboard::Clipboard)) == m_fingerprint)
        clipboard->clear(QClipboard::Clipboard);
    m_fingerprint.clear();
}
