// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "explorer/modMemoRows.h"

#include "archive/Archive.h"

#include <QHash>
#include <QLocale>

using namespace Qt::StringLiterals;

namespace {

PackedMoment pack(const jet::LocalMoment& moment)
{
    if (!moment.isValid())
        return {};
    return {qint32(moment.date.toJulianDay()), moment.time.msecsSinceStartOfDay() / 1000};
}

} // namespace

void readMemoRows(Archive& archive, qint32 categoryID, std::vector<MemoRow>& rows)
{
    ArchiveUnit unit(archive);
    jet::Recordset set = unit.Open(u" SELECT * FROM tab_memo WHERE categoryID="_s + QString::number(categoryID));
    const int id = set.index(u"memoID"_s);
    const int name = set.index(u"memoName"_s);
    const int in = set.index(u"dateIn"_s);
    const int mod = set.index(u"dateLastMod"_s);
    std::vector<MemoRow> read;
    for (; !set.eof(); set.moveNext())
        read.push_back({qint32(set.integer(id)), set.text(name), pack(set.moment(in)), pack(set.moment(mod))});
    rows.swap(read);
}

QString shortMoment(PackedMoment moment)
{
    if (moment.julianDay == 0)
        return {};
    // The locale takes microseconds a text; the days of a list repeat, and there are only so many seconds.
    static thread_local QHash<qint32, QString> days, seconds;
    static thread_local QLocale locale;
    if (locale != QLocale() || days.size() > 100000) {
        locale = QLocale();
        days.clear();
        seconds.clear();
    }
    QString& day = days[moment.julianDay];
    if (day.isEmpty())
        day = locale.toString(QDate::fromJulianDay(moment.julianDay), QLocale::ShortFormat);
    QString& second = seconds[moment.second];
    if (second.isEmpty())
        second = locale.toString(QTime::fromMSecsSinceStartOfDay(moment.second * 1000), QLocale::ShortFormat);
    return day + u' ' + second;
}

void deleteMemos(Archive& archive, const QString& ids)
{
    ArchiveUnit unit(archive);
    unit.Execute(u"DELETE * FROM tab_memo "_s + u"WHERE tab_memo.memoID IN ("_s + ids + u") "_s);
}
