// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <stdexcept>

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
