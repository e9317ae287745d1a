// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/widgets/Unblocked.h"

#include <QApplication>
#include <QEvent>
#include <QWidget>
#include <QWindow>

QtUnblocked::QtUnblocked(QWidget& window) : QObject(&window), m_window(window)
{
    window.installEventFilter(this);
}

bool QtUnblocked::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::WindowBlocked)
        belongToModal();
    return QObject::eventFilter(watched, event);
}

void QtUnblocked::belongToModal()
{
    const QWidget* modal = QApplication::activeModalWidget();
    QWindow* owner = modal ? modal->windowHandle() : nullptr;
    QWindow* own = m_window.windowHandle();
    if (!own || owner == own)
        return;
    own->setTransientParent(owner);
    if (owner)
        connect(owner, &QWindow::visibleChanged, this, &QtUnblocked::belongToModal,
                Qt::ConnectionType(Qt::QueuedConnection | Qt::UniqueConnection));
}
