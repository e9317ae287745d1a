// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later

// A pattern and a text, separated by the first line feed, through the matcher and through its plain reference.

#include "LikeReference.h"
#include "jet/LikePattern.h"
#include "jet/TextRules.h"
#include "jet/Value.h"

#include <QString>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size > 200) // the reference takes exponential time
        return 0;
    const QByteArray input(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const auto end = input.indexOf('\n');
    if (end < 0 || input.left(end).count('%') > 4)
        return 0;
    const QString pattern = QString::fromUtf8(input.left(end)), text = QString::fromUtf8(input.mid(end + 1));
    const std::string patternBytes = pattern.toStdString(), textBytes = text.toStdString();
    if (jet::compareText(patternBytes, textBytes) != -jet::compareText(textBytes, patternBytes))
        __builtin_trap();
    try {
        const jet::LikePattern like(patternBytes);
        const auto wide = [](const QString& s) { return s.toStdU32String(); };
        if (like.matches(textBytes) != likeReference(wide(pattern), wide(text)))
            __builtin_trap();
    } catch (const jet::Error&) { // a list that is not closed
    }
    return 0;
}
