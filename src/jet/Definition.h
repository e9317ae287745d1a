// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "jet/Dialect.h"
#include "jet/TokenCursor.h"

namespace jet {

// Translates CREATE and DROP of tables and indexes; the cursor stands at that word.
Statement translateDefinition(TokenCursor cursor, sqlite3* database);

} // namespace jet
