// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "archive/SqlText.h"

#include "jet/TextRules.h"

#include <string_view>

using namespace Qt::StringLiterals;

QString quoted(const QString& text)
{
    QString doubled = text;
    return doubled.replace(u'\'', u"''"_s);
}

QString FormatDateSQL(const QDateTime& value)
{
    if (!value.isValid())
        return {};
    const QDate d = value.date();
    const QTime t = value.time();
    return u"%1-%2-%3 %4:%5:%6"_s.arg(d.year())
        .arg(d.month())
        .arg(d.day())
        .arg(t.hour())
        .arg(t.minute())
        .arg(t.second());
}

QString idList(const std::vector<qint32>& ids)
{
    QString list;
    for (const qint32 id : ids)
        list += u", "_s + QString::number(id);
    return list.mid(1);
}

qint32 leadingNumber(const QString& key)
{
    qsizetype digits = 0;
    while (digits < key.size() && (key[digits].isDigit() || (digits == 0 && key[0] == u'-')))
        ++digits;
    return key.first(digits).toInt();
}

int compareNames(const QString& a, const QString& b)
{
    const QByteArray x = a.toUtf8();
    const QByteArray y = b.toUtf8();
    return jet::compareText(std::string_view(x.constData(), size_t(x.size())),
                            std::string_view(y.constData(), size_t(y.size())));
}
