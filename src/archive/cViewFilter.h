// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

// What the next editor of each kind is to edit: the element's identifier, or 0 for a new one. Whoever opens an
// editor writes it; the editor writes the new identifier back after its first save.
class cViewFilter {
public:
    qint32 EditingModeMemoID = 0;
    qint32 EditingModeBookmarkID = 0;
    qint32 EditingModeToDoID = 0;
    qint32 EditingModeCategoryID = 0;
    qint32 EditingModePasswordID = 0;
};
