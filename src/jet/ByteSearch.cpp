// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "jet/ByteSearch.h"

#include "jet/Letters.h"

#include <algorithm>
#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace jet {
namespace {

char lowered(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c | 0x20) : c;
}

// Bits to set in a byte so that both cases of the letter become the lower one.
char caseMask(char lower)
{
    return lower >= 'a' && lower <= 'z' ? 0x20 : 0;
}

char withMask(char c, char mask)
{
    return static_cast<char>(c | mask);
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
    return static_cast<unsigned>(_mm_movemask_epi8(matches));
}
#endif

} // namespace

ByteSearch::ByteSearch(std::u32string needle) : m_needle(std::move(needle))
{
    const auto foreign = std::find_if(m_needle.begin(), m_needle.end(), [](char32_t c) { return c >= 0x80; });
    m_isAscii = foreign == m_needle.end();
    if (m_isAscii) {
        for (const char32_t c : m_needle)
            m_ascii += static_cast<char>(c);
        chooseRarest();
    } else {
        m_anchor = static_cast<size_t>(foreign - m_needle.begin());
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
        m_spellings.push_back(
            {static_cast<char>(lead | (c >> (6 * (length - 1)))), static_cast<char>(0x80 | (c & 0x3F)), length});
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

} // namespace jet
