// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

class Sound;

// What a reminder sounds like: "alert.wav" of the program's folder. Without a wave device the desktop beeps; with one
// but without the file it is silent, which is how a user switches the sound off.
void soundAlert(Sound& sound, const QString& programFolder);
