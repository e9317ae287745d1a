// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "jet/Value.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

namespace jet {

// A value as it lies in the file: Null, integer, real, or text and bytes in UTF-8.
using Cell = std::variant<std::monostate, std::int64_t, double, std::string>;

enum class Type { Unknown, Counter, Long, Short, Byte, Real, YesNo, DateTime, Text, LongText, Binary };

struct ColumnType {
    Type type = Type::Unknown;
    int size = 0; // UTF-16 units, for Text

    bool isText() const { return type == Type::Text || type == Type::LongText; }
};

// The type that a declared type word such as "YESNO" or "TEXT(255)" stands for, in any letter case.
ColumnType typeFromName(std::string_view declared);

// What becomes of a value that is assigned to a column. Throws Error when it does not fit.
Cell coerce(Cell value, ColumnType to, std::string_view column);
Cell toCell(const Value& value);
Cell numberCell(const std::string& digits, bool negative); // infinite beyond any range, which coerce() refuses

std::string upper(std::string_view text); // ASCII only: names and words of SQL

} // namespace jet
