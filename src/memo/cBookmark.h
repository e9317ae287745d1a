// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "archive/ElementRecord.h"

struct BookmarkFields {
    qint32 BookmarkID = 0;
    qint32 CategoryID = 0;
    QString BookmarkName;
    QString BookmarkKeywords;
    QString BookmarkDescription;
    QString BookmarkLink; // a URL or a path
    QDateTime BookmarkDateIn;
    QDateTime BookmarkDateLastMod;
};

// The record of one bookmark; the only place that reads and writes rows of tab_bookmark one by one. The program has
// one, reused for each bookmark that is opened.
class cBookmark final : public ElementRecord, public BookmarkFields {
public:
    explicit cBookmark(Archive& archive) : ElementRecord(archive, QStringLiteral("bookmark")) { }

    qint32& key() override { return BookmarkID; }
    void clear() override { static_cast<BookmarkFields&>(*this) = {}; }
    bool Load() override;
    bool Save() override;
    bool Update() override;
};
