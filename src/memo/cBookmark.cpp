// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "memo/cBookmark.h"

#include "archive/Archive.h"
#include "archive/ErrorTrap.h"
#include "archive/SqlText.h"
#include "desktop/Clock.h"

#include <stdexcept>

using namespace Qt::StringLiterals;

bool cBookmark::Load()
{
    return keepError(m_lastError, [&] {
        ArchiveUnit unit(m_archive);
        const jet::Recordset row =
            unit.Open(u" SELECT * FROM tab_bookmark  WHERE bookmarkID = "_s + QString::number(BookmarkID) + u" "_s);
        if (row.eof())
            return;
        const auto date = [&](const QString& column, QDateTime& field) {
            if (!row.isNull(column))
                field = row.dateTime(column);
        };
        BookmarkID = qint32(row.integer(u"bookmarkID"_s));
        if (!row.isNull(u"categoryID"_s))
            CategoryID = qint32(row.integer(u"categoryID"_s));
        BookmarkName = row.text(u"name"_s);
        BookmarkKeywords = row.text(u"keywords"_s);
        BookmarkDescription = row.text(u"description"_s);
        BookmarkLink = row.text(u"url"_s);
        date(u"dateIn"_s, BookmarkDateIn);
        date(u"dateLastMod"_s, BookmarkDateLastMod);
    });
}

bool cBookmark::Save()
{
    return trapErrors(m_archive.questions(), u"Save"_s, [&] {
        ArchiveUnit unit(m_archive);
        jet::Recordset row = unit.Open(u"SELECT * FROM tab_bookmark where 1=2 "_s);
        const QDateTime now = m_archive.clock().now();
        row.AddNew(
            {u"categoryID"_s, u"name"_s, u"keywords"_s, u"description"_s, u"url"_s, u"dateIn"_s, u"dateLastMod"_s},
            {qint64(CategoryID), BookmarkName, BookmarkKeywords, BookmarkDescription, BookmarkLink, now, now});
        row.Update();
        BookmarkID = qint32(row.integer(u"bookmarkID"_s));
    });
}

bool cBookmark::Update()
{
    return keepError(m_lastError, [&] {
        ArchiveUnit unit(m_archive);
        // The date is written in the one form that the archive's engine reads the same under every locale.
        const int rows = unit.Execute(UpdateText(u"tab_bookmark"_s)
                                          .set(u"tab_bookmark.categoryID"_s, CategoryID)
                                          .set(u"tab_bookmark.name"_s, BookmarkName)
                                          .set(u"tab_bookmark.keywords"_s, BookmarkKeywords)
                                          .set(u"tab_bookmark.description"_s, BookmarkDescription)
                                          .set(u"tab_bookmark.url"_s, BookmarkLink)
                                          .set(u"tab_bookmark.dateLastMod"_s, FormatDateSQL(m_archive.clock().now()))
                                          .where(u"tab_bookmark.bookmarkID"_s, BookmarkID, u"  "_s));
        if (rows == 0) // another program deleted it: what is in the fields must not count as saved
            throw std::runtime_error("The bookmark is no longer in the archive.");
    });
}
