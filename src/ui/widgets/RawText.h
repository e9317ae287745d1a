// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPlainTextEdit>
#include <QTextDocument>

// The text as it stands in the box: toPlainText() would turn no-break spaces into plain ones.
inline QString rawText(const QPlainTextEdit& box)
{
    QString text = box.document()->toRawText();
    return text.replace(QChar::ParagraphSeparator, u'\n').replace(QChar::LineSeparator, u'\n');
}
