// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Registry.h"
#include "tasks/AlarmFixture.h"

#include "tasks/ui/frmAlarm.h"

#include <QtTest>
#include <QtWidgets>

using namespace Qt::StringLiterals;

namespace {

struct Reminders : AlarmFixture {
    // What is on the screen, in the order of opening.
    static QList<frmAlarm*> forms()
    {
        QList<frmAlarm*> found;
        for (QWidget* window : QApplication::topLevelWidgets())
            if (auto* form = qobject_cast<frmAlarm*>(window); form && form->isVisible())
                found.append(form);
        std::sort(found.begin(), found.end(), [](auto* a, auto* b) { return a->ToDoID < b->ToDoID; });
        return found;
    }
    static frmAlarm* only() { return forms().size() == 1 ? forms().first() : nullptr; }
    template <typename Control>
    static Control& control(frmAlarm* form, const char* name)
    {
        return *form->findChild<Control*>(QString::fromLatin1(name));
    }
    static void click(frmAlarm* form, const char* name)
    {
        QAbstractButton& button = control<QAbstractButton>(form, name);
        QTest::mouseClick(form->windowHandle(), Qt::LeftButton, Qt::NoModifier,
                          button.mapTo(form, QPoint(10, button.height() / 2)));
    }
    FakeSound sound;
    AlarmWindows alarms{archive, sound, QStringLiteral(SHIPPED_DIR), nullptr};
    QDateTime before = clock.moment.addSecs(-60);
};

} // namespace

class tst_frmAlarm : public QObject {
    Q_OBJECT
private slots:
    void stopAndNext()
    {
        Reminders f;
        const qint32 stopped = f.add(f.before, true, u"Tom & <b>Jerry</b>'s"_s);
        const qint32 moved = f.add(f.before);
        const qint32 edited = f.add(f.before);
        QSignalSpy pending(&f.alarms, &AlarmWindows::pendingChanged);
        f.alarms.check();
        QTRY_COMPARE(f.forms().size(), 3);
        const QList<frmAlarm*> forms = f.forms();
        QCOMPARE(f.control<QLabel>(forms[0], "lblName").text(), u"SnipVale alarm for: 'Tom & <b>Jerry</b>'s'"_s);
        QTimeEdit& hour = f.control<QTimeEdit>(forms[1], "dtpAlarmHour");
        QVERIFY(!hour.isEnabled());
        f.click(forms[0], "cmdOK");
        f.run(u"UPDATE tab_todo SET alarmDate = '2027-1-1 9:0:0' WHERE todoID = 3"_s);
        f.click(forms[2], "cmdOK"); // an editor was quicker: that one is not stopped
        QTRY_COMPARE(f.only(), forms[1]);
        QCOMPARE(f.column(u"alarmOn"_s, stopped) + f.column(u"alarmDate"_s, stopped), u"0"_s);
        QCOMPARE(f.column(u"alarmOn"_s, edited), u"-1"_s);
        f.click(forms[1], "optAlarm_1");
        QDateEdit& day = f.control<QDateEdit>(forms[1], "dtpAlarmDay");
        QVERIFY(day.isEnabled() && hour.isEnabled());
        QCOMPARE(QDateTime(day.date(), hour.time()), f.clock.moment);
        day.setDate(QDate(2026, 12, 31));
        hour.setFocus();
        hour.setSelectedSection(QDateTimeEdit::HourSection);
        QTest::keyClicks(&hour, u"7.45"_s);
        QCOMPARE(pending.count(), 1); // until the last one is answered
        QTest::keyClick(forms[1], Qt::Key_Return);
        QTRY_VERIFY(f.forms().isEmpty());
        QCOMPARE(f.column(u"alarmOn"_s, moved) + f.column(u"alarmDate"_s, moved), u"-12026-12-31 07:45:00"_s);
        QCOMPARE(pending.count(), 2);
        QVERIFY(pending.first().first().toBool() && !pending.last().first().toBool());
    }

    // A reminder that lies over a long edit must not stay there until the edit ends.
    void answersBehindAModalWindow()
    {
        Reminders f;
        f.add(f.before);
        f.alarms.check();
        QTRY_VERIFY(f.only());
        f.add(f.before);
        QDialog editor;
        QTimer::singleShot(0, &editor, [&] {
            f.alarms.check(); // one pop-up before the editor, one after it
            for (int left = 2; left > 0; --left) {
                QTRY_COMPARE(f.forms().size(), left);
                f.click(f.forms().last(), "cmdOK");
            }
            QTRY_VERIFY(f.forms().isEmpty());
            editor.accept();
        });
        QTimer::singleShot(10000, &editor, &QDialog::reject);
        QCOMPARE(editor.exec(), int(QDialog::Accepted));
    }

    void closedAndFailed()
    {
        Reminders f;
        const qint32 id = f.add(f.before);
        QSignalSpy quits(qApp, &QGuiApplication::lastWindowClosed);
        f.alarms.check();
        QTRY_VERIFY(f.only());
        QPointer<frmAlarm> form = f.only();
        f.click(form, "cmdClose");
        QTRY_VERIFY(!form); // it is gone, not only hidden
        QCOMPARE(f.column(u"alarmOn"_s, id) + f.column(u"alarmDate"_s, id), u"-12026-03-04 09:04:00"_s);
        QVERIFY(quits.isEmpty()); // the program goes on when a pop-up was its last window
        f.alarms.check();
        QTRY_VERIFY(f.only());
        f.alarms.check(); // the next tick: no second one
        QTest::qWait(20);
        QCOMPARE(f.sound.heard.size(), 2);
        f.click(f.only(), "optAlarm_1");
        f.control<QDateEdit>(f.only(), "dtpAlarmDay").setDate(QDate(2027, 1, 1));
        const QString path = f.archive.ArchivePath();
        f.archive.setPath(path + u".gone"_s);
        f.questions.expect(QString());
        f.click(f.only(), "cmdOK");
        QVERIFY(f.questions.asked.last().text.startsWith("Error in UpdateAlarm: "_L1));
        QVERIFY(f.only()); // the answer can be given again
        f.archive.setPath(path);
        f.click(f.only(), "cmdOK");
        QTRY_VERIFY(f.forms().isEmpty());
        QCOMPARE(f.column(u"alarmDate"_s, id), u"2027-01-01 09:05:00"_s);

        f.add(f.before);
        f.alarms.check();
        QTRY_VERIFY(f.only());
        f.run(u"DELETE * FROM tab_todo"_s);
        f.questions.expect(u"Error in UpdateAlarm: The to-do is no longer in the archive."_s);
        f.click(f.only(), "cmdOK");
        QTRY_VERIFY(f.forms().isEmpty());
    }

    void manyAtOnce()
    {
        Reminders f;
        for (int i = 0; i < 20; ++i)
            f.add(f.before);
        f.run(u"UPDATE tab_todo SET name = '%1' WHERE todoID = 8"_s.arg(u"ww "_s.repeated(80))); // in the lowest place
        f.alarms.check();
        QVERIFY(f.forms().size() < AlarmWindows::most); // others work in between
        QTRY_COMPARE(f.forms().size(), AlarmWindows::most);
        QTest::qWait(50);
        QSet<QPoint> places;
        for (frmAlarm* each : f.forms()) {
            places.insert(each->pos());
            QVERIFY(each->screen()->availableGeometry().contains(each->geometry()));
            QCOMPARE(f.control<QLabel>(each, "lblWaiting").text(), u"12 more reminders are waiting."_s);
        }
        QCOMPARE(places.size(), 8);
        f.click(f.forms().first(), "cmdOK");
        QCOMPARE(f.forms().size(), 7); // not yet: a double click must not hit two
        QTRY_COMPARE(f.forms().size(), 8);
        QCOMPARE(f.alarms.waiting(), 11);

        f.alarms.closeAll(); // another archive
        QTest::qWait(600);
        QVERIFY(f.forms().isEmpty());
        QCOMPARE(f.value(u"SELECT COUNT(todoID) AS n FROM tab_todo WHERE alarmOn <> 0"_s), u"19"_s);
    }
};

SNIPVALE_TEST(tst_frmAlarm)
#include "tst_frmAlarm.moc"
