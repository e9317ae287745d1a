// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "archive/ElementRecord.h"

struct MemoFields {
    qint16 EditingMode = 0; // never stored
    qint32 MemoID = 0;
    qint32 MemoTypeID = 0; // the language
    QString MemoName;
    QString MemoDescription;
    QString MemoLink;
    QString SnipVale; // the code
    QString MemoNotes; // RTF
    qint32 CategoryID = 0;
    QDateTime MemoDateIn;
    QDateTime MemoDateLastMod;
    qint16 MemoOpeningState = 0; // 0 both panes, 1 the code fills the window, 2 the notes do
};

// The record of one memo; the only place that reads and writes rows of tab_memo one by one. The program has one,
// reused for each memo that is opened.
class cMemo final : public ElementRecord, public MemoFields {
public:
    explicit cMemo(Archive& archive) : ElementRecord(archive, QStringLiteral("memo")) { }

    qint32& key() override { return MemoID; }
    void clear() override { static_cast<MemoFields&>(*this) = {}; }
    bool Load() override;
    bool Save() override;
    bool Update() override;
    qint32 GetMemoCount(); // 0 on an error, without a message
};
