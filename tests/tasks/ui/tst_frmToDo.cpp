// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Registry.h"
#include "tasks/ui/ToDoEditor.h"

using namespace Qt::StringLiterals;

class tst_frmToDo : public QObject {
    Q_OBJECT
private slots:
    void newToDoIsInsertedOnceThenUpdated();
    void existingToDoIsShownAndRewritten();
    void emptiesAreNull();
    void percent_data();
    void percent();
    void percentSteps();
    void statusPriorityAndDone();
    void dirtyWindowAsks();
    void nameIsRequired();
    void keyboard();
    void failedSaveKeepsTheWindow();
    void lockedArchive();
    void damagedRow();
    void unreadableToDoIsRefused();
};

void tst_frmToDo::newToDoIsInsertedOnceThenUpdated()
{
    Editor e;
    QVERIFY(e.loaded && !e.window->isDirty());
    QVERIFY(!e.get<QLabel>("lblCreationDate").isVisible());
    QTest::keyClicks(&e.box("txtName"), u"  O'Brien's <b> "_s);
    QCOMPARE(e.get<QLabel>("lblMessage").text(), u"O'Brien's <b>"_s);
    e.get<QPlainTextEdit>("txtResources").setPlainText(u"it's\nמ"_s);
    e.click("cmdOK");
    QVERIFY(!e.window->isVisible() && !e.window->isDirty());
    QCOMPARE(e.filter.EditingModeToDoID, 1);
    QCOMPARE(e.row(u"name || '|' || resources || '|' || categoryID || '|' || percentComplete || priority || status"_s),
             u"O'Brien's <b>|it's\nמ|%1|000"_s.arg(e.listener.category));
    e.window->show(); // a second OK on the same window
    e.box("txtName").setText(u"renamed"_s);
    e.click("cmdOK");
    QCOMPARE(e.row(u"name"_s) + e.count(), u"renamed1"_s);
    QCOMPARE(e.listener.saved, QStringList({u"1 T_ID"_s, u"1 T_ID"_s}));
}

void tst_frmToDo::existingToDoIsShownAndRewritten()
{
    Editor e;
    e.clock.moment = QDateTime(QDate(2025, 1, 2), QTime(3, 4));
    cToDo todo = e.sample();
    QVERIFY(todo.Save());
    e.clock.moment = QDateTime(QDate(2026, 1, 2), QTime(3, 4));
    e.open(todo.ToDoID);
    QVERIFY(e.loaded && !e.window->isDirty());
    const QString created = QLocale().toString(QDateTime(QDate(2025, 1, 2), QTime(3, 4)), QLocale::ShortFormat);
    QCOMPARE(e.get<QLabel>("lblCreationDate").text(), u"Created: %1  Last modified: %1"_s.arg(created));
    QVERIFY(e.get<QLabel>("lblCreationDate").isVisible());
    QCOMPARE(e.get<QLabel>("lblMessage").text(), u"it's <i>"_s);
    QCOMPARE(e.box("txtName").text(), u" it's <i>"_s);
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
    e.click("cmdOK");
    QCOMPARE(e.statements.size(), 1); // the row as it was, but for the blank before its name
    QVERIFY(e.statements.first().startsWith(
        u"UPDATE tab_ToDo SET tab_todo.categoryID = %1 , tab_todo.name = 'it''s <i>' , tab_todo.description = '%2' , "
        "tab_todo.startDate = '2024-2-29' , tab_todo.dueDate = Null ,  tab_todo.endDate = '2024-1-1' , "
        "tab_todo.alarmOn = 1 ,  tab_todo.alarmDate = '2024-3-7 9:5:7' , tab_todo.percentComplete = 40 , "
        "tab_todo.priority = 6 , tab_todo.status = 2 , tab_todo.resources = 'a\r\nb\u00A0c' , tab_todo.done = 1 ,  "_s
            .arg(todo.CategoryID)
            .arg(todo.ToDoDescription)));
    QCOMPARE(e.listener.saved, QStringList({u"1 T_ID"_s}));
}

void tst_frmToDo::emptiesAreNull()
{
    Editor e;
    cToDo todo = e.sample();
    QVERIFY(todo.Save());
    e.open(todo.ToDoID);
    e.date("dtpStartDate").setChecked(false);
    QTest::mouseClick(&e.check("dtpEndDate_check"), Qt::LeftButton, {}, {6, 10});
    e.check("chkAlarm").setChecked(false);
    e.combo("cboPriority").setCurrentIndex(0);
    e.click("cmdOK");
    QCOMPARE(e.row(u"startDate IS NULL AND dueDate IS NULL AND endDate IS NULL AND alarmDate IS NULL AND alarmOn = 0 "
                   "AND priority = 0"_s),
             u"1"_s);
    e.open(0);
    e.box("txtName").setText(u"new"_s);
    e.click("cmdOK");
    QCOMPARE(e.value(u"SELECT COUNT(todoID) AS n FROM tab_todo WHERE startDate IS NULL AND dueDate IS NULL AND endDate "
                     "IS NULL AND alarmDate IS NULL AND alarmOn = 0"_s),
             u"2"_s);
}

void tst_frmToDo::percent_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<QString>("stored");
    QTest::addColumn<int>("bar"); // percent of it that is yellow
    const auto row = [](const char* typed, const char* shown, const char* stored, int bar) {
        QTest::newRow(typed) << QString::fromLatin1(typed) << QString::fromLatin1(shown) << QString::fromLatin1(stored)
                             << bar;
    };
    row("0", "0", "0", 0);
    row("40", "40", "40", 40);
    row("100", "100", "100", 100);
    row("250", "100", "100", 100);
    row("100000", "100", "100", 100);
    row("9e999", "100", "100", 100);
    row("-5", "-5", "-5", 0);
    row("-40000", "-40000", "", 0); // does not fit in its column
    row("12.5", "12.5", "12", 13);
    row("30 %", "30 %", "30", 30);
    row("half", "half", "0", 0);
    row("", "", "0", 0);
    row("nan", "nan", "0", 0);
}

void tst_frmToDo::percent()
{
    QFETCH(const QString, typed);
    QFETCH(const QString, shown);
    QFETCH(const QString, stored);
    QFETCH(const int, bar);
    Editor e;
    e.box("txtName").setText(u"n"_s);
    e.box("txtPercentComplete").clear();
    QTest::keyClicks(&e.box("txtPercentComplete"), typed);
    QCOMPARE(e.box("txtPercentComplete").text(), shown);
    const QRect done = e.get<QWidget>("Shape1").geometry();
    const QRect rest = e.get<QWidget>("Shape2").geometry();
    QCOMPARE(rest.left(), done.left() + done.width());
    QCOMPARE(done.width() + rest.width(), 133);
    QVERIFY(qAbs(done.width() * 100.0 / 133 - bar) < 1);
    if (stored.isEmpty())
        e.questions.expect(u"Error in Save: The percentage is too small to be stored."_s);
    e.click("cmdOK");
    QCOMPARE(e.row(u"percentComplete"_s), stored);
    QCOMPARE(e.window->isVisible(), stored.isEmpty());
}

void tst_frmToDo::percentSteps()
{
    struct Step {
        const char16_t* from;
        bool up;
        const char16_t* to;
    };
    const Step steps[] = {{u"95", true, u"100"},  {u"90", true, u"100"}, {u"0", true, u"10"},  {u"x", true, u"10"},
                          {u"-50", true, u"-40"}, {u"5", false, u"0"},   {u"15", false, u"5"}, {u"10", false, u"0"},
                          {u"-5", false, u"0"},   {u"", false, u"0"}};
    Editor e;
    auto& buttons = e.get<QAbstractSpinBox>("UpDownPercent");
    QLineEdit& text = e.box("txtPercentComplete");
    for (const Step& step : steps) {
        const QPoint at(buttons.width() / 2, step.up ? buttons.height() / 4 : buttons.height() * 3 / 4);
        text.setText(QString::fromUtf16(step.from));
        QTest::mouseClick(&buttons, Qt::LeftButton, {}, at);
        QCOMPARE(text.text(), QString::fromUtf16(step.to));
        text.setText(QString::fromUtf16(step.from));
        QTest::keyClick(&text, step.up ? Qt::Key_Up : Qt::Key_Down);
        QCOMPARE(text.text(), QString::fromUtf16(step.to));
    }
}

void tst_frmToDo::statusPriorityAndDone()
{
    Editor e;
    e.box("txtPercentComplete").setText(u"40"_s);
    for (const int code : {1, 2, 4, 5, 0}) {
        e.combo("cboStatus").setCurrentIndex(code);
        QCOMPARE(e.box("txtPercentComplete").text(), u"40"_s);
    }
    e.combo("cboStatus").setCurrentIndex(3);
    QCOMPARE(e.box("txtPercentComplete").text(), u"100"_s);
    QVERIFY(!e.check("chkDone").isChecked());
    e.box("txtPercentComplete").setText(u"40"_s);
    emit e.combo("cboStatus").activated(3); // chosen again
    QCOMPARE(e.box("txtPercentComplete").text(), u"100"_s);

    QVERIFY(!e.get<QLabel>("imgPriority").isVisible());
    QSet<QByteArray> pictures;
    for (int code = 1; code <= 6; ++code) {
        e.combo("cboPriority").setCurrentIndex(code);
        QVERIFY(e.get<QLabel>("imgPriority").isVisible());
        const QImage picture = e.get<QLabel>("imgPriority").pixmap().toImage();
        pictures.insert(QByteArray(reinterpret_cast<const char*>(picture.constBits()), picture.sizeInBytes()));
    }
    QCOMPARE(pictures.size(), 6);
    e.combo("cboPriority").setCurrentIndex(0);
    QVERIFY(!e.get<QLabel>("imgPriority").isVisible());

    const auto colour = [&] { return e.check("chkDone").palette().color(QPalette::Window); };
    QVERIFY(e.get<QLabel>("imgMessage").isVisible());
    QCOMPARE(colour(), e.window->palette().color(QPalette::Highlight));
    e.check("chkDone").click();
    QVERIFY(!e.get<QLabel>("imgMessage").isVisible());
    QCOMPARE(colour(), e.window->palette().color(QPalette::Button));
    QCOMPARE(e.combo("cboStatus").currentIndex(), 3);
    e.check("chkDone").click();
    QVERIFY(e.get<QLabel>("imgMessage").isVisible());

    cToDo todo = e.sample();
    todo.Status = 3;
    QVERIFY(todo.Save());
    e.open(todo.ToDoID); // opening chooses nothing
    QCOMPARE(e.box("txtPercentComplete").text(), u"40"_s);
}

void tst_frmToDo::dirtyWindowAsks()
{
    Editor e;
    QTest::keyClick(e.window.get(), Qt::Key_Escape); // nothing unsaved: no question
    QVERIFY(!e.window->isVisible());
    using Change = std::function<void()>;
    const std::pair<const char*, Change> changes[] = {
        {"name", [&] { QTest::keyClicks(&e.box("txtName"), u"x"_s); }},
        {"description", [&] { QTest::keyClicks(&e.get<RichTextBox>("rtfDescription"), u"x"_s); }},
        {"resources", [&] { QTest::keyClicks(&e.get<QPlainTextEdit>("txtResources"), u"x"_s); }},
        {"percent", [&] { e.box("txtPercentComplete").setText(u"1"_s); }},
        {"start", [&] { e.date("dtpStartDate").setChecked(true); }},
        {"end", [&] { e.date("dtpEndDate").setDate(QDate(2020, 1, 1)); }},
        {"alarm", [&] { e.check("chkAlarm").click(); }},
        {"alarm day", [&] { e.get<QDateEdit>("dtpAlarmDay").setDate(QDate(2020, 1, 1)); }},
        {"alarm time", [&] { e.get<QTimeEdit>("dtpAlarmHour").setTime(QTime(1, 1)); }},
        {"priority", [&] { e.combo("cboPriority").setCurrentIndex(1); }},
        {"status", [&] { e.combo("cboStatus").setCurrentIndex(1); }},
        {"done", [&] { e.check("chkDone").click(); }},
    };
    for (const auto& [what, change] : changes) {
        e.open(0);
        QVERIFY2(!e.window->isDirty(), what);
        change();
        QVERIFY2(e.window->isDirty(), what);
    }
    e.questions.expect(u"Close without saving changes?"_s, Answer::No);
    QVERIFY(!e.window->close());
    QCOMPARE(e.questions.asked.last().style, MessageStyle::YesNoDefaultNo);
    e.click("cmdClose"); // says what it does
    QVERIFY(!e.window->isVisible());
    e.window->show();
    e.questions.expect(u"Close without saving changes?"_s, Answer::Yes);
    QTest::keyClick(e.window.get(), Qt::Key_Escape);
    QVERIFY(!e.window->isVisible());
    QCOMPARE(e.count(), u"0"_s);
}

void tst_frmToDo::nameIsRequired()
{
    Editor e;
    e.box("txtName").setText(u" \t "_s);
    e.get<QPlainTextEdit>("txtResources").setPlainText(u"precious"_s);
    e.questions.expect(u"Please choose a name!"_s);
    e.click("cmdOK");
    QCOMPARE(e.questions.asked.last().style, MessageStyle::Information);
    QVERIFY(e.window->isVisible() && e.window->isDirty());
    QCOMPARE(e.get<QPlainTextEdit>("txtResources").toPlainText(), u"precious"_s);
    QCOMPARE(e.count() + QString::number(e.filter.EditingModeToDoID), u"00"_s);
    QVERIFY(e.listener.saved.isEmpty());
}

void tst_frmToDo::keyboard()
{
    Editor e;
    e.check("chkAlarm").setChecked(true);
    QVERIFY(QTest::qWaitForWindowActive(e.window.get()));
    e.date("dtpStartDate").setDisplayFormat(u"yyyy"_s); // one stop instead of one for each part
    e.date("dtpDueDate").setDisplayFormat(u"yyyy"_s);
    e.date("dtpEndDate").setDisplayFormat(u"yyyy"_s);
    e.get<QDateEdit>("dtpAlarmDay").setDisplayFormat(u"yyyy"_s);
    e.get<QTimeEdit>("dtpAlarmHour").setDisplayFormat(u"H"_s);
    QStringList order;
    for (QWidget* at = QApplication::focusWidget(); order.size() < 24; at = QApplication::focusWidget()) {
        if (!at->objectName().isEmpty()) // not the first button of the description's bar
            order << at->objectName();
        if (at->objectName() == "cmdClose"_L1)
            break;
        if (at->objectName() == "rtfDescription"_L1)
            e.check("dtpStartDate_check").setFocus(); // Tab writes a tab there
        else
            QTest::keyClick(at, Qt::Key_Tab);
    }
    QCOMPARE(order.join(u' '),
             u"txtName cmbFontName cmbFontSize rtfDescription dtpStartDate_check dtpStartDate dtpDueDate_check "
             "dtpDueDate dtpEndDate_check dtpEndDate chkAlarm dtpAlarmDay dtpAlarmHour cboPriority cboStatus "
             "txtPercentComplete chkDone txtResources cmdOK cmdClose"_s);
    e.box("txtName").setText(u"n"_s);
    QTest::keyClick(&e.box("txtPercentComplete"), Qt::Key_Return); // only the name's box saves
    QVERIFY(e.window->isVisible());
    QTest::keyClick(&e.box("txtName"), Qt::Key_Return);
    QVERIFY(!e.window->isVisible());
    QCOMPARE(e.count(), u"1"_s);
}

void tst_frmToDo::failedSaveKeepsTheWindow()
{
    Editor e;
    e.box("txtName").setText(u"precious"_s);
    e.okFails(u"Error in ToDo.Save: "_s);
    QCOMPARE(e.filter.EditingModeToDoID, 0);
    e.saveAndStay();
    QCOMPARE(e.row(u"name"_s), u"precious"_s);
    e.box("txtPercentComplete").setText(u"20"_s);
    e.okFails(u"Error in Save: "_s);
    e.saveAndStay();
    QCOMPARE(e.row(u"percentComplete"_s), u"20"_s);
    e.runRaw("DELETE FROM tab_todo");
    e.box("txtName").setText(u"late"_s);
    e.questions.expect(u"Error in Save: The to-do is no longer in the archive."_s);
    e.click("cmdOK");
    QVERIFY(e.window->isVisible() && e.window->isDirty());
    QCOMPARE(e.listener.saved.size(), 2); // only what was written
}

void tst_frmToDo::lockedArchive()
{
    Editor e;
    cToDo todo = e.sample();
    QVERIFY(todo.Save());
    e.open(todo.ToDoID);
    e.box("txtName").setText(u"changed"_s);
    RawSqlite other(e.archive.ArchivePath());
    QCOMPARE(other.run("BEGIN EXCLUSIVE"), SQLITE_OK);
    e.questions.expect(QString());
    e.click("cmdOK");
    QVERIFY(e.questions.asked.last().text.startsWith("Error in Save: "_L1));
    QVERIFY(e.window->isVisible() && e.window->isDirty() && e.listener.saved.isEmpty());
    QCOMPARE(other.run("ROLLBACK"), SQLITE_OK);
    e.click("cmdOK");
    QCOMPARE(e.row(u"name"_s), u"changed"_s);
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
    QVERIFY(e.loaded && !e.window->isDirty());
    QCOMPARE(e.combo("cboPriority").currentIndex(), -1);
    QCOMPARE(e.box("txtPercentComplete").text(), u"-7"_s);
    QVERIFY(e.check("chkAlarm").isChecked()); // armed without a moment: the pickers show now
    QCOMPARE(e.get<QDateEdit>("dtpAlarmDay").date(), e.clock.moment.date());
    e.box("txtName").setText(u"mended"_s);
    e.click("cmdOK");
    QCOMPARE(e.row(u"name || priority || status || percentComplete"_s), u"mended9-3-7"_s);
    QCOMPARE(e.row(u"description"_s), QString::fromLatin1(damaged));
    e.runRaw("UPDATE tab_todo SET percentComplete = 100000, priority = 70000");
    e.open(todo.ToDoID);
    QVERIFY(e.loaded);
    e.combo("cboPriority").setCurrentIndex(2);
    e.box("txtPercentComplete").setText(u"50"_s);
    e.click("cmdOK");
    QCOMPARE(e.row(u"name || priority || percentComplete"_s), u"mended250"_s);
}

void tst_frmToDo::unreadableToDoIsRefused()
{
    Editor().refusesWhatItCannotRead(u"The to-do is no longer in the archive."_s);
}

SNIPVALE_TEST(tst_frmToDo)
#include "tst_frmToDo.moc"
