// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDateTime>
#include <QString>

class Archive;

// The record of one memo; the only place that reads and writes rows of tab_memo one by one. The program has one,
// reused for each memo that is opened. Fields are plain, nothing validates them. Each method opens the archive
// for itself.
class cMemo {
public:
    explicit cMemo(Archive& archive) : m_archive(archive) { }

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

    // Reads row MemoID. True also when there is no such row: the fields stay as they are then. An error gives
    // false, without a message.
    bool Load();
    // Inserts a row, both dates now, and sets MemoID to its key. An error is shown and gives false.
    bool Save();
    // Writes row MemoID, its last date now. An error gives false, without a message: lastError() has it.
    bool Update();
    qint32 GetMemoCount(); // 0 on an error, without a message

    const QString& lastError() const { return m_lastError; }

private:
    Archive& m_archive;
    QString m_lastError;
};
