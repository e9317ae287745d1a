// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/Desktop.h"

#include <QProcess>
#include <QStringList>
#include <QTimer>
#include <memory>

// Plays through the desktop's own players, each a process of its own: pw-play of PipeWire, paplay of PulseAudio, aplay
// of ALSA. A sound library linked in would cost each start tens of libraries for one second of sound; and a device that
// hangs can stop a player, never this program. One sound at a time: a burst of reminders is one signal.
class QtSound : public Sound {
public:
    // Where ALSA lists its devices, one a line (the kernel's Documentation/sound/designs/procfile.rst).
    explicit QtSound(QString deviceList = QStringLiteral("/proc/asound/pcm"));
    ~QtSound() override;

    int waveDevices() override; // those that an installed player reaches; a sound server counts as one
    void play(const QString& waveFile) override; // beeps when no player can play it
    void beep() override;

private:
    QStringList players() const; // full paths, the best first
    int hardwareDevices() const;
    void startNext();

    QString m_deviceList;
    QStringList m_left; // players not tried yet for this file
    QString m_file;
    QTimer m_limit; // for a player that hangs
    std::unique_ptr<QProcess> m_player; // null while it is quiet
};
