// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The change of the master password.
#include "vault/modPassword.h"

#include "archive/Archive.h"
#include "desktop/SecretMemory.h"

#include <stdexcept>
#include <vector>

using namespace Qt::StringLiterals;

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
        unit.Execute(u" UPDATE tab_password SET  tab_password.userName  =  '"_s + encrypted(parts[i + 1]) + u"' , "_s +
                     u"tab_password.password = '"_s + encrypted(parts[i + 2]) + u"' "_s + //
                     u" WHERE passwordID = "_s + QString::number(identifierOf(parts[i])) + u" "_s);
}
