// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace jet {

struct Token {
    enum Kind { Word, Name, Number, Text, Date, Symbol, End } kind = End;
    std::string text; // as written, without delimiters
    std::string key; // in upper case, for words and symbols only

    bool is(std::string_view word) const { return kind != End && key == word; }
};

// One statement in pieces. Looking past the end finds the End token.
class Tokens {
public:
    explicit Tokens(std::string_view sql); // UTF-8; throws Error

    const Token& operator[](size_t i) const { return i < m_tokens.size() ? m_tokens[i] : m_end; }
    size_t size() const { return m_tokens.size(); }

private:
    size_t readText(std::string_view sql, size_t at);
    size_t readDelimited(std::string_view sql, size_t at);
    size_t readNumber(std::string_view sql, size_t at);
    size_t readWord(std::string_view sql, size_t at);
    size_t readSymbol(std::string_view sql, size_t at);

    std::vector<Token> m_tokens;
    Token m_end;
};

} // namespace jet
