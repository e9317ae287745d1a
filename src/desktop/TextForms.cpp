// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/TextForms.h"

#include <QHash>
#include <QLocale>
#include <QStringDecoder>

using namespace Qt::StringLiterals;

namespace {

// The locale takes microseconds a text; the days of a list repeat, and there are only so many seconds.
struct Texts {
    QLocale locale;
    QHash<qint64, QString> days;
    QHash<int, QString> seconds;

    static Texts& current()
    {
        static thread_local Texts texts;
        if (texts.locale != QLocale() || texts.days.size() > 100000)
            texts = {};
        return texts;
    }
    const QString& day(const QDate& date)
    {
        QString& text = days[date.toJulianDay()];
        if (text.isEmpty())
            text = locale.toString(date, QLocale::ShortFormat);
        return text;
    }
    const QString& second(const QTime& time)
    {
        QString& text = seconds[time.msecsSinceStartOfDay() / 1000];
        if (text.isEmpty())
            text = locale.toString(time, QLocale::ShortFormat);
        return text;
    }
};

} // namespace

QString shortDate(const QDate& date)
{
    return date.isValid() ? Texts::current().day(date) : QString();
}

QString shortMoment(const QDate& date, const QTime& time)
{
    if (!date.isValid())
        return {};
    Texts& texts = Texts::current();
    return texts.day(date) + u' ' + texts.second(time);
}

QString shortMoment(const QDateTime& moment)
{
    return shortMoment(moment.date(), moment.time());
}

bool isWebAddress(const QString& text)
{
    return text.startsWith("http://"_L1) || text.startsWith("https://"_L1);
}

QString westernText(const QByteArray& bytes)
{
    static thread_local QStringDecoder decoder("windows-1252", QStringConverter::Flag::Stateless);
    return decoder(bytes);
}
