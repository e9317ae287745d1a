// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/modSnipVale.h"
#include "app/ui/frmMain.h"
#include "desktop/Clock.h"
#include "ui/tour/TourDesktop.h"

#include <QDir>
#include <QModelIndex>
#include <QTemporaryDir>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>

// The first object of that kind and name in the window ("" for any name). Throws without one.
template <typename Object>
Object& find(QWidget& window, const char* name)
{
    auto* widget = window.findChild<Object*>(QString::fromLatin1(name));
    if (!widget)
        throw std::runtime_error(std::string("there is no ") + name);
    return *widget;
}

// Throws `what` when something is not as it should be: a tour is a test as well.
void require(bool holds, const char* what);

// One walk through the program, in a home of its own that is gone afterwards. Each step drives the windows by their
// controls, as a user would, and leaves numbered pictures.
class Tour {
public:
    Tour(const QString& folder, const QString& shipped);
    void run();

private:
    void start();
    void picture(QWidget& window, const QString& name);
    void step(const char* command, std::function<void(QWidget& window)> inWindow);
    // Runs `open`, which shows a modal window, and `inWindow` in that window.
    void inner(const std::function<void()>& open, std::function<void(QWidget& window)> inWindow);
    void selectCategory(const QString& name);
    void newCategory();
    void newMemo();
    void reopenAndEdit(QWidget& window);
    void findInCode(QWidget& window);
    void newBookmark();
    void search();
    void dragMemo();
    void newToDo();
    void reminder();
    void passwords();
    void notes();
    void options();
    void languageStyles(QWidget& window);
    void printPreview();
    void help();
    void restart();
    QModelIndex category(const QString& name);

    QDir m_folder;
    QString m_shipped;
    QTemporaryDir m_scratch;
    int m_number = 0;
    std::string m_failure; // of a step inside a modal window: nothing may be thrown through its event loop
    TourQuestions m_questions;
    TourFiles m_files;
    TourShell m_shell;
    TourInstance m_previous;
    SystemClock m_clock;
    TourSound m_sound;
    TourPrinting m_printing;
    TourClipboard m_clipboard;
    Desktop m_desktop{m_questions, m_files, m_shell, m_clock, m_sound, m_printing, m_clipboard};
    std::unique_ptr<modSnipVale> m_program;
    std::unique_ptr<frmMain> m_frame;
};

// Walks through the program's main job on an archive of its own and leaves numbered PNG pictures in `folder`.
// Returns 0, or 1 when a step did not come out as it should (it says which on standard error). `shipped` is the
// folder with the shipped files.
int runTour(const QString& folder, const QString& shipped);
