// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "notes/ui/NoteWindows.h"

#include "archive/Archive.h"
#include "desktop/Questions.h"
#include "notes/ui/frmNote.h"

#include <QCursor>
#include <QGuiApplication>
#include <QScreen>
#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

void bringToFront(frmNote& note)
{
    note.setWindowState(note.windowState() & ~Qt::WindowMinimized);
    note.show();
    note.raise();
    note.activateWindow();
}

} // namespace

NoteWindows::NoteWindows(Archive& archive, QObject* parent) : QObject(parent), m_archive(archive) { }

NoteWindows::~NoteWindows()
{
    blockSignals(true); // who listened may be gone already
    storeAll();
    for (const frmNote* note : std::exchange(m_open, {}))
        delete note;
}

frmNote* NoteWindows::find(qint32 id) const
{
    const auto found = std::find_if(m_open.begin(), m_open.end(), [&](frmNote* note) { return note->noteID() == id; });
    return found == m_open.end() ? nullptr : *found;
}

void NoteWindows::openNew()
{
    show(std::make_unique<frmNote>(m_archive));
}

void NoteWindows::open(qint32 id)
{
    if (frmNote* note = find(id)) { // a second window on it would overwrite what is typed in the first
        bringToFront(*note);
        return;
    }
    auto note = std::make_unique<frmNote>(m_archive);
    if (note->Load(id)) {
        show(std::move(note));
        return;
    }
    note->reportFailure();
    emit notesWritten(0); // others may have deleted it
}

void NoteWindows::show(std::unique_ptr<frmNote> note)
{
    frmNote* window = note.get();
    place(*window);
    connect(window, &frmNote::written, this, &NoteWindows::notesWritten);
    connect(window, &frmNote::deleteRequested, this, [this, window] { deleteNote(*window); });
    connect(window, &frmNote::closed, this,
            [this, window] { m_open.erase(std::find(m_open.begin(), m_open.end(), window)); });
    m_open.push_back(note.release());
    bringToFront(*window);
}

// The first free place of cascades down the screen that is worked on, each a little further right than the one before.
void NoteWindows::place(frmNote& note) const
{
    const QScreen* pointed = QGuiApplication::screenAt(QCursor::pos());
    const QRect screen = (pointed ? pointed : QGuiApplication::primaryScreen())->availableGeometry();
    const int step = 2 * note.fontMetrics().lineSpacing(); // about a title bar
    const QSize size = (note.size() + QSize(step, step)).boundedTo(screen.size()); // with its frame
    const QSize room = screen.size() - size;
    const int perCascade = 1 + room.height() / step;
    const int across = 1 + room.width() / step;
    note.resize(size - QSize(step, step));
    for (int i = 0;; ++i) {
        const int down = i % perCascade;
        const int right = (down + i / perCascade * 3) % across;
        const QPoint corner = screen.topLeft() + QPoint(right, down) * step;
        const bool isTaken = std::any_of(m_open.begin(), m_open.end(), [&](const frmNote* other) {
            return (other->pos() - corner).manhattanLength() < step;
        });
        if (isTaken && i < perCascade * across)
            continue;
        note.move(corner);
        return;
    }
}

void NoteWindows::discard(qint32 id)
{
    if (frmNote* note = find(id))
        note->discard();
}

void NoteWindows::recolor(qint32 id, const QString& color)
{
    if (frmNote* note = find(id))
        note->recolor(color);
}

void NoteWindows::deleteNote(frmNote& note)
{
    const qint32 id = note.noteID();
    const bool hasSomething = id != 0 || !note.isBlank();
    if (hasSomething &&
        m_archive.questions().ask(u"Are you sure you want to delete this note? "_s, MessageStyle::YesNoDefaultNo,
                                  u"Deleting"_s) != Answer::Yes)
        return;
    cNote record(m_archive);
    if (id != 0 && !record.Delete(QString::number(id))) {
        record.reportFailure();
        return;
    }
    note.discard();
    if (id != 0)
        emit notesWritten(0);
}

std::vector<frmNote*> NoteWindows::storeAll()
{
    std::vector<frmNote*> failed;
    for (frmNote* note : std::vector<frmNote*>(m_open))
        if (!note->store())
            failed.push_back(note);
    return failed;
}

bool NoteWindows::saveNotes()
{
    return storeAll().empty();
}

void NoteWindows::saveEdited()
{
    for (frmNote* note : std::vector<frmNote*>(m_open))
        if (note->isEdited())
            note->store(); // one that fails is still open, and closing it says why
}

bool NoteWindows::closeNotes()
{
    const std::vector<frmNote*> failed = storeAll();
    if (!failed.empty()) {
        failed.front()->reportFailure(); // the others fail for the same reason
        const QString text = failed.size() == 1
            ? u"A note could not be saved, and its text would be lost.\r\nClose anyway?"_s
            : u"%1 notes could not be saved, and their texts would be lost.\r\nClose anyway?"_s.arg(failed.size());
        if (m_archive.questions().ask(text, MessageStyle::YesNoDefaultNo) != Answer::Yes)
            return false;
    }
    for (frmNote* note : std::vector<frmNote*>(m_open))
        note->discard();
    return true;
}
