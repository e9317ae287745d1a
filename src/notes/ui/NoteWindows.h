// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <memory>
#include <vector>

class Archive;
class frmNote;

// The notes that are open, each in a window of its own. There is one of these in the program.
class NoteWindows final : public QObject {
    Q_OBJECT
public:
    explicit NoteWindows(Archive& archive, QObject* parent = nullptr); // the archive outlives this
    ~NoteWindows() override; // saves what is open and closes it, without a word

    void openNew();
    void open(qint32 id); // an open one is brought to the front; errors are shown
    void discard(qint32 id); // closes it, if it is open, without writing: its row is deleted
    void recolor(qint32 id, const QString& color); // if it is open

    // Before the program ends or another archive is opened: writes all open notes and closes them. What cannot be
    // written is said, and the user decides. False: everything must stay as it is, and all notes are still open.
    [[nodiscard]] bool closeNotes();
    // Writes all open notes and leaves them open. False when one could not be written; nothing is said.
    bool saveNotes();
    void saveEdited(); // the same for those that were edited: the main window goes out of sight

signals:
    void notesWritten(qint32 newNote); // the archive's notes are others now; the key of a new one, else 0

private:
    std::vector<frmNote*> storeAll(); // gives those that failed
    void show(std::unique_ptr<frmNote> note);
    void place(frmNote& note) const;
    void deleteNote(frmNote& note);
    frmNote* find(qint32 id) const; // null when it is not open

    Archive& m_archive;
    std::vector<frmNote*> m_open; // delete themselves when they are closed
};
