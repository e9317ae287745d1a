// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "memo/cBookmark.h"

#include "archive/Archive.h"
#include "archive/SqlText.h"
#include "desktop/Clock.h"

using namespace Qt::StringLiterals;

bool cBookmark::Load()
{
    const QString statement = u" SELECT * FROM tab_bookmark  WHERE bookmarkID = %1 "_s.arg(BookmarkID);
    return readRow(statement, [this](const jet::Recordset& row) {
        takeColumn(row, u"bookmarkID"_s, BookmarkID);
        takeColumn(row, u"categoryID"_s, CategoryID);
        takeColumn(row, u"name"_s, BookmarkName);
        takeColumn(row, u"keywords"_s, BookmarkKeywords);
        takeColumn(row, u"description"_s, BookmarkDescription);
        takeColumn(row, u"url"_s, BookmarkLink);
        takeColumn(row, u"dateIn"_s, BookmarkDateIn);
        takeColumn(row, u"dateLastMod"_s, BookmarkDateLastMod);
    });
}

bool cBookmark::Save()
{
    const QDateTime now = m_archive.clock().now();
    return insertRow(u"Save"_s, u"SELECT * FROM tab_bookmark where 1=2 "_s,
                     {{u"categoryID"_s, qint64(CategoryID)},
                      {u"name"_s, BookmarkName},
                      {u"keywords"_s, BookmarkKeywords},
                      {u"description"_s, BookmarkDescription},
                      {u"url"_s, BookmarkLink},
                      {u"dateIn"_s, now},
                      {u"dateLastMod"_s, now}},
                     u"bookmarkID"_s);
}

bool cBookmark::Update()
{
    // The date is written in the one form that the archive's engine reads the same under every locale.
    return updateRow(UpdateText(u"tab_bookmark"_s)
                         .set(u"tab_bookmark.categoryID"_s, CategoryID)
                         .set(u"tab_bookmark.name"_s, BookmarkName)
                         .set(u"tab_bookmark.keywords"_s, BookmarkKeywords)
                         .set(u"tab_bookmark.description"_s, BookmarkDescription)
                         .set(u"tab_bookmark.url"_s, BookmarkLink)
                         .set(u"tab_bookmark.dateLastMod"_s, FormatDateSQL(m_archive.clock().now()))
                         .where(u"tab_bookmark.bookmarkID"_s, BookmarkID, u"  "_s));
}
