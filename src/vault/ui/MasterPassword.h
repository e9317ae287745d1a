// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "vault/modPassword.h"

#include <QList>

class QLineEdit;
class QPushButton;
class Questions;

// What the windows of the master password share: their boxes and their messages.

// No limit to the length, and nothing that an input method would learn.
void prepareSecretBoxes(const QList<QLineEdit*>& boxes);

// The text in a buffer of its own, for the caller to wipe(). QLineEdit::text() shares the box's buffer, which
// wipeBoxes() could not reach then.
QString secretText(const QLineEdit& box);

// Overwrites the texts and forgets what undo would bring back.
void wipeBoxes(const QList<QLineEdit*>& boxes);

// The button toggles the boxes between "*" for each character and the text, and says which comes next.
void wireShowHide(QPushButton& button, const QList<QLineEdit*>& boxes);

bool tellChoice(Questions& questions, modPassword::Choice choice); // true when it is Saved
void tellNothingToDo(Questions& questions); // the row for the master password cannot be made
