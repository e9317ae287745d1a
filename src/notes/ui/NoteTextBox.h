// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPlainTextEdit>

// The text box of a note. It wraps its lines, until a text comes in that would take minutes to wrap.
class NoteTextBox final : public QPlainTextEdit {
    Q_OBJECT
public:
    using QPlainTextEdit::QPlainTextEdit;

    void showText(const QString& text); // in place of what it holds
    QString text() const; // with each character; a line ends with LF

protected:
    void insertFromMimeData(const QMimeData* source) override;
};
