// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/CoreSupport.h"

#include "desktop/Desktop.h"
#include "desktop/FrameServices.h"

#include <QHash>
#include <QStringList>
#include <deque>
#include <functional>

class QWidget;

// File, colour and shell answers by script; what was asked is kept.
class ScriptedFiles : public FileDialogs {
public:
    std::optional<QString> openFile(const QString& title, const QString& filter) override;
    std::optional<QString> saveFile(const QString& title, const QString& filter, const QString& suffix) override;
    std::optional<std::uint32_t> pickColor(std::uint32_t initial) override;

    std::deque<std::optional<QString>> answers;
    std::deque<std::optional<std::uint32_t>> colors;
    QStringList asked; // "title|filter"
};

class ScriptedShell : public Shell {
public:
    bool open(const QString& linkOrFile) override
    {
        opened.append(linkOrFile);
        return hasPrograms;
    }
    QStringList opened;
    bool hasPrograms = true; // for any link
};

// Prints to PDF files by script. An empty name is a cancelled dialog.
class ScriptedPrinting : public Printing {
public:
    bool choose(QPrinter& printer, QWidget* parent) override;
    bool setUpPage(QPrinter&, QWidget*) override { return false; }
    std::deque<QString> files;
    std::function<void(QPrinter& printer)> onChoose; // sets pages or paper
};

class FakeClipboard : public Clipboard {
public:
    void copySecret(const QString& text) override { secrets.append(text); }
    void wipe() override { secrets.clear(); }
    QStringList secrets;
};

// A frame that only remembers what was asked of it.
class FakeFrame : public FrameServices {
public:
    void handleCommand(const QString& name, const QString&, std::function<void()> handler) override
    {
        enabledCommands[name] = bool(handler);
    }
    void enableCommand(const QString& name, bool enabled) override { enabledCommands[name] = enabled; }
    void checkCommand(const QString&, bool) override { }
    void setCommandIcon(const QString&, const QIcon&) override { }
    void runCommand(const QString& name) override { ran.append(name); }
    void setStatus(const QString& text) override { status = text; }
    void popupMenu(const QString& name, const QPoint&) override { menus.append(name); }
    bool showView(const QString&) override { return true; }

    QHash<QString, bool> enabledCommands;
    QStringList ran;
    QStringList menus;
    QString status;
};

// An archive that was started once, and everything that a window needs.
struct UiFixture : StartedArchive {
    ScriptedFiles files;
    ScriptedShell shell;
    FakeFrame frame;
    FakeSound sound;
    ScriptedPrinting printing;
    FakeClipboard clipboard;
    Desktop desktop{questions, files, shell, clock, sound, printing, clipboard};
};

// Runs `step` when the next modal window is up. The step must close it.
void whenModal(std::function<void(QWidget& window)> step);
