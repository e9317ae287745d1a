// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDateTime>

// The only source of the present moment, so that a test can move time by hand.
class Clock {
public:
    virtual ~Clock() = default;
    virtual QDateTime now() const = 0; // local time
};

class SystemClock final : public Clock {
public:
    QDateTime now() const override { return QDateTime::currentDateTime(); }
};
