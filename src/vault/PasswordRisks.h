// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

class modPassword;

// The titles of the accounts that a change of the master password would damage. An account may be in both lists.
struct ChangeRisks {
    QStringList withBar; // a value has the "|" at which the change splits
    QStringList unreadable; // a value is not enciphered under the session's password

    bool isEmpty() const { return withBar.isEmpty() && unreadable.isEmpty(); }
    QString question() const; // to ask before anything is written; names at most ten accounts of each kind
};

// The vault must be unlocked. Throws jet::Error.
ChangeRisks readChangeRisks(modPassword& passwords);
