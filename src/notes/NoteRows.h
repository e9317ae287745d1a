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

std::vector<NoteRow> readNoteRows(Archive& archive); // all notes in the archive's order; throws jet::Error
