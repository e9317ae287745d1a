// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <optional>
#include <vector>

class Archive;

// The categories of the password list: a flat list of their own, apart from the archive's category tree. Every
// routine opens the archive for itself and throws jet::Error; nothing is changed then.
struct PasswordCategory {
    qint32 id = 0;
    QString name;
    QString description;
    QString notes;
};

std::vector<PasswordCategory> passwordCategoriesByName(Archive& archive);
std::vector<PasswordCategory> passwordCategories(Archive& archive); // in the archive's order
std::optional<PasswordCategory> findPasswordCategory(Archive& archive, qint32 id);
bool existsPasswordCategory(Archive& archive, const QString& name); // exactly so, letter case and all
qint32 insertPasswordCategory(Archive& archive, const PasswordCategory& category); // its new identifier
bool updatePasswordCategory(Archive& archive, const PasswordCategory& category); // false: there is no such row
void deletePasswordCategory(Archive& archive, qint32 id); // its accounts stay, without a category
