// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The application object, the command line and the event loop. Returns the exit code of the process.
int runProgram(int argc, char** argv);
