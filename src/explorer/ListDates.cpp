// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "explorer/ListDates.h"

#include "desktop/TextForms.h"

PackedMoment packed(const jet::LocalMoment& moment)
{
    if (!moment.isValid())
        return {};
    return {qint32(moment.date.toJulianDay()), moment.time.msecsSinceStartOfDay() / 1000};
}

QString shortDate(PackedMoment moment)
{
    return moment.julianDay == 0 ? QString() : shortDate(QDate::fromJulianDay(moment.julianDay));
}

QString shortMoment(PackedMoment moment)
{
    return moment.julianDay == 0
        ? QString()
        : shortMoment(QDate::fromJulianDay(moment.julianDay), QTime::fromMSecsSinceStartOfDay(moment.second * 1000));
}
