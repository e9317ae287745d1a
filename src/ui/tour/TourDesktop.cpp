// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/tour/TourDesktop.h"

#include "explorer/ui/DragDrop.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QDrag>
#include <QMessageBox>
#include <QMouseEvent>
#include <QPushButton>
#include <QTimer>

Answer TourQuestions::ask(const QString& text, MessageStyle style, const QString& title)
{
    whenModalShows([this](QWidget& window) {
        if (onShown)
            onShown(window);
        if (auto* box = qobject_cast<QMessageBox*>(&window))
            (box->defaultButton() ? box->defaultButton() : box->button(QMessageBox::Ok))->click();
    });
    return m_real.ask(text, style, title);
}

std::optional<QString> TourFiles::next()
{
    if (answers.empty())
        return std::nullopt;
    const QString answer = answers.front();
    answers.pop_front();
    return answer;
}

void whenModalShows(std::function<void(QWidget& window)> step)
{
    QTimer::singleShot(0, qApp, [step = std::move(step)] {
        QWidget* window = QApplication::activeModalWidget();
        if (!window) {
            whenModalShows(step);
            return;
        }
        settle();
        step(*window);
    });
}

void settle()
{
    for (int i = 0; i < 5; ++i)
        QApplication::processEvents(QEventLoop::AllEvents, 20);
}

void dragItem(DragDrop& drag, QAbstractItemView& list, const QModelIndex& from, QAbstractItemView& tree,
              const QPoint& to, const std::function<void()>& over)
{
    drag.runDrag = [&](QDrag& moving) {
        const auto buttons = Qt::MouseButtons(Qt::LeftButton);
        QDragEnterEvent enter(to, Qt::MoveAction, moving.mimeData(), buttons, Qt::NoModifier);
        QApplication::sendEvent(tree.viewport(), &enter);
        QDragMoveEvent move(to, Qt::MoveAction, moving.mimeData(), buttons, Qt::NoModifier);
        QApplication::sendEvent(tree.viewport(), &move);
        over();
        QDropEvent drop(to, Qt::MoveAction, moving.mimeData(), buttons, Qt::NoModifier);
        QApplication::sendEvent(tree.viewport(), &drop);
    };
    const QPointF start = list.visualRect(from).center();
    const auto send = [&](QEvent::Type type, const QPointF& at, Qt::MouseButton button, Qt::MouseButtons held) {
        QMouseEvent event(type, at, list.viewport()->mapToGlobal(at), button, held, Qt::NoModifier);
        QApplication::sendEvent(list.viewport(), &event);
    };
    send(QEvent::MouseButtonPress, start, Qt::LeftButton, Qt::LeftButton);
    for (const int step : {QApplication::startDragDistance(), QApplication::startDragDistance() + 10})
        send(QEvent::MouseMove, start + QPointF(step, 0), Qt::NoButton, Qt::LeftButton);
    send(QEvent::MouseButtonRelease, start, Qt::LeftButton, Qt::NoButton);
}
