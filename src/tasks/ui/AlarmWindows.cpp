// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tasks/ui/AlarmWindows.h"

#include "archive/Archive.h"
#include "tasks/cAlarm.h"
#include "tasks/modSound.h"
#include "tasks/ui/frmAlarm.h"

#include <QApplication>
#include <QCursor>
#include <QScreen>
#include <QVariant>
#include <algorithm>
#include <memory>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

// After an answer the next pop-up takes its place so much later that the second half of a double click cannot hit it.
constexpr int pauseAfterAnswer = 500; // ms
constexpr int cascadeStep = 28; // pixels, as the next three
constexpr int usualHeight = 202; // of a form with a name of one line
constexpr int titleHeight = 38; // of the frame that a window manager puts around it
constexpr int margin = 16;
constexpr char placeProperty[] = "cascadePlace";

// The forms on the screen are the only list of them, so it cannot go wrong.
QList<frmAlarm*> openForms()
{
    QList<frmAlarm*> forms;
    for (QWidget* window : QApplication::topLevelWidgets())
        if (auto* form = qobject_cast<frmAlarm*>(window); form && form->isVisible())
            forms.append(form);
    return forms;
}

} // namespace

AlarmWindows::AlarmWindows(Archive& archive, Sound& sound, const QString& programFolder, QObject* parent)
    : QObject(parent), m_archive(archive),
      m_queue(*this, archive.questions(), [&sound, programFolder] { soundAlert(sound, programFolder); })
{
    m_next.setSingleShot(true);
    connect(&m_next, &QTimer::timeout, this, &AlarmWindows::openNext);
}

AlarmWindows::~AlarmWindows()
{
    blockSignals(true); // who listened may be gone already
    closeAll();
}

void AlarmWindows::check()
{
    cAlarm(m_archive, m_queue).Alarm();
    m_next.start(0);
    tell();
}

// One window a turn of the event loop: others' messages go in between, and a pop-up may be answered meanwhile.
void AlarmWindows::openNext()
{
    if (m_queue.openNext())
        m_next.start(0);
    tell();
}

bool AlarmWindows::isOpen(qint32 todoID) const
{
    const QList<frmAlarm*> forms = openForms();
    return std::any_of(forms.begin(), forms.end(), [&](const frmAlarm* form) { return form->ToDoID == todoID; });
}

bool AlarmWindows::hasRoom() const
{
    return openForms().size() < most;
}

bool AlarmWindows::open(qint32 todoID, QString& error)
{
    auto form = std::make_unique<frmAlarm>(m_archive);
    form->ToDoID = todoID;
    if (!form->ShowAlert(error))
        return false;
    place(*form);
    connect(form.get(), &QDialog::accepted, this, &AlarmWindows::answered);
    connect(form.get(), &QDialog::finished, this, &AlarmWindows::closed);
    form->show();
    form->raise();
    QApplication::alert(form.get()); // for desktops that put new windows behind
    form.release(); // deletes itself
    return true;
}

// The first free place of a cascade down the right edge to the lower corner of the screen that is worked on: they lie
// above all windows, and messages appear in the middle.
void AlarmWindows::place(frmAlarm& form) const
{
    QSet<int> taken;
    for (const frmAlarm* other : openForms())
        taken.insert(other->property(placeProperty).toInt());
    int place = 0;
    while (taken.contains(place))
        ++place;
    form.setProperty(placeProperty, place);
    const QScreen* pointed = QGuiApplication::screenAt(QCursor::pos());
    const QRect screen = (pointed ? pointed : QGuiApplication::primaryScreen())->availableGeometry();
    const QSize size = form.sizeHint() + QSize(0, titleHeight);
    const QPoint last = screen.bottomRight() - QPoint(size.width() + margin, size.height() + margin);
    const int usual = screen.bottom() - (usualHeight + titleHeight + margin) - (most - 1 - place) * cascadeStep;
    const QPoint wanted(last.x(), std::min(usual, last.y())); // a long name makes a form higher
    form.move(std::max(screen.left(), wanted.x()), std::max(screen.top(), wanted.y()));
}

void AlarmWindows::closed()
{
    if (m_queue.waiting() > 0 && !m_next.isActive())
        m_next.start(pauseAfterAnswer);
    tell();
}

void AlarmWindows::tell()
{
    const QList<frmAlarm*> forms = openForms();
    for (frmAlarm* form : forms)
        form->setWaiting(m_queue.waiting());
    const bool isPending = !forms.isEmpty() || m_queue.waiting() > 0;
    if (std::exchange(m_isPending, isPending) != isPending)
        emit pendingChanged(isPending);
}

void AlarmWindows::closeAll()
{
    m_next.stop();
    m_queue.clear();
    for (frmAlarm* form : openForms())
        form->reject();
    tell();
}
