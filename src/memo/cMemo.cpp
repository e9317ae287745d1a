// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "memo/cMemo.h"

#include "archive/Archive.h"
#include "archive/SqlText.h"
#include "desktop/Clock.h"

using namespace Qt::StringLiterals;

bool cMemo::Load()
{
    return readRow(u" SELECT * FROM tab_memo WHERE memoID = %1 "_s.arg(MemoID), [this](const jet::Recordset& row) {
        takeColumn(row, u"memoID"_s, MemoID);
        takeColumn(row, u"categoryID"_s, CategoryID);
        takeColumn(row, u"memoTypeID"_s, MemoTypeID);
        takeColumn(row, u"memoName"_s, MemoName);
        takeColumn(row, u"memoDescription"_s, MemoDescription);
        takeColumn(row, u"memoLink"_s, MemoLink);
        takeColumn(row, u"snipVale"_s, SnipVale);
        takeColumn(row, u"memoNotes"_s, MemoNotes);
        takeColumn(row, u"dateIn"_s, MemoDateIn);
        takeColumn(row, u"dateLastMod"_s, MemoDateLastMod);
        MemoOpeningState = 0; // also for Null
        takeColumn(row, u"openingState"_s, MemoOpeningState);
    });
}

bool cMemo::Save()
{
    const QDateTime now = m_archive.clock().now();
    return insertRow(u"Save"_s, u"SELECT * FROM tab_memo where 1=2 "_s,
                     {{u"categoryID"_s, qint64(CategoryID)},
                      {u"memoTypeID"_s, qint64(MemoTypeID)},
                      {u"memoName"_s, MemoName},
                      {u"memoDescription"_s, MemoDescription},
                      {u"memoLink"_s, MemoLink},
                      {u"snipVale"_s, SnipVale},
                      {u"memoNotes"_s, MemoNotes},
                      {u"dateIn"_s, now},
                      {u"dateLastMod"_s, now},
                      {u"openingState"_s, qint64(MemoOpeningState)}},
                     u"memoID"_s);
}

bool cMemo::Update()
{
    // The date is written in the one form that the archive's engine reads the same under every locale.
    return updateRow(UpdateText(u"tab_memo"_s)
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
}

qint32 cMemo::GetMemoCount()
{
    return count(u"SELECT COUNT(memoID) AS MemoCount FROM tab_memo  "_s, u"MemoCount"_s);
}
