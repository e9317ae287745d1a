// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

class Archive;

// The version of the archive's tables that this program writes.
inline constexpr char ArchiveVersion[] = "3.0";
inline constexpr int ArchiveBuild = 191;

// True when the archive holds a table of that name, in any letter case. An error is shown and gives false.
bool ExistTable(Archive& archive, const QString& name);

// Brings an archive of an older schema up to the current one and says so; a current archive is left alone.
// An error is shown and gives false; what was already written stays.
bool UpdateArchiveVersion(Archive& archive);
