// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QStringList>
#include <memory>

class Archive;
class ArchiveUnit;
class NoCoreDumps;
class cBlowfish;

// The master password: how it is stored, and the state of the session. The program has one. The master password is
// the key of every account's user name and password; in the archive it lies enciphered with a fixed key.
class modPassword {
public:
    static constexpr qsizetype minimumLength = 6; // characters of a master password

    modPassword(Archive& archive, cBlowfish& cipher); // both outlive it
    ~modPassword(); // locks
    modPassword(const modPassword&) = delete;
    modPassword& operator=(const modPassword&) = delete;

    // --- Storage: the row 'MasterPwd' of tab_option ------------------------------------------------------------
    static constexpr char16_t noRow[] = u"fail";
    QString ReadMasterPwd(); // the stored text, "" for Null, `noRow` without a row; throws jet::Error
    bool InsertMasterPwd(); // an empty row; false on an error: lastError() has it
    int UpdateMasterPwd(const QString& text); // -1 on success; 0 on an error or without a row: lastError() has it
    void DeleteMasterPwd(); // throws jet::Error
    // Delete and insert as one: when the insert fails (false), the old row is still there. Locks. Throws jet::Error.
    bool ResetMasterPwd();

    // --- Session -----------------------------------------------------------------------------------------------
    // True from a right or a newly chosen password until lock(), while the program stays with the same archive.
    bool isUnlocked() const;
    void lock(); // forgets and wipes the session's password and the cipher's key
    // The session's password is still the one in the archive (it is not when the file was replaced). Throws jet::Error.
    bool matchesArchive();

    void setStoredText(const QString& text) { m_storedText = text; } // as read at opening
    const QString& storedText() const { return m_storedText; }
    // Compares with the password in storedText(); the right one unlocks.
    bool Unlock(const QString& typed);

    enum class Choice { Saved, SelfCheckFailed, NotSaved };
    // Stores a new master password; Saved unlocks with it. It does not touch the accounts. Otherwise nothing is stored.
    Choice ChooseMasterPassword(const QString& password);
    // Stores a new master password and enciphers every account under it instead of the session's, which must be
    // unlocked; then it is the session's. All of that or, when it is not Saved or throws, nothing of it. The accounts'
    // values are joined and split again at "|": readChangeRisks() tells whom that hits.
    Choice ChangeMasterPassword(const QString& password);

    // --- Texts --------------------------------------------------------------------------------------------------
    // A user name or password to and from its stored form, under the session's password. Enciphering throws
    // std::runtime_error while the vault is locked; deciphering gives "" then. What was enciphered under another
    // password, or is no hexadecimal text, gives garbage or "". `wasWhole` tells: false for garbage, true for "" as
    // stored text. wipe() the result when it is no longer needed (desktop/SecretMemory.h).
    QString EncryptEntry(const QString& text);
    QString DecryptEntry(const QString& hex, bool* wasWhole = nullptr);
    QString DecryptMasterPwd(const QString& hex, bool* wasWhole = nullptr); // under the fixed key

    static QString HexEncode(const QByteArray& bytes, const QString& between); // two upper-case digits a byte
    // The digits 0-9 and A-F in pairs; every other character, lower-case letters too, only separates. A last single
    // digit is dropped.
    static QByteArray HexDecode(const QString& text);

    const QString& lastError() const { return m_lastError; }
    Archive& archive() const { return m_archive; }

private:
    Choice storeMasterPassword(ArchiveUnit& unit, const QString& password); // leaves the session alone
    void startSession(const QString& password);
    QString collectVault(ArchiveUnit& unit);
    void rewriteVault(ArchiveUnit& unit, const QString& collected, const QString& password);
    QString encrypt(const QString& text, const QString& key);
    QString decrypt(const QString& hex, const QString& key, bool* wasWhole);

    Archive& m_archive;
    cBlowfish& m_cipher;
    QString m_storedText;
    QString m_sessionPassword;
    QString m_unlockedPath; // of the archive that was unlocked
    bool m_isUnlocked = false;
    std::unique_ptr<NoCoreDumps> m_noCoreDumps;
    QString m_lastError;
};

// The titles of the accounts that a change of the master password would damage. An account may be in both lists.
struct ChangeRisks {
    QStringList withBar; // a value has the "|" at which the change splits
    QStringList unreadable; // a value is not enciphered under the session's password

    bool isEmpty() const { return withBar.isEmpty() && unreadable.isEmpty(); }
    QString question() const; // to ask before anything is written; names at most ten accounts of each kind
};

// The vault must be unlocked. Throws jet::Error.
ChangeRisks readChangeRisks(modPassword& passwords);

// A password that nobody can guess, from the system's source of secrets: `length` characters (4 or more) of small and
// capital letters, digits and signs, at least one of each kind. None that is easily taken for another (l and 1, O and
// 0), and no sign that forms or shells refuse often. 20 characters are worth about 120 bits. The caller wipes it.
QString generatePassword(qsizetype length = 20);
