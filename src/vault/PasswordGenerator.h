// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

// A password that nobody can guess, from the system's source of secrets: `length` characters (4 or more) of small and
// capital letters, digits and signs, at least one of each kind. None that is easily taken for another (l and 1, O and
// 0), and no sign that forms or shells refuse often. 20 characters are worth about 120 bits. The caller wipes it.
QString generatePassword(qsizetype length = 20);
