// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <cstdint>
#include <optional>
#include <stdexcept>

class Clock;
class QPrinter;
class QWidget;
class Questions;

// The clipboard for what must not stay there: user names and passwords.
class Clipboard {
public:
    virtual ~Clipboard() = default;
    // Puts `text` on the clipboard, marked as a secret so that a clipboard manager does not keep it. It goes after a
    // while, and when the program ends. The selection of the middle mouse button is left alone.
    virtual void copySecret(const QString& text) = 0;
    // Takes the last secret off the clipboard at once; nothing when something else is there by now.
    virtual void wipe() = 0;
};

// Picking a file or a colour. Nothing is opened or written here; an empty answer means that the user cancelled.
class FileDialogs {
public:
    virtual ~FileDialogs() = default;
    // `filter` is in the classic form "All Files (*.*) |*.*": a label, a bar, a pattern.
    virtual std::optional<QString> openFile(const QString& title, const QString& filter) = 0;
    // Asks before an existing file is chosen. `suffix` (no dot) is added to a name typed without one.
    virtual std::optional<QString> saveFile(const QString& title, const QString& filter, const QString& suffix) = 0;
    // Colours are 0x00BBGGRR, red in the low byte.
    virtual std::optional<std::uint32_t> pickColor(std::uint32_t initial) = 0;
};

// What the user is asked before paper is used up. Nothing is printed here.
class Printing {
public:
    virtual ~Printing() = default;
    // The system's print dialog: printer or PDF file, paper, pages and copies go into `printer`. False: cancelled.
    virtual bool choose(QPrinter& printer, QWidget* parent) = 0;
    // Paper, orientation and margins alone. False: cancelled.
    virtual bool setUpPage(QPrinter& printer, QWidget* parent) = 0;
};

// Hands a link or a file to the program that the desktop has for it.
class Shell {
public:
    virtual ~Shell() = default;
    // The "Open" verb. False when the desktop has no program for it.
    virtual bool open(const QString& linkOrFile) = 0;
    // The same for a link that the user wants to see. Throws std::runtime_error without such a program.
    void openLink(const QString& link)
    {
        if (!open(link))
            throw std::runtime_error("No program is set up to open this link.");
    }
};

// The sound device. Nothing here waits for a sound to end, and nothing fails aloud.
class Sound {
public:
    virtual ~Sound() = default;
    virtual int waveDevices() = 0; // how many devices can play a wave file; 0 when there is none
    virtual void play(const QString& waveFile) = 0; // a file that exists, by its absolute path; returns at once
    virtual void beep() = 0; // the desktop's own short signal
};

// The outside world as one window gets it. All outlive the window.
struct Desktop {
    Questions& questions;
    FileDialogs& files;
    Shell& shell;
    const Clock& clock;
    Sound& sound;
    Printing& printing;
    Clipboard& clipboard; // for secrets
};
