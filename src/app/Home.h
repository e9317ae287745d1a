// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

// Where the program's own files are.
struct HomeFolders {
    QString home; // the program directory: settings, archive, sound, help
    QString shipped; // what a new home is filled from
};

// --home DIR, else the folder of the program file when it holds "snipvale.ini" (a portable copy), else the
// user's data folder.
HomeFolders homeFolders(const QString& homeOption, const QString& programFolder, const QString& dataFolder);

// Makes a home that does not exist yet and fills it from the shipped files. One that exists is left as it is.
// Throws std::runtime_error with a text for the user.
void prepareHome(const HomeFolders& folders);
