// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "explorer/Search.h"

#include "archive/Archive.h"

#include <QStringList>

using namespace Qt::StringLiterals;

namespace {

constexpr const char16_t* selects[] = {
    u" SELECT tab_category.categoryID, tab_category.name as categoryName, tab_memo.memoID as memoID,"
    u" tab_memo.memoName, tab_memoType.name as memoType"
    u" FROM tab_memoType INNER JOIN (tab_category INNER JOIN tab_memo ON tab_category.categoryID ="
    u" tab_memo.categoryID) ON tab_memoType.memoTypeID = tab_memo.memoTypeID ",
    u" SELECT tab_category.categoryID, tab_category.name as categoryName, tab_bookmark.bookmarkID,"
    u" tab_bookmark.name as bookmarkName, tab_bookmark.url, tab_bookmark.keywords, tab_bookmark.description,"
    u" tab_bookmark.dateIn, tab_bookmark.dateLastMod "
    u" FROM tab_category INNER JOIN tab_bookmark ON tab_category.categoryID = tab_bookmark.categoryID ",
    u" SELECT tab_category.categoryID, tab_category.name as categoryName, tab_todo.todoID,"
    u" tab_todo.name as todoName, tab_todo.description, tab_todo.dateIn, tab_todo.dateLastMod "
    u" FROM tab_category INNER JOIN tab_todo ON tab_category.categoryID = tab_todo.categoryID ",
};

QStringList searchedColumns(ElementKind kind, const SearchFields& fields)
{
    if (kind == ElementKind::Bookmark)
        return {u"tab_bookmark.name"_s, u"tab_bookmark.description"_s, u"tab_bookmark.keywords"_s};
    if (kind == ElementKind::ToDo)
        return {u"tab_todo.name"_s, u"tab_todo.description"_s};
    QStringList columns;
    if (fields.memoName)
        columns.append(u"tab_memo.memoName"_s);
    if (fields.snipVale)
        columns.append(u"tab_memo.snipVale"_s);
    if (fields.memoNotes)
        columns.append(u"tab_memo.memoNotes"_s);
    return columns;
}

} // namespace

QString searchStatement(ElementKind kind, const QString& searched, const SearchFields& fields)
{
    QString sql = QStringView(selects[size_t(kind)]).toString() + u" WHERE 1 <> 1 "_s;
    for (const QString& column : searchedColumns(kind, fields))
        sql += u"  OR ( "_s + column + u" LIKE '%"_s + searched + u"%' )"_s;
    return sql;
}

std::vector<SearchHit> searchElements(Archive& archive, ElementKind kind, const QString& searched,
                                      const SearchFields& fields, const std::function<bool()>& keepGoing)
{
    ArchiveUnit unit(archive);
    unit.connection().onProgress(keepGoing);
    jet::Recordset set = unit.Open(searchStatement(kind, searched, fields));
    const int category = set.index(u"categoryID"_s);
    const int id = set.index(wordsOf(kind).keyColumn);
    const int name = set.index(wordsOf(kind).image + u"Name"_s);
    const int type = kind == ElementKind::Memo ? set.index(u"memoType"_s) : -1;
    std::vector<SearchHit> hits;
    QString language;
    QByteArray languageBytes;
    for (; !set.eof(); set.moveNext()) {
        if (type >= 0 && set.view(type) != languageBytes) { // neighbours share one text
            languageBytes = set.view(type).toByteArray();
            language = QString::fromUtf8(languageBytes);
        }
        hits.push_back({{kind, qint32(set.integer(id))}, qint32(set.integer(category)), set.text(name), language});
    }
    return hits;
}
