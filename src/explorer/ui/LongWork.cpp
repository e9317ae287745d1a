// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "explorer/ui/LongWork.h"

#include "desktop/FrameServices.h"

#include <QApplication>
#include <QKeyEvent>

LongWork::LongWork(FrameServices& frame, QString status, int patience)
    : m_frame(frame), m_status(std::move(status)), m_patience(patience), m_nextLook(patience)
{
    m_clock.start();
}

LongWork::~LongWork()
{
    if (m_isShown)
        QApplication::restoreOverrideCursor();
}

bool LongWork::keepGoing()
{
    constexpr int pause = 40; // ms between two looks at the keyboard
    if (m_isStopped || m_clock.elapsed() < m_nextLook)
        return !m_isStopped;
    if (!m_isShown) {
        m_isShown = true;
        QApplication::setOverrideCursor(Qt::BusyCursor);
        m_frame.setStatus(m_status);
    }
    // Timers wait: a reminder must not open a window in the middle of a statement.
    QApplication::instance()->installEventFilter(this);
    QApplication::processEvents(QEventLoop::ExcludeSocketNotifiers | QEventLoop::X11ExcludeTimers);
    QApplication::instance()->removeEventFilter(this);
    m_nextLook = m_clock.elapsed() + pause;
    return !m_isStopped;
}

bool LongWork::eventFilter(QObject*, QEvent* event)
{
    switch (event->type()) {
    case QEvent::KeyPress:
    case QEvent::ShortcutOverride:
        if (static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape)
            m_isStopped = true;
        event->accept(); // an override that is not accepted would go to the shortcuts
        return true;
    case QEvent::Close:
        event->ignore();
        return true;
    case QEvent::KeyRelease:
    case QEvent::Shortcut:
    case QEvent::InputMethod:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::Wheel:
    case QEvent::ContextMenu:
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::TabletPress:
    case QEvent::TabletRelease:
        return true;
    default:
        return false;
    }
}
