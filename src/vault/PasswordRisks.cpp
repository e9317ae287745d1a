// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "vault/PasswordRisks.h"

#include "archive/Archive.h"
#include "desktop/SecretMemory.h"
#include "vault/modPassword.h"

using namespace Qt::StringLiterals;

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
