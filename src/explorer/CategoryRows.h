// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "archive/cCategory.h"

#include <vector>

class Archive;

// A category with its parent, as the tree is built from them.
struct CategoryRow {
    CategoryNode node;
    qint32 parentID = 0;
};

// Appends every category that can be reached from the top, parents before children, brothers in name order.
// Returns how many cannot be reached: their parent is missing, or they lie below themselves. Throws jet::Error; what
// was read until then stays in `rows`.
qint64 readCategories(Archive& archive, std::vector<CategoryRow>& rows);
