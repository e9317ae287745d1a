// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "notes/ui/NoteTextBox.h"

#include "ui/widgets/RawText.h"

#include <QMimeData>

namespace {

// Breaking a word over many lines takes time by the square of its length: half a second for 50,000 letters, minutes for
// a million.
bool canBeWrapped(const QString& text)
{
    constexpr int longestWord = 10'000; // characters
    int length = 0;
    for (const QChar c : text) {
        length = c.isSpace() ? 0 : length + 1;
        if (length > longestWord)
            return false;
    }
    return true;
}

} // namespace

void NoteTextBox::showText(const QString& text)
{
    setLineWrapMode(canBeWrapped(text) ? WidgetWidth : NoWrap);
    setPlainText(text);
}

QString NoteTextBox::text() const
{
    return rawText(*this);
}

void NoteTextBox::insertFromMimeData(const QMimeData* source)
{
    if (!canBeWrapped(source->text()))
        setLineWrapMode(NoWrap);
    QPlainTextEdit::insertFromMimeData(source);
}
