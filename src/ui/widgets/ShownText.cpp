// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/widgets/ShownText.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype mostShown = 1000; // characters

} // namespace

QChar shownLetter(QChar letter)
{
    const char16_t code = letter.unicode();
    const bool turns =
        code == 0x200E || code == 0x200F || (code >= 0x202A && code <= 0x202E) || (code >= 0x2066 && code <= 0x2069);
    const bool breaks = letter == QChar::LineSeparator || letter == QChar::ParagraphSeparator;
    return turns || breaks || letter.category() == QChar::Other_Control ? QChar(u' ') : letter;
}

QString shownLine(const QString& text)
{
    QString line = text.left(mostShown);
    std::transform(line.begin(), line.end(), line.begin(), shownLetter);
    return line;
}

QString shownHeading(const QString& text)
{
    constexpr qsizetype longest = 300; // characters: more than a line of any window shows
    QString heading;
    QString line;
    const auto endLine = [&] {
        line = line.simplified();
        if (!line.isEmpty())
            heading += (heading.isEmpty() ? QString() : u" - "_s) + line;
        line.clear();
    };
    for (const QChar c : text) {
        if (c == u'\n' || c == u'\r' || c == QChar::LineSeparator || c == QChar::ParagraphSeparator)
            endLine();
        else
            line += shownLetter(c);
        if (heading.size() + line.size() >= longest && !c.isHighSurrogate())
            break;
    }
    endLine();
    return heading;
}

QString plainToolTip(const QString& text)
{
    if (text.isEmpty())
        return {};
    QString tip = text.left(mostShown);
    tip.replace(u"\r\n"_s, u"\n"_s);
    for (QChar& c : tip)
        if (c != u'\n' && c != u'\t')
            c = shownLetter(c);
    if (text.size() > mostShown)
        tip += u'…';
    return u"<p style='white-space:pre-wrap'>"_s + tip.toHtmlEscaped() + u"</p>"_s;
}
