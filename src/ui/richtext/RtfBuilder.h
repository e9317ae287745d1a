// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/richtext/RtfState.h"

#include <QTextBlockFormat>
#include <QTextCharFormat>
#include <QTextCursor>

class QTextDocument;
class QTextList;

namespace rtf {

// Puts text and paragraphs into a document. Text is gathered while its format stays the same.
class Builder {
public:
    // Both must outlive the builder. The tables may still grow while it works.
    Builder(QTextDocument& document, const Tables& tables);

    void add(QChar character, const CharFormat& format);
    void setLink(const QString& address); // for the text that follows; empty ends the link
    void dropTrailingTab();
    void endParagraph(const ParaFormat& paragraph, const CharFormat& chars);
    void finish(const ParaFormat& paragraph, const CharFormat& chars); // the last one, unless \par closed it

private:
    void flush();
    void openParagraph();
    QTextCharFormat toText(const CharFormat& format) const;
    void setColors(QTextCharFormat& text, const CharFormat& format) const;
    QTextBlockFormat toBlock(const ParaFormat& paragraph) const;
    int numberingOf(const ParaFormat& paragraph) const;
    void addToList(const ParaFormat& paragraph, int numbering);

    const Tables& m_tables;
    QTextCursor m_cursor;
    QString m_text;
    CharFormat m_format;
    QString m_link;
    QHash<int, QTextList*> m_lists; // by number and level; owned by the document
    bool m_paragraphEnded = false; // the next text begins a new one
};

} // namespace rtf
