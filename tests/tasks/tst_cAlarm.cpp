// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Registry.h"
#include "tasks/AlarmFixture.h"

#include "tasks/cAlarm.h"
#include "tasks/modSound.h"

#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

// A screen that only remembers. It opens as the real one does: the row is read again.
class FakeForms : public AlarmForms {
public:
    explicit FakeForms(Archive& archive) : m_archive(archive) { }
    bool isOpen(qint32 id) const override { return opened.contains(id); }
    bool hasRoom() const override { return opened.size() < room; }
    bool open(qint32 id) override
    {
        const std::optional<AlarmRow> row = readAlarm(m_archive, id);
        if (!row || !row->isDue)
            return false;
        opened.append(id);
        seen.append(id);
        return true;
    }
    QList<qint32> opened;
    QList<qint32> seen; // all that ever opened
    qsizetype room = 1000;

private:
    Archive& m_archive;
};

struct Checked : AlarmFixture {
    void check()
    {
        cAlarm(archive, queue).Alarm();
        while (queue.openNext()) { }
    }
    FakeForms forms{archive};
    int alerts = 0;
    cAlarmQueue queue{forms, questions, [this] { ++alerts; }};
};

QDateTime day(int year, int month, int day, int hour, int minute, int second = 0)
{
    return QDateTime(QDate(year, month, day), QTime(hour, minute, second));
}

} // namespace

class tst_cAlarm : public QObject {
    Q_OBJECT
private slots:
    void whatIsDue();
    void answersAndNone();
    void manyAtOnce();
    void thoseThatWaitAreStillDue();
    void zonesAndClocks();
    void failuresAreToldOnce();
    void sounds();
};

void tst_cAlarm::whatIsDue()
{
    Checked f; // it is 4 March 2026, 09:05:00
    const qint32 lastSecond = f.add(day(2026, 3, 4, 9, 4, 59));
    const qint32 longAgo = f.add(day(100, 1, 1, 0, 0));
    const qint32 off = f.add(day(2026, 3, 4, 9, 4), false);
    const qint32 none = f.add(QDateTime());
    const qint32 thisSecond = f.add(f.clock.now());
    const qint32 later = f.add(day(2026, 12, 4, 9, 5));
    f.add(day(9999, 12, 31, 23, 59, 59)); // never
    f.check();
    QCOMPARE(f.forms.seen, (QList<qint32>{lastSecond, longAgo}));
    f.clock.moment = f.clock.moment.addSecs(1);
    f.check();
    QCOMPARE(f.forms.seen.mid(2), QList<qint32>{thisSecond});
    f.clock.moment = day(9999, 12, 31, 23, 59, 59);
    f.check();
    QCOMPARE(f.forms.seen.mid(3), QList<qint32>{later});
    QVERIFY(!readAlarm(f.archive, none)->moment.isValid() && !readAlarm(f.archive, off)->isDue);
    QVERIFY(!readAlarm(f.archive, 4711).has_value());
}

void tst_cAlarm::answersAndNone()
{
    Checked f;
    const qint32 stopped = f.add(day(2026, 3, 4, 9, 0));
    const qint32 later = f.add(day(2026, 3, 4, 9, 0));
    f.check();
    f.check();
    QCOMPARE(f.forms.seen, (QList<qint32>{stopped, later})); // one form each
    QCOMPARE(f.column(u"alarmOn"_s, stopped), u"-1"_s); // the check writes nothing
    f.forms.opened.clear(); // closed without an answer: not again at once, but with the next check
    QVERIFY(!f.queue.openNext());
    f.check();
    QCOMPARE(f.forms.seen.size(), 4);
    QCOMPARE(f.alerts, 4);

    f.clock.moment = day(2026, 3, 4, 10, 0);
    UpdateAlarm(f.archive, stopped, std::nullopt);
    QCOMPARE(f.column(u"alarmOn"_s, stopped) + f.column(u"alarmDate"_s, stopped), u"0"_s);
    QCOMPARE(f.column(u"dateLastMod"_s, stopped), u"2026-03-04 10:00:00"_s);
    QCOMPARE(f.column(u"dateLastMod"_s, later), u"2026-03-04 09:05:00"_s); // only the row that was answered
    UpdateAlarm(f.archive, later, jet::LocalMoment{QDate(2028, 2, 29), QTime(0, 0, 1)});
    QCOMPARE(f.column(u"alarmDate"_s, later), u"2028-02-29 00:00:01"_s);
    QVERIFY_THROWS_EXCEPTION(std::exception, UpdateAlarm(f.archive, 77, std::nullopt));
    f.forms.opened.clear();
    f.check();
    QVERIFY(f.forms.opened.isEmpty());
    f.clock.moment = day(2028, 2, 29, 0, 0, 2);
    f.check();
    QCOMPARE(f.forms.opened, QList<qint32>{later});
}

// 500 due, room for 8: each is seen, also when the user closes them without an answer and checks go on.
void tst_cAlarm::manyAtOnce()
{
    Checked f;
    f.addMany(500);
    f.forms.room = 8;
    f.check();
    QCOMPARE(f.forms.opened.size(), 8);
    QCOMPARE(f.queue.waiting(), 492);
    QSet<qint32> seen;
    for (int i = 0; i < 500 && !f.forms.opened.isEmpty(); ++i) {
        seen.insert(f.forms.opened.takeFirst());
        f.queue.openNext();
        if (i % 3 == 0)
            f.check();
        QVERIFY(f.forms.opened.size() <= 8);
    }
    QCOMPARE(seen.size(), 500);
    QCOMPARE(QSet<qint32>(f.forms.opened.begin(), f.forms.opened.end()).size(), f.forms.opened.size());
    f.queue.clear();
    QVERIFY(!f.queue.openNext());
}

void tst_cAlarm::thoseThatWaitAreStillDue()
{
    Checked f;
    f.addMany(5);
    f.forms.room = 1;
    f.check();
    f.run(u"DELETE * FROM tab_todo WHERE todoID = 2"_s);
    f.run(u"UPDATE tab_todo SET tab_todo.alarmOn = 0 WHERE (tab_todo.todoID = 3)"_s);
    f.run(u"UPDATE tab_todo SET tab_todo.alarmDate = '2026-3-4 9:5:1' WHERE (tab_todo.todoID = 4)"_s);
    QCOMPARE(f.queue.waiting(), 4);
    f.check();
    QCOMPARE(f.queue.waiting(), 1);
    f.forms.opened.clear();
    QVERIFY(f.queue.openNext());
    QCOMPARE(f.forms.seen, (QList<qint32>{1, 5}));
    f.clock.moment = f.clock.moment.addSecs(2);
    f.forms.room = 8;
    f.check(); // the moved one is due by now
    QVERIFY(f.forms.seen.contains(4) && !f.forms.seen.contains(2) && !f.forms.seen.contains(3));
}

// Moments are those of the clock on the wall, wherever it hangs.
void tst_cAlarm::zonesAndClocks()
{
    const ZoneGuard guard;
    ZoneGuard::set("America/New_York");
    Checked f;
    const qint32 evening = f.add(day(2026, 3, 4, 20, 0));
    const qint32 skipped = f.add(day(2026, 3, 8, 2, 30)); // clocks went from 2 to 3 there
    f.clock.moment = day(2026, 3, 4, 19, 0);
    f.check();
    QVERIFY(f.forms.seen.isEmpty());
    const QDateTime instant = f.clock.moment.toUTC();
    ZoneGuard::set("Europe/Rome"); // the traveller's machine: 01:00 of the next day
    f.clock.moment = QDateTime::fromMSecsSinceEpoch(instant.toMSecsSinceEpoch());
    f.check();
    QCOMPARE(f.forms.seen, QList<qint32>{evening});
    ZoneGuard::set("America/New_York");
    f.clock.moment = day(2026, 3, 1, 0, 0); // set back: what is open stays, nothing else comes
    f.check();
    QCOMPARE(f.forms.seen.size(), 1);
    f.clock.moment = day(2026, 3, 8, 1, 59, 59);
    f.check();
    QCOMPARE(f.forms.seen.size(), 1);
    f.clock.moment = f.clock.moment.addSecs(1); // 03:00
    f.check();
    QCOMPARE(f.forms.seen, (QList<qint32>{evening, skipped}));
}

void tst_cAlarm::failuresAreToldOnce()
{
    Checked f;
    const qint32 id = f.add(day(2026, 3, 4, 9, 0));
    const QString path = f.archive.ArchivePath();
    for (int round = 0; round < 2; ++round) { // lost, back, lost again
        f.archive.setPath(path + u".gone"_s);
        f.questions.expect(QString());
        f.check();
        f.check();
        QVERIFY(f.questions.asked.last().text.startsWith("Error in Alarm: "_L1));
        f.archive.setPath(path);
        f.check();
        QCOMPARE(f.forms.opened, QList<qint32>{id});
    }
    f.forms.opened.clear();
    f.questions.expect(QString());
    for (int round = 0; round < 2; ++round) { // lost between the check and the pop-up
        cAlarm(f.archive, f.queue).Alarm();
        f.archive.setPath(path + u".gone"_s);
        while (f.queue.openNext()) { }
        QVERIFY(f.questions.asked.last().text.startsWith("Error in ShowAlert: "_L1));
        f.archive.setPath(path);
    }
    f.check(); // the reminder comes with the next check
    QCOMPARE(f.forms.opened, QList<qint32>{id});
}

void tst_cAlarm::sounds()
{
    const QTemporaryDir folder;
    FakeSound sound;
    soundAlert(sound, folder.path()); // a device, no file: silent
    QVERIFY(QFile::copy(QStringLiteral(SHIPPED_DIR "/alert.wav"), folder.filePath(u"alert.wav"_s)));
    soundAlert(sound, folder.path());
    sound.devices = 0;
    soundAlert(sound, folder.path());
    QCOMPARE(sound.heard, (QStringList{folder.filePath(u"alert.wav"_s), u"beep"_s}));
}

SNIPVALE_TEST(tst_cAlarm)
#include "tst_cAlarm.moc"
