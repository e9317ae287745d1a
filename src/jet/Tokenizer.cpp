// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "jet/Tokenizer.h"

#include "jet/Types.h"

#include <algorithm>
#include <charconv>

namespace jet {
namespace {

bool isBlank(char c)
{
    return c == ' ' || (c >= '\t' && c <= '\r');
}

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

bool isWordCharacter(char c)
{
    return isDigit(c) || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' ||
        static_cast<unsigned char>(c) >= 0x80;
}

} // namespace

Tokens::Tokens(std::string_view sql)
{
    for (size_t i = 0; i < sql.size();) {
        const char c = sql[i];
        if (isBlank(c))
            ++i;
        else if (c == '\'' || c == '"')
            i = readText(sql, i);
        else if (c == '[' || c == '`' || c == '#')
            i = readDelimited(sql, i);
        else if (isDigit(c) || (c == '.' && i + 1 < sql.size() && isDigit(sql[i + 1])))
            i = readNumber(sql, i);
        else if (isWordCharacter(c))
            i = readWord(sql, i);
        else
            i = readSymbol(sql, i);
    }
    while (!m_tokens.empty() && m_tokens.back().is(";"))
        m_tokens.pop_back();
    if (std::any_of(m_tokens.begin(), m_tokens.end(), [](const Token& t) { return t.is(";"); }))
        fail("Characters found after end of SQL statement.");
}

// Both quotes delimit text; inside it the delimiter is doubled.
size_t Tokens::readText(std::string_view sql, size_t at)
{
    const char quote = sql[at++];
    std::string text;
    for (;;) {
        const auto end = sql.find(quote, at);
        if (end == sql.npos)
            fail("Syntax error in string in query expression: a text is not closed.");
        text += sql.substr(at, end - at);
        at = end + 1;
        if (at >= sql.size() || sql[at] != quote)
            break;
        text += quote;
        ++at;
    }
    m_tokens.push_back({Token::Text, std::move(text), {}});
    return at;
}

// [name], `name`, #date#
size_t Tokens::readDelimited(std::string_view sql, size_t at)
{
    const char open = sql[at];
    const auto end = sql.find(open == '[' ? ']' : open, at + 1);
    if (end == sql.npos)
        fail(open == '#' ? "Syntax error in date in query expression." : "Invalid bracketing of name.");
    m_tokens.push_back({open == '#' ? Token::Date : Token::Name, std::string(sql.substr(at + 1, end - at - 1)), {}});
    return end + 1;
}

size_t Tokens::readNumber(std::string_view sql, size_t at)
{
    double ignored = 0;
    const char* const from = sql.data() + at;
    const auto length = size_t(std::from_chars(from, sql.data() + sql.size(), ignored).ptr - from);
    m_tokens.push_back({Token::Number, std::string(sql.substr(at, length)), {}});
    return at + length;
}

size_t Tokens::readWord(std::string_view sql, size_t at)
{
    size_t end = at;
    while (end < sql.size() && isWordCharacter(sql[end]))
        ++end;
    const std::string_view word = sql.substr(at, end - at);
    m_tokens.push_back({Token::Word, std::string(word), upper(word)});
    return end;
}

size_t Tokens::readSymbol(std::string_view sql, size_t at)
{
    constexpr std::string_view known = "<>=().,*+-/&;";
    if (known.find(sql[at]) == known.npos)
        fail(std::string("Syntax error in query expression at '") + sql[at] + "'.");
    const auto two = sql.substr(at, 2);
    const std::string symbol(two == "<>" || two == "<=" || two == ">=" ? two : sql.substr(at, 1));
    m_tokens.push_back({Token::Symbol, symbol, symbol});
    return at + symbol.size();
}

} // namespace jet
