// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "explorer/BookmarkRows.h"

#include "archive/Archive.h"

using namespace Qt::StringLiterals;

namespace {

QString onOneLine(QString text)
{
    // CR LF first: it is one break, not two.
    for (const QLatin1StringView lineBreak : {"\r\n"_L1, "\n"_L1, "\r"_L1})
        text.replace(lineBreak, " - "_L1);
    return text;
}

} // namespace

void readBookmarkRows(Archive& archive, qint32 categoryID, std::vector<BookmarkRow>& rows)
{
    ArchiveUnit unit(archive);
    jet::Recordset set = unit.Open(u" SELECT * FROM tab_bookmark WHERE categoryID = "_s + QString::number(categoryID));
    const int id = set.index(u"bookmarkID"_s);
    const int name = set.index(u"name"_s);
    const int url = set.index(u"url"_s);
    const int description = set.index(u"description"_s);
    std::vector<BookmarkRow> read;
    for (; !set.eof(); set.moveNext())
        read.push_back({qint32(set.integer(id)), set.text(name), set.text(url), onOneLine(set.text(description))});
    rows.swap(read);
}

void deleteBookmarks(Archive& archive, const QString& ids)
{
    ArchiveUnit unit(archive);
    unit.Execute(u"DELETE * FROM tab_bookmark "_s + u"WHERE tab_bookmark.bookmarkID IN ("_s + ids + u") "_s);
}
