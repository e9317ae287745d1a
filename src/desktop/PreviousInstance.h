// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

// Whether the program already runs for the same home folder.
class PreviousInstance {
public:
    virtual ~PreviousInstance() = default;
    virtual bool isRunning() const = 0;
    virtual void bringToFront() = 0; // the running one; does nothing when there is none
    std::function<void()> onBringToFront; // another start asked this instance to show itself
};
