// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Registry.h"
#include "tasks/AlarmFixture.h"

#include "tasks/cAlarm.h"
#include "tasks/modSound.h"
#include "tasks/modToDo.h"

#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

// A screen that only remembers. It opens as the real one does: the row is read again.
struct Screen : AlarmFixture, AlarmForms {
    bool isOpen(qint32 id) const override { return opened.contains(id); }
    bool hasRoom() const override { return opened.size() < room; }
    bool open(qint32 id) override
    {
        const std::optional<AlarmRow> row = readAlarm(archive, id);
        if (!row || !row->isDue)
            return false;
        opened.append(id);
        seen.append(id);
        return true;
    }
    void check()
    {
        cAlarm(archive, queue).Alarm();
        while (queue.openNext()) { }
    }
    QList<qint32> opened;
    QList<qint32> seen; // all that ever opened
    qsizetype room = 1000;
    cAlarmQueue queue{*this, questions, [] {}};
};

QDateTime day(int year, int month, int day, int hour, int minute, int second = 0)
{
    return QDateTime(QDate(year, month, day), QTime(hour, minute, second));
}

} // namespace

// What only to-dos and their reminders have; the rest is in tst_Records.
class tst_Tasks : public QObject {
    Q_OBJECT
private slots:
    // Moments are those of the clock on the wall, wherever it hangs.
    void initTestCase() { qputenv("TZ", "America/New_York"); }

    void whatIsDue()
    {
        Screen f; // it is 4 March 2026, 09:05:00
        const qint32 lastSecond = f.add(day(2026, 3, 4, 9, 4, 59));
        const qint32 longAgo = f.add(day(100, 1, 1, 0, 0));
        f.add(day(2026, 3, 4, 9, 4), false);
        const qint32 none = f.add(QDateTime());
        const qint32 thisSecond = f.add(f.clock.now());
        const qint32 skipped = f.add(day(2026, 3, 8, 2, 30)); // clocks go from 2 to 3 then
        f.check();
        QCOMPARE(f.seen, (QList<qint32>{lastSecond, longAgo}));
        for (const QDateTime& moment : {day(2026, 3, 4, 9, 5, 1), day(2026, 3, 8, 1, 59, 59)}) {
            f.clock.moment = moment;
            f.check();
            QCOMPARE(f.seen.mid(2), QList<qint32>{thisSecond});
        }
        f.clock.moment = f.clock.moment.addSecs(1);
        f.check();
        QCOMPARE(f.seen.mid(3), QList<qint32>{skipped});
        QVERIFY(!readAlarm(f.archive, none)->moment.isValid() && !readAlarm(f.archive, 4711).has_value());
    }

    void answersAndNone()
    {
        Screen f;
        const qint32 stopped = f.add(day(2026, 3, 4, 9, 0));
        const qint32 later = f.add(day(2026, 3, 4, 9, 0));
        f.check();
        f.check();
        QCOMPARE(f.seen, (QList<qint32>{stopped, later})); // one form each
        QCOMPARE(f.column(u"alarmOn"_s, stopped), u"-1"_s); // the check writes nothing
        f.opened.clear(); // closed without an answer: not again at once, but with the next check
        QVERIFY(!f.queue.openNext());
        f.check();
        QCOMPARE(f.seen.size(), 4);

        f.clock.moment = f.clock.moment.addSecs(1);
        UpdateAlarm(f.archive, stopped, std::nullopt);
        QCOMPARE(f.column(u"alarmOn"_s, stopped) + f.column(u"alarmDate"_s, stopped), u"0"_s);
        QCOMPARE(f.column(u"dateLastMod"_s, later), u"2026-03-04 09:05:00"_s); // only the row that was answered
        UpdateAlarm(f.archive, later, jet::LocalMoment{QDate(2028, 2, 29), QTime(0, 0, 1)});
        QVERIFY_THROWS_EXCEPTION(std::exception, UpdateAlarm(f.archive, 77, std::nullopt));
        QCOMPARE(f.column(u"alarmOn"_s, later) + f.column(u"alarmDate"_s, later), u"-12028-02-29 00:00:01"_s);
    }

    // More due than there is room: each is seen, also when the user closes them without an answer and checks go on.
    void manyAtOnce()
    {
        Screen f;
        for (int i = 0; i < 30; ++i)
            f.add(f.clock.moment.addDays(-1));
        f.room = 8;
        f.check();
        QCOMPARE(f.opened.size(), 8);
        QCOMPARE(f.queue.waiting(), 22);
        QSet<qint32> seen;
        for (int i = 0; i < 30; ++i) {
            seen.insert(f.opened.takeFirst());
            f.queue.openNext();
            if (i % 3 == 0)
                f.check();
            QVERIFY(f.opened.size() <= 8);
        }
        QCOMPARE(seen.size(), 30);
        QCOMPARE(QSet<qint32>(f.opened.begin(), f.opened.end()).size(), f.opened.size());
    }

    void thoseThatWaitAreStillDue()
    {
        Screen f;
        for (int i = 0; i < 5; ++i)
            f.add(f.clock.moment.addDays(-1));
        f.room = 1;
        f.check();
        f.run(u"DELETE * FROM tab_todo WHERE todoID = 2"_s);
        f.run(u"UPDATE tab_todo SET tab_todo.alarmOn = 0 WHERE (tab_todo.todoID = 3)"_s);
        f.run(u"UPDATE tab_todo SET tab_todo.alarmDate = '2026-3-4 9:5:1' WHERE (tab_todo.todoID = 4)"_s);
        QCOMPARE(f.queue.waiting(), 4);
        f.check();
        QCOMPARE(f.queue.waiting(), 1);
        cAlarm(f.archive, f.queue).Alarm();
        f.run(u"UPDATE tab_todo SET tab_todo.alarmOn = 0 WHERE (tab_todo.todoID = 5)"_s); // after the check
        f.opened.clear();
        QVERIFY(!f.queue.openNext());
    }

    void failuresAreToldOnce()
    {
        Screen f;
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
            QCOMPARE(f.opened, QList<qint32>{id});
        }
        f.opened.clear();
        f.questions.expect(QString());
        for (int round = 0; round < 2; ++round) { // lost between the check and the pop-up
            cAlarm(f.archive, f.queue).Alarm();
            f.archive.setPath(path + u".gone"_s);
            while (f.queue.openNext()) { }
            QVERIFY(f.questions.asked.last().text.startsWith("Error in ShowAlert: "_L1));
            f.archive.setPath(path);
        }
        f.check(); // the reminder comes with the next check
        QCOMPARE(f.opened, QList<qint32>{id});
    }

    void sounds()
    {
        FakeSound sound;
        soundAlert(sound, u"/nowhere"_s); // a device, no file: silent
        sound.devices = 0;
        soundAlert(sound, QStringLiteral(SHIPPED_DIR));
        QCOMPARE(sound.heard, QStringList{u"beep"_s});
    }

    void priorityStaysWithinItsEnds()
    {
        const int rows[][3] = {{0, 1, 0}, {1, 2, 1}, {2, 3, 1}, {5, 6, 4}, {6, 6, 5}, {9, 9, 8}}; // 9: not ours
        AlarmFixture f;
        f.add(QDateTime());
        for (const auto& [before, raised, lowered] : rows) {
            for (const bool raise : {true, false}) {
                f.run(u"UPDATE tab_todo SET tab_todo.priority = %1 WHERE (tab_todo.todoID = 1)"_s.arg(before));
                changeToDoPriority(f.archive, 1, raise);
                QCOMPARE(f.column(u"priority"_s, 1).toInt(), raise ? raised : lowered);
            }
        }
    }

    void codesHaveTheirTexts()
    {
        QStringList texts;
        for (int code = -1; code <= 7; ++code)
            texts << priorityText(code) + u'|' + statusText(code) + u'|' + statusImage(code);
        QCOMPARE(
            texts.join(u' '),
            u"|| || Lowest|Created|created Low|In progress|inprogress Normal|Completed|completed High|Paused|paused "
            "Highest|Cancelled|cancelled Urgent|| ||"_s);
    }
};

SNIPVALE_TEST(tst_Tasks)
#include "tst_Tasks.moc"
