// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace jet {

// The archive's order of UTF-8 text: letter case never counts, punctuation before digits before letters,
// accents decide between texts that are otherwise equal. Less than, equal to or greater than 0.
int compareText(std::string_view a, std::string_view b);

// Simple case folding of Unicode, one character to one (CaseFolding.txt, status C and S). A letter beyond ASCII
// never folds into ASCII (Kelvin sign, long s): a search for ASCII letters need then look at ASCII bytes only.
char32_t fold(char32_t c);

// A folded letter without its accents; anything else folded.
char32_t baseLetter(char32_t c);

// Every letter beyond ASCII that folds to the given one, this one first.
std::u32string spellings(char32_t folded);

// The next character of UTF-8 text, p < end. Lenient: a broken byte stands for itself.
char32_t decode(const char*& p, const char* end);

} // namespace jet
