// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "vault/MasterPasswordMessages.h"

#include "desktop/Questions.h"

using namespace Qt::StringLiterals;

bool tellChoice(Questions& questions, modPassword::Choice choice)
{
    switch (choice) {
    case modPassword::Choice::Saved:
        questions.ask(u"Master Password saved!"_s, MessageStyle::Information);
        return true;
    case modPassword::Choice::SelfCheckFailed:
        questions.ask(u"I found an error coding and decoding your password!"_s, MessageStyle::Critical);
        break;
    case modPassword::Choice::NotSaved:
        questions.ask(u"Error saving master password"_s, MessageStyle::Critical);
        break;
    }
    return false;
}

void tellNothingToDo(Questions& questions)
{
    questions.ask(u"Nothing to do. Try to close and restart SnipVale. If problem persist contact my author "
                  "(I am SnipVale:) for help."_s,
                  MessageStyle::Critical);
}
