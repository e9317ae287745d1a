// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "jet/LikePattern.h"

#include "jet/Letters.h"
#include "jet/Types.h"

#include <algorithm>

namespace jet {

bool LikePattern::Item::accepts(char32_t folded) const
{
    if (kind == Literal)
        return folded == letter;
    if (kind == AnyCharacter)
        return true;
    const bool listed = std::any_of(ranges.begin(), ranges.end(),
                                    [&](const auto& range) { return folded >= range.first && folded <= range.second; });
    return listed != negated;
}

LikePattern::LikePattern(std::string_view pattern)
{
    const char *p = pattern.data(), *end = p + pattern.size();
    while (p < end) {
        const char32_t c = decode(p, end);
        if (c == '[')
            p = readList(p, end);
        else if (c == '_')
            m_items.push_back({Item::AnyCharacter, 0, false, {}});
        else if (c != '%')
            m_items.push_back({Item::Literal, fold(c), false, {}});
        else if (m_items.empty() || m_items.back().kind != Item::AnyRun)
            m_items.push_back({Item::AnyRun, 0, false, {}});
    }
    findNeedle();
}

// `p` is behind the opening bracket. Gives the place behind the closing one.
const char* LikePattern::readList(const char* p, const char* end)
{
    const char* const close = std::find(p, end, ']');
    if (close == end)
        fail("Invalid pattern string");
    if (p == close) // [] stands for nothing
        return close + 1;
    Item item{Item::List, 0, false, {}};
    if ((*p == '!' || *p == '^') && close - p > 1) {
        item.negated = true;
        ++p;
    }
    while (p < close) {
        const char32_t from = fold(decode(p, close));
        char32_t to = from;
        if (close - p > 1 && *p == '-')
            to = fold(decode(++p, close));
        if (to < from)
            fail("Invalid pattern string");
        item.ranges.emplace_back(from, to);
    }
    const auto& only = item.ranges.front();
    if (!item.negated && item.ranges.size() == 1 && only.first == only.second)
        item = {Item::Literal, only.first, false, {}};
    m_items.push_back(std::move(item));
    return close + 1;
}

void LikePattern::findNeedle()
{
    const size_t n = m_items.size();
    if (n < 3 || m_items.front().kind != Item::AnyRun || m_items.back().kind != Item::AnyRun)
        return;
    std::u32string needle;
    for (size_t i = 1; i + 1 < n; ++i) {
        if (m_items[i].kind != Item::Literal)
            return;
        needle += m_items[i].letter;
    }
    m_search.emplace(std::move(needle));
}

bool LikePattern::matches(std::string_view text) const
{
    return m_search ? m_search->isIn(text) : matchesItems(text);
}

// Only the last run needs to be tried again one character further on: an earlier one can gain nothing.
bool LikePattern::matchesItems(std::string_view text) const
{
    const char *p = text.data(), *end = p + text.size(), *retry = nullptr;
    size_t i = 0, afterRun = 0;
    for (;;) {
        if (i < m_items.size() && m_items[i].kind == Item::AnyRun) {
            afterRun = ++i;
            retry = p;
            if (i == m_items.size())
                return true;
            continue;
        }
        if (p == end && i == m_items.size())
            return true;
        if (p < end && i < m_items.size() && m_items[i].accepts(fold(decode(p, end)))) {
            ++i;
            continue;
        }
        if (!retry || retry == end)
            return false;
        decode(retry, end);
        p = retry;
        i = afterRun;
    }
}

} // namespace jet
