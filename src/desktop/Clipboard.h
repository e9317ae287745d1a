// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

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
