// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/CoreSupport.h"
#include "support/Registry.h"

#include "archive/Archive.h"
#include "archive/SqlText.h"
#include "tasks/cToDo.h"
#include "tasks/modToDo.h"

#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

// An archive that was started once, so that it has to-dos.
struct ToDoFixture : ArchiveFixture {
    ToDoFixture()
    {
        questions.expect(QString());
        UpdateArchiveVersion(archive);
        category = value(u"SELECT categoryID FROM tab_category WHERE type = 2"_s).toInt();
        statements.clear();
    }
    void run(const QString& sql)
    {
        jet::Connection connection;
        connection.Open(archive.ConnectionString());
        QCOMPARE(connection.Execute(sql), 1);
    }
    QString column(const char* name)
    {
        return value(u"SELECT %1 FROM tab_todo WHERE todoID = 1"_s.arg(QLatin1String(name)));
    }
    int nullDates()
    {
        int count = 0;
        for (const QString& name : {u"startDate"_s, u"dueDate"_s, u"endDate"_s, u"alarmDate"_s})
            count += value(u"SELECT COUNT(todoID) AS n FROM tab_todo WHERE %1 IS NULL"_s.arg(name)).toInt();
        return count;
    }
    qint32 category = 0;
};

cToDo sample(ToDoFixture& f)
{
    cToDo todo(f.archive);
    todo.CategoryID = f.category;
    todo.ToDoName = u"O'Hara's \"list\"; DROP TABLE tab_todo --"_s;
    todo.ToDoDescription = u"{\\rtf1 it's #1# %_[] Привет 世界 \U0001F600 שלום}\r\n"_s;
    todo.StartDate = QDate(2024, 2, 29);
    todo.DueDate = QDate(2024, 12, 31);
    todo.EndDate = QDate(2025, 1, 1);
    todo.AlarmDate = {QDate(2024, 3, 7), QTime(9, 5, 0)};
    todo.PercentComplete = 40;
    todo.Priority = 6;
    todo.Status = 2;
    todo.Resources = u"l'été, 'Zoë'\nनमस्ते"_s;
    todo.AlarmOn = true;
    return todo;
}

void compare(const cToDo& a, const cToDo& b)
{
    QCOMPARE(a.CategoryID, b.CategoryID);
    QCOMPARE(a.ToDoName, b.ToDoName);
    QCOMPARE(a.ToDoDescription, b.ToDoDescription);
    QCOMPARE(a.StartDate, b.StartDate);
    QCOMPARE(a.DueDate, b.DueDate);
    QCOMPARE(a.EndDate, b.EndDate);
    QCOMPARE(a.AlarmDate.date, b.AlarmDate.date);
    QCOMPARE(a.AlarmDate.time, b.AlarmDate.time);
    QCOMPARE(a.PercentComplete, b.PercentComplete);
    QCOMPARE(a.Priority, b.Priority);
    QCOMPARE(a.Status, b.Status);
    QCOMPARE(a.Resources, b.Resources);
    QCOMPARE(a.AlarmOn, b.AlarmOn);
    QCOMPARE(a.Done, b.Done);
}

} // namespace

class tst_cToDo : public QObject {
    Q_OBJECT
private slots:
    void savedAndUpdatedFieldsComeBack();
    void absentDatesAreNull();
    void datesAreStamped();
    void skippedHours();
    void statements();
    void nullsAndMissingRows();
    void priorityStaysWithinItsEnds();
    void doneChangesNothingElse();
    void failuresSayWhatTheyShould();
    void codesHaveTheirTexts();
};

void tst_cToDo::savedAndUpdatedFieldsComeBack()
{
    ToDoFixture f;
    cToDo todo = sample(f);
    QVERIFY(todo.Save());
    cToDo read(f.archive);
    read.ToDoID = todo.ToDoID;
    QVERIFY(read.Load());
    compare(read, todo);

    todo.ToDoName = u"''"_s;
    todo.ToDoDescription += todo.ToDoDescription;
    todo.DueDate = todo.StartDate.addYears(3);
    todo.AlarmDate = {QDate(1999, 11, 30), QTime(23, 59, 59)};
    todo.PercentComplete = 100;
    todo.Priority = 0;
    todo.Status = 5;
    todo.Resources.clear();
    todo.AlarmOn = false;
    todo.Done = true;
    QVERIFY2(todo.Update(), qPrintable(todo.lastError()));
    QVERIFY(read.Load());
    compare(read, todo);

    cToDo second = sample(f);
    QVERIFY(second.Save());
    QVERIFY(second.ToDoID != todo.ToDoID);
    QCOMPARE(todo.GetToDoCount(), 2);
    QVERIFY(read.Load()); // the update of one row left the other alone
    compare(read, todo);
}

void tst_cToDo::absentDatesAreNull()
{
    ToDoFixture f;
    cToDo todo(f.archive);
    todo.CategoryID = f.category;
    todo.ToDoName = u"n"_s;
    QVERIFY(todo.Save());
    QCOMPARE(f.nullDates(), 4);
    cToDo full = sample(f);
    full.ToDoID = todo.ToDoID;
    QVERIFY(full.Update());
    QCOMPARE(f.nullDates(), 0);
    QVERIFY(todo.Update());
    QCOMPARE(f.nullDates(), 4);
    QVERIFY(full.Load()); // Null replaces a date that the field held
    compare(full, todo);
    QVERIFY(!full.AlarmDate.isValid());
}

void tst_cToDo::datesAreStamped()
{
    const QLocale before;
    const auto restore = qScopeGuard([&] { QLocale::setDefault(before); });
    for (const char* locale : {"C", "en_US", "en_GB", "it_IT", "ar_EG", "ja_JP"}) {
        QLocale::setDefault(QLocale(QString::fromLatin1(locale)));
        ToDoFixture f;
        cToDo todo = sample(f);
        todo.ToDoDateIn = todo.ToDoDateLastMod = QDateTime(QDate(1999, 1, 1), QTime(0, 0));
        QVERIFY(todo.Save());
        QCOMPARE(f.column("dateIn"), u"2026-03-04 09:05:00"_s);
        QCOMPARE(f.column("dateLastMod"), u"2026-03-04 09:05:00"_s);
        QCOMPARE(f.column("startDate"), u"2024-02-29 00:00:00"_s); // a day has no time
        QCOMPARE(f.column("alarmDate"), u"2024-03-07 09:05:00"_s);
        f.clock.moment = QDateTime(QDate(2027, 2, 1), QTime(13, 0, 9));
        QVERIFY(todo.Update());
        QCOMPARE(f.column("dateLastMod"), u"2027-02-01 13:00:09"_s);
        f.clock.moment = QDateTime(QDate(2027, 2, 1), QTime(13, 1));
        changeToDoPriority(f.archive, todo.ToDoID, true); // at the top already: stamped all the same
        QCOMPARE(f.column("dateLastMod"), u"2027-02-01 13:01:00"_s);
        QVERIFY(todo.Load());
        QCOMPARE(todo.ToDoDateIn, QDateTime(QDate(2026, 3, 4), QTime(9, 5)));
        QCOMPARE(todo.ToDoDateLastMod, f.clock.moment);
    }
}

// A moment that a zone's clocks never show must not turn into none.
void tst_cToDo::skippedHours()
{
    const QByteArray before = qgetenv("TZ");
    const auto restore = qScopeGuard([&] {
        before.isEmpty() ? qunsetenv("TZ") : qputenv("TZ", before);
        tzset();
    });
    qputenv("TZ", "America/Sao_Paulo");
    tzset();
    ToDoFixture f;
    cToDo todo = sample(f);
    todo.DueDate = QDate(2018, 11, 4); // began at one o'clock there
    todo.AlarmDate = {QDate(2018, 11, 4), QTime(0, 30)};
    QVERIFY(todo.Save());
    cToDo read(f.archive);
    read.ToDoID = todo.ToDoID;
    QVERIFY(read.Load());
    compare(read, todo);
    QVERIFY(read.Update());
    QCOMPARE(f.column("dueDate"), u"2018-11-04 00:00:00"_s);
    QCOMPARE(f.column("alarmDate"), u"2018-11-04 00:30:00"_s);
}

void tst_cToDo::statements()
{
    ToDoFixture f;
    cToDo todo(f.archive);
    todo.CategoryID = f.category;
    todo.ToDoName = u"O'Hara"_s;
    QVERIFY(todo.Save() && todo.Load() && todo.Update());
    todo.StartDate = todo.DueDate = QDate(2024, 3, 7);
    todo.EndDate = QDate(2024, 11, 12);
    todo.AlarmDate = {QDate(2024, 3, 7), QTime(9, 5, 0)};
    todo.AlarmOn = todo.Done = true;
    todo.PercentComplete = 40;
    todo.Priority = 6;
    todo.Status = 2;
    todo.Resources = todo.ToDoDescription = u"'d"_s;
    QVERIFY(todo.Update());
    QCOMPARE(todo.GetToDoCount(), 1);
    markToDoDone(f.archive, 1, true);
    markToDoDone(f.archive, 1, false);
    changeToDoPriority(f.archive, 1, false);
    const QString head =
        u"UPDATE tab_ToDo SET tab_todo.categoryID = %1 , tab_todo.name = 'O''Hara' , "_s.arg(f.category);
    const QString end = u"tab_ToDo.dateLastMod = '2026-03-04 09:05:00'  WHERE (tab_ToDo.ToDoID = 1 ) "_s;
    const QStringList expected = {
        u"SELECT * FROM tab_ToDo where 1=2 "_s,
        u" SELECT * FROM tab_todo  WHERE todoID = 1 "_s,
        head +
            u"tab_todo.description = '' , tab_todo.startDate = Null ,  tab_todo.dueDate = Null ,  tab_todo.endDate = Null ,  tab_todo.alarmOn = 0 ,  tab_todo.alarmDate = Null ,  tab_todo.percentComplete = 0 , tab_todo.priority = 0 , tab_todo.status = 0 , tab_todo.resources = '' , tab_todo.done = 0 ,  "_s +
            end,
        head +
            u"tab_todo.description = '''d' , tab_todo.startDate = '2024-3-7' , tab_todo.dueDate = '2024-3-7' , tab_todo.endDate = '2024-11-12' , tab_todo.alarmOn = 1 ,  tab_todo.alarmDate = '2024-3-7 9:5:0' , tab_todo.percentComplete = 40 , tab_todo.priority = 6 , tab_todo.status = 2 , tab_todo.resources = '''d' , tab_todo.done = 1 ,  "_s +
            end,
        u"SELECT COUNT(todoID) AS ToDoCount FROM tab_todo  "_s,
        u"UPDATE tab_ToDo SET tab_todo.done = 1 ,  "_s + end,
        u"UPDATE tab_ToDo SET tab_todo.done = 0 ,  "_s + end,
        u" SELECT * FROM tab_todo  WHERE todoID = 1 "_s,
        u"UPDATE tab_ToDo SET tab_todo.priority = 5 ,  "_s + end};
    QCOMPARE(f.statements, expected);
}

void tst_cToDo::nullsAndMissingRows()
{
    ToDoFixture f;
    f.run(u"INSERT INTO tab_todo (categoryID) VALUES (%1)"_s.arg(f.category)); // Null wherever that is possible
    cToDo todo = sample(f);
    todo.ToDoID = 1;
    todo.Done = true;
    todo.ToDoDateIn = todo.ToDoDateLastMod = f.clock.now();
    QVERIFY(todo.Load());
    // Null: a text is emptied, a date is none, a number or a stamp stays as it was; flags are never Null.
    cToDo expected = sample(f);
    for (QString* text : {&expected.ToDoName, &expected.ToDoDescription, &expected.Resources})
        text->clear();
    expected.StartDate = expected.DueDate = expected.EndDate = QDate();
    expected.AlarmDate = {};
    expected.AlarmOn = false;
    compare(todo, expected);
    QCOMPARE(todo.ToDoDateIn, f.clock.now());
    QCOMPARE(todo.ToDoDateLastMod, f.clock.now());

    cToDo gone = sample(f);
    gone.ToDoID = 77;
    QVERIFY(gone.Load());
    compare(gone, sample(f));
    QVERIFY(!gone.Update()); // it would be lost without a word
    QCOMPARE(gone.lastError(), u"The to-do is no longer in the archive."_s);
    QVERIFY(todo.Load());
    QVERIFY(todo.lastError().isEmpty());
    QVERIFY_THROWS_EXCEPTION(std::exception, markToDoDone(f.archive, 77, true));
    QVERIFY_THROWS_EXCEPTION(std::exception, changeToDoPriority(f.archive, 77, true));
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
    ToDoFixture f;
    QVERIFY(sample(f).Save());
    for (const Row& row : rows) {
        for (const bool raise : {true, false}) {
            f.run(u"UPDATE tab_todo SET tab_todo.priority = %1 WHERE (tab_todo.todoID = 1)"_s.arg(row.before));
            changeToDoPriority(f.archive, 1, raise);
            QCOMPARE(f.column("priority"), raise ? row.raised : row.lowered);
        }
    }
}

void tst_cToDo::doneChangesNothingElse()
{
    ToDoFixture f;
    cToDo todo = sample(f);
    QVERIFY(todo.Save());
    cToDo other = sample(f);
    QVERIFY(other.Save());
    for (const bool done : {true, true, false}) {
        markToDoDone(f.archive, todo.ToDoID, done);
        cToDo read(f.archive);
        read.ToDoID = todo.ToDoID;
        QVERIFY(read.Load());
        todo.Done = done; // status "In progress" and 40 % stay
        compare(read, todo);
        read.ToDoID = other.ToDoID;
        QVERIFY(read.Load());
        compare(read, other);
    }
}

void tst_cToDo::failuresSayWhatTheyShould()
{
    ToDoFixture f;
    cToDo todo = sample(f);
    todo.CategoryID = 4711; // no such category
    f.questions.expect(QString());
    QVERIFY(!todo.Save());
    QVERIFY(f.questions.asked.last().text.startsWith("Error in ToDo.Save: "_L1));
    QCOMPARE(f.questions.asked.last().style, MessageStyle::Critical);
    QCOMPARE(todo.ToDoID, 0);
    QCOMPARE(todo.GetToDoCount(), 0);

    todo.CategoryID = f.category;
    QVERIFY(todo.Save());
    todo.ToDoName = QString(256, u'x'); // does not fit: nothing is cut, nothing is written
    todo.PercentComplete = 99;
    QVERIFY(!todo.Update());
    QVERIFY(!todo.lastError().isEmpty());
    QCOMPARE(f.column("percentComplete"), u"40"_s);

    const QString path = f.scratch.path(u"missing.SVA"_s);
    f.archive.setPath(path);
    QVERIFY(!todo.Load()); // no message, but the text is there
    QVERIFY(todo.lastError().contains("missing.SVA"_L1));
    QVERIFY(!todo.Update());
    QVERIFY_THROWS_EXCEPTION(std::exception, changeToDoPriority(f.archive, 1, true));
    QCOMPARE(todo.GetToDoCount(), 0);
    QVERIFY(!QFile::exists(path));
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
    QCOMPARE(sqlTime(QTime(9, 5, 0)), u"9:5:0"_s);
}

SNIPVALE_TEST(tst_cToDo)
#include "tst_cToDo.moc"
