// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArrayView>
#include <QString>
#include <utility>

// Between the editor's byte positions and offsets in a QString. A byte that is no part of valid UTF-8 (RFC 3629)
// counts as one unit, as QString::fromUtf8 turns each into one replacement character. No byte order mark is dropped.

// UTF-16 units before a byte position. A position inside a character counts up to the character's start.
qsizetype utf16Offset(QByteArrayView utf8, qsizetype position);
// The byte position of a UTF-16 offset; one inside a pair gives the character's start. Past the end: the end.
qsizetype bytePosition(QByteArrayView utf8, qsizetype offset);
// The text with those very offsets.
QString textOf(QByteArrayView utf8);

// The first place at or behind `from` (bytes) where `wanted` stands in any letter case of any script; {-1, -1} for
// none. A whole word has no letter, digit or underscore next to it.
std::pair<qsizetype, qsizetype> findInAnyCase(QByteArrayView utf8, qsizetype from, QByteArrayView wanted,
                                              bool wholeWord);
