// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

// Bytes of the old Windows, DOS and Macintosh character sets, as RTF names them.
namespace rtf {

constexpr int utf8CodePage = 65001;
constexpr int westernCodePage = 1252;

// The code page of a font's \fcharset; 0 when the number says nothing.
int codePageOfCharset(int charset);

// True for the East Asian code pages, in which a second byte may look like ASCII.
bool isDoubleByte(int codePage);

// Never fails: an unknown code page is read as Windows-1252, an impossible byte becomes U+FFFD.
QString decode(int codePage, const QByteArray& bytes);

// The Windows-1252 byte of a character above ASCII, or 0 when it has none.
int westernByte(char16_t character);

} // namespace rtf
