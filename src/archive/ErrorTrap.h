// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <exception>
#include <optional>

class Questions;

// "Error in " + routine + ": " + description, with the critical icon.
void reportError(Questions& questions, const QString& routine, const QString& description);

// The description of an exception as the user reads it.
QString describeError(const std::exception& error);

// The one error trap of a routine. Runs `body`; an exception is shown under the routine's name and gives false.
template <typename Body>
bool trapErrors(Questions& questions, const QString& routine, Body&& body)
{
    try {
        body();
        return true;
    } catch (const std::exception& error) {
        reportError(questions, routine, describeError(error));
        return false;
    }
}

// The trap of a routine that stays silent: an exception gives false, and its description is kept in `error`, which is
// empty otherwise.
template <typename Body>
bool keepError(QString& error, Body&& body)
{
    error.clear();
    try {
        body();
        return true;
    } catch (const std::exception& failure) {
        error = describeError(failure);
        return false;
    }
}
