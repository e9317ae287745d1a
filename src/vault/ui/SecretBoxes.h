// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QString>

class QLineEdit;
class QPushButton;

// Boxes for passwords.

// No limit to the length, and nothing that an input method would learn.
void prepareSecretBoxes(const QList<QLineEdit*>& boxes);

// The text in a buffer of its own, for the caller to wipe(). QLineEdit::text() shares the box's buffer, which
// wipeBoxes() could not reach then.
QString secretText(const QLineEdit& box);

// Overwrites the texts and forgets what undo would bring back.
void wipeBoxes(const QList<QLineEdit*>& boxes);

// The button toggles the boxes between "*" for each character and the text, and says which comes next.
void wireShowHide(QPushButton& button, const QList<QLineEdit*>& boxes);
