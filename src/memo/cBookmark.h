// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDateTime>
#include <QString>

class Archive;

// The record of one bookmark; the only place that reads and writes rows of tab_bookmark one by one. The program has
// one, reused for each bookmark that is opened. Fields are plain, nothing validates them. Each method opens the
// archive for itself.
class cBookmark {
public:
    explicit cBookmark(Archive& archive) : m_archive(archive) { }

    qint32 BookmarkID = 0;
    qint32 CategoryID = 0;
    QString BookmarkName;
    QString BookmarkKeywords;
    QString BookmarkDescription;
    QString BookmarkLink; // a URL or a path
    QDateTime BookmarkDateIn;
    QDateTime BookmarkDateLastMod;

    // Reads row BookmarkID. True also when there is no such row: the fields stay as they are then. An error gives
    // false, without a message: lastError() has it.
    bool Load();
    // Inserts a row, both dates now, and sets BookmarkID to its key. An error is shown and gives false.
    bool Save();
    // Writes row BookmarkID, its last date now. An error, also that the row is gone, gives false, without a message:
    // lastError() has it.
    bool Update();

    const QString& lastError() const { return m_lastError; }

private:
    Archive& m_archive;
    QString m_lastError;
};
