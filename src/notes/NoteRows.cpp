// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "notes/NoteRows.h"

#include "archive/Archive.h"

using namespace Qt::StringLiterals;

std::vector<NoteRow> readNoteRows(Archive& archive)
{
    ArchiveUnit unit(archive);
    jet::Recordset set = unit.Open(u"SELECT tab_note.* FROM tab_note "_s);
    const int id = set.index(u"noteID"_s);
    const int content = set.index(u"content"_s);
    const int color = set.index(u"color"_s);
    const int date = set.index(u"noteDate"_s);
    std::vector<NoteRow> rows;
    for (; !set.eof(); set.moveNext())
        rows.push_back({qint32(set.integer(id)), set.text(content), set.text(color), set.moment(date)});
    return rows;
}
