// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QColor>
#include <QString>
#include <QTextListFormat>

class QTextDocument;

// Rich Text Format to a text document and back. The format is that of Microsoft's "Rich Text Format (RTF)
// Specification", versions 1.5 to 1.9; the parts that a note needs are read, the rest is skipped.
namespace rtf {

// What a reading met. The counters are of things that a document cannot hold: the text of a table comes as
// tabbed lines, pictures and objects not at all.
struct ReadInfo {
    bool ok = false; // false: not RTF, and the document is left empty
    int pictures = 0;
    int tables = 0;
    int objects = 0; // embedded objects and drawings
    int unknownDestinations = 0;

    bool losesContent() const { return pictures > 0 || tables > 0 || objects > 0; }
};

// Replaces the content of `document` and clears its undo history. Takes any input without failing or
// recursing: a cut or spoilt file gives what can be read of it. Bytes above ASCII belong to the file's code
// page; characters above ASCII of a QString are what they are. RTF begins with "{\rtf", after blanks and a byte
// order mark.
ReadInfo read(const QByteArray& bytes, QTextDocument* document);
ReadInfo read(const QString& text, QTextDocument* document);

// The document as RTF 1.5 in 7-bit ASCII with CR LF line ends: fonts, sizes, colours, alignment, indents,
// lists (both as \ls and as the older \pn) and links. Characters above ASCII are \u with a Windows-1252
// fallback. Text without a colour of its own stays without one, so that it is read in the colours of
// whatever desktop shows it. A table is written as tabbed lines; pictures are left out.
QByteArray write(const QTextDocument& document);

// Decisions about looks that reading, writing and the editor must share, or a note would change a little each
// time it is saved.

// The colour of links on this desktop. It is never written: a link is written in the blue that other
// programs give it, and that blue is read as the desktop's colour, which can be seen on a dark page too.
QColor linkColor();
QColor writtenLinkColor();
bool isUsualLinkColor(const QColor& color);

// The colour that a text without a colour of its own has on `background`: black or white, whichever can be
// read. Without a background it is the palette's, and the answer is invalid.
QColor automaticColor(const QColor& background);

// True when `color` on `background` (invalid for none) is what other programs write for a text of no colour:
// black on the page or on a light background.
bool isAutomatic(const QColor& color, const QColor& background);

constexpr int maxListLevels = 9;

// How a list level is numbered: the values of \levelnfc.
enum Numbering {
    Decimal = 0,
    UpperRoman = 1,
    LowerRoman = 2,
    UpperAlpha = 3,
    LowerAlpha = 4,
    Bullet = 23,
    NoNumber = 255
};

// `numbering` is a Numbering; `level` counts from 0. Bullets differ by level.
QTextListFormat listFormat(int numbering, int level);
int numberingOf(QTextListFormat::Style style);

} // namespace rtf
