// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "explorer/ElementQuestions.h"

#include "desktop/Questions.h"

using namespace Qt::StringLiterals;

bool mayDeleteElements(Questions& questions)
{
    return questions.ask(u"Are you sure you want to delete selected elements? "_s, MessageStyle::YesNoDefaultNo,
                         u"Deleting elements"_s) == Answer::Yes;
}
