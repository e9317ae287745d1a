// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tasks/modSound.h"

#include "desktop/Desktop.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

void soundAlert(Sound& sound, const QString& programFolder)
{
    if (sound.waveDevices() <= 0) {
        sound.beep();
        return;
    }
    const QFileInfo file(programFolder + u"/alert.wav"_s);
    if (file.isFile())
        sound.play(file.absoluteFilePath());
}
