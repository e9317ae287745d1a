// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/ui/FrameView.h"
#include "notes/cNote.h"

#include <QWidget>
#include <functional>
#include <memory>

class ListView;
class NoteWindows;
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

// The view of the frame that lists all notes. While it is in front it sets the status text and enables those commands
// that need selected notes; they are off while it is behind.
class frmNoteList final : public QWidget {
    Q_OBJECT
public:
    frmNoteList(const NoteListContext& context, QWidget* parent); // reads the notes
    ~frmNoteList() override;

    void setInFront(bool inFront);
    void MakeLvwContents(); // notes that are still there stay selected
    void UpdateStatusBar();
    void NewNote();
    void ModifyNote(); // the selected one
    void DeleteNote(); // all selected ones, after a question; open ones are closed
    void SetColor(const QString& color); // of all selected ones, open or not

private:
    class Model;

    void wire();
    void fill(void (ListView::*refill)(const std::function<void()>&));
    void enableCommands();
    void notesWritten(qint32 newNote);

    std::unique_ptr<Ui::frmNoteList> m_ui;
    NoteListContext m_context;
    Model* m_model;
    bool m_isInFront = false;
};

// "Note", the list as a view of the frame.
class NotesView final : public FrameView {
public:
    // All outlive it.
    NotesView(Archive& archive, const Desktop& desktop, FrameServices& frame, QWidget& window, NoteWindows& notes);

    void registerCommands() override;
    QWidget* open() override;
    bool isOpen() const override { return m_window; }
    void cameToFront() override { m_window->setInFront(true); }
    void wentBehind() override { m_window->setInFront(false); }
    void readAgain() override;
    void close() override;

private:
    cNote m_note;
    NoteListContext m_context;
    frmNoteList* m_window = nullptr;
};
