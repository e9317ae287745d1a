// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "jet/Error.h"

#include <algorithm>
#include <initializer_list>
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

// A place in the tokens of a statement, moved forward by what is recognised there.
class TokenCursor {
public:
    explicit TokenCursor(Tokens tokens) : m_tokens(std::move(tokens)) { }

    size_t place() const { return m_place; }
    void goTo(size_t place) { m_place = place; }
    size_t end() const { return m_tokens.size(); }
    const Token& peek(size_t ahead = 0) const { return m_tokens[m_place + ahead]; }
    const Token& at(size_t place) const { return m_tokens[place]; }
    const Token& take() { return m_tokens[m_place++]; }

    bool next(std::string_view key) { return peek().is(key) && ++m_place; }
    void need(std::string_view key)
    {
        if (!next(key))
            fail("Syntax error: '" + std::string(key) + "' expected" + here());
    }
    std::string name()
    {
        if (peek().kind != Token::Word && peek().kind != Token::Name)
            fail("Syntax error: a name is expected" + here());
        return take().text;
    }
    // The place of the first of the keys from here on that stands outside any brackets, or the end.
    size_t find(std::initializer_list<std::string_view> keys) const
    {
        size_t place = m_place;
        for (int depth = 0; m_tokens[place].kind != Token::End; ++place) {
            const Token& token = m_tokens[place];
            if (!depth && std::any_of(keys.begin(), keys.end(), [&](std::string_view key) { return token.is(key); }))
                break;
            depth += token.is("(") ? 1 : token.is(")") ? -1 : 0;
        }
        return place;
    }
    std::string here() const
    {
        return peek().kind == Token::End ? " at the end." : " at '" + peek().text.substr(0, 60) + "'.";
    }

private:
    Tokens m_tokens;
    size_t m_place = 0;
};

} // namespace jet
