// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "jet/Query.h"

#include <optional>
#include <string>

namespace jet {

// Copies the rows of one damaged table, by ranges of keys. Where reading breaks off, the rest is tried from the
// other end, then in ever smaller halves, until only the keys in damaged pages are left. Keys have 32 bits.
class TableSalvage {
public:
    TableSalvage(sqlite3* from, sqlite3* to, const std::string& table); // throws Error
    void run(); // throws Error when `to` cannot be written

private:
    using Key = std::int64_t;

    void copyBetween(Key low, Key high);
    std::optional<Key> copy(Query& rows, Key from, Key to, bool upwards);
    void insertRow(sqlite3_stmt* row);
    std::optional<Key> counter() const;

    std::string m_table;
    sqlite3* m_from;
    sqlite3* m_to;
    Query m_upwards, m_downwards, m_insert;
    std::int64_t m_rows = 0; // copied so far
};

} // namespace jet
