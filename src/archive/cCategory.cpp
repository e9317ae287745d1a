// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "archive/cCategory.h"

#include "archive/Archive.h"
#include "archive/ErrorTrap.h"
#include "archive/SqlText.h"

using namespace Qt::StringLiterals;

bool cCategory::Load()
{
    return trapErrors(m_archive.questions(), u"Load"_s, [&] {
        ArchiveUnit unit(m_archive);
        const jet::Recordset row =
            unit.Open(u" SELECT * FROM tab_category WHERE categoryID = "_s + QString::number(CategoryID) + u" "_s);
        if (row.eof())
            return;
        CategoryID = qint32(row.integer(u"categoryID"_s));
        CategoryParentID = qint32(row.integer(u"parentID"_s));
        CategoryType = qint16(row.integer(u"type"_s));
        CategoryName = row.text(u"name"_s);
        CategoryDescription = row.text(u"description"_s);
    });
}

bool cCategory::Save()
{
    return trapErrors(m_archive.questions(), u"Save"_s, [&] {
        ArchiveUnit unit(m_archive);
        jet::Recordset row = unit.Open(u"SELECT * FROM tab_category WHERE 1=2 "_s);
        row.AddNew({u"name"_s, u"parentID"_s, u"type"_s, u"description"_s},
                   {CategoryName, qint64(CategoryParentID), qint64(CategoryType), CategoryDescription});
        row.Update();
        CategoryID = qint32(row.integer(u"categoryID"_s));
    });
}

bool cCategory::Update()
{
    return trapErrors(m_archive.questions(), u"Update"_s, [&] {
        ArchiveUnit unit(m_archive);
        unit.Execute(UpdateText(u"tab_category"_s, u"  , "_s)
                         .set(u"tab_category.type"_s, CategoryType)
                         .set(u"tab_category.name"_s, CategoryName)
                         .set(u"tab_category.description"_s, CategoryDescription)
                         .where(u"tab_category.categoryID"_s, CategoryID, u"  "_s));
    });
}

bool cCategory::Delete(const QString& idsPath)
{
    return trapErrors(m_archive.questions(), u"Delete"_s, [&] {
        ArchiveUnit unit(m_archive);
        unit.Execute(u"DELETE * FROM tab_category WHERE tab_category.categoryID IN ("_s + idsPath + u") "_s);
    });
}

void cCategory::TraverseTree(const CategoryTree& tree, const QString& key)
{
    trapErrors(m_archive.questions(), u"TraverseTree"_s, [&] {
        // A stack of our own: a tree may be deeper than the machine's.
        std::vector<qint32> open = tree.childrenOf(leadingNumber(key));
        std::reverse(open.begin(), open.end());
        while (!open.empty()) {
            const qint32 child = open.back();
            open.pop_back();
            CategoryIDsPath += u","_s + QString::number(child);
            const std::vector<qint32> below = tree.childrenOf(child);
            open.insert(open.end(), below.rbegin(), below.rend());
        }
    });
}
