// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "archive/ElementRecord.h"

class modPassword;

// The record of one account; the only place that reads and writes rows of tab_password one by one. The program has
// one, reused for each account that is opened. UserName and Password are plain text here and enciphered in the
// archive. Fields are plain, nothing validates them. Each method opens the archive for itself.
class cPassword final : public ElementRecord {
public:
    cPassword(Archive& archive, modPassword& vault); // both outlive it
    ~cPassword() override; // wipes the secrets
    cPassword(const cPassword&) = delete;
    cPassword& operator=(const cPassword&) = delete;

    qint32 PasswordID = 0;
    qint32 CategoryID = 0; // 0: not specified
    QString Title;
    QString Description;
    QString UserName;
    QString Password;
    QString Notes;
    QString URL;
    QDateTime PwdDateIn;
    QDateTime PwdDateLastMod;

    qint32& key() override { return PasswordID; }
    void clear() override; // the secrets are wiped
    // Reads row PasswordID; a field is left alone where the row has Null. An error, also that the row is gone, gives
    // false, without a message: lastError() has it.
    bool Load() override;
    // Inserts a row, both dates now, and sets PasswordID to its key. An error, also that the vault is locked, is shown
    // and gives false.
    bool Save() override;
    // Writes row PasswordID, its last date now. An error, also that the row is gone or the vault locked, gives false,
    // without a message: lastError() has it. A user name or password that is still as it was loaded keeps its
    // enciphered text.
    bool Update() override;
    qint32 GetPasswordCount(); // 0 on an error, without a message

private:
    void requireSession();
    QString enciphered(const QString& text, const QString& loaded);

    modPassword& m_vault;
    qint32 m_loadedID = 0; // the row that the two texts below are of
    QString m_loadedUserName; // enciphered
    QString m_loadedPassword;
};
