// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "vault/modPassword.h"

#include "archive/Archive.h"
#include "archive/ErrorTrap.h"
#include "desktop/SecretMemory.h"
#include "vault/cBlowfish.h"

#include <QRandomGenerator>
#include <algorithm>
#include <iterator>
#include <stdexcept>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

// Every master password in every archive is enciphered with it: it must never change.
const QString fixedKey = u"tkwe52918306pv4417mbzqd60395hqxoeprjzlkaudfgnmetsowv"_s;

const QString separator = u" "_s;

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
    const int rows =
        unit.Execute(u"UPDATE tab_option SET tab_option.options = '%1'  WHERE code ='MasterPwd' "_s.arg(text));
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
    return QString::fromLatin1(bytes.toHex(' ').toUpper()).replace(u' ', between);
}

QByteArray modPassword::HexDecode(const QString& text)
{
    QByteArray digits;
    for (const QChar c : text)
        if ((c >= u'0' && c <= u'9') || (c >= u'A' && c <= u'F'))
            digits += c.toLatin1();
    digits.truncate(digits.size() / 2 * 2);
    return QByteArray::fromHex(digits);
}

// The change of the master password.
namespace {

constexpr QChar bar = u'|';

// Values that are wiped with their list.
struct SecretList {
    ~SecretList()
    {
        for (QString& value : values)
            wipe(value);
    }
    std::vector<QString> values;
};

// Each value followed by a bar, in a buffer that never grows: growing would leave copies behind.
QString joined(const SecretList& list)
{
    qsizetype size = 0;
    for (const QString& value : list.values)
        size += value.size() + 1;
    QString text;
    text.reserve(size);
    for (const QString& value : list.values)
        text.append(value).append(bar);
    return text;
}

// A bar in a value moves the ones behind it, so that anything may stand where an identifier should. Only a number as
// the program itself writes it may go into a statement.
qint64 identifierOf(QStringView text)
{
    bool isNumber = false;
    const qint64 id = text.toLongLong(&isNumber);
    if (!isNumber || QString::number(id) != text)
        throw std::runtime_error("The accounts could not be put together again, because a user name or password "
                                 "contains \"|\". Nothing was changed.");
    return id;
}

} // namespace

modPassword::Choice modPassword::ChangeMasterPassword(const QString& password)
{
    if (!isUnlocked())
        throw std::runtime_error("The vault is locked.");
    ArchiveUnit unit(m_archive);
    // Killed at any moment, the archive is whole under the one password or under the other.
    jet::Connection::Transaction everything(unit.connection());
    QString collected = collectVault(unit);
    const WipeAtEnd wiped(collected);
    const Choice choice = storeMasterPassword(unit, password);
    if (choice != Choice::Saved)
        return choice;
    rewriteVault(unit, collected, password);
    everything.commit();
    startSession(password);
    return choice;
}

QString modPassword::collectVault(ArchiveUnit& unit)
{
    jet::Recordset rows = unit.Open(u" SELECT passwordID, userName, password FROM tab_password "_s);
    const int id = rows.index(u"passwordID"_s);
    const int userName = rows.index(u"userName"_s);
    const int secret = rows.index(u"password"_s);
    SecretList list;
    for (; !rows.eof(); rows.moveNext()) {
        list.values.push_back(QString::number(rows.integer(id)));
        list.values.push_back(rows.isNull(userName) ? u"-"_s : DecryptEntry(rows.text(userName)));
        list.values.push_back(DecryptEntry(rows.text(secret)));
    }
    return joined(list);
}

// What is left over behind the last three is dropped: there is no telling whose it is.
void modPassword::rewriteVault(ArchiveUnit& unit, const QString& collected, const QString& password)
{
    const QList<QStringView> parts = QStringView(collected).split(bar);
    const auto encrypted = [&](QStringView part) {
        QString text = part.toString();
        const WipeAtEnd wiped(text);
        return encrypt(text, password);
    };
    for (qsizetype i = 0; i + 2 < parts.size(); i += 3)
        unit.Execute(u" UPDATE tab_password SET  tab_password.userName  =  '%1' , tab_password.password = '%2'  "
                     "WHERE passwordID = %3 "_s.arg(encrypted(parts[i + 1]), encrypted(parts[i + 2]),
                                                    QString::number(identifierOf(parts[i]))));
}

// What it would damage.
namespace {

constexpr qsizetype mostNamed = 10;
constexpr qsizetype longestName = 60; // characters

QString nameOf(const QString& title, qint64 id)
{
    const QString name = title.simplified();
    if (name.isEmpty())
        return u"(without title, number %1)"_s.arg(id);
    return name.size() > longestName ? name.first(longestName) + u"..."_s : name;
}

QString named(const QStringList& names)
{
    QString lines = names.first(qMin(names.size(), mostNamed)).join(u"\n   "_s);
    if (names.size() > mostNamed)
        lines += u"\n   and %1 more"_s.arg(names.size() - mostNamed);
    return u"\n   "_s + lines + u"\n\n"_s;
}

} // namespace

QString ChangeRisks::question() const
{
    QString text;
    if (!withBar.isEmpty())
        text +=
            u"These accounts have a \"|\" in the user name or password. The value would be cut there, and parts could "
            "end up in other accounts:"_s +
            named(withBar);
    if (!unreadable.isEmpty())
        text +=
            u"These accounts were stored under another master password and cannot be read. After the change not even "
            "that password would bring them back:"_s +
            named(unreadable);
    return text + u"Change the master password nevertheless?"_s;
}

ChangeRisks readChangeRisks(modPassword& passwords)
{
    ChangeRisks risks;
    ArchiveUnit unit(passwords.archive());
    jet::Recordset rows = unit.Open(u"SELECT passwordID, title, userName, password FROM tab_password "_s);
    for (; !rows.eof(); rows.moveNext()) {
        bool hasBar = false;
        bool isReadable = true;
        for (const QString& column : {u"userName"_s, u"password"_s}) {
            bool isWhole = false;
            QString value = passwords.DecryptEntry(rows.text(column), &isWhole);
            const WipeAtEnd wiped(value);
            hasBar = hasBar || value.contains(u'|');
            isReadable = isReadable && isWhole;
        }
        const QString name = nameOf(rows.text(u"title"_s), rows.integer(u"passwordID"_s));
        if (hasBar)
            risks.withBar.append(name);
        if (!isReadable)
            risks.unreadable.append(name);
    }
    return risks;
}

namespace {

constexpr QStringView kinds[] = {u"abcdefghijkmnopqrstuvwxyz", u"ABCDEFGHJKLMNPQRSTUVWXYZ", u"23456789",
                                 u"!#%+-.:=?@_"};

bool hasEveryKind(const QString& text)
{
    return std::all_of(std::begin(kinds), std::end(kinds), [&](QStringView kind) {
        return std::any_of(text.begin(), text.end(), [&](QChar c) { return kind.contains(c); });
    });
}

} // namespace

QString generatePassword(qsizetype length)
{
    QString letters;
    for (const QStringView kind : kinds)
        letters += kind;
    QString password(std::max<qsizetype>(length, std::size(kinds)), u' ');
    // Drawn anew as a whole: a place kept free for a kind would make the others easier to guess.
    while (!hasEveryKind(password))
        for (QChar& c : password)
            c = letters[QRandomGenerator::system()->bounded(letters.size())];
    return password;
}
