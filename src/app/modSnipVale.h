// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "archive/Archive.h"

#include <QString>

class Shell;

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

// The program-wide state and the routines of the start that need no window.
class modSnipVale {
public:
    modSnipVale(Questions& questions, const Clock& clock, Shell& shell);

    QString AppPath; // the program directory, without a separator at its end; set before ReadSettings
    QString ShippedPath; // what comes with the program and is not copied into its directory; may be empty
    QString IniFile;
    bool XPLook = false;
    Archive archive;

    // Fills everything above from "snipvale.ini". False when it could not; the message was shown. `programEnds`
    // is then set when there is nothing more to say. An `xplook` that is no boolean throws.
    bool ReadSettings();
    bool programEnds = false;

    void HelpWeb();
    // Where the manual is: "help" in the program directory, else among what was shipped. Throws std::runtime_error
    // when it is in neither.
    QString helpFolder() const;

    QString captionAtStart() const; // " SnipVale 3.1.12 - [mine.sva]"
    QString captionWithPath() const; // "SnipVale 3.1.12  [/data/mine.sva]"
    QString shippedFile(const QString& name) const; // in the program directory

private:
    void readArchivePath();
    Questions& m_questions;
    Shell& m_shell;
};
