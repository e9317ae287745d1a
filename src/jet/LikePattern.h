// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "jet/ByteSearch.h"

#include <optional>
#include <string_view>
#include <utility>
#include <vector>

namespace jet {

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
