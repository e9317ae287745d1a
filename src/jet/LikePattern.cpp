// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "jet/LikePattern.h"

#include "jet/Error.h"
#include "jet/TextRules.h"

#include <algorithm>
#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace jet {
namespace {

char lowered(char c)
{
    return c >= 'A' && c <= 'Z' ? char(c | 0x20) : c;
}

// Bits to set in a byte so that both cases of the letter become the lower one.
char caseMask(char lower)
{
    return lower >= 'a' && lower <= 'z' ? 0x20 : 0;
}

char withMask(char c, char mask)
{
    return char(c | mask);
}

// How seldom a byte is in code and prose: its place in the list of the common ones.
size_t rarity(char c)
{
    constexpr std::string_view common = " etaoinsrlhcdmupfgy_bvw.,()k=;x0\"1-";
    return std::min(common.find(c), common.size());
}

#if defined(__SSE2__)
__m128i sixteen(const char* p)
{
    return _mm_loadu_si128(reinterpret_cast<const __m128i*>(p));
}

unsigned bits(__m128i matches)
{
    return unsigned(_mm_movemask_epi8(matches));
}
#endif

} // namespace

ByteSearch::ByteSearch(std::u32string needle) : m_needle(std::move(needle))
{
    const auto foreign = std::find_if(m_needle.begin(), m_needle.end(), [](char32_t c) { return c >= 0x80; });
    m_isAscii = foreign == m_needle.end();
    if (m_isAscii) {
        for (const char32_t c : m_needle)
            m_ascii += char(c);
        chooseRarest();
    } else {
        m_anchor = size_t(foreign - m_needle.begin());
        spell(*foreign);
    }
}

void ByteSearch::chooseRarest()
{
    for (size_t i = 1; i < m_ascii.size(); ++i)
        if (rarity(m_ascii[i]) > rarity(m_ascii[m_anchor]))
            m_anchor = i;
    m_second = m_anchor ? 0 : m_ascii.size() - 1;
    for (size_t i = 0; i < m_ascii.size(); ++i)
        if (i != m_anchor && rarity(m_ascii[i]) > rarity(m_ascii[m_second]))
            m_second = i;
}

void ByteSearch::spell(char32_t letter)
{
    for (const char32_t c : spellings(letter)) {
        const int length = c < 0x800 ? 2 : c < 0x10000 ? 3 : 4;
        const unsigned lead = length == 2 ? 0xC0u : length == 3 ? 0xE0u : 0xF0u;
        m_spellings.push_back({char(lead | (c >> (6 * (length - 1)))), char(0x80 | (c & 0x3F)), length});
    }
}

bool ByteSearch::asciiAt(const char* p) const
{
    for (size_t i = 0; i < m_ascii.size(); ++i)
        if (lowered(p[i]) != m_ascii[i])
            return false;
    return true;
}

bool ByteSearch::findAscii(std::string_view text) const
{
    if (text.size() < m_ascii.size())
        return false;
    const char* p = text.data();
    const char* const last = p + (text.size() - m_ascii.size());
    const char first = m_ascii[m_anchor], second = m_ascii[m_second];
    const char firstMask = caseMask(first), secondMask = caseMask(second);
#if defined(__SSE2__)
    const __m128i first16 = _mm_set1_epi8(first), second16 = _mm_set1_epi8(second);
    const __m128i firstMask16 = _mm_set1_epi8(firstMask), secondMask16 = _mm_set1_epi8(secondMask);
    for (; last - p >= 15; p += 16) {
        const __m128i here = _mm_cmpeq_epi8(_mm_or_si128(sixteen(p + m_anchor), firstMask16), first16);
        const __m128i there = _mm_cmpeq_epi8(_mm_or_si128(sixteen(p + m_second), secondMask16), second16);
        for (unsigned found = bits(_mm_and_si128(here, there)); found; found &= found - 1)
            if (asciiAt(p + __builtin_ctz(found)))
                return true;
    }
#endif
    for (; p <= last; ++p)
        if (withMask(p[m_anchor], firstMask) == first && withMask(p[m_second], secondMask) == second && asciiAt(p))
            return true;
    return false;
}

bool ByteSearch::lettersAround(const char* letter, const char* begin, const char* end) const
{
    const char* p = letter;
    for (size_t back = m_anchor; back; --back) {
        if (p == begin)
            return false;
        while (--p > begin && (*p & 0xC0) == 0x80) { }
    }
    return std::all_of(m_needle.begin(), m_needle.end(),
                       [&](char32_t c) { return p < end && fold(decode(p, end)) == c; });
}

bool ByteSearch::findLetter(std::string_view text) const
{
    const char* const begin = text.data();
    const char* const end = begin + text.size();
    const char* p = begin;
#if defined(__SSE2__)
    for (; end - p >= 19; p += 16) {
        const __m128i here = sixteen(p);
        unsigned found = 0;
        for (const Spelling& s : m_spellings) {
            const __m128i there = sixteen(p + s.length - 1);
            found |= bits(_mm_and_si128(_mm_cmpeq_epi8(here, _mm_set1_epi8(s.first)),
                                        _mm_cmpeq_epi8(there, _mm_set1_epi8(s.last))));
        }
        for (; found; found &= found - 1)
            if (lettersAround(p + __builtin_ctz(found), begin, end))
                return true;
    }
#endif
    for (; p < end; ++p)
        for (const Spelling& s : m_spellings)
            if (*p == s.first && end - p >= s.length && p[s.length - 1] == s.last && lettersAround(p, begin, end))
                return true;
    return false;
}

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
