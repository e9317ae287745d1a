// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace jet {

// Writes what can still be read of the damaged archive `from` into the new archive `to`: the same tables and
// indexes, and every row that a key still leads to. Throws Error, and leaves `to` to be removed by the caller.
void salvageArchive(const QString& from, const QString& to);

} // namespace jet
