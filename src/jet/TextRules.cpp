// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "jet/TextRules.h"

#include "jet/Letters.h"

#include <QChar>
#include <cstdint>

namespace jet {
namespace {

// Punctuation, then digits, then letters; letters by their base letter. `c` is folded.
std::uint32_t weight(char32_t c)
{
    constexpr std::uint32_t digits = 0x200000, letters = 0x400000;
    if (c < 0x80)
        return c >= 'a' && c <= 'z' ? letters + c : c >= '0' && c <= '9' ? digits + c : c;
    if (c > 0x10FFFF)
        return letters + c;
    if (QChar::isDigit(c))
        return digits + '0' + static_cast<std::uint32_t>(QChar::digitValue(c));
    return QChar::isLetterOrNumber(c) || QChar::isMark(c) ? letters + baseLetter(c) : c;
}

} // namespace

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
