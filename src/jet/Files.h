// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace jet {

// File operations where a failure must be known and a power cut survived. All throw Error.

void createEmptyFile(const QString& path); // there must be nothing at `path`
void syncFile(const QString& path);
void syncFolderOf(const QString& path) noexcept; // as far as the file system can
void removeFile(const QString& path); // no error when there is none
bool linkFile(const QString& from, const QString& to); // a second name, or a copy; false when `to` is taken
void replaceFile(const QString& from, const QString& to); // atomic; same folder
void giveModeAndOwner(const QString& like, const QString& path); // owner as far as the system allows
qint64 freeBytesBeside(const QString& path); // less than 0: unknown
QString realPath(const QString& path); // links resolved; of a file that does not exist, its folder's links

} // namespace jet
