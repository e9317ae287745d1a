// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <memory>

class PreviousInstance;
class frmMain;
class modSnipVale;
struct Desktop;

// Walks through the program and leaves pictures in `folder`; `shipped` is the folder with the shipped files. Returns
// the exit code.
using TourRunner = int (*)(const QString& folder, const QString& shipped);

// The application object, the command line and the event loop. Returns the exit code of the process. `tour` runs when
// the command line asks for it.
int runProgram(int argc, char** argv, TourRunner tour);

// The program's start: asks before a second instance, reads the settings, brings the archive up to date and shows
// the frame. Null when the program ends instead; the reason was shown then.
std::unique_ptr<frmMain> Main(modSnipVale& program, const Desktop& desktop, PreviousInstance& previous);
