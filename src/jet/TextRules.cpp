// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "jet/TextRules.h"

#include <QChar>
#include <QString>
#include <array>
#include <cstdint>
#include <unordered_map>

namespace jet {
namespace {

constexpr char32_t lastCharacter = 0x10FFFF;

// Looked up for each letter of each text that is searched or sorted.
struct Tables {
    std::array<char16_t, 0x10000> folded{};
    std::array<char16_t, 0x2000> base{};

    Tables()
    {
        for (char32_t c = 0; c < folded.size(); ++c) {
            const char32_t f = QChar::toCaseFolded(c);
            folded[c] = char16_t((c >= 0x80 && f < 0x80) || f > 0xFFFF ? c : f);
        }
        for (char32_t c = 0; c < base.size(); ++c)
            base[c] = c < 0x80 ? folded[c] : firstPart(c);
        for (char32_t c = 0x80; c < base.size(); ++c) // two accents on one letter
            base[c] = base[c] < base.size() ? base[base[c]] : base[c];
    }

private:
    char16_t firstPart(char32_t c) const
    {
        if (QChar::decompositionTag(c) != QChar::Canonical)
            return folded[c];
        const QString parts = QChar::decomposition(c);
        const char16_t first = parts.isEmpty() ? char16_t(c) : parts.at(0).unicode();
        return folded[first < base.size() ? first : c];
    }
};

const Tables& tables()
{
    static const Tables built;
    return built;
}

// Punctuation, then digits, then letters; letters by their base letter. `c` is folded.
std::uint32_t weight(char32_t c)
{
    constexpr std::uint32_t digits = 0x200000, letters = 0x400000;
    if (c < 0x80)
        return c >= 'a' && c <= 'z' ? letters + c : c >= '0' && c <= '9' ? digits + c : c;
    if (c > 0x10FFFF)
        return letters + c;
    if (QChar::isDigit(c))
        return digits + '0' + std::uint32_t(QChar::digitValue(c));
    return QChar::isLetterOrNumber(c) || QChar::isMark(c) ? letters + baseLetter(c) : c;
}

} // namespace

char32_t fold(char32_t c)
{
    if (c < 0x80)
        return c >= 'A' && c <= 'Z' ? c | 0x20 : c;
    if (c < 0x10000)
        return tables().folded[c];
    return c <= lastCharacter ? QChar::toCaseFolded(c) : c;
}

char32_t baseLetter(char32_t c)
{
    return c < 0x2000 ? tables().base[c] : fold(c);
}

std::u32string spellings(char32_t folded)
{
    // Each letter that has another case, by its folded form.
    static const std::unordered_multimap<char32_t, char32_t> others = [] {
        constexpr char32_t beyondLettersWithCases = 0x1F000;
        std::unordered_multimap<char32_t, char32_t> built;
        for (char32_t c = 0x80; c < beyondLettersWithCases; ++c)
            if (const char32_t f = fold(c); f != c)
                built.emplace(f, c);
        return built;
    }();
    std::u32string result(1, folded);
    for (auto [it, end] = others.equal_range(folded); it != end; ++it)
        result += it->second;
    return result;
}

char32_t decode(const char*& p, const char* end)
{
    const auto lead = static_cast<unsigned char>(*p++);
    if (lead < 0xC0)
        return lead;
    const char* const second = p;
    int more = lead >= 0xF0 ? 3 : lead >= 0xE0 ? 2 : 1;
    char32_t c = lead & (0x3Fu >> more);
    for (; more && p < end && (static_cast<unsigned char>(*p) & 0xC0) == 0x80; --more)
        c = (c << 6) | (static_cast<unsigned char>(*p++) & 0x3F);
    if (c >= 0x80)
        return c;
    p = second; // an ASCII character in disguise
    return lead;
}

int compareText(std::string_view a, std::string_view b)
{
    const char *p = a.data(), *pEnd = p + a.size(), *q = b.data(), *qEnd = q + b.size();
    int accents = 0; // decides only when the base letters are all the same
    while (p < pEnd && q < qEnd) {
        const char32_t c = fold(decode(p, pEnd)), d = fold(decode(q, qEnd));
        if (c == d)
            continue;
        const std::uint32_t left = weight(c), right = weight(d);
        if (left != right)
            return left < right ? -1 : 1;
        if (!accents)
            accents = c < d ? -1 : 1;
    }
    return p < pEnd ? 1 : q < qEnd ? -1 : accents;
}

} // namespace jet
