// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "vault/modPassword.h"

class Questions;

// What more than one window of the master password says.

bool tellChoice(Questions& questions, modPassword::Choice choice); // true when it is Saved
void tellNothingToDo(Questions& questions); // the row for the master password cannot be made
