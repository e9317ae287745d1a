// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/richtext/RtfReader.h"

#include "ui/richtext/RtfParser.h"

#include <QTextDocument>

namespace rtf {

namespace {

constexpr QByteArrayView signature("{\\rtf");

ReadInfo readInto(const QByteArray& bytes, Parser::Input input, QTextDocument* document)
{
    const bool hadUndo = document->isUndoRedoEnabled();
    document->setUndoRedoEnabled(false);
    document->clear();
    ReadInfo info;
    const qsizetype start = looksLikeRtf(bytes) ? bytes.indexOf(signature) : -1;
    if (start >= 0)
        info = Parser(bytes.mid(start), input, *document).run();
    document->setUndoRedoEnabled(hadUndo);
    return info;
}

} // namespace

bool looksLikeRtf(const QByteArray& bytes)
{
    QByteArray start = bytes.left(64);
    if (start.startsWith("\xEF\xBB\xBF"))
        start = start.mid(3);
    return start.trimmed().startsWith(signature);
}

bool looksLikeRtf(const QString& text)
{
    return looksLikeRtf(text.left(64).toUtf8());
}

ReadInfo read(const QByteArray& bytes, QTextDocument* document)
{
    return readInto(bytes, Parser::Input::CodePage, document);
}

ReadInfo read(const QString& text, QTextDocument* document)
{
    return readInto(text.toUtf8(), Parser::Input::Utf8, document);
}

} // namespace rtf
