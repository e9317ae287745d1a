// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/EditorFixture.h"
#include "vault/VaultFixture.h"

// An unlocked vault and what its windows need.
using VaultWindows = VaultOn<EditorFixture>;

template <typename Widget>
Widget& part(const QObject& window, const char* name)
{
    auto* found = window.findChild<Widget*>(QString::fromLatin1(name));
    if (!found)
        qFatal("there is no %s", name);
    return *found;
}
