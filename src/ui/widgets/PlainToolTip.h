// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

// The user's own words as a tool tip, letter by letter: left to itself a tool tip guesses whether a text is HTML.
// None for an empty text.
inline QString plainToolTip(const QString& text)
{
    using namespace Qt::StringLiterals;
    return text.isEmpty() ? QString() : u"<p style='white-space:pre-wrap'>"_s + text.toHtmlEscaped() + u"</p>"_s;
}
