// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/Desktop.h"

#include <QByteArray>
#include <QObject>
#include <QTimer>
#include <chrono>

// The desktop's clipboard. Made after the application object, and gone before it.
class QtClipboard final : public QObject, public Clipboard {
    Q_OBJECT
public:
    static constexpr std::chrono::milliseconds usualPeriod = std::chrono::seconds(30);

    explicit QtClipboard(std::chrono::milliseconds period = usualPeriod, QObject* parent = nullptr);
    ~QtClipboard() override; // wipes

    void copySecret(const QString& text) override;
    void wipe() override;

private:
    QTimer m_timer;
    QByteArray m_fingerprint; // of the secret that may still be there; the secret itself is not kept
};
