// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "explorer/CategoryRows.h"

#include "archive/Archive.h"

#include <QSet>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

std::vector<CategoryRow> readChildren(ArchiveUnit& unit, qint32 parent)
{
    // The top level and the levels below it are asked for in two spellings; both are the archive's own.
    const QString sql = parent == 0
        ? u" SELECT * FROM tab_category WHERE parentID = 0 "_s + u" ORDER BY tab_category.name "_s
        : u"SELECT * FROM tab_category WHERE parentID = "_s + QString::number(parent) + u" "_s +
            u" ORDER BY tab_category.name "_s;
    std::vector<CategoryRow> rows;
    jet::Recordset set = unit.Open(sql);
    const int id = set.index(u"categoryID"_s);
    const int type = set.index(u"type"_s);
    const int name = set.index(u"name"_s);
    for (; !set.eof(); set.moveNext())
        rows.push_back({{qint32(set.integer(id)), elementKind(set.integer(type)), set.text(name)}, parent});
    return rows;
}

} // namespace

qint64 readCategories(Archive& archive, std::vector<CategoryRow>& rows)
{
    ArchiveUnit unit(archive);
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
        rows.push_back(std::move(row));
    }
    const jet::Recordset all = unit.Open(u"SELECT COUNT(categoryID) AS totalCat From tab_category "_s);
    return all.integer(u"totalCat"_s) - qint64(rows.size());
}
