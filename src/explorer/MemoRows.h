// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "explorer/ListDates.h"

#include <QString>
#include <vector>

class Archive;

// What a memo shows in the list of its category.
struct MemoRow {
    qint32 id = 0;
    QString name;
    PackedMoment dateIn;
    PackedMoment dateLastMod;
};

// The memos of a category in the archive's order. Throws jet::Error; `rows` keeps what it held then.
void readMemoRows(Archive& archive, qint32 categoryID, std::vector<MemoRow>& rows);

// Deletes the memos of a list that idList() built. Throws jet::Error; nothing is deleted then.
void deleteMemos(Archive& archive, const QString& ids);
