// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "notes/ui/NoteTextBox.h"

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

// toPlainText() would turn no-break spaces into plain ones.
QString NoteTextBox::text() const
{
    QString text = document()->toRawText();
    return text.replace(QChar::ParagraphSeparator, u'\n').replace(QChar::LineSeparator, u'\n');
}

void NoteTextBox::insertFromMimeData(const QMimeData* source)
{
    if (!canBeWrapped(source->text()))
        setLineWrapMode(NoWrap);
    QPlainTextEdit::insertFromMimeData(source);
}
