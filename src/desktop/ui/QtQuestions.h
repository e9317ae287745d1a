// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/Questions.h"

// Message boxes over the window in front.
class QtQuestions final : public Questions {
public:
    using Questions::ask;
    Answer ask(const QString& text, MessageStyle style, const QString& title) override;
};
