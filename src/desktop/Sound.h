// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

// The sound device. Nothing here waits for a sound to end, and nothing fails aloud.
class Sound {
public:
    virtual ~Sound() = default;
    virtual int waveDevices() = 0; // how many devices can play a wave file; 0 when there is none
    virtual void play(const QString& waveFile) = 0; // a file that exists, by its absolute path; returns at once
    virtual void beep() = 0; // the desktop's own short signal
};
