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
    return value.isValid() ? sqlDate(value.date()) + u' ' + sqlTime(value.time()) : QString();
}

QString sqlDate(const QDate& date)
{
    return date.isValid() ? u"%1-%2-%3"_s.arg(date.year()).arg(date.month()).arg(date.day()) : QString();
}

QString sqlTime(const QTime& time)
{
    return time.isValid() ? u"%1:%2:%3"_s.arg(time.hour()).arg(time.minute()).arg(time.second()) : QString();
}

QString sqlDateTime(const jet::LocalMoment& moment)
{
    return moment.isValid() ? sqlDate(moment.date) + u' ' + sqlTime(moment.time) : QString();
}

UpdateText::UpdateText(const QString& table, const QString& gap) : m_text(u"UPDATE "_s + table + u" SET "_s), m_gap(gap)
{
}

UpdateText& UpdateText::set(const QString& column, const QString& text)
{
    return put(column, u'\'' + quoted(text) + u'\'');
}

UpdateText& UpdateText::set(const QString& column, qint64 number)
{
    return put(column, QString::number(number));
}

UpdateText& UpdateText::setFlag(const QString& column, bool on)
{
    set(column, qint64(on));
    m_nextGap += u' ';
    return *this;
}

UpdateText& UpdateText::setDate(const QString& column, const QString& date)
{
    if (!date.isEmpty())
        return set(column, date);
    put(column, u"Null"_s);
    m_nextGap += u' ';
    return *this;
}

UpdateText& UpdateText::put(const QString& column, const QString& value)
{
    m_text += m_nextGap + column + u" = "_s + value;
    m_nextGap = m_gap;
    return *this;
}

QString UpdateText::where(const QString& key, qint64 id, const QString& end) const
{
    return m_text + end + u"WHERE ("_s + key + u" = "_s + QString::number(id) + u" ) "_s;
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
