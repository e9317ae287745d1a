// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "notes/ui/NoteListModel.h"

#include <QListView>
#include <vector>

// The list of notes: each on one line, with its sheet. It knows mouse and keyboard, not what is done to notes.
class NoteListView final : public QListView {
    Q_OBJECT
public:
    explicit NoteListView(QWidget* parent = nullptr);

    void setList(NoteListModel* model); // outlives the view
    NoteListModel* list() const { return m_list; }

    std::vector<qint32> selectedIds() const; // in list order
    qint32 selectedId() const; // the one with the focus if it is selected, else the first one; 0 when none is
    void selectOnly(qint32 id); // and makes it visible; an unknown one changes nothing

    // Replaces the notes. Those that are still there stay selected, and the view stays where it is.
    void refill(std::vector<NoteRow> rows);

signals:
    void openRequested(); // double click on a note, Enter or F2
    void newRequested(); // Insert, or a double click on empty space
    void deleteRequested(); // Delete
    void menuRequested(const QPoint& screenPosition);
    void selectionMade(); // it may have changed

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    NoteListModel* m_list = nullptr;
};
