// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "memo/cMemo.h"

#include "archive/Archive.h"
#include "archive/ErrorTrap.h"
#include "archive/SqlText.h"
#include "desktop/Clock.h"

#include <stdexcept>

using namespace Qt::StringLiterals;

bool cMemo::Load()
{
    return keepError(m_lastError, [&] {
        ArchiveUnit unit(m_archive);
        const jet::Recordset row =
            unit.Open(u" SELECT * FROM tab_memo WHERE memoID = "_s + QString::number(MemoID) + u" "_s);
        if (row.eof())
            return;
        const auto number = [&](const QString& column, qint32& field) {
            if (!row.isNull(column))
                field = qint32(row.integer(column));
        };
        const auto date = [&](const QString& column, QDateTime& field) {
            if (!row.isNull(column))
                field = row.dateTime(column);
        };
        MemoID = qint32(row.integer(u"memoID"_s));
        number(u"categoryID"_s, CategoryID);
        number(u"memoTypeID"_s, MemoTypeID);
        MemoName = row.text(u"memoName"_s);
        MemoDescription = row.text(u"memoDescription"_s);
        MemoLink = row.text(u"memoLink"_s);
        SnipVale = row.text(u"snipVale"_s);
        MemoNotes = row.text(u"memoNotes"_s);
        date(u"dateIn"_s, MemoDateIn);
        date(u"dateLastMod"_s, MemoDateLastMod);
        MemoOpeningState = qint16(row.integer(u"openingState"_s));
    });
}

bool cMemo::Save()
{
    return trapErrors(m_archive.questions(), u"Save"_s, [&] {
        ArchiveUnit unit(m_archive);
        jet::Recordset row = unit.Open(u"SELECT * FROM tab_memo where 1=2 "_s);
        row.AddNew({u"categoryID"_s, u"memoTypeID"_s, u"memoName"_s, u"memoDescription"_s, u"memoLink"_s, u"snipVale"_s,
                    u"memoNotes"_s, u"dateIn"_s, u"dateLastMod"_s, u"openingState"_s},
                   {qint64(CategoryID), qint64(MemoTypeID), MemoName, MemoDescription, MemoLink, SnipVale, MemoNotes,
                    m_archive.clock().now(), m_archive.clock().now(), qint64(MemoOpeningState)});
        row.Update();
        MemoID = qint32(row.integer(u"memoID"_s));
    });
}

bool cMemo::Update()
{
    return keepError(m_lastError, [&] {
        ArchiveUnit unit(m_archive);
        // The date is written in the one form that the archive's engine reads the same under every locale.
        const int rows = unit.Execute(UpdateText(u"tab_memo"_s)
                                          .set(u"tab_memo.categoryID"_s, CategoryID)
                                          .set(u"tab_memo.memoTypeID"_s, MemoTypeID)
                                          .set(u"tab_memo.memoName"_s, MemoName)
                                          .set(u"tab_memo.memoDescription"_s, MemoDescription)
                                          .set(u"tab_memo.memoLink"_s, MemoLink)
                                          .set(u"tab_memo.snipVale"_s, SnipVale)
                                          .set(u"tab_memo.memoNotes"_s, MemoNotes)
                                          .set(u"tab_memo.dateLastMod"_s, FormatDateSQL(m_archive.clock().now()))
                                          .set(u"tab_memo.openingState"_s, MemoOpeningState)
                                          .where(u"tab_memo.memoID"_s, MemoID));
        if (rows == 0) // another program deleted it: what is in the fields must not count as saved
            throw std::runtime_error("The memo is no longer in the archive.");
    });
}

qint32 cMemo::GetMemoCount()
{
    qint32 count = 0;
    keepError(m_lastError, [&] {
        ArchiveUnit unit(m_archive);
        count = qint32(unit.Open(u"SELECT COUNT(memoID) AS MemoCount FROM tab_memo  "_s).integer(u"MemoCount"_s));
    });
    return count;
}
