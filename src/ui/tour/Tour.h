// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

// Walks through the program's main job on an archive of its own and leaves numbered PNG pictures in `folder`.
// Returns 0, or 1 when a step did not come out as it should (it says which on standard error). `shipped` is the
// folder with the shipped files.
int runTour(const QString& folder, const QString& shipped);
