// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

// What the program shows and asks in message boxes. The values are the classic style numbers: the icon
// (16 critical, 32 question, 48 exclamation, 64 information), 4 for Yes and No, 256 for the second button
// as the default one.
enum class MessageStyle : int {
    Plain = 0,
    Critical = 16,
    Exclamation = 48,
    Information = 64,
    YesNo = 36,
    YesNoDefaultNo = 292,
};

enum class Answer { Ok, Yes, No };

// The one way to talk to the user from below a window. Tests script the answers; the real one is a
// QMessageBox. A text is plain, with CR LF or LF as a line break.
class Questions {
public:
    virtual ~Questions() = default;
    virtual Answer ask(const QString& text, MessageStyle style, const QString& title) = 0;
    Answer ask(const QString& text, MessageStyle style) { return ask(text, style, QStringLiteral("SnipVale")); }
};

// What every list and every editor asks alike. True for Yes, which is never the default.
bool mayDeleteElements(Questions& questions); // the selected ones, of any kind
bool mayDropChanges(Questions& questions); // an editor with unsaved changes is closed
