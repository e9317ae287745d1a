// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "notes/cNote.h"

#include "archive/Archive.h"
#include "archive/ErrorTrap.h"
#include "archive/SqlText.h"

#include <stdexcept>

using namespace Qt::StringLiterals;

template <typename Body>
bool cNote::run(const QString& method, Body&& body)
{
    m_failedMethod = method;
    return keepError(m_lastError, std::forward<Body>(body));
}

void cNote::reportFailure() const
{
    reportError(m_archive.questions(), m_failedMethod, m_lastError);
}

bool cNote::Load(qint32 id)
{
    return run(u"Load"_s, [&] {
        ArchiveUnit unit(m_archive);
        const jet::Recordset row = unit.Open(u" SELECT * FROM tab_note WHERE noteID = "_s + QString::number(id));
        if (row.eof())
            throw std::runtime_error("The note is no longer in the archive.");
        Content = row.text(u"content"_s);
        NoteDate = row.dateTime(u"notedate"_s);
        Color = row.text(u"color"_s);
        EditingID = id;
        EditingMode = true;
    });
}

bool cNote::Save()
{
    return run(u"Save"_s, [&] {
        ArchiveUnit unit(m_archive);
        jet::Recordset row = unit.Open(u"SELECT * FROM tab_note WHERE 1=2 "_s);
        row.AddNew({u"content"_s, u"noteDate"_s, u"color"_s},
                   {Content, NoteDate.isValid() ? jet::Value(NoteDate) : jet::Value(), Color});
        row.Update();
        EditingID = qint32(row.integer(u"noteID"_s));
        EditingMode = true;
    });
}

bool cNote::Update()
{
    return run(u"Update"_s, [&] {
        ArchiveUnit unit(m_archive);
        const int rows = unit.Execute(UpdateText(u"tab_note"_s)
                                          .set(u"tab_note.content"_s, Content)
                                          .set(u"tab_note.color"_s, Color)
                                          .setDate(u"tab_note.noteDate"_s, FormatDateSQL(NoteDate))
                                          .where(u"tab_note.noteID"_s, EditingID));
        EditingMode = rows > 0;
        if (!EditingMode)
            throw std::runtime_error("The note is no longer in the archive.");
    });
}

bool cNote::Delete(const QString& ids)
{
    return run(u"Delete"_s, [&] {
        ArchiveUnit unit(m_archive);
        unit.Execute(u"DELETE * FROM tab_note WHERE tab_note.noteID IN ("_s + ids + u") "_s);
    });
}

bool cNote::SetColor(qint32 id, const QString& color)
{
    return run(u"SetColor"_s, [&] {
        ArchiveUnit unit(m_archive);
        unit.Execute(
            UpdateText(u"tab_note"_s).set(u"tab_note.color"_s, color).where(u"tab_note.noteID"_s, id, u"  "_s));
    });
}

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
