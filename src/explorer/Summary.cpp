// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "explorer/Summary.h"

#include "archive/Archive.h"

using namespace Qt::StringLiterals;

void readSummary(Archive& archive, Summary& summary)
{
    ArchiveUnit unit(archive);
    const auto count = [&](const QString& sql, const QString& column) { return unit.Open(sql).integer(column); };
    const auto categories = [&](const QString& type) {
        return count(u"SELECT COUNT(categoryID) AS totalCat From tab_category "_s + u" WHERE tab_category.type = "_s +
                         type + u" "_s,
                     u"totalCat"_s);
    };
    summary.memos = count(u"SELECT COUNT(memoID) AS totalMemo From tab_memo "_s, u"totalMemo"_s);
    summary.memoCategories = categories(u"0"_s);
    summary.bookmarks = count(u"SELECT COUNT(bookmarkID) AS totalBookmark From tab_bookmark "_s, u"totalBookmark"_s);
    summary.bookmarkCategories = categories(u"1"_s);
    summary.toDos = count(u"SELECT COUNT(todoID) AS totalToDo From tab_todo "_s, u"totalToDo"_s);
    summary.toDoCategories = categories(u"2"_s);
    summary.passwords = count(u"SELECT COUNT(passwordID) AS totalPassword From tab_password "_s, u"totalPassword"_s);
    summary.notes = count(u"SELECT COUNT(noteID) AS totalNote From tab_note "_s, u"totalNote"_s);
}
