// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <vector>

class Archive;
class modPassword;

// What an account shows in the password list. All texts are as stored, line breaks and all; userName and password are
// deciphered.
struct PasswordRow {
    qint32 id = 0;
    qint32 categoryID = 0; // 0: not specified
    QString title;
    QString description;
    QString userName;
    QString password;
    QString url;
};

// The accounts of a category, or all for 0, in the archive's order. The caller wipes them. Throws jet::Error.
std::vector<PasswordRow> readPasswordRows(Archive& archive, modPassword& vault, qint32 categoryID);
void wipePasswordRows(std::vector<PasswordRow>& rows); // overwrites user names and passwords, and clears

// Deletes the accounts of a list that idList() built. Throws jet::Error; nothing is deleted then.
void deletePasswords(Archive& archive, const QString& ids);

// Writes a line "user name|password|" in UTF-8, with CR LF, for each account of a list that idList() built; "------"
// stands for a Null. The file is readable by its owner only, also when one that more could read is replaced. Throws
// std::runtime_error; what was at `path` is still there then, and no half file beside it.
void exportPasswords(Archive& archive, modPassword& vault, const QString& ids, const QString& path);
