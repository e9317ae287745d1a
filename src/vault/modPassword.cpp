// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "vault/modPassword.h"

#include "archive/Archive.h"
#include "archive/ErrorTrap.h"
#include "desktop/SecretMemory.h"
#include "vault/cBlowfish.h"

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

// Every master password in every archive is enciphered with it: it must never change.
const QString fixedKey = u"tkwe52918306pv4417mbzqd60395hqxoeprjzlkaudfgnmetsowv"_s;

const QString separator = u" "_s;

int digitValue(QChar character)
{
    const char16_t c = character.unicode();
    if (c >= u'0' && c <= u'9')
        return c - u'0';
    if (c >= u'A' && c <= u'F')
        return c - u'A' + 10;
    return -1;
}

void insertRow(ArchiveUnit& unit)
{
    unit.Execute(u"INSERT INTO tab_option (code, options) VALUES ('MasterPwd', '')"_s);
}

void deleteRow(ArchiveUnit& unit)
{
    unit.Execute(u"DELETE * FROM tab_option WHERE code = 'MasterPwd'"_s);
}

// -1 on success, 0 when there is no row. The hexadecimal form has no quotes to double.
int updateRow(ArchiveUnit& unit, const QString& text)
{
    const int rows = unit.Execute(u"UPDATE tab_option SET "_s + //
                                  u"tab_option.options = '"_s + text + u"' "_s + //
                                  u" WHERE code ='MasterPwd' "_s);
    return rows > 0 ? -1 : 0;
}

} // namespace

modPassword::modPassword(Archive& archive, cBlowfish& cipher) : m_archive(archive), m_cipher(cipher) { }

modPassword::~modPassword()
{
    lock();
}

QString modPassword::ReadMasterPwd()
{
    ArchiveUnit unit(m_archive);
    const jet::Recordset row = unit.Open(u" SELECT * FROM tab_option WHERE code = 'MasterPwd'"_s);
    return row.eof() ? QString::fromUtf16(noRow) : row.text(u"options"_s);
}

bool modPassword::InsertMasterPwd()
{
    return keepError(m_lastError, [&] {
        ArchiveUnit unit(m_archive);
        insertRow(unit);
    });
}

int modPassword::UpdateMasterPwd(const QString& text)
{
    int result = 0;
    keepError(m_lastError, [&] {
        ArchiveUnit unit(m_archive);
        result = updateRow(unit, text);
    });
    if (result == 0 && m_lastError.isEmpty())
        m_lastError = u"The archive has no row for the master password."_s;
    return result;
}

void modPassword::DeleteMasterPwd()
{
    ArchiveUnit unit(m_archive);
    deleteRow(unit);
}

// The session ends with it: what it would still encipher under the forgotten password, nobody could read again.
bool modPassword::ResetMasterPwd()
{
    ArchiveUnit unit(m_archive);
    jet::Connection::Transaction both(unit.connection());
    deleteRow(unit);
    if (!keepError(m_lastError, [&] { insertRow(unit); }))
        return false;
    both.commit();
    lock();
    return true;
}

bool modPassword::isUnlocked() const
{
    return m_isUnlocked && m_unlockedPath == m_archive.ArchivePath();
}

void modPassword::lock()
{
    m_isUnlocked = false;
    wipe(m_sessionPassword);
    m_storedText.clear();
    m_cipher.setKey(QString());
    m_noCoreDumps.reset();
}

bool modPassword::matchesArchive()
{
    QString stored = DecryptMasterPwd(ReadMasterPwd());
    const WipeAtEnd wiped(stored);
    return m_isUnlocked && stored == m_sessionPassword;
}

bool modPassword::Unlock(const QString& typed)
{
    QString stored = DecryptMasterPwd(m_storedText);
    const WipeAtEnd wiped(stored);
    // A damaged text may read as nothing: nothing typed must not open the vault then.
    if (stored.isEmpty() || stored != typed)
        return false;
    startSession(typed);
    return true;
}

void modPassword::startSession(const QString& password)
{
    if (!m_noCoreDumps)
        m_noCoreDumps = std::make_unique<NoCoreDumps>();
    wipe(m_sessionPassword);
    m_sessionPassword = secretCopy(password);
    m_unlockedPath = m_archive.ArchivePath();
    m_isUnlocked = true;
}

modPassword::Choice modPassword::ChooseMasterPassword(const QString& password)
{
    Choice choice = Choice::NotSaved;
    if (!keepError(m_lastError, [&] {
            ArchiveUnit unit(m_archive);
            choice = storeMasterPassword(unit, password);
        }))
        return Choice::NotSaved;
    if (choice == Choice::Saved)
        startSession(password);
    return choice;
}

modPassword::Choice modPassword::storeMasterPassword(ArchiveUnit& unit, const QString& password)
{
    const QString text = encrypt(password, fixedKey);
    QString check = DecryptMasterPwd(text);
    const WipeAtEnd wiped(check);
    if (check != password)
        return Choice::SelfCheckFailed;
    int result = 0;
    keepError(m_lastError, [&] { result = updateRow(unit, text); });
    return result == -1 ? Choice::Saved : Choice::NotSaved;
}

QString modPassword::EncryptEntry(const QString& text)
{
    if (!isUnlocked())
        throw std::runtime_error("The vault is locked.");
    return encrypt(text, m_sessionPassword);
}

QString modPassword::DecryptEntry(const QString& hex, bool* wasWhole)
{
    if (wasWhole)
        *wasWhole = hex.isEmpty();
    return isUnlocked() && !hex.isEmpty() ? decrypt(hex, m_sessionPassword, wasWhole) : QString();
}

QString modPassword::DecryptMasterPwd(const QString& hex, bool* wasWhole)
{
    return decrypt(hex, fixedKey, wasWhole);
}

QString modPassword::encrypt(const QString& text, const QString& key)
{
    return HexEncode(m_cipher.EncryptString(text, key).toLatin1(), separator);
}

QString modPassword::decrypt(const QString& hex, const QString& key, bool* wasWhole)
{
    return m_cipher.DecryptString(QString::fromLatin1(HexDecode(hex)), key, wasWhole);
}

QString modPassword::HexEncode(const QByteArray& bytes, const QString& between)
{
    QString text;
    text.reserve(bytes.size() * (2 + between.size()));
    for (const char byte : bytes) {
        if (!text.isEmpty())
            text += between;
        text += QChar(u"0123456789ABCDEF"[quint8(byte) >> 4]);
        text += QChar(u"0123456789ABCDEF"[quint8(byte) & 15]);
    }
    return text;
}

QByteArray modPassword::HexDecode(const QString& text)
{
    QByteArray bytes;
    bytes.reserve(text.size() / 2);
    int high = -1;
    for (const QChar character : text) {
        const int value = digitValue(character);
        if (value < 0)
            continue;
        if (high >= 0)
            bytes += char(high << 4 | value);
        high = high >= 0 ? -1 : value;
    }
    return bytes;
}
