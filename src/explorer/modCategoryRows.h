// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "archive/CategoryTree.h"

#include <vector>

class Archive;

// A category with its parent, as the tree is built from them.
struct CategoryRow {
    CategoryNode node;
    qint32 parentID = 0;
};

// Appends every category that can be reached from the top, parents before children, brothers in name order.
// A damaged tree (a category below itself) is read once and ends. Throws jet::Error; what was read until then
// stays in `rows`.
void readCategories(Archive& archive, std::vector<CategoryRow>& rows);
