// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "vault/PasswordCategories.h"

#include "archive/Archive.h"
#include "archive/SqlText.h"

using namespace Qt::StringLiterals;

namespace {

std::vector<PasswordCategory> read(Archive& archive, const QString& sql)
{
    ArchiveUnit unit(archive);
    std::vector<PasswordCategory> categories;
    for (jet::Recordset set = unit.Open(sql); !set.eof(); set.moveNext())
        categories.push_back({qint32(set.integer(u"passwordCategoryID"_s)), set.text(u"name"_s),
                              set.text(u"description"_s), set.text(u"notes"_s)});
    return categories;
}

} // namespace

std::vector<PasswordCategory> passwordCategoriesByName(Archive& archive)
{
    return read(archive, u"SELECT * FROM tab_passwordCategory "_s + u" ORDER BY name"_s);
}

std::vector<PasswordCategory> passwordCategories(Archive& archive)
{
    return read(archive, u"SELECT * FROM tab_passwordCategory  "_s);
}

std::optional<PasswordCategory> findPasswordCategory(Archive& archive, qint32 id)
{
    const std::vector<PasswordCategory> found = read(
        archive, u" SELECT * FROM tab_passwordCategory WHERE passwordCategoryID = "_s + QString::number(id) + u"  "_s);
    return found.empty() ? std::nullopt : std::optional(found.front());
}

bool existsPasswordCategory(Archive& archive, const QString& name)
{
    ArchiveUnit unit(archive);
    jet::Recordset set = unit.Open(u"SELECT  tab_passwordCategory.name FROM tab_passwordCategory "_s +
                                   u" WHERE tab_passwordCategory.name =  '"_s + quoted(name) + u"' "_s);
    for (; !set.eof(); set.moveNext())
        if (set.text(0) == name) // the archive's comparison does not see letter case
            return true;
    return false;
}

qint32 insertPasswordCategory(Archive& archive, const PasswordCategory& category)
{
    ArchiveUnit unit(archive);
    jet::Recordset row = unit.Open(u"SELECT * FROM tab_passwordCategory WHERE 1=2 "_s);
    row.AddNew({u"name"_s, u"description"_s, u"notes"_s}, {category.name, category.description, category.notes});
    row.Update();
    return qint32(row.integer(u"passwordCategoryID"_s));
}

bool updatePasswordCategory(Archive& archive, const PasswordCategory& category)
{
    ArchiveUnit unit(archive);
    return unit.Execute(UpdateText(u"tab_passwordCategory"_s)
                            .set(u"tab_passwordCategory.name"_s, category.name)
                            .set(u"tab_passwordCategory.description"_s, category.description)
                            .set(u"tab_passwordCategory.notes"_s, category.notes)
                            .where(u"tab_passwordCategory.passwordCategoryID"_s, category.id)) > 0;
}

void deletePasswordCategory(Archive& archive, qint32 id)
{
    ArchiveUnit unit(archive);
    unit.Execute(u"DELETE * FROM tab_passwordCategory "_s + u"WHERE tab_passwordCategory.passwordCategoryID = "_s +
                 QString::number(id));
    unit.Execute(u"UPDATE tab_password SET tab_password.passwordCategoryID = 0 "_s +
                 u"WHERE tab_password.passwordCategoryID = "_s + QString::number(id));
}
