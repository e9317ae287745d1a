// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "jet/Types.h"

#include "jet/Dates.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace jet {
namespace {

struct TypeWord {
    std::string_view word;
    Type type;
};

constexpr std::array typeWords{
    TypeWord{"COUNTER", Type::Counter}, TypeWord{"AUTOINCREMENT", Type::Counter},
    TypeWord{"LONG", Type::Long},       TypeWord{"INTEGER", Type::Long},
    TypeWord{"INT", Type::Long},        TypeWord{"SHORT", Type::Short},
    TypeWord{"SMALLINT", Type::Short},  TypeWord{"BYTE", Type::Byte},
    TypeWord{"DOUBLE", Type::Real},     TypeWord{"FLOAT", Type::Real},
    TypeWord{"SINGLE", Type::Real},     TypeWord{"REAL", Type::Real},
    TypeWord{"CURRENCY", Type::Real},   TypeWord{"YESNO", Type::YesNo},
    TypeWord{"BIT", Type::YesNo},       TypeWord{"LOGICAL", Type::YesNo},
    TypeWord{"BOOLEAN", Type::YesNo},   TypeWord{"DATETIME", Type::DateTime},
    TypeWord{"DATE", Type::DateTime},   TypeWord{"TIME", Type::DateTime},
    TypeWord{"TEXT", Type::Text},       TypeWord{"VARCHAR", Type::Text},
    TypeWord{"CHAR", Type::Text},       TypeWord{"LONGTEXT", Type::LongText},
    TypeWord{"MEMO", Type::LongText},   TypeWord{"LONGBINARY", Type::Binary},
    TypeWord{"IMAGE", Type::Binary},
};

std::string_view trimmed(std::string_view text)
{
    const auto from = text.find_first_not_of(' ');
    return from == text.npos ? std::string_view() : text.substr(from, text.find_last_not_of(' ') - from + 1);
}

double toNumber(const Cell& value, std::string_view column)
{
    if (const auto* integer = std::get_if<std::int64_t>(&value))
        return double(*integer);
    if (const auto* real = std::get_if<double>(&value))
        return *real;
    std::string_view text = trimmed(std::get<std::string>(value));
    if (text.starts_with('+'))
        text.remove_prefix(1);
    double number = 0;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), number);
    if (text.empty() || read.ptr != text.data() + text.size() || read.ec != std::errc() || !std::isfinite(number))
        fail("Data type conversion error in '" + std::string(column) + "'");
    return number;
}

Cell toInteger(const Cell& value, double low, double high, std::string_view column)
{
    const double number = std::nearbyint(toNumber(value, column)); // halves go to the even neighbour
    if (!(number >= low && number <= high))
        fail("Overflow in '" + std::string(column) + "'");
    return std::int64_t(number);
}

// YESNO knows no Null, and True is -1 whatever was assigned.
Cell toYesNo(const Cell& value, std::string_view column)
{
    if (std::holds_alternative<std::monostate>(value))
        return std::int64_t(0);
    if (const auto* text = std::get_if<std::string>(&value)) {
        const std::string word = upper(trimmed(*text));
        if (word == "TRUE" || word == "YES" || word == "ON")
            return std::int64_t(-1);
        if (word == "FALSE" || word == "NO" || word == "OFF")
            return std::int64_t(0);
    }
    return std::int64_t(toNumber(value, column) != 0 ? -1 : 0);
}

std::string toText(Cell value)
{
    if (auto* text = std::get_if<std::string>(&value))
        return std::move(*text);
    if (const auto* integer = std::get_if<std::int64_t>(&value))
        return std::to_string(*integer);
    std::array<char, 40> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), std::get<double>(value));
    return {digits.data(), end.ptr};
}

// The width of a column counts UTF-16 units.
std::ptrdiff_t utf16Units(std::string_view utf8)
{
    std::ptrdiff_t units = 0;
    for (const char c : utf8) {
        const auto byte = static_cast<unsigned char>(c);
        units += (byte & 0xC0) == 0x80 ? 0 : byte >= 0xF0 ? 2 : 1;
    }
    return units;
}

std::string toShortText(Cell value, int size, std::string_view column)
{
    std::string text = toText(std::move(value));
    if (text.size() > size_t(size) && utf16Units(text) > size)
        fail("The field is too small to accept the amount of data you attempted to add: '" + std::string(column) + "'");
    return text;
}

} // namespace

std::string upper(std::string_view text)
{
    std::string result(text);
    for (char& c : result)
        if (c >= 'a' && c <= 'z')
            c = char(c & ~0x20);
    return result;
}

ColumnType typeFromName(std::string_view declared)
{
    const auto bracket = declared.find('(');
    const std::string word = upper(trimmed(declared.substr(0, bracket)));
    int size = 0;
    if (bracket != declared.npos) {
        const std::string_view inside = declared.substr(bracket + 1);
        std::from_chars(inside.data(), inside.data() + inside.size(), size);
    }
    const auto* const known =
        std::find_if(typeWords.begin(), typeWords.end(), [&](const TypeWord& t) { return t.word == word; });
    if (known == typeWords.end())
        return {};
    if (known->type != Type::Text)
        return {known->type, size};
    if (size <= 0) // TEXT alone is the long kind, the others have the classic width
        return word == "TEXT" ? ColumnType{Type::LongText, 0} : ColumnType{Type::Text, 255};
    return {Type::Text, size};
}

Cell numberCell(const std::string& text, bool negative)
{
    const char *from = text.data(), *end = from + text.size();
    std::int64_t integer = 0;
    if (const auto read = std::from_chars(from, end, integer); read.ec == std::errc() && read.ptr == end)
        return negative ? -integer : integer;
    double real = 0;
    if (std::from_chars(from, end, real).ec != std::errc())
        real = std::numeric_limits<double>::infinity();
    return negative ? -real : real;
}

Cell toCell(const Value& value)
{
    if (const auto* flag = std::get_if<bool>(&value))
        return std::int64_t(*flag ? -1 : 0);
    if (const auto* integer = std::get_if<qint64>(&value))
        return std::int64_t(*integer);
    if (const auto* real = std::get_if<double>(&value))
        return *real;
    if (const auto* text = std::get_if<QString>(&value))
        return text->toStdString();
    if (const auto* moment = std::get_if<QDateTime>(&value); moment && moment->isValid())
        return storedDate(*moment);
    return {};
}

Cell coerce(Cell value, ColumnType to, std::string_view column)
{
    if (to.type == Type::YesNo)
        return toYesNo(value, column);
    if (std::holds_alternative<std::monostate>(value))
        return value;
    switch (to.type) {
    case Type::Counter:
    case Type::Long:
        return toInteger(value, -2147483648.0, 2147483647.0, column);
    case Type::Short:
        return toInteger(value, -32768, 32767, column);
    case Type::Byte:
        return toInteger(value, 0, 255, column);
    case Type::Real:
        return toNumber(value, column);
    case Type::DateTime:
        if (const auto* text = std::get_if<std::string>(&value))
            return parseDate(*text);
        return dateFromSerial(toNumber(value, column));
    case Type::Text:
        return toShortText(std::move(value), to.size, column);
    case Type::LongText:
        return toText(std::move(value));
    default:
        return value;
    }
}

} // namespace jet
