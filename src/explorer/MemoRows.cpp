// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "explorer/MemoRows.h"

#include "archive/Archive.h"

using namespace Qt::StringLiterals;

void readMemoRows(Archive& archive, qint32 categoryID, std::vector<MemoRow>& rows)
{
    ArchiveUnit unit(archive);
    jet::Recordset set = unit.Open(u" SELECT * FROM tab_memo WHERE categoryID="_s + QString::number(categoryID));
    const int id = set.index(u"memoID"_s);
    const int name = set.index(u"memoName"_s);
    const int in = set.index(u"dateIn"_s);
    const int mod = set.index(u"dateLastMod"_s);
    std::vector<MemoRow> read;
    for (; !set.eof(); set.moveNext())
        read.push_back({qint32(set.integer(id)), set.text(name), packed(set.moment(in)), packed(set.moment(mod))});
    rows.swap(read);
}

void deleteMemos(Archive& archive, const QString& ids)
{
    ArchiveUnit unit(archive);
    unit.Execute(u"DELETE * FROM tab_memo "_s + u"WHERE tab_memo.memoID IN ("_s + ids + u") "_s);
}
