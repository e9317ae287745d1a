// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/TourDesktop.h"

#include <QApplication>
#include <QMessageBox>
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
