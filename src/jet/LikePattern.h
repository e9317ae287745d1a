// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace jet {

// Looks for folded text inside UTF-8 text. Two bytes of the needle, the rarest ones, are looked for sixteen
// places at a time; the letters around them are compared only where both are found.
class ByteSearch {
public:
    explicit ByteSearch(std::u32string needle); // folded characters, at least one

    bool isIn(std::string_view text) const { return m_isAscii ? findAscii(text) : findLetter(text); }

private:
    struct Spelling { // one way to write a letter beyond ASCII
        char first, last;
        int length;
    };

    void chooseRarest();
    void spell(char32_t letter);
    bool findAscii(std::string_view text) const;
    bool findLetter(std::string_view text) const;
    bool asciiAt(const char* p) const;
    bool lettersAround(const char* letter, const char* begin, const char* end) const;

    std::u32string m_needle;
    std::string m_ascii; // the needle in bytes when it has no other letters
    bool m_isAscii = true;
    size_t m_anchor = 0, m_second = 0; // where in the needle to look first
    std::vector<Spelling> m_spellings; // of the letter at m_anchor, when not ASCII
};

// A compiled LIKE pattern of the ANSI-92 kind: % for any run, _ for any character, [list], [a-z] and [!list]
// (or [^list]) for one of a list; [%] is how to ask for a percent sign. Letter case never counts.
class LikePattern {
public:
    explicit LikePattern(std::string_view pattern); // UTF-8; throws Error on a bad list
    bool matches(std::string_view text) const;

private:
    struct Item {
        enum Kind { Literal, AnyCharacter, AnyRun, List } kind = Literal;
        char32_t letter = 0; // folded
        bool negated = false;
        std::vector<std::pair<char32_t, char32_t>> ranges; // folded

        bool accepts(char32_t folded) const;
    };

    const char* readList(const char* p, const char* end);
    void findNeedle();
    bool matchesItems(std::string_view text) const;

    std::vector<Item> m_items;
    std::optional<ByteSearch> m_search; // for %text%, by far the most frequent kind
};

} // namespace jet
