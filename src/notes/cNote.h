// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "jet/Value.h"

#include <QDateTime>
#include <QString>
#include <vector>

class Archive;

// The record of one sticky note; the only place that writes rows of tab_note. Fields are plain, nothing validates
// them. Each method opens the archive for itself. An error gives false, without a message, and leaves the archive as
// it was: reportFailure() shows it.
class cNote {
public:
    explicit cNote(Archive& archive) : m_archive(archive) { }

    bool EditingMode = false; // the note has a row in the archive
    qint32 EditingID = 0; // its key
    QString Content;
    QDateTime NoteDate; // when the note was last written; invalid stands for Null
    QString Color; // "yellow", "red", "green", "blue", "white"; other words are kept as they are

    // Reads the row of that key, which is then the one that is edited. That there is none counts as an error.
    bool Load(qint32 id);
    // Inserts a row, which is then the one that is edited.
    bool Save();
    // Writes row EditingID. That the row is gone counts as an error: EditingMode is false then, so that the text can
    // still be saved.
    bool Update();
    bool Delete(const QString& ids); // keys separated by ", "
    bool SetColor(qint32 id, const QString& color);

    void reportFailure() const; // "Error in " + method + ": " + description of the last error

private:
    template <typename Body>
    bool run(const QString& method, Body&& body);

    Archive& m_archive;
    QString m_failedMethod;
    QString m_lastError;
};

// What a note shows in the list.
struct NoteRow {
    qint32 id = 0;
    QString content;
    QString color; // any word
    jet::LocalMoment date; // when it was last written; may be invalid
};

std::vector<NoteRow> readNoteRows(Archive& archive); // all notes in the archive's order; throws jet::Error
