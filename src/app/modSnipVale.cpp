// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/modSnipVale.h"

#include "app/Settings.h"
#include "archive/ErrorTrap.h"
#include "desktop/Desktop.h"
#include "desktop/Questions.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStringList>
#include <cerrno>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

// example is a name that nobody can register: to be replaced when the product has a site.
constexpr char homePage[] = "https://snipvale.example/";

qsizetype lastSeparator(const QString& path)
{
    return std::max(path.lastIndexOf(u'/'), path.lastIndexOf(u'\\'));
}

} // namespace

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

modSnipVale::modSnipVale(Questions& questions, const Clock& clock, Shell& shell)
    : archive(questions, clock), m_questions(questions), m_shell(shell)
{
}

QString modSnipVale::shippedFile(const QString& name) const
{
    return AppPath + u'/' + name;
}

bool modSnipVale::ReadSettings()
{
    try {
        IniFile = shippedFile(u"snipvale.ini"_s);
        if (!QFile::exists(IniFile)) {
            m_questions.ask(u"I cannot read ini file.\r\nCheck presence of file .ini in program directory!"_s,
                            MessageStyle::Critical);
            programEnds = true;
            return false;
        }
        errno = 0;
        readArchivePath();
    } catch (const std::exception& error) {
        m_questions.ask(u"Error n° "_s + QString::number(errno) + u'\r' + describeError(error) + u" in ReadSettings"_s,
                        MessageStyle::Critical);
        return false;
    }
    if (!QFileInfo(archive.ArchivePath()).isFile())
        m_questions.ask(u"Specified archive file does not exist. Check menu tools->options"_s, MessageStyle::Critical);
    const QString look = readProfile(IniFile, u"preferences"_s, u"xplook"_s, {});
    XPLook = !look.isEmpty() && textToBoolean(look);
    return true;
}

// A name without a separator is a file of the program directory. Without the key the archive is the settings file
// itself: it exists, and the first access to it says that it is no archive.
void modSnipVale::readArchivePath()
{
    const QString path = readProfile(IniFile, u"setup"_s, u"dbfullpath"_s, u"snipvale.ini"_s);
    archive.setPath(lastSeparator(path) < 0 ? shippedFile(path) : path);
}

void modSnipVale::HelpWeb()
{
    trapErrors(m_questions, u"HelpWeb"_s, [&] {
        if (!m_shell.open(QLatin1StringView(homePage)))
            throw std::runtime_error("No program is set up to open web pages.");
    });
}

QString modSnipVale::helpFolder() const
{
    QStringList folders{shippedFile(u"help"_s)};
    if (!ShippedPath.isEmpty())
        folders.append(ShippedPath + u"/help"_s);
    for (const QString& folder : folders)
        if (QFile::exists(folder + u"/index.html"_s))
            return folder;
    throw std::runtime_error(u"The manual was not found in %1."_s.arg(folders.join(u" or "_s)).toStdString());
}

QString modSnipVale::captionAtStart() const
{
    const QString path = archive.ArchivePath();
    return u" SnipVale " SNIPVALE_VERSION " - ["_s + path.mid(lastSeparator(path) + 1) + u']';
}

QString modSnipVale::captionWithPath() const
{
    return u"SnipVale " SNIPVALE_VERSION "  ["_s + archive.ArchivePath() + u']';
}
