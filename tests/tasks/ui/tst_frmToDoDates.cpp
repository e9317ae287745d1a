// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Registry.h"
#include "tasks/ui/ToDoEditor.h"

using namespace Qt::StringLiterals;

class tst_frmToDoDates : public QObject {
    Q_OBJECT
private slots:
    void optionalDates();
    void daysOfAllYears_data();
    void daysOfAllYears();
    void alarm();
    void alarmInASkippedHour();
};

void tst_frmToDoDates::optionalDates()
{
    Editor e;
    OptionalDate& due = e.date("dtpDueDate");
    QCOMPARE(e.window->findChildren<QWidget*>(u"dtpDueDate"_s).size(), 1); // the date edit itself, no frame around it
    const QDate today = e.clock.moment.date();
    QVERIFY(!due.isChecked());
    QCOMPARE(due.date(), today);
    due.setFocus();
    QTest::keyClick(&due, Qt::Key_Space);
    QCOMPARE(due.value(), today);
    QVERIFY(e.window->isDirty());
    QTest::keyClick(&due, Qt::Key_Space);
    QCOMPARE(due.value(), QDate());
    QTest::keyClick(&due, Qt::Key_Up); // a change gives a date
    QVERIFY(due.isChecked());
    due.setValue(QDate());
    due.setDate(QDate(2030, 1, 31));
    QCOMPARE(due.value(), QDate(2030, 1, 31));
    due.setChecked(false);
    QTest::mouseClick(&due, Qt::LeftButton, {}, {due.width() - 6, due.height() / 2});
    QVERIFY(due.calendarWidget()->isVisible());
    emit due.calendarWidget()->clicked(due.date()); // the day that stood there
    QCOMPARE(due.value(), QDate(2030, 1, 31));
    due.calendarWidget()->window()->close();
    QWheelEvent wheel({5, 5}, due.mapToGlobal(QPointF(5, 5)), {}, {0, 120}, {}, {}, Qt::NoScrollPhase, false);
    e.box("txtName").setFocus();
    QCoreApplication::sendEvent(&due, &wheel);
    QCOMPARE(due.value(), QDate(2030, 1, 31));
    due.setDisplayFormat(u"dd.MM.yyyy"_s);
    due.setFocus();
    due.setSelectedSection(QDateTimeEdit::DaySection);
    QTest::keyClicks(&due, u"2"_s); // half typed when it is saved
    e.box("txtName").setText(u"n"_s);
    e.get<QPushButton>("cmdOK").click();
    QCOMPARE(e.row(u"dueDate"_s), u"2030-01-02 00:00:00"_s);
}

void tst_frmToDoDates::daysOfAllYears_data()
{
    QTest::addColumn<QByteArray>("stored");
    QTest::addColumn<QString>("saved");
    QTest::newRow("first") << QByteArray("0100-01-01 00:00:00") << u"0100-01-01 00:00:00"_s;
    QTest::newRow("last") << QByteArray("9999-12-31 00:00:00") << u"9999-12-31 00:00:00"_s;
    QTest::newRow("before the first") << QByteArray("0001-05-06 00:00:00") << u"0100-01-01 00:00:00"_s;
    QTest::newRow("with a time") << QByteArray("2024-02-29 23:59:59") << u"2024-02-29 00:00:00"_s;
}

void tst_frmToDoDates::daysOfAllYears()
{
    QFETCH(const QByteArray, stored);
    QFETCH(const QString, saved);
    Editor e;
    cToDo todo = e.sample();
    QVERIFY(todo.Save());
    e.runRaw("UPDATE tab_todo SET startDate = '" + stored + "', alarmDate = '" + stored + "'");
    e.open(todo.ToDoID);
    QVERIFY(e.loaded);
    e.click("cmdOK"); // what is shown is what is saved; an end before the start is the user's affair
    QCOMPARE(e.row(u"startDate"_s), saved);
    QCOMPARE(e.row(u"alarmDate"_s).left(10), saved.left(10));
    QCOMPARE(e.row(u"endDate"_s), u"2024-01-01 00:00:00"_s);
}

void tst_frmToDoDates::alarm()
{
    Editor e;
    e.clock.moment = QDateTime(QDate(2026, 3, 4), QTime(9, 5, 31, 500));
    e.open(0);
    auto& day = e.get<QDateEdit>("dtpAlarmDay");
    auto& hour = e.get<QTimeEdit>("dtpAlarmHour");
    QVERIFY(!day.isEnabled() && !hour.isEnabled());
    QCOMPARE(day.date(), QDate(2026, 3, 4));
    e.check("chkAlarm").click();
    QVERIFY(day.isEnabled() && hour.isEnabled() && e.window->isDirty());
    hour.setFocus();
    hour.setSelectedSection(QDateTimeEdit::HourSection);
    QTest::keyClicks(&hour, u"23"_s);
    e.box("txtName").setText(u"n"_s);
    e.saveAndStay();
    QCOMPARE(e.row(u"alarmDate || alarmOn"_s), u"2026-03-04 23:05:31-1"_s); // the seconds of the moment it was opened
    e.check("chkAlarm").click();
    QVERIFY(!day.isEnabled() && !hour.isEnabled());
    e.click("cmdOK");
    QCOMPARE(e.row(u"alarmDate IS NULL AND alarmOn = 0"_s), u"1"_s);
}

void tst_frmToDoDates::alarmInASkippedHour()
{
    const QByteArray before = qgetenv("TZ");
    const auto restore = qScopeGuard([&] {
        before.isEmpty() ? qunsetenv("TZ") : qputenv("TZ", before);
        tzset();
    });
    qputenv("TZ", "America/Sao_Paulo");
    tzset();
    Editor e;
    cToDo todo = e.sample();
    todo.DueDate = QDate(2018, 11, 4); // began at one o'clock there
    todo.AlarmDate = {QDate(2018, 11, 4), QTime(0, 30)};
    QVERIFY(todo.Save());
    e.open(todo.ToDoID);
    e.click("cmdOK");
    QCOMPARE(e.row(u"dueDate || '|' || alarmDate"_s), u"2018-11-04 00:00:00|2018-11-04 00:30:00"_s);
}

SNIPVALE_TEST(tst_frmToDoDates)
#include "tst_frmToDoDates.moc"
