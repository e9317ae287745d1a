// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "explorer/ArchiveRows.h"

#include "archive/Archive.h"
#include "desktop/TextForms.h"

#include <QSet>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

std::vector<CategoryRow> readChildren(ArchiveUnit& unit, qint32 parent)
{
    // The top level and the levels below it are asked for in two spellings; both are the archive's own.
    const QString sql = parent == 0
        ? u" SELECT * FROM tab_category WHERE parentID = 0  ORDER BY tab_category.name "_s
        : u"SELECT * FROM tab_category WHERE parentID = %1  ORDER BY tab_category.name "_s.arg(parent);
    std::vector<CategoryRow> rows;
    jet::Recordset set = unit.Open(sql);
    const int id = set.index(u"categoryID"_s);
    const int type = set.index(u"type"_s);
    const int name = set.index(u"name"_s);
    for (; !set.eof(); set.moveNext())
        rows.push_back({{qint32(set.integer(id)), elementKind(set.integer(type)), set.text(name)}, parent});
    return rows;
}

PackedMoment packed(const jet::LocalMoment& moment)
{
    if (!moment.isValid())
        return {};
    return {qint32(moment.date.toJulianDay()), moment.time.msecsSinceStartOfDay() / 1000};
}

QString onOneLine(QString text)
{
    // CR LF first: it is one break, not two.
    for (const QLatin1StringView lineBreak : {"\r\n"_L1, "\n"_L1, "\r"_L1})
        text.replace(lineBreak, " - "_L1);
    return text;
}

} // namespace

CategoryRows readCategories(Archive& archive)
{
    ArchiveUnit unit(archive);
    CategoryRows rows;
    QSet<qint32> seen{0};
    std::vector<CategoryRow> open = readChildren(unit, 0); // a stack: its last is the next
    std::reverse(open.begin(), open.end());
    while (!open.empty()) {
        CategoryRow row = std::move(open.back());
        open.pop_back();
        if (seen.contains(row.node.id))
            continue;
        seen.insert(row.node.id);
        std::vector<CategoryRow> children = readChildren(unit, row.node.id);
        open.insert(open.end(), std::make_move_iterator(children.rbegin()), std::make_move_iterator(children.rend()));
        rows.reached.push_back(std::move(row));
    }
    const jet::Recordset all = unit.Open(u"SELECT COUNT(categoryID) AS totalCat From tab_category "_s);
    rows.hidden = all.integer(u"totalCat"_s) - qint64(rows.reached.size());
    return rows;
}

QString shortDate(PackedMoment moment)
{
    return moment.julianDay == 0 ? QString() : shortDate(QDate::fromJulianDay(moment.julianDay));
}

QString shortMoment(PackedMoment moment)
{
    return moment.julianDay == 0
        ? QString()
        : shortMoment(QDate::fromJulianDay(moment.julianDay), QTime::fromMSecsSinceStartOfDay(moment.second * 1000));
}

std::vector<MemoRow> readMemoRows(Archive& archive, qint32 categoryID)
{
    ArchiveUnit unit(archive);
    jet::Recordset set = unit.Open(u" SELECT * FROM tab_memo WHERE categoryID="_s + QString::number(categoryID));
    const int id = set.index(u"memoID"_s);
    const int name = set.index(u"memoName"_s);
    const int in = set.index(u"dateIn"_s);
    const int mod = set.index(u"dateLastMod"_s);
    std::vector<MemoRow> rows;
    for (; !set.eof(); set.moveNext())
        rows.push_back({qint32(set.integer(id)), set.text(name), packed(set.moment(in)), packed(set.moment(mod))});
    return rows;
}

std::vector<BookmarkRow> readBookmarkRows(Archive& archive, qint32 categoryID)
{
    ArchiveUnit unit(archive);
    jet::Recordset set = unit.Open(u" SELECT * FROM tab_bookmark WHERE categoryID = "_s + QString::number(categoryID));
    const int id = set.index(u"bookmarkID"_s);
    const int name = set.index(u"name"_s);
    const int url = set.index(u"url"_s);
    const int description = set.index(u"description"_s);
    std::vector<BookmarkRow> rows;
    for (; !set.eof(); set.moveNext())
        rows.push_back({qint32(set.integer(id)), set.text(name), set.text(url), onOneLine(set.text(description))});
    return rows;
}

std::vector<ToDoRow> readToDoRows(Archive& archive, qint32 categoryID)
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
    std::vector<ToDoRow> rows;
    for (; !set.eof(); set.moveNext())
        rows.push_back({qint32(set.integer(id)), set.boolean(done), set.boolean(alarm), set.text(name),
                        qint16(set.integer(priority)), qint16(set.integer(status)),
                        set.isNull(percent) ? std::optional<qint16>() : qint16(set.integer(percent)),
                        packed(set.moment(due))});
    return rows;
}

void deleteElements(Archive& archive, ElementKind kind, const QString& ids)
{
    const ElementWords& words = wordsOf(kind);
    ArchiveUnit unit(archive);
    unit.Execute(u"DELETE * FROM %1 WHERE %1.%2 IN (%3) "_s.arg(words.table, words.deletedKey, ids));
}
