// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/modRegistry.h"

#include <QDir>
#include <QFile>
#include <QSaveFile>

using namespace Qt::StringLiterals;

namespace {

constexpr qint32 success = 0;
constexpr qint32 notFound = 2;
constexpr qint32 refused = 5;

// Values of a desktop entry (freedesktop.org Desktop Entry Specification, "Possible value types").
QString escapedValue(QString text)
{
    return text.replace(u'\\', u"\\\\"_s).replace(u'\n', u"\\n"_s).replace(u'\r', u"\\r"_s).replace(u'\t', u"\\t"_s);
}

QString unescapedValue(const QString& text)
{
    QString plain;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i] != u'\\' || i + 1 == text.size()) {
            plain += text[i];
            continue;
        }
        const QChar code = text[++i];
        plain += code == u'n' ? u'\n' : code == u'r' ? u'\r' : code == u't' ? u'\t' : code == u's' ? u' ' : code;
    }
    return plain;
}

// An argument of an Exec line, quoted as the same specification wants it ("The Exec key").
QString execArgument(const QString& argument)
{
    QString inside;
    for (const QChar c : argument) {
        if (u"\"`$\\"_s.contains(c))
            inside += u'\\';
        inside += c;
    }
    return u'"' + inside.replace(u'%', u"%%"_s) + u'"';
}

// The first argument of an Exec line.
QString programOf(const QString& value)
{
    QString exec = unescapedValue(value);
    exec.replace(u"%%"_s, u"%"_s);
    if (!exec.startsWith(u'"'))
        return exec.section(u' ', 0, 0);
    QString program;
    for (qsizetype i = 1; i < exec.size() && exec[i] != u'"'; ++i) {
        if (exec[i] == u'\\' && i + 1 < exec.size())
            ++i;
        program += exec[i];
    }
    return program;
}

// The program of an autostart entry, invalid when the entry does not start it.
QVariant programOfEntry(const QString& file)
{
    QFile entry(file);
    if (!entry.open(QIODevice::ReadOnly))
        return {};
    QVariant program;
    for (const QByteArray& bytes : entry.readAll().split('\n')) {
        const QString line = QString::fromUtf8(bytes).trimmed();
        const QString key = line.section(u'=', 0, 0).trimmed();
        const QString value = line.section(u'=', 1).trimmed();
        if (line.startsWith(u'[') && line != "[Desktop Entry]"_L1)
            break; // an additional action
        if ((key == "Hidden"_L1 && value == "true"_L1) ||
            (key == "X-GNOME-Autostart-enabled"_L1 && value == "false"_L1))
            return {};
        if (key == "Exec"_L1)
            program = programOf(value);
    }
    return program;
}

} // namespace

modRegistry::modRegistry(QString configFolder, QStringList startArguments)
    : m_configFolder(std::move(configFolder)), m_startArguments(std::move(startArguments))
{
}

bool modRegistry::isRunKey(quint32 root, const QString& key) const
{
    return root == HKEY_LOCAL_MACHINE &&
        key.compare("Software\\Microsoft\\Windows\\CurrentVersion\\Run"_L1, Qt::CaseInsensitive) == 0;
}

QString modRegistry::autostartFile(const QString& name) const
{
    return m_configFolder + u"/autostart/"_s + name.toLower() + u".desktop"_s;
}

QSettings modRegistry::store() const
{
    return QSettings(m_configFolder + u"/snipvale/registry.ini"_s, QSettings::IniFormat);
}

QString modRegistry::storeGroup(quint32 root, const QString& key) const
{
    return QString::number(root, 16) + u'/' + key.toLower().replace(u'\\', u'/');
}

bool modRegistry::RegKeyExists(quint32 root, const QString& key)
{
    bool isThere = isRunKey(root, key);
    if (!isThere) {
        QSettings settings = store();
        settings.beginGroup(storeGroup(root, key));
        isThere = !settings.allKeys().isEmpty();
    }
    RegLastResult = isThere ? success : notFound;
    return isThere;
}

QVariant modRegistry::GetRegValue(quint32 root, const QString& key, const QString& name)
{
    QVariant value;
    if (isRunKey(root, key)) {
        value = programOfEntry(autostartFile(name));
    } else {
        value = store().value(storeGroup(root, key) + u"/="_s + name.toLower());
    }
    RegLastResult = value.isValid() ? success : notFound;
    return value.isValid() ? value : QVariant(QString());
}

void modRegistry::SetRegValue(quint32 root, const QString& key, const QString& name, const QVariant& value)
{
    bool isWritten = false;
    if (isRunKey(root, key)) {
        QDir().mkpath(m_configFolder + u"/autostart"_s);
        QSaveFile entry(autostartFile(name));
        QString exec = execArgument(value.toString());
        for (const QString& argument : m_startArguments)
            exec += u' ' + execArgument(argument);
        const QString text = u"[Desktop Entry]\nType=Application\nName="_s + name + u"\nExec="_s + escapedValue(exec) +
            u"\nIcon=snipvale\nTerminal=false\n"_s;
        isWritten =
            entry.open(QIODevice::WriteOnly) && entry.write(text.toUtf8()) > 0 && entry.flush() && entry.commit();
    } else {
        QSettings settings = store();
        settings.setValue(storeGroup(root, key) + u"/="_s + name.toLower(), value);
        settings.sync();
        isWritten = settings.status() == QSettings::NoError;
    }
    RegLastResult = isWritten ? success : refused;
}

void modRegistry::DeleteRegValue(quint32 root, const QString& key, const QString& name)
{
    if (!RegKeyExists(root, key))
        return;
    if (isRunKey(root, key)) {
        RegLastResult = QFile::remove(autostartFile(name)) ? success : notFound;
        return;
    }
    QSettings settings = store();
    const QString path = storeGroup(root, key) + u"/="_s + name.toLower();
    RegLastResult = settings.contains(path) ? success : notFound;
    settings.remove(path);
}

void modRegistry::CreateRegKey(quint32 root, const QString& key)
{
    if (isRunKey(root, key)) {
        RegLastResult = QDir().mkpath(m_configFolder + u"/autostart"_s) ? success : refused;
        return;
    }
    QSettings settings = store();
    settings.setValue(storeGroup(root, key) + u"/@"_s, QString());
    settings.sync();
    RegLastResult = settings.status() == QSettings::NoError ? success : refused;
}
