// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>
#include <memory>

class Archive;
class FrameServices;
class NoteListModel;
class NoteWindows;
class cNote;
struct Desktop;

namespace Ui {
class frmNoteList;
}

// What the list of notes works on and with. All outlive it.
struct NoteListContext {
    Archive& archive;
    const Desktop& desktop;
    FrameServices& frame;
    cNote& note; // for what is done to notes in the list; an open note has a record of its own
    NoteWindows& windows;
};

// The view of the frame that lists all notes. While it is shown it sets the status text and enables those commands
// that need selected notes; they are off while it is hidden.
class frmNoteList final : public QWidget {
    Q_OBJECT
public:
    frmNoteList(const NoteListContext& context, QWidget* parent); // reads the notes
    ~frmNoteList() override;

    void MakeLvwContents(); // notes that are still there stay selected
    void UpdateStatusBar();
    void NewNote();
    void ModifyNote(); // the selected one
    void DeleteNote(); // all selected ones, after a question; open ones are closed
    void SetColor(const QString& color); // of all selected ones, open or not

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void wire();
    void enableCommands();
    void notesWritten(qint32 newNote);

    std::unique_ptr<Ui::frmNoteList> m_ui;
    NoteListContext m_context;
    NoteListModel* m_model;
    bool m_isInFront = false;
};
