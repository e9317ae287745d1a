// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Registry.h"
#include "support/UiSupport.h"
#include "tasks/AlarmFixture.h"

#include "tasks/ui/frmAlarm.h"

#include <QtTest>
#include <QtWidgets>

using namespace Qt::StringLiterals;

namespace {

struct Reminders : AlarmFixture {
    Reminders() { QFile::copy(QStringLiteral(SHIPPED_DIR "/alert.wav"), scratch.path(u"alert.wav"_s)); }
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
    AlarmWindows alarms{archive, sound, scratch.folder(), nullptr};
    QDateTime before = clock.moment.addSecs(-60);
};

} // namespace

class tst_frmAlarm : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedKingdom)); }
    void whatItShows();
    void stopAndNext();
    void closingLeavesItArmed();
    void answersBehindAModalWindow();
    void failsMeanwhile();
    void manyAtOnce();
};

void tst_frmAlarm::whatItShows()
{
    Reminders f;
    f.clock.moment = QDateTime(QDate(2026, 3, 4), QTime(15, 7, 9));
    f.add(QDateTime(QDate(2024, 3, 7), QTime(9, 5)), true, u"Tom & <b>Jerry</b>'s"_s);
    const QString wide(255, u'W'); // must not make a window as wide as the screen
    f.add(QDateTime(QDate(2024, 3, 7), QTime(9, 5)), true, wide);
    f.alarms.check();
    QTRY_COMPARE(f.forms().size(), 2);
    frmAlarm* form = f.forms().first();
    QCOMPARE(f.control<QLabel>(form, "lblName").text(), u"SnipVale alarm for: 'Tom & <b>Jerry</b>'s'"_s);
    QCOMPARE(f.control<QLabel>(form, "lblAlarmDateTime").text(), u"Thursday, 7 March 2024 09:05"_s);
    QCOMPARE(f.control<QDateEdit>(form, "dtpAlarmDay").date(), QDate(2026, 3, 4));
    QCOMPARE(f.control<QTimeEdit>(form, "dtpAlarmHour").time(), QTime(15, 7, 9));
    QCOMPARE(f.control<QTimeEdit>(form, "dtpAlarmHour").text(), u"15.07"_s);
    QVERIFY(f.control<QRadioButton>(form, "optAlarm_0").isChecked());
    for (const char* picker : {"dtpAlarmDay", "dtpAlarmHour"})
        for (const bool isNext : {true, false}) {
            f.click(form, isNext ? "optAlarm_1" : "optAlarm_0");
            QCOMPARE(f.control<QWidget>(form, picker).isEnabled(), isNext);
        }
    QVERIFY(f.forms().last()->width() < 600 && f.forms().last()->height() < 500);
    QCOMPARE(f.sound.heard, QStringList(2, f.scratch.path(u"alert.wav"_s)));

    frmAlarm unset(f.archive); // armed without a moment: only another program writes that
    unset.ToDoID = f.add(QDateTime());
    QVERIFY(unset.ShowAlert());
    QCOMPARE(f.control<QLabel>(&unset, "lblAlarmDateTime").text(), u"???"_s);
}

void tst_frmAlarm::stopAndNext()
{
    Reminders f;
    const qint32 stopped = f.add(f.before);
    const qint32 moved = f.add(f.before);
    const qint32 edited = f.add(f.before);
    QSignalSpy pending(&f.alarms, &AlarmWindows::pendingChanged);
    f.alarms.check();
    QTRY_COMPARE(f.forms().size(), 3);
    const QList<frmAlarm*> forms = f.forms();
    f.click(forms[0], "cmdOK");
    f.run(u"UPDATE tab_todo SET alarmDate = '2027-1-1 9:0:0' WHERE todoID = 3"_s);
    f.click(forms[2], "cmdOK"); // an editor was quicker: that one is not stopped
    QTRY_COMPARE(f.only(), forms[1]);
    QCOMPARE(f.column(u"alarmOn"_s, stopped) + f.column(u"alarmDate"_s, stopped), u"0"_s);
    QCOMPARE(f.column(u"alarmOn"_s, edited), u"-1"_s);
    f.click(forms[1], "optAlarm_1");
    f.control<QDateEdit>(forms[1], "dtpAlarmDay").setDate(QDate(2026, 12, 31));
    QTimeEdit& hour = f.control<QTimeEdit>(forms[1], "dtpAlarmHour");
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

void tst_frmAlarm::closingLeavesItArmed()
{
    Reminders f;
    const qint32 id = f.add(f.before);
    QSignalSpy quits(qApp, &QGuiApplication::lastWindowClosed);
    const std::function<void(frmAlarm*)> ways[] = {[&](frmAlarm* form) { f.click(form, "cmdClose"); },
                                                   [](frmAlarm* form) { form->close(); },
                                                   [](frmAlarm* form) { QTest::keyClick(form, Qt::Key_Escape); }};
    for (const auto& close : ways) {
        f.alarms.check();
        QTRY_VERIFY(f.only());
        f.alarms.check(); // the next tick: no second one
        QTest::qWait(20);
        QPointer<frmAlarm> form = f.only();
        close(form);
        QTRY_VERIFY(!form); // it is gone, not only hidden
        QCOMPARE(f.column(u"alarmOn"_s, id) + f.column(u"alarmDate"_s, id), u"-12026-03-04 09:04:00"_s);
    }
    QVERIFY(quits.isEmpty()); // the program goes on when a pop-up was its last window
    QCOMPARE(f.sound.heard.size(), 3);
}

// A reminder that lies over a long edit must not stay there until the edit ends.
void tst_frmAlarm::answersBehindAModalWindow()
{
    Reminders f;
    const qint32 early = f.add(f.before);
    f.alarms.check();
    QTRY_VERIFY(f.only());
    const qint32 late = f.add(f.before);
    QDialog editor;
    QTimer::singleShot(0, &editor, [&] {
        f.alarms.check(); // one pop-up before the editor, one after it
        QTRY_COMPARE(f.forms().size(), 2);
        QDialog question(&editor);
        QTimer::singleShot(0, &question, [&] {
            f.click(f.forms().last(), "cmdOK");
            QTRY_COMPARE(f.forms().size(), 1);
            question.accept();
        });
        question.exec();
        f.click(f.only(), "cmdOK");
        QTRY_VERIFY(f.forms().isEmpty());
        editor.accept();
    });
    QTimer::singleShot(10000, &editor, &QDialog::reject);
    QCOMPARE(editor.exec(), int(QDialog::Accepted));
    QCOMPARE(f.column(u"alarmOn"_s, early) + f.column(u"alarmOn"_s, late), u"00"_s);
}

void tst_frmAlarm::failsMeanwhile()
{
    Reminders f;
    const qint32 id = f.add(f.before);
    f.alarms.check();
    QTRY_VERIFY(f.only());
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

void tst_frmAlarm::manyAtOnce()
{
    Reminders f;
    f.addMany(500);
    f.run(u"UPDATE tab_todo SET name = '%1' WHERE name = 'n8'"_s.arg(u"ww "_s.repeated(80))); // in the lowest place
    QElapsedTimer busy;
    busy.start();
    qint64 longest = 0; // how long the rest of the program had to wait for its turn
    QTimer other;
    other.callOnTimeout(&other, [&] { longest = std::max(longest, busy.restart()); });
    other.start(0);
    f.alarms.check();
    QTRY_COMPARE(f.forms().size(), AlarmWindows::most);
    QTest::qWait(50);
    other.stop();
    QVERIFY2(longest < 1000, qPrintable(QString::number(longest)));
    QCOMPARE(f.alarms.waiting(), 500 - AlarmWindows::most);
    QSet<QPoint> places;
    for (frmAlarm* each : f.forms()) {
        places.insert(each->pos());
        QVERIFY(each->screen()->availableGeometry().contains(each->geometry()));
        QCOMPARE(f.control<QLabel>(each, "lblWaiting").text(), u"492 more reminders are waiting."_s);
    }
    QCOMPARE(places.size(), AlarmWindows::most);
    frmAlarm* form = f.forms().first();
    const qint32 answered = form->ToDoID;
    f.click(form, "cmdOK");
    QCOMPARE(f.forms().size(), AlarmWindows::most - 1); // not yet: a double click must not hit two
    QTRY_COMPARE(f.forms().size(), AlarmWindows::most);
    QCOMPARE(f.alarms.waiting(), 500 - AlarmWindows::most - 1);
    QVERIFY(f.forms().first()->ToDoID != answered);

    QSignalSpy pending(&f.alarms, &AlarmWindows::pendingChanged); // another archive
    f.alarms.closeAll();
    QCOMPARE(pending.count(), 1);
    QTest::qWait(600);
    QVERIFY(f.forms().isEmpty());
    QCOMPARE(f.value(u"SELECT COUNT(todoID) AS n FROM tab_todo WHERE alarmOn <> 0"_s), u"499"_s);
}

SNIPVALE_TEST(tst_frmAlarm)
#include "tst_frmAlarm.moc"
