// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

class Archive;

// How much the archive holds.
struct Summary {
    qint64 memos = 0, memoCategories = 0;
    qint64 bookmarks = 0, bookmarkCategories = 0;
    qint64 toDos = 0, toDoCategories = 0;
    qint64 passwords = 0, notes = 0;
};

// Throws jet::Error; what was counted until then stays in `summary`.
void readSummary(Archive& archive, Summary& summary);
