// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "jet/RawSqlite.h"
#include "support/EditorFixture.h"
#include "support/Registry.h"
#include "tasks/AlarmFixture.h"

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
    void open(cToDo todo) // once it is stored
    {
        QVERIFY(todo.Save());
        open(todo.ToDoID);
    }
    QCheckBox& check(const char* name) { return get<QCheckBox>(name); }
    QComboBox& combo(const char* name) { return get<QComboBox>(name); }
    OptionalDate& date(const char* name) { return get<OptionalDate>(name); }
    RichTextBox& description() { return get<RichTextBox>("rtfDescription"); }
    void saveAndStay()
    {
        QVERIFY(QTest::qWaitForWindowActive(window.get()));
        QTest::keyClick(window.get(), Qt::Key_S, Qt::ControlModifier);
    }
    cToDo sample()
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
        todo.Status = 2;
        todo.Resources = u"a\r\nb\u00A0c"_s;
        return todo;
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
    void everyFieldIsShownAndRewritten();
    void percent();
    void percentSteps();
    void statusPriorityAndDone();
    void everyControlCounts();
    void damagedRow();
    void optionalDates();
    void daysOfAllYears();
    void alarm();
    void description();
    void files();
};

void tst_frmToDo::everyFieldIsShownAndRewritten()
{
    Editor e;
    QVERIFY(!e.get<QLabel>("lblCreationDate").isVisible());
    QTest::keyClicks(&e.box("txtName"), u"  O'Brien's <b> "_s);
    QCOMPARE(e.get<QLabel>("lblMessage").text(), u"O'Brien's <b>"_s);
    const QString created = QLocale().toString(e.clock.moment, QLocale::ShortFormat);
    cToDo todo = e.sample();
    QVERIFY(todo.Save());
    e.open(todo.ToDoID);
    QCOMPARE(e.get<QLabel>("lblCreationDate").text(), u"Created: %1  Last modified: %1"_s.arg(created));
    QVERIFY(e.get<QLabel>("lblCreationDate").isVisible());
    QCOMPARE(e.get<QLabel>("lblMessage").text() + u'|' + e.box("txtName").text(), u"it's <i>| it's <i>"_s);
    QCOMPARE(e.date("dtpStartDate").value(), QDate(2024, 2, 29));
    QCOMPARE(e.date("dtpDueDate").value(), QDate());
    QCOMPARE(e.date("dtpEndDate").value(), QDate(2024, 1, 1));
    QCOMPARE(e.get<QDateEdit>("dtpAlarmDay").date(), QDate(2024, 3, 7));
    QCOMPARE(e.get<QTimeEdit>("dtpAlarmHour").time(), QTime(9, 5, 7));
    QCOMPARE(e.get<QTimeEdit>("dtpAlarmHour").text(), u"9.05"_s);
    QCOMPARE(e.box("txtPercentComplete").text(), u"40"_s);
    QCOMPARE(e.combo("cboPriority").currentText() + e.combo("cboStatus").currentText(), u"UrgentIn progress"_s);
    QVERIFY(e.check("chkAlarm").isChecked() && e.check("chkDone").isChecked());
    e.statements.clear();
    QTest::keyClick(&e.box("txtPercentComplete"), Qt::Key_Return); // only the name's box saves
    QVERIFY(e.window->isVisible());
    QTest::keyClick(&e.box("txtName"), Qt::Key_Return);
    QVERIFY(!e.window->isVisible());
    QCOMPARE(e.statements.size(), 1); // the row as it was, but for the blank before its name
    QVERIFY(e.statements.first().startsWith(
        u"UPDATE tab_ToDo SET tab_todo.categoryID = %1 , tab_todo.name = 'it''s <i>' , tab_todo.description = '%2' , "
        "tab_todo.startDate = '2024-2-29' , tab_todo.dueDate = Null ,  tab_todo.endDate = '2024-1-1' , "
        "tab_todo.alarmOn = 1 ,  tab_todo.alarmDate = '2024-3-7 9:5:7' , tab_todo.percentComplete = 40 , "
        "tab_todo.priority = 6 , tab_todo.status = 2 , tab_todo.resources = 'a\r\nb\u00A0c' , tab_todo.done = 1 ,  "_s
            .arg(todo.CategoryID)
            .arg(todo.ToDoDescription)));
    e.open(todo.ToDoID);
    e.date("dtpStartDate").setChecked(false);
    QTest::mouseClick(&e.check("dtpEndDate_check"), Qt::LeftButton, {}, {6, 10});
    e.check("chkAlarm").setChecked(false);
    e.combo("cboPriority").setCurrentIndex(0);
    e.click("cmdOK");
    QCOMPARE(
        e.row(u"(startDate IS NULL) || (dueDate IS NULL) || (endDate IS NULL) || (alarmDate IS NULL) || alarmOn || "
              "priority"_s),
        u"111100"_s);
}

void tst_frmToDo::percent()
{
    struct Typed {
        const char16_t *typed, *shown, *stored;
        int bar; // percent of it that is yellow
    };
    const Typed rows[] = {
        {u"0", u"0", u"0", 0},           {u"40", u"40", u"40", 40},       {u"100", u"100", u"100", 100},
        {u"250", u"100", u"100", 100},   {u"9e999", u"100", u"100", 100}, {u"-5", u"-5", u"-5", 0},
        {u"12.5", u"12.5", u"12", 13},   {u"30 %", u"30 %", u"30", 30},   {u"half", u"half", u"0", 0},
        {u"-40000", u"-40000", u"0", 0}, // does not fit in its column
    };
    Editor e;
    e.box("txtName").setText(u"n"_s);
    for (const auto& [typed, shown, stored, bar] : rows) {
        e.box("txtPercentComplete").clear();
        QTest::keyClicks(&e.box("txtPercentComplete"), QString::fromUtf16(typed));
        QCOMPARE(e.box("txtPercentComplete").text(), QString::fromUtf16(shown));
        const QRect done = e.get<QWidget>("Shape1").geometry();
        const QRect rest = e.get<QWidget>("Shape2").geometry();
        QCOMPARE(rest.left(), done.left() + done.width());
        QCOMPARE(done.width() + rest.width(), 133);
        QVERIFY(qAbs(done.width() * 100.0 / 133 - bar) < 1);
        const bool fits = QStringView(typed) != u"-40000";
        if (!fits)
            e.questions.expect(u"Error in Save: The percentage is too small to be stored."_s);
        e.saveAndStay();
        QCOMPARE(e.row(u"percentComplete"_s), QString::fromUtf16(stored));
        QCOMPARE(e.window->isDirty(), !fits);
    }
}

void tst_frmToDo::percentSteps()
{
    struct Step {
        const char16_t *from, *up, *down;
    };
    const Step steps[] = {{u"95", u"100", u"85"}, {u"90", u"100", u"80"}, {u"91", u"100", u"81"}, {u"0", u"10", u"0"},
                          {u"x", u"10", u"0"},    {u"-50", u"-40", u"0"}, {u"5", u"15", u"0"},    {u"10", u"20", u"0"}};
    Editor e;
    auto& buttons = e.get<QAbstractSpinBox>("UpDownPercent");
    QLineEdit& text = e.box("txtPercentComplete");
    for (const auto& [from, up, down] : steps) {
        for (const bool isUp : {true, false}) {
            const QString expected = QString::fromUtf16(isUp ? up : down);
            text.setText(QString::fromUtf16(from));
            QTest::mouseClick(&buttons, Qt::LeftButton, {},
                              {buttons.width() / 2, buttons.height() * (isUp ? 1 : 3) / 4});
            QCOMPARE(text.text(), expected);
            text.setText(QString::fromUtf16(from));
            QTest::keyClick(&text, isUp ? Qt::Key_Up : Qt::Key_Down);
            QCOMPARE(text.text(), expected);
        }
    }
}

void tst_frmToDo::statusPriorityAndDone()
{
    Editor e;
    for (const int code : {1, 2, 4, 5, 0, 3}) {
        e.box("txtPercentComplete").setText(u"40"_s);
        e.combo("cboStatus").setCurrentIndex(code);
        QCOMPARE(e.box("txtPercentComplete").text(), code == 3 ? u"100"_s : u"40"_s);
    }
    e.box("txtPercentComplete").setText(u"40"_s);
    emit e.combo("cboStatus").activated(3); // chosen again
    QCOMPARE(e.box("txtPercentComplete").text(), u"100"_s);
    QVERIFY(!e.check("chkDone").isChecked());

    QSet<qint64> pictures;
    for (int code = 6; code >= 0; --code) {
        e.combo("cboPriority").setCurrentIndex(code);
        QCOMPARE(e.get<QLabel>("imgPriority").isVisible(), code > 0);
        pictures.insert(e.combo("cboPriority").itemIcon(code).cacheKey());
    }
    QCOMPARE(pictures.size(), 7);

    for (const bool done : {false, true, false}) {
        e.check("chkDone").setChecked(done);
        QCOMPARE(e.get<QLabel>("imgMessage").isVisible(), !done);
        QCOMPARE(e.check("chkDone").palette().color(QPalette::Window),
                 e.window->palette().color(done ? QPalette::Button : QPalette::Highlight));
        QCOMPARE(e.combo("cboStatus").currentIndex(), 3);
    }
    cToDo todo = e.sample();
    todo.Status = 3;
    e.open(todo); // opening chooses nothing
    QCOMPARE(e.box("txtPercentComplete").text(), u"40"_s);
}

void tst_frmToDo::everyControlCounts()
{
    Editor e;
    const std::function<void()> changes[] = {
        [&] { e.date("dtpStartDate").setChecked(true); },
        [&] { e.date("dtpDueDate").setChecked(true); },
        [&] { e.date("dtpEndDate").setDate(QDate(2020, 1, 1)); },
        [&] { e.check("chkAlarm").click(); },
        [&] { e.get<QDateEdit>("dtpAlarmDay").setDate(QDate(2020, 1, 1)); },
        [&] { e.get<QTimeEdit>("dtpAlarmHour").setTime(QTime(1, 1)); },
        [&] { e.combo("cboPriority").setCurrentIndex(1); },
        [&] { e.combo("cboStatus").setCurrentIndex(1); },
        [&] { e.check("chkDone").click(); },
    };
    for (const auto& change : changes) {
        e.open(0);
        change();
        QVERIFY(e.window->isDirty());
    }
}

// What another program left in a row is shown, and what is not touched stays in it.
void tst_frmToDo::damagedRow()
{
    Editor e;
    cToDo todo = e.sample();
    QVERIFY(todo.Save());
    const QByteArray damaged = R"({\rtf1\ansi{\fonttbl{\f0 Arial;}\b broken \bin99999999 \u99999 {{{)";
    e.runRaw("UPDATE tab_todo SET priority = 9, status = -3, percentComplete = -7, resources = NULL, "
             "startDate = NULL, alarmDate = NULL, description = '" +
             damaged + "'");
    e.open(todo.ToDoID);
    QCOMPARE(e.combo("cboPriority").currentIndex(), -1);
    QVERIFY(e.check("chkAlarm").isChecked()); // armed without a moment: the pickers show now
    QCOMPARE(e.get<QDateEdit>("dtpAlarmDay").date(), e.clock.moment.date());
    e.box("txtName").setText(u"mended"_s);
    e.click("cmdOK");
    QCOMPARE(e.row(u"name || priority || status || percentComplete || description"_s),
             u"mended9-3-7"_s + QString::fromLatin1(damaged));
    e.runRaw("UPDATE tab_todo SET percentComplete = 100000, priority = 70000");
    e.open(todo.ToDoID);
    e.combo("cboPriority").setCurrentIndex(2);
    e.box("txtPercentComplete").setText(u"50"_s);
    e.click("cmdOK");
    QCOMPARE(e.row(u"priority || percentComplete"_s), u"250"_s);
}

void tst_frmToDo::optionalDates()
{
    Editor e;
    OptionalDate& due = e.date("dtpDueDate");
    QVERIFY(!due.isChecked());
    due.setFocus();
    for (const QDate& date : {e.clock.moment.date(), QDate()}) {
        QTest::keyClick(&due, Qt::Key_Space);
        QCOMPARE(due.value(), date);
    }
    QTest::keyClick(&due, Qt::Key_Up); // a change gives a date
    QVERIFY(due.isChecked());
    due.setDate(QDate(2030, 1, 31));
    due.setChecked(false);
    QTest::mouseClick(&due, Qt::LeftButton, {}, {due.width() - 6, due.height() / 2});
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
    e.click("cmdOK");
    QCOMPARE(e.row(u"dueDate"_s), u"2030-01-02 00:00:00"_s);
}

void tst_frmToDo::daysOfAllYears()
{
    const std::pair<QByteArray, QString> rows[] = {
        {"0100-01-01 00:00:00", u"0100-01-01 00:00:00"_s},
        {"9999-12-31 00:00:00", u"9999-12-31 00:00:00"_s},
        {"0001-05-06 00:00:00", u"0100-01-01 00:00:00"_s}, // before the first
        {"2024-02-29 23:59:59", u"2024-02-29 00:00:00"_s}, // with a time
    };
    Editor e;
    cToDo todo = e.sample();
    QVERIFY(todo.Save());
    for (const auto& [stored, saved] : rows) {
        e.runRaw("UPDATE tab_todo SET startDate = '" + stored + "', alarmDate = '" + stored + "'");
        e.open(todo.ToDoID);
        e.click("cmdOK"); // what is shown is what is saved; an end before the start is the user's affair
        QCOMPARE(e.row(u"startDate"_s), saved);
        QCOMPARE(e.row(u"alarmDate"_s).left(10), saved.left(10));
        QCOMPARE(e.row(u"endDate"_s), u"2024-01-01 00:00:00"_s);
    }
}

void tst_frmToDo::alarm()
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

    const ZoneGuard guard; // an hour that the clocks skip is kept
    ZoneGuard::set("America/Sao_Paulo");
    e.runRaw("UPDATE tab_todo SET alarmOn = -1, alarmDate = '2018-11-04 00:30:00', dueDate = '2018-11-04 00:00:00'");
    e.open(1);
    e.click("cmdOK");
    QCOMPARE(e.row(u"dueDate || '|' || alarmDate"_s), u"2018-11-04 00:00:00|2018-11-04 00:30:00"_s);
}

void tst_frmToDo::description()
{
    Editor e;
    QStringList keys;
    for (const QAction* action : e.get<QToolBar>("tbToolBarNote").actions())
        if (!action->isSeparator() && !action->objectName().isEmpty())
            keys << action->objectName();
    QCOMPARE(keys.join(u'|'),
             u"New|Open|Save|Print|Cut|Copy|Paste|Bold|Italic|Underline|Align Left|Center|Align Right|Color|Numbers|"
             "Bullets|Outdent|Indent"_s);
    QStringList items;
    for (const QAction* action : e.description().menu()->actions())
        items << action->text();
    for (const QString& key : {u"Bold"_s, u"Italic"_s, u"Underline"_s, u"Align Left"_s, u"Center"_s, u"Align Right"_s})
        QVERIFY2(items.contains(key), qPrintable(key));

    const cToDo todo = e.sample();
    e.open(todo);
    QCOMPARE(e.description().toPlainText().trimmed(), u"bold"_s);
    e.box("txtName").setText(u"renamed"_s);
    e.saveAndStay();
    QCOMPARE(e.row(u"description"_s), todo.ToDoDescription); // its bytes stay until it is edited
    QTest::keyClicks(&e.description(), u"it's "_s);
    e.saveAndStay();
    QVERIFY(e.row(u"description"_s).contains("it's "_L1));
    e.description().selectAll();
    QTest::keyClick(&e.description(), Qt::Key_Delete);
    e.click("cmdOK");
    QCOMPARE(e.row(u"description"_s), QString());
}

void tst_frmToDo::files()
{
    Editor e;
    const QString name = e.scratch.path(u"x.txt"_s);
    writeBytes(name, "caf\xE9\r\nb\r\n");
    e.files.answers = {std::nullopt, name, e.scratch.path(u"missing"_s)};
    for (const QString& text : {QString(), u"café\nb"_s, u"café\nb"_s}) {
        if (e.files.answers.size() == 1)
            e.questions.expect(QString()); // cannot be read: said, and the text stays
        e.get<QToolBar>("tbToolBarNote").findChild<QAction*>(u"Open"_s)->trigger();
        QCOMPARE(e.description().toPlainText(), text);
        QCOMPARE(e.window->isDirty(), !text.isEmpty());
    }
    QVERIFY(e.questions.asked.last().text.startsWith("Error in OpenFile: "_L1));
    QCOMPARE(e.files.asked.first(), u"Apri |All Files (*.*) |*.*"_s);
    for (const QString& address : {u"https://example.org/"_s, u"file:///etc/passwd"_s})
        emit e.description().linkActivated(address);
    QCOMPARE(e.shell.opened, QStringList({u"https://example.org/"_s}));
}

SNIPVALE_TEST(tst_frmToDo)
#include "tst_frmToDo.moc"
