// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "explorer/ListDates.h"

#include <QHash>
#include <QLocale>

namespace {

// The locale takes microseconds a text; the days of a list repeat, and there are only so many seconds.
struct Texts {
    QLocale locale;
    QHash<qint32, QString> days, seconds;

    static Texts& current()
    {
        static thread_local Texts texts;
        if (texts.locale != QLocale() || texts.days.size() > 100000)
            texts = {};
        return texts;
    }
    const QString& day(qint32 julianDay)
    {
        QString& text = days[julianDay];
        if (text.isEmpty())
            text = locale.toString(QDate::fromJulianDay(julianDay), QLocale::ShortFormat);
        return text;
    }
    const QString& time(qint32 second)
    {
        QString& text = seconds[second];
        if (text.isEmpty())
            text = locale.toString(QTime::fromMSecsSinceStartOfDay(second * 1000), QLocale::ShortFormat);
        return text;
    }
};

} // namespace

PackedMoment packed(const jet::LocalMoment& moment)
{
    if (!moment.isValid())
        return {};
    return {qint32(moment.date.toJulianDay()), moment.time.msecsSinceStartOfDay() / 1000};
}

QString shortDate(PackedMoment moment)
{
    return moment.julianDay == 0 ? QString() : Texts::current().day(moment.julianDay);
}

QString shortMoment(PackedMoment moment)
{
    if (moment.julianDay == 0)
        return {};
    Texts& texts = Texts::current();
    return texts.day(moment.julianDay) + u' ' + texts.time(moment.second);
}
