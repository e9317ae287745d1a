// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

namespace jet {

// The archive's order of UTF-8 text: letter case never counts, punctuation before digits before letters,
// accents decide between texts that are otherwise equal. Less than, equal to or greater than 0.
int compareText(std::string_view a, std::string_view b);

} // namespace jet
