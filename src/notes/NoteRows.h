// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "jet/Value.h"

#include <QString>
#include <vector>

class Archive;

// What a note shows in the list.
struct NoteRow {
    qint32 id = 0;
    QString content;
    QString color; // any word
    jet::LocalMoment date; // when it was last written; may be invalid
};

// All notes in the archive's order. Throws jet::Error; `rows` keeps what it held then.
void readNoteRows(Archive& archive, std::vector<NoteRow>& rows);

// The text as one short line: from its first lines, " - " between them, without control characters or marks that
// turn the direction of what follows.
QString noteHeading(const QString& content);
