// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QtGlobal>

namespace jet {

struct CompactResult {
    qint64 bytesBefore = 0;
    qint64 bytesNow = 0;
    bool wasDamaged = false; // then rows that could be read were salvaged ...
    QString damagedCopy; // ... and the damaged file was kept here
};

// Compacts the archive `path` by way of the file `temporary` in the same folder, which then takes the
// archive's place. Throws Error; the archive is untouched then and no temporary file is left.
CompactResult compactArchive(const QString& path, const QString& temporary);

// Copies the archive `from`, with what another program has just written to it, over the file `to`.
// Throws Error; an existing `to` is untouched then. `from` and `to` must not be one file.
void copyArchive(const QString& from, const QString& to);

// True when both paths lead to one file, by whatever links. False when either does not exist.
bool isSameFile(const QString& a, const QString& b);

} // namespace jet
