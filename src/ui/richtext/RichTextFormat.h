// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QFont>
#include <QString>
#include <QTextCharFormat>
#include <QTextCursor>

// What a selection looks like, as a tool bar shows it. An attribute counts as on when all of the selection
// has it.
struct RichTextLook {
    bool bold = false, italic = false, underline = false, bullets = false;
    Qt::Alignment alignment; // left, right, centre or justify as seen; 0 when paragraphs differ
    QString family; // empty when it differs
    double points = 0; // 0 when it differs
    QColor color; // of the first character; invalid for the palette's
};

// `typing` is the format of what would be typed at a cursor without selection, `standard` the document's font.
RichTextLook lookOf(const QTextCursor& cursor, const QTextCharFormat& typing, const QFont& standard);

// True when some text in the selection stands on a background of its own.
bool hasBackground(const QTextCursor& selection);

// These three work on all paragraphs that the selection touches, as one step of undo.

// Takes the bullets away when every paragraph has one, else gives one to every paragraph.
void toggleBullets(QTextCursor selection);
// One level of a list, or half an inch of a paragraph, to the right (step 1) or left (step -1).
void shiftIndent(QTextCursor selection, int step);
// Makes list items plain paragraphs again.
void leaveList(QTextCursor selection);

// The level of the paragraph's list from 0, or -1 outside of lists.
int listLevel(const QTextBlock& block);

// The web or mail address that stands as plain text around `offset`; empty when there is none.
QString addressAround(const QString& text, qsizetype offset);
