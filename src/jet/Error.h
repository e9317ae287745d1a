// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <stdexcept>
#include <string>

struct sqlite3;

namespace jet {

// A failure of the engine. what() is UTF-8, written for the user.
class Error : public std::runtime_error {
public:
    explicit Error(const QString& description, int sqliteCode = 0);
    int code() const { return m_code; } // extended SQLite result code, 0 for an error of the dialect

private:
    int m_code;
};

[[noreturn]] void fail(const std::string& description); // throws Error; UTF-8

// What a result code of SQLite means for the user. Never empty. `engineText` is SQLite's own description.
QString describeSqlite(int code, const QString& engineText, const QString& path);

// Throws the last failure of the connection, or `code` when that says more.
[[noreturn]] void throwSqliteError(sqlite3* database, int code);

} // namespace jet
