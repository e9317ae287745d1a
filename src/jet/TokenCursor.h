// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "jet/Tokenizer.h"
#include "jet/Types.h"

#include <algorithm>
#include <initializer_list>

namespace jet {

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
