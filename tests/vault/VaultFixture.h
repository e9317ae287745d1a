// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/UiSupport.h"

#include "archive/cViewFilter.h"
#include "vault/cBlowfish.h"
#include "vault/cPassword.h"
#include "vault/modPassword.h"

#include <QtTest>

using namespace Qt::StringLiterals;

class VaultFrame : public FakeFrame {
public:
    void checkCommand(const QString& name, bool checked) override { checkedCommands[name] = checked; }
    void showView(const QString& name) override { views.append(name); }
    QHash<QString, bool> checkedCommands;
    QStringList views;
};

// A shell that may have no program for any link, and a file dialog that something happens behind.
class VaultShell : public ScriptedShell {
public:
    bool open(const QString& linkOrFile) override { return ScriptedShell::open(linkOrFile) && hasPrograms; }
    bool hasPrograms = true;
};
class VaultFiles : public ScriptedFiles {
public:
    std::optional<QString> saveFile(const QString& title, const QString& filter, const QString& suffix) override
    {
        behind();
        return ScriptedFiles::saveFile(title, filter, suffix);
    }
    std::function<void()> behind = [] {};
};

// An unlocked vault.
struct VaultFixture : UiFixture {
    VaultFixture()
    {
        if (vault.ChooseMasterPassword(u"master word"_s) != modPassword::Choice::Saved)
            qFatal("no master password");
        statements.clear();
    }
    qint32 add(const QString& title, const QString& userName, const QString& secret, qint32 category = 0)
    {
        cPassword row(archive, vault);
        row.Title = title;
        row.UserName = userName;
        row.Password = secret;
        row.CategoryID = category;
        if (!row.Save())
            qFatal("the account was not saved");
        return row.PasswordID;
    }
    void execute(const QString& sql) { ArchiveUnit(archive).Execute(sql); }
    void addCategory(const QString& name)
    {
        execute(u"INSERT INTO tab_passwordCategory (name, description) VALUES ('%1', 'a b')"_s.arg(name));
    }
    QString column(const char* name, qint32 id = 1)
    {
        return value(u"SELECT %1 FROM tab_password WHERE passwordID = %2"_s.arg(QLatin1String(name)).arg(id));
    }

    VaultFrame vaultFrame;
    VaultShell vaultShell;
    VaultFiles vaultFiles;
    Desktop vaultDesktop{questions, vaultFiles, vaultShell, clock, desktop.sound, desktop.printing, clipboard};
    cViewFilter filter;
    cBlowfish cipher;
    modPassword vault{archive, cipher};
    cPassword password{archive, vault};
};

template <typename Widget>
Widget& part(const QObject& window, const char* name)
{
    auto* found = window.findChild<Widget*>(QString::fromLatin1(name));
    if (!found)
        qFatal("there is no %s", name);
    return *found;
}
