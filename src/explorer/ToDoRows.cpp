// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "explorer/ToDoRows.h"

#include "archive/Archive.h"

using namespace Qt::StringLiterals;

void readToDoRows(Archive& archive, qint32 categoryID, std::vector<ToDoRow>& rows)
{
    ArchiveUnit unit(archive);
    jet::Recordset set = unit.Open(u" SELECT * FROM tab_todo WHERE categoryID = "_s + QString::number(categoryID));
    const int id = set.index(u"todoID"_s);
    const int done = set.index(u"done"_s);
    const int alarm = set.index(u"alarmOn"_s);
    const int name = set.index(u"name"_s);
    const int priority = set.index(u"priority"_s);
    const int status = set.index(u"status"_s);
    const int percent = set.index(u"percentComplete"_s);
    const int due = set.index(u"dueDate"_s);
    std::vector<ToDoRow> read;
    for (; !set.eof(); set.moveNext())
        read.push_back({qint32(set.integer(id)), set.boolean(done), set.boolean(alarm), set.text(name),
                        qint16(set.integer(priority)), qint16(set.integer(status)),
                        set.isNull(percent) ? std::optional<qint16>() : qint16(set.integer(percent)),
                        packed(set.moment(due))});
    rows.swap(read);
}

void deleteToDos(Archive& archive, const QString& ids)
{
    ArchiveUnit unit(archive);
    unit.Execute(u"DELETE * FROM tab_todo "_s + u"WHERE tab_todo.ToDoID IN ("_s + ids + u") "_s);
}
