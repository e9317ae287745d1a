// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "vault/cPassword.h"

#include "archive/Archive.h"
#include "archive/ErrorTrap.h"
#include "archive/SqlText.h"
#include "desktop/Clock.h"
#include "desktop/SecretMemory.h"
#include "vault/modPassword.h"

#include <stdexcept>

using namespace Qt::StringLiterals;

cPassword::cPassword(Archive& archive, modPassword& vault) : ElementRecord(archive, u"account"_s), m_vault(vault) { }

cPassword::~cPassword()
{
    clear();
}

void cPassword::clear()
{
    PasswordID = CategoryID = m_loadedID = 0;
    for (QString* field : {&Title, &Description, &Notes, &URL, &m_loadedUserName, &m_loadedPassword})
        field->clear();
    wipe(UserName);
    wipe(Password);
    PwdDateIn = PwdDateLastMod = QDateTime();
}

bool cPassword::Load()
{
    return keepError(m_lastError, [&] {
        ArchiveUnit unit(m_archive);
        const jet::Recordset row =
            unit.Open(u" SELECT * FROM tab_Password WHERE PasswordID = "_s + QString::number(PasswordID) + u" "_s);
        if (row.eof())
            throw std::runtime_error(goneText().toStdString());
        const auto text = [&](const QString& column, QString& field) {
            if (!row.isNull(column))
                field = row.text(column);
        };
        const auto secret = [&](const QString& column, QString& field, QString& loaded) {
            loaded.clear();
            if (row.isNull(column))
                return;
            loaded = row.text(column);
            wipe(field);
            field = m_vault.DecryptEntry(loaded);
        };
        takeColumn(row, u"passwordCategoryID"_s, CategoryID);
        text(u"title"_s, Title);
        text(u"description"_s, Description);
        secret(u"userName"_s, UserName, m_loadedUserName);
        secret(u"password"_s, Password, m_loadedPassword);
        text(u"URL"_s, URL);
        text(u"notes"_s, Notes);
        takeColumn(row, u"dateIn"_s, PwdDateIn);
        takeColumn(row, u"dateLastMod"_s, PwdDateLastMod);
        m_loadedID = PasswordID;
    });
}

// What is enciphered with another password than the archive's could not be read at the next opening.
void cPassword::requireSession()
{
    if (!m_vault.isUnlocked())
        throw std::runtime_error("The password list is locked.");
    if (!m_vault.matchesArchive())
        throw std::runtime_error("The archive has another master password now. Lock the password list and open it "
                                 "again.");
}

// A text that another master password enciphered is shown as garbage. Saving the account for its title must not make
// that garbage the value for good.
QString cPassword::enciphered(const QString& text, const QString& loaded)
{
    if (m_loadedID == PasswordID && !loaded.isEmpty()) {
        QString plain = m_vault.DecryptEntry(loaded);
        const WipeAtEnd wiped(plain);
        if (plain == text)
            return loaded;
    }
    return m_vault.EncryptEntry(text);
}

bool cPassword::Save()
{
    return trapErrors(m_archive.questions(), u"Save"_s, [&] {
        requireSession();
        ArchiveUnit unit(m_archive);
        jet::Recordset row = unit.Open(u"Select * from tab_password where 1=2 "_s);
        const QDateTime now = m_archive.clock().now();
        row.AddNew({u"passwordCategoryID"_s, u"title"_s, u"description"_s, u"userName"_s, u"password"_s, u"URL"_s,
                    u"notes"_s, u"dateIn"_s, u"dateLastMod"_s},
                   {qint64(CategoryID), Title, Description, m_vault.EncryptEntry(UserName),
                    m_vault.EncryptEntry(Password), URL, Notes, now, now});
        row.Update();
        PasswordID = qint32(row.integer(u"PasswordID"_s));
    });
}

bool cPassword::Update()
{
    return keepError(m_lastError, [&] {
        requireSession();
        ArchiveUnit unit(m_archive);
        const int rows = unit.Execute(UpdateText(u"tab_password"_s)
                                          .set(u"tab_password.passwordCategoryID"_s, CategoryID)
                                          .set(u"tab_password.title"_s, Title)
                                          .set(u"tab_password.description"_s, Description)
                                          .set(u"tab_password.userName"_s, enciphered(UserName, m_loadedUserName))
                                          .set(u"tab_password.password"_s, enciphered(Password, m_loadedPassword))
                                          .set(u"tab_password.URL"_s, URL)
                                          .set(u"tab_password.dateLastMod"_s, FormatDateSQL(m_archive.clock().now()))
                                          .set(u"tab_password.notes"_s, Notes)
                                          .where(u"tab_Password.PasswordID"_s, PasswordID, u"  "_s));
        if (rows == 0) // another program deleted it: what is in the fields must not count as saved
            throw std::runtime_error(goneText().toStdString());
    });
}

qint32 cPassword::GetPasswordCount()
{
    return count(u"SELECT COUNT(passwordID) AS PasswordCount FROM tab_password  "_s, u"PasswordCount"_s);
}
