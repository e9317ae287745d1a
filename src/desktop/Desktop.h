// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class Clipboard;
class Clock;
class FileDialogs;
class FrameServices;
class Printing;
class Questions;
class Shell;
class Sound;

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
