// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

// Hands a link or a file to the program that the desktop has for it.
class Shell {
public:
    virtual ~Shell() = default;
    // The "Open" verb. False when the desktop has no program for it.
    virtual bool open(const QString& linkOrFile) = 0;
};
