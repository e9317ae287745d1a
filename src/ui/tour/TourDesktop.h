// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/Desktop.h"
#include "desktop/PreviousInstance.h"
#include "desktop/ui/QtDesktop.h"

#include <QWidget>
#include <deque>
#include <functional>

class DragDrop;
class QAbstractItemView;
class QModelIndex;
class QPoint;

// The outside world of a tour: message boxes are shown, pictured and answered with their default button, file
// dialogs answer by script, nothing is opened.
class TourQuestions final : public Questions {
public:
    using Questions::ask;
    Answer ask(const QString& text, MessageStyle style, const QString& title) override;
    std::function<void(QWidget& box)> onShown;

private:
    QtQuestions m_real;
};

class TourFiles final : public FileDialogs {
public:
    std::optional<QString> openFile(const QString&, const QString&) override { return next(); }
    std::optional<QString> saveFile(const QString&, const QString&, const QString&) override { return next(); }
    std::optional<std::uint32_t> pickColor(std::uint32_t) override { return std::nullopt; }
    std::deque<QString> answers;

private:
    std::optional<QString> next();
};

class TourShell final : public Shell {
public:
    bool open(const QString&) override { return true; }
};

class TourSound final : public Sound {
public:
    int waveDevices() override { return 1; }
    void play(const QString&) override { }
    void beep() override { }
};

class TourPrinting final : public Printing {
public:
    bool choose(QPrinter&, QWidget*) override { return false; }
    bool setUpPage(QPrinter&, QWidget*) override { return false; }
};

class TourClipboard final : public Clipboard {
public:
    void copySecret(const QString&) override { }
    void wipe() override { }
};

class TourInstance final : public PreviousInstance {
public:
    bool isRunning() const override { return false; }
    void bringToFront() override { }
};

// Runs `step` as soon as the next modal window is shown and settled. The step ends by closing the window.
void whenModalShows(std::function<void(QWidget& window)> step);

// Lets everything be laid out and painted.
void settle();

// Drags the item at `from` of one list onto the point `to` of a tree by the events that a desktop sends, because an
// offscreen one has no pointer. `over` is called while the item hangs over its target.
void dragItem(DragDrop& drag, QAbstractItemView& list, const QModelIndex& from, QAbstractItemView& tree,
              const QPoint& to, const std::function<void()>& over);
