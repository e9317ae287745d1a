// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/Questions.h"

using namespace Qt::StringLiterals;

bool mayDeleteElements(Questions& questions)
{
    return questions.ask(u"Are you sure you want to delete selected elements? "_s, MessageStyle::YesNoDefaultNo,
                         u"Deleting elements"_s) == Answer::Yes;
}

bool mayDropChanges(Questions& questions)
{
    return questions.ask(u"Close without saving changes?"_s, MessageStyle::YesNoDefaultNo) == Answer::Yes;
}
