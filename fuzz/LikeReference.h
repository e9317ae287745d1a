// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "jet/TextRules.h"

#include <string>

// LIKE as one would explain it: slow, and easy to see through. For patterns without a closing bracket missing.
inline bool likeReference(const std::u32string& pattern, const std::u32string& text, size_t i = 0, size_t j = 0)
{
    if (i == pattern.size())
        return j == text.size();
    if (pattern[i] == U'%') {
        for (size_t k = j; k <= text.size(); ++k)
            if (likeReference(pattern, text, i + 1, k))
                return true;
        return false;
    }
    if (pattern[i] == U'[') {
        const size_t close = pattern.find(U']', i);
        if (close == i + 1)
            return likeReference(pattern, text, close + 1, j);
        if (j == text.size())
            return false;
        const bool negated = (pattern[i + 1] == U'!' || pattern[i + 1] == U'^') && close > i + 2;
        const char32_t c = jet::fold(text[j]);
        bool listed = false;
        for (size_t k = i + (negated ? 2 : 1); k < close; ++k) {
            const bool range = k + 2 < close && pattern[k + 1] == U'-';
            listed = listed || (c >= jet::fold(pattern[k]) && c <= jet::fold(pattern[range ? k + 2 : k]));
            k += range ? 2 : 0;
        }
        return listed != negated && likeReference(pattern, text, close + 1, j + 1);
    }
    return j < text.size() && (pattern[i] == U'_' || jet::fold(pattern[i]) == jet::fold(text[j])) &&
        likeReference(pattern, text, i + 1, j + 1);
}
