// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QColor>
#include <QString>

class QTextDocument;

// Rich Text Format to a text document. The format is that of Microsoft's "Rich Text Format (RTF)
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

// "{\rtf" at the start, after blanks and a byte order mark.
bool looksLikeRtf(const QByteArray& bytes);
bool looksLikeRtf(const QString& text);

// Replaces the content of `document` and clears its undo history. Takes any input without failing or
// recursing: a cut or spoilt file gives what can be read of it. Bytes above ASCII belong to the file's code
// page; characters above ASCII of a QString are what they are.
ReadInfo read(const QByteArray& bytes, QTextDocument* document);
ReadInfo read(const QString& text, QTextDocument* document);

// The colour that a text without a colour of its own has on `background`: black or white, whichever can be
// read. Without a background it is the palette's, and the answer is invalid.
QColor automaticColor(const QColor& background);

} // namespace rtf
