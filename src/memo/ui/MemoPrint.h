// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "memo/ui/MemoPrintCode.h"

#include <QList>

class Archive;
struct Desktop;

// A memo as it is printed. What is empty is left out.
struct PrintedMemo {
    QString name;
    QString language;
    QString category;
    QString created; // moments as text
    QString lastModified;
    QString link;
    QString description;
    StyledCode code;
    QString notes; // RTF, or plain text
};

// Printing memos. All of these show what went wrong; they are false then, and when the user cancelled. `parent` is the
// window that they belong to.

// Memos of the archive, through the print dialog.
bool printMemos(QWidget* parent, Archive& archive, const Desktop& desktop, const QList<qint32>& ids);
// The pages on the screen; they can be printed from there. True when they were.
bool previewMemos(QWidget* parent, Archive& archive, const Desktop& desktop, const QList<qint32>& ids);

// The same for one memo as it stands in its editor.
bool printMemo(QWidget* parent, const Desktop& desktop, const PrintedMemo& memo);
bool previewMemo(QWidget* parent, const Desktop& desktop, const PrintedMemo& memo);

// The names that a memo's numbers stand for, "" for none. Throw jet::Error.
QString languageName(Archive& archive, qint32 memoTypeID);
QString categoryName(Archive& archive, qint32 categoryID);
