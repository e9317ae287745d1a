// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Registry.h"
#include "tasks/AlarmFixture.h"

#include "tasks/modToDo.h"

#include <QtTest>

using namespace Qt::StringLiterals;

// What only to-dos have; the rest is in tst_Records.
class tst_cToDo : public QObject {
    Q_OBJECT
private slots:
    void absentDatesAreNull();
    void priorityStaysWithinItsEnds();
    void doneChangesNothingElse();
    void codesHaveTheirTexts();
};

void tst_cToDo::absentDatesAreNull()
{
    AlarmFixture f;
    const auto nullDates = [&] {
        return f.value(u"SELECT COUNT(todoID) AS n FROM tab_todo WHERE startDate IS NULL AND dueDate IS NULL AND "
                       "endDate IS NULL AND alarmDate IS NULL"_s);
    };
    cToDo todo(f.archive);
    todo.ToDoID = f.add(QDateTime());
    QCOMPARE(nullDates(), u"1"_s);
    QVERIFY(todo.Load());
    cToDo full = todo;
    full.StartDate = full.DueDate = full.EndDate = full.AlarmDate.date = QDate(2024, 2, 29);
    full.AlarmDate.time = QTime(9, 5, 0);
    QVERIFY(full.Update());
    QCOMPARE(f.column(u"startDate"_s, 1), u"2024-02-29 00:00:00"_s); // a day has no time
    QCOMPARE(f.column(u"alarmDate"_s, 1), u"2024-02-29 09:05:00"_s);
    QVERIFY(todo.Update());
    QCOMPARE(nullDates(), u"1"_s);
}

void tst_cToDo::priorityStaysWithinItsEnds()
{
    struct Row {
        QString before, raised, lowered;
    };
    const Row rows[] = {
        {u"Null"_s, u"1"_s, u"0"_s}, {u"0"_s, u"1"_s, u"0"_s}, {u"1"_s, u"2"_s, u"1"_s}, {u"2"_s, u"3"_s, u"1"_s},
        {u"5"_s, u"6"_s, u"4"_s},    {u"6"_s, u"6"_s, u"5"_s}, {u"9"_s, u"9"_s, u"8"_s}, // 9: not ours
    };
    AlarmFixture f;
    f.add(QDateTime());
    f.clock.moment = f.clock.moment.addDays(1);
    for (const Row& row : rows) {
        for (const bool raise : {true, false}) {
            f.run(u"UPDATE tab_todo SET tab_todo.priority = %1 WHERE (tab_todo.todoID = 1)"_s.arg(row.before));
            changeToDoPriority(f.archive, 1, raise);
            QCOMPARE(f.column(u"priority"_s, 1), raise ? row.raised : row.lowered);
        }
    }
    QCOMPARE(f.column(u"dateLastMod"_s, 1), u"2026-03-05 09:05:00"_s);
    QVERIFY_THROWS_EXCEPTION(std::exception, changeToDoPriority(f.archive, 77, true));
}

void tst_cToDo::doneChangesNothingElse()
{
    AlarmFixture f;
    cToDo todo(f.archive);
    todo.CategoryID = f.category;
    todo.PercentComplete = 40;
    todo.Status = 2;
    QVERIFY(todo.Save());
    const qint32 other = f.add(QDateTime());
    for (const bool done : {true, true, false}) {
        markToDoDone(f.archive, todo.ToDoID, done);
        QVERIFY(todo.Load());
        QCOMPARE(todo.Done, done);
        QCOMPARE(todo.PercentComplete + todo.Status, 42);
        QCOMPARE(f.column(u"done"_s, other), u"0"_s);
    }
    QVERIFY_THROWS_EXCEPTION(std::exception, markToDoDone(f.archive, 77, true));
}

void tst_cToDo::codesHaveTheirTexts()
{
    QStringList texts, images;
    for (int code = -1; code <= 7; ++code) {
        texts << priorityText(code) + u'|' + statusText(code);
        images << priorityImage(code) + u'|' + statusImage(code);
    }
    QCOMPARE(texts.join(u' '),
             u"| | Lowest|Created Low|In progress Normal|Completed High|Paused Highest|Cancelled Urgent| |"_s);
    QCOMPARE(images.join(u' '),
             u"| | lowest|created low|inprogress normal|completed high|paused highest|cancelled urgent| |"_s);
    QCOMPARE(sqlDate(QDate()) + sqlTime(QTime()) + sqlDateTime({}), QString());
}

SNIPVALE_TEST(tst_cToDo)
#include "tst_cToDo.moc"
