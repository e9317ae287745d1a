// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/CoreSupport.h"

#include "vault/cBlowfish.h"
#include "vault/cPassword.h"
#include "vault/modPassword.h"

#include <QtTest>

using namespace Qt::StringLiterals;

// An unlocked vault, beside what its base has.
template <typename Base>
struct VaultOn : Base {
    VaultOn()
    {
        if (vault.ChooseMasterPassword(u"master word"_s) != modPassword::Choice::Saved)
            qFatal("no master password");
        this->statements.clear();
    }
    qint32 add(const QString& title, const QString& userName, const QString& secret, qint32 category = 0)
    {
        cPassword row(this->archive, vault);
        row.Title = title;
        row.UserName = userName;
        row.Password = secret;
        row.CategoryID = category;
        if (!row.Save())
            qFatal("the account was not saved");
        return row.PasswordID;
    }
    void execute(const QString& sql) { ArchiveUnit(this->archive).Execute(sql); }
    void addCategory(const QString& name)
    {
        execute(u"INSERT INTO tab_passwordCategory (name, description) VALUES ('%1', 'a b')"_s.arg(name));
    }
    QString column(const char* name, qint32 id = 1)
    {
        return this->value(u"SELECT %1 FROM tab_password WHERE passwordID = %2"_s.arg(QLatin1String(name)).arg(id));
    }

    cBlowfish cipher;
    modPassword vault{this->archive, cipher};
    cPassword password{this->archive, vault};
};
using VaultFixture = VaultOn<StartedArchive>;
