// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

struct sqlite3;

namespace jet {

// Makes text comparison, LIKE and the conversion of assigned values ours on this connection.
void installTextRules(sqlite3* database);

// From here on, statements of this connection cannot reach other files, settings or code: no ATTACH, no PRAGMA,
// no functions but the plain ones, no triggers, views or virtual tables made.
void installGuard(sqlite3* database);

} // namespace jet
