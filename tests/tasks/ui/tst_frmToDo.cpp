// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "jet/JetFixture.h"
#include "support/EditorFixture.h"
#include "support/Registry.h"

#include "tasks/ui/frmToDo.h"
#include "ui/richtext/RichTextBox.h"
#include "ui/widgets/OptionalDate.h"

#include <QtWidgets>

using namespace Qt::StringLiterals;

namespace {

// One to-do editor, opened as the explorer opens it.
struct Editor : EditorFixture {
    Editor()
    {
        listener.category = value(u"SELECT categoryID FROM tab_category WHERE type = 2"_s).toInt();
        open(0);
    }
    void open(qint32 id)
    {
        filter.EditingModeToDoID = id;
        show(std::make_unique<frmToDo>(EditorContext{archive, desktop, filter, listener}, nullptr));
        QVERIFY(loaded && !window->isDirty());
    }
    QCheckBox& check(const char* name) { return get<QCheckBox>(name); }
    QComboBox& combo(const char* name) { return get<QComboBox>(name); }
    OptionalDate& date(const char* name) { return get<OptionalDate>(name); }
    RichTextBox& description() { return get<RichTextBox>("rtfDescription"); }
    QDateEdit& day() { return get<QDateEdit>("dtpAlarmDay"); }
    QTimeEdit& hour() { return get<QTimeEdit>("dtpAlarmHour"); }
    QLineEdit& percent() { return box("txtPercentComplete"); }
    void saveAndStay()
    {
        QVERIFY(QTest::qWaitForWindowActive(window.get()));
        QTest::keyClick(window.get(), Qt::Key_S, Qt::ControlModifier);
    }
    void openSample() // once it is stored
    {
        cToDo todo(archive);
        todo.CategoryID = listener.category;
        todo.ToDoName = u" it's <i>"_s;
        todo.ToDoDescription = u"{\\rtf1\\ansi{\\*\\odd thing}\\b bold\\b0\\par}"_s;
        todo.StartDate = QDate(2024, 2, 29);
        todo.EndDate = QDate(2024, 1, 1); // before the start
        todo.AlarmOn = todo.Done = true;
        todo.AlarmDate = {QDate(2024, 3, 7), QTime(9, 5, 7)};
        todo.PercentComplete = 40;
        todo.Priority = 6;
        todo.Status = 3;
        todo.Resources = u"a\r\nb\u00A0c"_s;
        QVERIFY(todo.Save());
        open(todo.ToDoID);
    }
    // An expression over the first row, as plain SQLite gives it: "" for Null.
    QString row(const QString& expression)
    {
        const QString sql = u"SELECT %1 FROM tab_todo ORDER BY todoID LIMIT 1"_s.arg(expression);
        return QString::fromUtf8(RawSqlite(archive.ArchivePath()).first(sql.toUtf8().constData()));
    }
    // What another program may do to the archive.
    void runRaw(const QByteArray& sql) { QCOMPARE(RawSqlite(archive.ArchivePath()).run(sql.constData()), SQLITE_OK); }
};

} // namespace

// What only the to-do editor does; the rest is in tst_Editors.
class tst_frmToDo : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { qputenv("TZ", "America/Sao_Paulo"); }

    void everyFieldIsShownAndCounts()
    {
        Editor e;
        e.openSample();
        QCOMPARE(e.get<QLabel>("lblMessage").text() + u'|' + e.box("txtName").text(), u"it's <i>| it's <i>"_s);
        QCOMPARE(e.combo("cboPriority").currentText(), u"Urgent"_s);
        const QString all =
            u"name || description || startDate || endDate || alarmOn || alarmDate || percentComplete || "
            "priority || status || resources || done || (dueDate IS NULL)"_s;
        const QString before = e.row(all);
        QTest::keyClick(&e.percent(), Qt::Key_Return); // only the name's box saves
        QVERIFY(e.window->isVisible());
        QTest::keyClick(&e.box("txtName"), Qt::Key_Return);
        QCOMPARE(u' ' + e.row(all), before); // but for the blank before the name: opening chooses nothing
        const std::pair<const char*, Qt::Key> changes[] = {
            {"dtpStartDate", Qt::Key_Space}, {"dtpDueDate", Qt::Key_Space}, {"dtpEndDate", Qt::Key_Up},
            {"chkAlarm", Qt::Key_Space},     {"dtpAlarmDay", Qt::Key_Up},   {"dtpAlarmHour", Qt::Key_Up},
            {"cboPriority", Qt::Key_Up},     {"cboStatus", Qt::Key_Up},     {"chkDone", Qt::Key_Space},
        };
        for (const auto& [name, key] : changes) {
            e.open(1);
            QTest::keyClick(&e.get<QWidget>(name), key);
            QVERIFY2(e.window->isDirty(), name);
        }
        e.open(1);
        QTest::mouseClick(&e.check("dtpEndDate_check"), Qt::LeftButton, {}, {6, 10});
        e.check("chkAlarm").click();
        QVERIFY(!e.day().isEnabled() && !e.hour().isEnabled());
        e.combo("cboPriority").setCurrentIndex(0);
        e.check("chkDone").click();
        QCOMPARE(e.combo("cboStatus").currentIndex(), 3);
        e.click("cmdOK");
        QCOMPARE(e.row(u"(endDate IS NULL) || (alarmDate IS NULL) || alarmOn || priority || done"_s), u"11000"_s);
    }

    void percent()
    {
        struct Typed {
            const char16_t *typed, *shown, *stored;
            int bar; // percent of it that is yellow
            const char16_t *up, *down;
        };
        const Typed rows[] = {
            {u"95", u"95", u"95", 95, u"100", u"85"},    {u"85", u"85", u"85", 85, u"95", u"75"},
            {u"5", u"5", u"5", 5, u"15", u"0"},          {u"250", u"100", u"100", 100, u"100", u"90"},
            {u"-50", u"-50", u"-50", 0, u"-40", u"0"},   {u"12.5", u"12.5", u"12", 13, u"22.5", u"2.5"},
            {u"30 %", u"30 %", u"30", 30, u"40", u"20"}, {u"half", u"half", u"0", 0, u"10", u"0"},
        };
        Editor e;
        e.box("txtName").setText(u"n"_s);
        for (const auto& [typed, shown, stored, bar, up, down] : rows) {
            e.percent().clear();
            QTest::keyClicks(&e.percent(), QString::fromUtf16(typed));
            QCOMPARE(e.percent().text(), QString::fromUtf16(shown));
            QVERIFY(qAbs(e.get<QWidget>("Shape1").width() * 100.0 / 133 - bar) < 1);
            e.saveAndStay();
            QCOMPARE(e.row(u"percentComplete"_s), QString::fromUtf16(stored));
            for (const bool isUp : {true, false}) {
                e.percent().setText(QString::fromUtf16(typed));
                QTest::keyClick(&e.percent(), isUp ? Qt::Key_Up : Qt::Key_Down);
                QCOMPARE(e.percent().text(), QString::fromUtf16(isUp ? up : down));
            }
        }
        for (const int code : {1, 5, 0, 3}) {
            e.combo("cboStatus").setCurrentIndex(code);
            QCOMPARE(e.percent().text(), code == 3 ? u"100"_s : u"0"_s);
        }
        e.percent().setText(u"-40000"_s);
        e.questions.expect(u"Error in Save: The percentage is too small to be stored."_s);
        e.saveAndStay();
        QVERIFY(e.window->isDirty());
    }

    // What another program left in a row is shown, and what is not touched stays in it.
    void damagedRow()
    {
        Editor e;
        e.openSample();
        const QByteArray damaged = R"({\rtf1\ansi{\fonttbl{\f0 Arial;}\b broken \bin99999999 \u99999 {{{)";
        e.runRaw("UPDATE tab_todo SET priority = 9, status = -3, percentComplete = -7, resources = NULL, "
                 "startDate = '0001-05-06 00:00:00', alarmDate = NULL, description = '" +
                 damaged + "'");
        e.open(1);
        QCOMPARE(e.combo("cboPriority").currentIndex(), -1);
        QVERIFY(e.check("chkAlarm").isChecked()); // armed without a moment: the pickers show now
        QCOMPARE(e.day().date(), e.clock.moment.date());
        e.box("txtName").setText(u"mended"_s);
        e.click("cmdOK");
        QCOMPARE(e.row(u"name || priority || status || percentComplete || startDate || description"_s),
                 u"mended9-3-70100-01-01 00:00:00"_s + QString::fromLatin1(damaged));
        e.runRaw("UPDATE tab_todo SET percentComplete = 100000, priority = 70000, startDate = '2024-02-29 23:59:59', "
                 "dueDate = '9999-12-31 00:00:00', endDate = '2018-11-04 00:00:00', alarmDate = '2018-11-04 00:30:00'");
        e.open(1);
        e.combo("cboPriority").setCurrentIndex(2);
        e.percent().setText(u"50"_s);
        e.click("cmdOK"); // an hour that the clocks skip is kept
        QCOMPARE(e.row(u"priority || percentComplete || startDate || dueDate || endDate || alarmDate"_s),
                 u"2502024-02-29 00:00:009999-12-31 00:00:002018-11-04 00:00:002018-11-04 00:30:00"_s);
    }

    void optionalDatesAndAlarm()
    {
        Editor e;
        e.clock.moment = QDateTime(QDate(2026, 3, 4), QTime(9, 5, 31));
        e.open(0);
        OptionalDate& due = e.date("dtpDueDate");
        due.setFocus();
        QTest::keyClick(&due, Qt::Key_Space);
        QCOMPARE(due.value(), e.clock.moment.date());
        QTest::keyClick(&due, Qt::Key_Space);
        QCOMPARE(due.value(), QDate());
        QTest::keyClick(&due, Qt::Key_Up); // a change gives a date
        QVERIFY(due.isChecked());
        due.setDate(QDate(2030, 1, 31));
        due.setChecked(false);
        QTest::mouseClick(&due, Qt::LeftButton, {}, {due.width() - 6, due.height() / 2});
        emit due.calendarWidget()->clicked(due.date()); // the day that stood there
        due.calendarWidget()->window()->close();
        QWheelEvent wheel({5, 5}, due.mapToGlobal(QPointF(5, 5)), {}, {0, 120}, {}, {}, Qt::NoScrollPhase, false);
        e.box("txtName").setFocus();
        QCoreApplication::sendEvent(&due, &wheel);
        QCOMPARE(due.value(), QDate(2030, 1, 31));
        due.setDisplayFormat(u"dd.MM.yyyy"_s);
        due.setFocus();
        due.setSelectedSection(QDateTimeEdit::DaySection);
        QTest::keyClicks(&due, u"2"_s); // half typed when it is saved
        e.check("chkAlarm").click();
        e.hour().setFocus();
        e.hour().setSelectedSection(QDateTimeEdit::HourSection);
        QTest::keyClicks(&e.hour(), u"23"_s);
        e.box("txtName").setText(u"n"_s);
        e.click("cmdOK"); // the seconds are those of the moment it was opened
        QCOMPARE(e.row(u"dueDate || alarmDate || alarmOn"_s), u"2030-01-02 00:00:002026-03-04 23:05:31-1"_s);
    }

    void description()
    {
        Editor e;
        e.openSample();
        QCOMPARE(e.description().toPlainText().trimmed(), u"bold"_s);
        QTest::keyClicks(&e.description(), u"it's "_s);
        e.saveAndStay();
        QVERIFY(e.row(u"description"_s).contains("it's "_L1));
        e.description().selectAll();
        QTest::keyClick(&e.description(), Qt::Key_Delete);
        e.saveAndStay();
        QCOMPARE(e.row(u"description"_s), QString());

        const QString name = e.scratch.path(u"x.txt"_s);
        writeFile(name, "caf\xE9\r\nb\r\n");
        e.files.answers = {std::nullopt, name, e.scratch.path(u"missing"_s)};
        for (const QString& text : {QString(), u"café\nb"_s, u"café\nb"_s}) {
            if (e.files.answers.size() == 1)
                e.questions.expect(QString()); // cannot be read: said, and the text stays
            e.get<QToolBar>("tbToolBarNote").findChild<QAction*>(u"Open"_s)->trigger();
            QCOMPARE(e.description().toPlainText(), text);
            QCOMPARE(e.window->isDirty(), !text.isEmpty());
        }
        for (const QString& address : {u"https://example.org/"_s, u"file:///etc/passwd"_s})
            emit e.description().linkActivated(address);
        QCOMPARE(e.shell.opened, QStringList({u"https://example.org/"_s}));
    }
};

SNIPVALE_TEST(tst_frmToDo)
#include "tst_frmToDo.moc"
