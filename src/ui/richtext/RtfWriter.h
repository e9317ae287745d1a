// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>

class QTextDocument;

namespace rtf {

// The document as RTF 1.5 in 7-bit ASCII with CR LF line ends: fonts, sizes, colours, alignment, indents,
// lists (both as \ls and as the older \pn) and links. Characters above ASCII are \u with a Windows-1252
// fallback. Text without a colour of its own stays without one, so that it is read in the colours of
// whatever desktop shows it. A table is written as tabbed lines; pictures are left out.
QByteArray write(const QTextDocument& document);

} // namespace rtf
