// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <memory>

class PreviousInstance;
class frmMain;
class modSnipVale;
struct Desktop;

// The program's start: asks before a second instance, reads the settings, brings the archive up to date and shows
// the frame. Null when the program ends instead; the reason was shown then.
std::unique_ptr<frmMain> Main(modSnipVale& program, const Desktop& desktop, PreviousInstance& previous);
