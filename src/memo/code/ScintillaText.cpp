// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "memo/code/ScintillaText.h"

#include <QStringDecoder>
#include <algorithm>

namespace {

// Bytes of the character at `at`: 1 for an invalid byte.
qsizetype characterLength(QByteArrayView utf8, qsizetype at)
{
    const auto byte = [&](qsizetype i) { return i < utf8.size() ? static_cast<unsigned char>(utf8[i]) : 0U; };
    const unsigned lead = byte(at);
    const qsizetype length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (lead < 0xC2 || lead > 0xF4)
        return 1;
    for (qsizetype i = 1; i < length; ++i) {
        if ((byte(at + i) & 0xC0U) != 0x80)
            return 1;
    }
    const unsigned second = byte(at + 1);
    const bool overlong = (lead == 0xE0 && second < 0xA0) || (lead == 0xF0 && second < 0x90);
    const bool surrogate = lead == 0xED && second >= 0xA0;
    const bool tooBig = lead == 0xF4 && second >= 0x90;
    return overlong || surrogate || tooBig ? 1 : length;
}

bool isWordPart(const QString& text, qsizetype at)
{
    return at >= 0 && at < text.size() && (text[at].isLetterOrNumber() || text[at] == u'_' || text[at].isSurrogate());
}

// Whether a word begins or ends between two neighbours.
bool isWordEdge(const QString& text, qsizetype at)
{
    return isWordPart(text, at - 1) != isWordPart(text, at);
}

} // namespace

qsizetype utf16Offset(QByteArrayView utf8, qsizetype position)
{
    qsizetype units = 0;
    for (qsizetype at = 0; at < std::min(position, utf8.size());) {
        const qsizetype length = characterLength(utf8, at);
        at += length;
        if (at > position)
            break;
        units += length == 4 ? 2 : 1;
    }
    return units;
}

qsizetype bytePosition(QByteArrayView utf8, qsizetype offset)
{
    qsizetype at = 0;
    for (qsizetype units = 0; at < utf8.size() && units < offset;) {
        const qsizetype length = characterLength(utf8, at);
        units += length == 4 ? 2 : 1;
        if (units > offset)
            break;
        at += length;
    }
    return at;
}

QString textOf(QByteArrayView utf8)
{
    using Flag = QStringDecoder::Flag;
    return QStringDecoder(QStringDecoder::Utf8, Flag::Stateless | Flag::ConvertInitialBom).decode(utf8);
}

std::pair<qsizetype, qsizetype> findInAnyCase(QByteArrayView utf8, qsizetype from, QByteArrayView wanted,
                                              bool wholeWord)
{
    const QString text = textOf(utf8);
    const QString word = textOf(wanted);
    for (qsizetype at = utf16Offset(utf8, from);; ++at) {
        at = text.indexOf(word, at, Qt::CaseInsensitive);
        if (at < 0)
            return {-1, -1};
        if (wholeWord && !(isWordEdge(text, at) && isWordEdge(text, at + word.size())))
            continue;
        if (const qsizetype first = bytePosition(utf8, at); first >= from)
            return {first, bytePosition(utf8, at + word.size())};
    }
}
