// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QSettings>
#include <QString>
#include <QStringList>
#include <QVariant>

// The program's small registry. Keys and value names match in any letter case. On a free desktop the
// run-at-start key of the local machine is the user's autostart folder (freedesktop.org Desktop Application
// Autostart Specification): a value is a .desktop file that runs the program; one that the desktop's own settings
// switched off is missing. Every other key is a section of a store file of the user. Nothing here raises an error: a
// failed write leaves what was there, a missing value reads as an empty string.
class modRegistry {
public:
    static constexpr quint32 HKEY_LOCAL_MACHINE = 0x80000002;

    // `configFolder`: the user's configuration folder ($XDG_CONFIG_HOME). `startArguments` stand behind the program
    // in an autostart entry; they are no part of the value.
    explicit modRegistry(QString configFolder, QStringList startArguments = {});

    qint32 RegLastResult = 0; // of the last call: 0 success, 2 not found, 5 refused

    bool RegKeyExists(quint32 root, const QString& key);
    QVariant GetRegValue(quint32 root, const QString& key, const QString& name);
    void SetRegValue(quint32 root, const QString& key, const QString& name, const QVariant& value);
    void DeleteRegValue(quint32 root, const QString& key, const QString& name);
    void CreateRegKey(quint32 root, const QString& key);

private:
    bool isRunKey(quint32 root, const QString& key) const;
    QString autostartFile(const QString& name) const;
    QSettings store() const;
    QString storeGroup(quint32 root, const QString& key) const;
    QString m_configFolder;
    QStringList m_startArguments;
};
