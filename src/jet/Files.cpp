// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "jet/Files.h"

#include "jet/Value.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStorageInfo>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace jet {
namespace {

[[noreturn]] void failWithSystem(const QString& what)
{
    throw Error(what + u": "_s + qt_error_string(errno) + u'.');
}

} // namespace

void createEmptyFile(const QString& path)
{
    const int descriptor = open(QFile::encodeName(path).constData(), O_CREAT | O_EXCL | O_RDWR | O_CLOEXEC, 0666);
    if (descriptor < 0)
        failWithSystem(u"Could not create the file '%1'"_s.arg(path));
    close(descriptor);
}

void syncFile(const QString& path)
{
    const int descriptor = open(QFile::encodeName(path).constData(), O_RDWR | O_CLOEXEC);
    if (descriptor < 0)
        failWithSystem(u"Could not open '%1'"_s.arg(path));
    const bool synced = fsync(descriptor) == 0;
    const int error = errno;
    close(descriptor);
    errno = error;
    if (!synced)
        failWithSystem(u"Could not write '%1' to the disk"_s.arg(path));
}

void syncFolderOf(const QString& path) noexcept
{
    const int descriptor =
        open(QFile::encodeName(QFileInfo(path).absolutePath()).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0)
        return;
    fsync(descriptor);
    close(descriptor);
}

bool linkFile(const QString& from, const QString& to)
{
    if (link(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) == 0)
        return true;
    if (errno == EEXIST || QFile::exists(to))
        return false;
    if (!QFile::copy(from, to)) // a file system without links
        throw Error(u"Could not keep a copy of '%1'."_s.arg(from));
    syncFile(to);
    return true;
}

void removeFile(const QString& path)
{
    if (unlink(QFile::encodeName(path).constData()) != 0 && errno != ENOENT)
        failWithSystem(u"Could not delete '%1'"_s.arg(path));
}

void replaceFile(const QString& from, const QString& to)
{
    if (std::rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) != 0)
        failWithSystem(u"Could not replace '%1'"_s.arg(to));
}

void giveModeAndOwner(const QString& like, const QString& path)
{
    struct stat status { };
    const QByteArray target = QFile::encodeName(path);
    if (stat(QFile::encodeName(like).constData(), &status) != 0)
        failWithSystem(u"Could not read '%1'"_s.arg(like));
    if (chown(target.constData(), status.st_uid, status.st_gid) != 0 && errno != EPERM)
        failWithSystem(u"Could not set the owner of '%1'"_s.arg(path));
    if (chmod(target.constData(), status.st_mode & 07777) != 0)
        failWithSystem(u"Could not set the permissions of '%1'"_s.arg(path));
}

qint64 freeBytesBeside(const QString& path)
{
    return QStorageInfo(QFileInfo(path).absolutePath()).bytesAvailable();
}

QString realPath(const QString& path)
{
    const QFileInfo info(path);
    if (const QString real = info.canonicalFilePath(); !real.isEmpty())
        return real;
    const QString folder = QFileInfo(info.absolutePath()).canonicalFilePath();
    return folder.isEmpty() ? info.absoluteFilePath() : QDir(folder).filePath(info.fileName());
}

} // namespace jet
