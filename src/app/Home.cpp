// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/Home.h"

#include <QDir>
#include <QFile>
#include <stdexcept>

using namespace Qt::StringLiterals;

HomeFolders homeFolders(const QString& homeOption, const QString& programFolder, const QString& dataFolder)
{
    HomeFolders folders;
    if (!homeOption.isEmpty())
        folders.home = QDir(homeOption).absolutePath();
    else if (QFile::exists(programFolder + u"/snipvale.ini"_s))
        folders.home = programFolder;
    else
        folders.home = dataFolder;
    folders.home = QDir::cleanPath(folders.home);
    folders.shipped = QDir::cleanPath(programFolder + u"/../share/snipvale"_s);
    return folders;
}

void prepareHome(const HomeFolders& folders)
{
    if (QDir(folders.home).exists())
        return;
    const auto fail = [](const QString& text) { throw std::runtime_error(text.toStdString()); };
    if (!QDir().mkpath(folders.home))
        fail(u"Cannot make the folder %1."_s.arg(folders.home));
    // The settings file comes last: a home without one was left half made, and says so at the next start.
    for (const QString& name : {u"snipvale.SVA"_s, u"alert.wav"_s, u"snipvale.ini"_s}) {
        const QString target = folders.home + u'/' + name;
        QFile source(folders.shipped + u'/' + name);
        if (!source.copy(target))
            fail(u"Cannot copy %1 to %2: %3"_s.arg(source.fileName(), target, source.errorString()));
        QFile::setPermissions(target, QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup | QFile::ReadOther);
    }
}
