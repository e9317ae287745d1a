// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/modRegistry.h"

#include <QDir>
#include <QFile>
#include <QSaveFile>
#include <QSettings>

using namespace Qt::StringLiterals;

namespace {

constexpr qint32 success = 0;
constexpr qint32 notFound = 2;
constexpr qint32 refused = 5;

// The Exec line quotes and escapes as the Desktop Entry Specification wants it; reading undoes that.
QString execLine(const QString& program)
{
    QString escaped;
    for (const QChar c : program) {
        if (u"\"`$\\"_s.contains(c))
            escaped += u'\\';
        escaped += c;
    }
    return u'"' + escaped.replace(u'\\', u"\\\\"_s).replace(u'%', u"%%"_s) + u'"';
}

QString programOf(QString exec)
{
    exec.replace(u"\\\\"_s, u"\\"_s).replace(u"%%"_s, u"%"_s);
    if (exec.size() < 2 || !exec.startsWith(u'"'))
        return exec;
    QString program;
    for (qsizetype i = 1; i < exec.size() && exec[i] != u'"'; ++i) {
        if (exec[i] == u'\\')
            ++i;
        if (i < exec.size())
            program += exec[i];
    }
    return program;
}

} // namespace

modRegistry::modRegistry(QString configFolder) : m_configFolder(std::move(configFolder)) { }

bool modRegistry::isRunKey(quint32 root, const QString& key) const
{
    return root == HKEY_LOCAL_MACHINE &&
        key.compare("Software\\Microsoft\\Windows\\CurrentVersion\\Run"_L1, Qt::CaseInsensitive) == 0;
}

QString modRegistry::autostartFile(const QString& name) const
{
    return m_configFolder + u"/autostart/"_s + name.toLower() + u".desktop"_s;
}

QString modRegistry::storeGroup(quint32 root, const QString& key) const
{
    return QString::number(root, 16) + u'/' + key.toLower().replace(u'\\', u'/');
}

bool modRegistry::RegKeyExists(quint32 root, const QString& key)
{
    bool exists = isRunKey(root, key);
    if (!exists) {
        QSettings store(m_configFolder + u"/snipvale/registry.ini"_s, QSettings::IniFormat);
        store.beginGroup(storeGroup(root, key));
        exists = !store.allKeys().isEmpty();
    }
    RegLastResult = exists ? success : notFound;
    return exists;
}

QVariant modRegistry::GetRegValue(quint32 root, const QString& key, const QString& name)
{
    QVariant value;
    if (isRunKey(root, key)) {
        QFile entry(autostartFile(name));
        if (entry.open(QIODevice::ReadOnly)) {
            for (const QByteArray& line : entry.readAll().split('\n'))
                if (line.startsWith("Exec="))
                    value = programOf(QString::fromUtf8(line.mid(5).trimmed()));
        }
    } else {
        QSettings store(m_configFolder + u"/snipvale/registry.ini"_s, QSettings::IniFormat);
        value = store.value(storeGroup(root, key) + u"/="_s + name.toLower());
    }
    RegLastResult = value.isValid() ? success : notFound;
    return value.isValid() ? value : QVariant(QString());
}

void modRegistry::SetRegValue(quint32 root, const QString& key, const QString& name, const QVariant& value)
{
    bool written = false;
    if (isRunKey(root, key)) {
        QDir().mkpath(m_configFolder + u"/autostart"_s);
        QSaveFile entry(autostartFile(name));
        const QString text = u"[Desktop Entry]\nType=Application\nName="_s + name + u"\nExec="_s +
            execLine(value.toString()) + u"\nIcon=snipvale\nTerminal=false\n"_s;
        written = entry.open(QIODevice::WriteOnly) && entry.write(text.toUtf8()) > 0 && entry.commit();
    } else {
        QSettings store(m_configFolder + u"/snipvale/registry.ini"_s, QSettings::IniFormat);
        store.setValue(storeGroup(root, key) + u"/="_s + name.toLower(), value);
        store.sync();
        written = store.status() == QSettings::NoError;
    }
    RegLastResult = written ? success : refused;
}

void modRegistry::DeleteRegValue(quint32 root, const QString& key, const QString& name)
{
    if (!RegKeyExists(root, key))
        return;
    if (isRunKey(root, key)) {
        RegLastResult = QFile::remove(autostartFile(name)) ? success : notFound;
        return;
    }
    QSettings store(m_configFolder + u"/snipvale/registry.ini"_s, QSettings::IniFormat);
    const QString path = storeGroup(root, key) + u"/="_s + name.toLower();
    RegLastResult = store.contains(path) ? success : notFound;
    store.remove(path);
}

void modRegistry::CreateRegKey(quint32 root, const QString& key)
{
    if (isRunKey(root, key)) {
        RegLastResult = QDir().mkpath(m_configFolder + u"/autostart"_s) ? success : refused;
        return;
    }
    QSettings store(m_configFolder + u"/snipvale/registry.ini"_s, QSettings::IniFormat);
    store.setValue(storeGroup(root, key) + u"/@"_s, QString());
    store.sync();
    RegLastResult = store.status() == QSettings::NoError ? success : refused;
}
