// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "archive/ErrorTrap.h"

#include "desktop/Questions.h"

#include <new>

using namespace Qt::StringLiterals;

void reportError(Questions& questions, const QString& routine, const QString& description)
{
    questions.ask(u"Error in "_s + routine + u": "_s + description, MessageStyle::Critical);
}

QString describeError(const std::exception& error)
{
    if (dynamic_cast<const std::bad_alloc*>(&error))
        return u"Not enough memory."_s;
    return QString::fromUtf8(error.what());
}
