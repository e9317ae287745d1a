// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "notes/cNote.h"

#include <QWidget>
#include <memory>

class Archive;

namespace Ui {
class frmNote;
}

// The window of one note. It belongs to no other window, so it stays when the main window is hidden. Closing it writes
// the note; when that fails it stays open. Deletes itself once it is closed.
class frmNote final : public QWidget {
    Q_OBJECT
public:
    explicit frmNote(Archive& archive); // outlives the window; a new yellow note
    ~frmNote() override;

    bool Load(qint32 id); // shows that note; false, without a message, when it cannot be read
    qint32 noteID() const { return m_note.EditingMode ? m_note.EditingID : 0; } // 0: not in the archive yet
    bool isBlank() const; // no text but blanks
    bool isEdited() const; // has a text that the archive does not have

    // Writes the note, dated now; a blank one is left as it is in the archive. False, without a message, on an error.
    bool store();
    void reportFailure() const { m_note.reportFailure(); } // of the last Load() or store()
    void recolor(const QString& color); // written with the note
    void discard(); // closes without writing

signals:
    void written(qint32 newNote); // the key that a new note got, else 0
    void deleteRequested();
    void closed();

protected:
    bool event(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void makeColorButtons();
    void wire();
    void save();
    void showColor();
    void showDate();
    void showHeading();

    std::unique_ptr<Ui::frmNote> m_ui;
    Archive& m_archive;
    cNote m_note;
    QString m_shownText; // the box's text that Content stands for
    bool m_isDiscarded = false;
};
