// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "archive/Archive.h"
#include "desktop/Clock.h"
#include "desktop/Questions.h"

#include <QString>

// Nobody is asked during a measurement: a question ends it.
class NoQuestions : public Questions {
public:
    using Questions::ask;
    Answer ask(const QString& text, MessageStyle style, const QString& title) override;
};

// A copy of the shipped archive with `memos` memos of about 1 KB in category 1, made once a size and kept until
// the process ends.
QString archiveWith(int memos);
