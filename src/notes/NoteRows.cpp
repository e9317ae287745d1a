// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "notes/NoteRows.h"

#include "archive/Archive.h"

#include <QStringList>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype headingLength = 300; // characters: more than a line of any window shows

// Controls, and the marks that override or isolate a direction of writing (Unicode Standard Annex 9).
bool isHarmful(QChar c)
{
    const char16_t code = c.unicode();
    return c.category() == QChar::Other_Control || (code >= 0x202A && code <= 0x202E) ||
        (code >= 0x2066 && code <= 0x2069);
}

bool isLineBreak(QChar c)
{
    return c == u'\n' || c == u'\r' || c == QChar::LineSeparator || c == QChar::ParagraphSeparator;
}

} // namespace

void readNoteRows(Archive& archive, std::vector<NoteRow>& rows)
{
    ArchiveUnit unit(archive);
    jet::Recordset set = unit.Open(u"SELECT tab_note.* FROM tab_note "_s);
    const int id = set.index(u"noteID"_s);
    const int content = set.index(u"content"_s);
    const int color = set.index(u"color"_s);
    const int date = set.index(u"noteDate"_s);
    std::vector<NoteRow> read;
    for (; !set.eof(); set.moveNext())
        read.push_back({qint32(set.integer(id)), set.text(content), set.text(color), set.moment(date)});
    rows.swap(read);
}

QString noteHeading(const QString& content)
{
    QString heading;
    QString line;
    const auto endLine = [&] {
        line = line.simplified();
        if (!line.isEmpty())
            heading += (heading.isEmpty() ? QString() : u" - "_s) + line;
        line.clear();
    };
    for (const QChar c : content) {
        if (isLineBreak(c))
            endLine();
        else
            line += isHarmful(c) ? QChar(u' ') : c;
        if (heading.size() + line.size() >= headingLength && !c.isHighSurrogate())
            break;
    }
    endLine();
    return heading;
}
