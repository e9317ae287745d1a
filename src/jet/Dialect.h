// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "jet/Types.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

struct sqlite3;

namespace jet {

class TokenCursor;
struct Token;

// What one statement of the Jet 4 dialect (ANSI-92 wildcards) becomes: SQL of SQLite with a ? for each bind.
struct Statement {
    enum Kind { Query, Change, Definition } kind = Query;
    std::string sql;
    std::vector<Cell> binds;
    std::vector<std::string> then; // statements that belong to a definition; all of them or none
};

// The file's own schema tells the types of the columns. Throws Error, also for every kind of statement that is
// not SELECT, INSERT, UPDATE, DELETE, CREATE or DROP of a table or an index. Linear in the length of the text.
Statement translate(std::string_view sql, sqlite3* database);

// CREATE and DROP of tables and indexes, for translate(); the cursor stands at that word.
Statement translateDefinition(TokenCursor cursor, sqlite3* database);

// What a token stands for as a value; `negative` after a minus. Nothing when it is no literal. Throws Error for no
// date.
std::optional<Cell> literalValue(const Token& token, bool negative);

// "name", with quotes inside it doubled.
std::string quotedName(std::string_view name);

} // namespace jet
