// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <memory>

struct sqlite3;

namespace jet {

struct CloseDatabase {
    void operator()(sqlite3* database) const noexcept;
};
using Database = std::unique_ptr<sqlite3, CloseDatabase>;

// Marks a file as an archive: "SVA1" in the header's application id.
inline constexpr unsigned applicationId = 0x53564131;
inline constexpr int formatVersion = 1; // the header's user version

// An archive with its text rules, safety settings and durability. Recognised before anything is written to the
// file; a hot journal is rolled back, write-ahead logging switched off. Throws Error.
Database openArchive(const QString& path);

// Throws Error when there is no archive at `path`, by its header and, without an application id, its tables.
void requireArchive(const QString& path);

// A new, empty archive file. Throws Error, also when there is something at `path`.
Database createArchive(const QString& path);

// The version of the SQLite library that runs: "3.40.1".
QString engineVersion();

// A file that is known to be ours, also a damaged one: no check, no settings that read it. Throws Error.
Database openUnchecked(const QString& path);

// Makes text comparison, LIKE and the conversion of assigned values ours on this connection.
void installTextRules(sqlite3* database);

// From here on, statements of this connection cannot reach other files, settings or code: no ATTACH, no PRAGMA,
// no functions but the plain ones, no triggers, views or virtual tables made.
void installGuard(sqlite3* database);

} // namespace jet
