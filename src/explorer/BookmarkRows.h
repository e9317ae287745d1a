// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <vector>

class Archive;

// What a bookmark shows in the list of its category.
struct BookmarkRow {
    qint32 id = 0;
    QString name;
    QString url;
    QString description; // on one line: each line break is " - "
};

// The bookmarks of a category in the archive's order. Throws jet::Error; `rows` keeps what it held then.
void readBookmarkRows(Archive& archive, qint32 categoryID, std::vector<BookmarkRow>& rows);

// Deletes the bookmarks of a list that idList() built. Throws jet::Error; nothing is deleted then.
void deleteBookmarks(Archive& archive, const QString& ids);
