// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/EditorFixture.h"
#include "support/Registry.h"
#include "vault/VaultFixture.h"

#include "desktop/TextForms.h"
#include "memo/cBookmark.h"
#include "memo/cMemo.h"
#include "memo/ui/frmBookmark.h"
#include "memo/ui/frmSnipVale.h"
#include "tasks/ui/frmToDo.h"
#include "vault/ui/frmPassword.h"

#include <QtWidgets>

namespace {

struct Kind {
    QString word; // also the name of its data row
    QString table, key, nameColumn;
    QString nameBox;
    QString texts; // what can be typed into
    bool hasApply, cancelAsks;
    QString savedKey; // what the explorer is told
    QString failedSave; // of a new one
    QString tabOrder;
};

const Kind kinds[] = {
    {u"memo"_s, u"tab_memo"_s, u"memoID"_s, u"memoName"_s, u"txtMemoName"_s,
     u"txtMemoName txtMemoDescription txtMemoLink rtfMemoNotes codeEditor"_s, true, true, u"1 M_ID"_s, u"Save"_s,
     u"txtMemoName cboMemoType txtMemoDescription txtMemoLink cmdUrl imgCodePlus imgCodeMinus imgCodeEqual codeEditor "
     "imgNotePlus imgNoteMinus imgNoteEqual cmbFontName cmbFontSize rtfMemoNotes cmdOK cmdApply cmdClose"_s},
    {u"bookmark"_s, u"tab_bookmark"_s, u"bookmarkID"_s, u"name"_s, u"txtName"_s,
     u"txtName txtKeywords txtLink txtDescription"_s, true, false, u"1 B_ID"_s, u"Save"_s,
     u"txtName txtKeywords txtDescription txtLink cmdGo cmdOK cmdApply cmdClose"_s},
    {u"to-do"_s, u"tab_todo"_s, u"todoID"_s, u"name"_s, u"txtName"_s,
     u"txtName rtfDescription txtPercentComplete txtResources"_s, false, false, u"1 T_ID"_s, u"ToDo.Save"_s,
     u"txtName cmbFontName cmbFontSize rtfDescription dtpStartDate_check dtpStartDate dtpDueDate_check dtpDueDate "
     "dtpEndDate_check dtpEndDate chkAlarm dtpAlarmDay dtpAlarmHour cboPriority cboStatus txtPercentComplete chkDone "
     "txtResources cmdOK cmdClose"_s},
    {u"account"_s, u"tab_password"_s, u"passwordID"_s, u"title"_s, u"txtTitle"_s,
     u"txtTitle txtDescription txtUserName txtPassword txtURL txtNotes"_s, false, true, QString(), u"Save"_s,
     QString()},
};

// The editor of the kind that the data row names, opened as the program opens it.
struct Editor : VaultOn<EditorFixture> {
    Editor() { listener.category = value(u"SELECT MIN(categoryID) FROM tab_category"_s).toInt(); }

    void open(qint32 id)
    {
        const EditorContext context{archive, desktop, filter, listener};
        edited() = id;
        if (kind.word == "memo"_L1)
            show(std::make_unique<frmSnipVale>(context, memo, nullptr));
        else if (kind.word == "bookmark"_L1)
            show(std::make_unique<frmBookmark>(context, bookmark, nullptr));
        else if (kind.word == "to-do"_L1)
            show(std::make_unique<frmToDo>(context, nullptr));
        else
            show(std::make_unique<frmPassword>(PasswordContext{archive, desktop, filter, password, 0}, nullptr));
    }
    qint32& edited()
    {
        return kind.word == "memo"_L1    ? filter.EditingModeMemoID
            : kind.word == "bookmark"_L1 ? filter.EditingModeBookmarkID
            : kind.word == "to-do"_L1    ? filter.EditingModeToDoID
                                         : filter.EditingModePasswordID;
    }
    QLineEdit& nameBox() { return box(qPrintable(kind.nameBox)); }
    void type(const QString& name) // and what else the window asks for
    {
        if (kind.word == "account"_L1)
            for (const char* field : {"txtUserName", "txtPassword"})
                box(field).setText(u"x"_s);
        nameBox().setFocus();
        QTest::keyClicks(&nameBox(), name);
    }
    void applyByKey() { QTest::keyClick(window.get(), Qt::Key_S, Qt::ControlModifier); }
    QString count() { return value(u"SELECT COUNT(*) AS n FROM "_s + kind.table); }
    QString storedName() { return value(u"SELECT %1 FROM %2"_s.arg(kind.nameColumn, kind.table)); }
    // All that the window shows in its boxes and labels.
    QString shown()
    {
        QStringList texts;
        for (const QLineEdit* line : window->findChildren<QLineEdit*>())
            texts << line->text();
        for (const QPlainTextEdit* edit : window->findChildren<QPlainTextEdit*>())
            texts << edit->toPlainText();
        for (const QTextEdit* edit : window->findChildren<QTextEdit*>())
            texts << edit->toPlainText();
        for (const QLabel* label : window->findChildren<QLabel*>())
            texts << label->text();
        return texts.join(u'|');
    }

    const Kind kind = *std::find_if(std::begin(kinds), std::end(kinds), [](const Kind& each) {
        return each.word == QString::fromLatin1(QTest::currentDataTag());
    });
    cMemo memo{archive};
    cBookmark bookmark{archive};
};

void kindRows()
{
    QTest::addColumn<int>("unused");
    for (const Kind& kind : kinds)
        QTest::newRow(qPrintable(kind.word)) << 0;
}

const QString keepsChanges = u"Close without saving changes?"_s;

} // namespace

// What the four editors do alike.
class tst_Editors : public QObject {
    Q_OBJECT
private slots:
    void newOneIsInsertedOnceThenUpdated_data() { kindRows(); }
    void newOneIsInsertedOnceThenUpdated();
    void nameIsRequired_data() { kindRows(); }
    void nameIsRequired();
    void closingAsks_data() { kindRows(); }
    void closingAsks();
    void failedSaveKeepsTheWindow_data() { kindRows(); }
    void failedSaveKeepsTheWindow();
    void whatCannotBeReadIsRefused_data() { kindRows(); }
    void whatCannotBeReadIsRefused();
    void nothingOfTheOneBeforeStays_data() { kindRows(); }
    void nothingOfTheOneBeforeStays();
    void keyboardOrder_data() { kindRows(); }
    void keyboardOrder();
};

void tst_Editors::newOneIsInsertedOnceThenUpdated()
{
    Editor e;
    e.open(0);
    QVERIFY(e.loaded && !e.window->isDirty() && QTest::qWaitForWindowActive(e.window.get()));
    const auto* apply = e.window->findChild<QPushButton*>(u"cmdApply"_s);
    QCOMPARE(bool(apply), e.kind.hasApply);
    QVERIFY(!apply || !apply->isEnabled());
    e.applyByKey(); // nothing to save, nothing asked
    e.type(u" it's "_s);
    QVERIFY(e.window->isDirty() && (!apply || apply->isEnabled()));
    apply ? e.click("cmdApply") : e.applyByKey();
    QVERIFY(e.window->isVisible() && e.window->isEnabled() && !e.window->isDirty());
    QVERIFY(!apply || !apply->isEnabled());
    QCOMPARE(e.edited(), 1);
    e.type(u"x"_s);
    e.applyByKey();
    QVERIFY(!e.window->isDirty());
    e.type(u"y"_s);
    e.click("cmdOK");
    QVERIFY(!e.window->isVisible());
    QCOMPARE(e.storedName().trimmed() + e.count(), u"it's xy1"_s);
    QCOMPARE(e.listener.saved, e.kind.savedKey.isEmpty() ? QStringList() : QStringList(3, e.kind.savedKey));
    e.open(1);
    QVERIFY(e.loaded && !e.window->isDirty());
    QCOMPARE(e.nameBox().text().trimmed(), u"it's xy"_s);
    QTest::keyClick(e.window.get(), Qt::Key_Escape); // nothing unsaved: no question
    QVERIFY(!e.window->isVisible());
}

void tst_Editors::nameIsRequired()
{
    Editor e;
    e.open(0);
    QVERIFY(QTest::qWaitForWindowActive(e.window.get()));
    e.type(u" \t "_s);
    for (const bool byKey : {true, false}) {
        e.questions.expect(e.kind.word == "account"_L1 ? u"Please choose a title!"_s : u"Please choose a name!"_s);
        byKey ? e.applyByKey() : e.click("cmdOK");
        QCOMPARE(e.questions.asked.last().style, MessageStyle::Information);
        QVERIFY(e.window->isVisible() && e.window->isDirty());
        QCOMPARE(e.window->focusWidget(), &e.nameBox());
    }
    QCOMPARE(e.count() + QString::number(e.edited()), u"00"_s);
    QVERIFY(e.listener.saved.isEmpty());
}

void tst_Editors::closingAsks()
{
    Editor e;
    e.open(0);
    e.click("cmdClose"); // nothing unsaved: no question
    QVERIFY(!e.window->isVisible());
    for (const QString& field : e.kind.texts.split(u' ')) {
        e.open(0);
        QVERIFY(!e.window->isDirty());
        QTest::keyClicks(&e.get<QWidget>(qPrintable(field)), u"1"_s);
        QVERIFY2(e.window->isDirty(), qPrintable(field));
    }
    e.questions.expect(keepsChanges, Answer::No);
    QTest::keyClick(e.window.get(), Qt::Key_Escape);
    QCOMPARE(e.questions.asked.last().style, MessageStyle::YesNoDefaultNo);
    QCOMPARE(e.questions.asked.last().title, u"SnipVale"_s);
    e.questions.expect(keepsChanges, Answer::No);
    QVERIFY(!e.window->close()); // the window's own close box
    QVERIFY(e.window->isVisible());
    if (e.kind.cancelAsks)
        e.questions.expect(keepsChanges, Answer::Yes);
    e.click("cmdClose"); // the others say what they do
    QVERIFY(!e.window->isVisible());
    QCOMPARE(e.count(), u"0"_s);
}

void tst_Editors::failedSaveKeepsTheWindow()
{
    Editor e;
    const QString path = e.archive.ArchivePath();
    const auto okFails = [&](const QString& message) {
        e.questions.expect(QString());
        e.click("cmdOK");
        QVERIFY2(e.questions.asked.last().text.startsWith(message), qPrintable(e.questions.asked.last().text));
        QVERIFY(e.window->isVisible() && e.window->isDirty() && e.window->isEnabled());
    };
    e.open(0);
    QVERIFY(QTest::qWaitForWindowActive(e.window.get()));
    e.type(u"precious"_s);
    e.archive.setPath(e.scratch.path(u"gone.SVA"_s));
    okFails(u"Error in %1: "_s.arg(e.kind.failedSave));
    QCOMPARE(e.edited(), 0);
    e.archive.setPath(path);
    e.applyByKey();
    QCOMPARE(e.storedName(), u"precious"_s);
    e.type(u"!"_s);
    e.archive.setPath(e.scratch.path(u"gone.SVA"_s));
    const QString update = e.kind.word == "to-do"_L1 ? u"Save"_s : u"Update"_s;
    okFails(u"Error in %1: "_s.arg(update));
    e.archive.setPath(path); // mended: the same window saves
    e.applyByKey();
    QCOMPARE(e.storedName(), u"precious!"_s);
    e.execute(u"DELETE * FROM "_s + e.kind.table);
    e.type(u"!"_s);
    okFails(u"Error in %1: The %2 is no longer in the archive."_s.arg(update, e.kind.word));
    QCOMPARE(e.nameBox().text(), u"precious!!"_s);
    QCOMPARE(e.listener.saved.size(), e.kind.savedKey.isEmpty() ? 0 : 2); // only what was written
}

void tst_Editors::whatCannotBeReadIsRefused()
{
    Editor e;
    e.questions.expect(u"Error in Load: The %1 is no longer in the archive."_s.arg(e.kind.word));
    e.open(4711);
    QVERIFY(!e.loaded);
    e.archive.setPath(e.scratch.path(u"gone.SVA"_s));
    e.questions.expect(QString());
    e.open(1);
    QVERIFY(!e.loaded);
    QVERIFY(e.questions.asked.last().text.startsWith("Error in Load"_L1));
}

// Neither its texts nor its dates: not for a row that has nothing to say, and not for a new one.
void tst_Editors::nothingOfTheOneBeforeStays()
{
    Editor e;
    e.open(0);
    for (const QString& field : e.kind.texts.split(u' '))
        QTest::keyClicks(&e.get<QWidget>(qPrintable(field)), u"before"_s);
    e.click("cmdOK");
    e.open(1);
    const QString date = shortMoment(e.clock.now());
    QVERIFY(e.shown().contains(u"before"_s) && e.shown().contains(date));
    const bool isAccount = e.kind.word == "account"_L1;
    e.execute(
        u"INSERT INTO %1 (%2) VALUES (%3)"_s.arg(e.kind.table, isAccount ? u"passwordCategoryID"_s : u"categoryID"_s)
            .arg(e.listener.category));
    for (const qint32 id : {2, 0}) {
        e.open(1);
        e.open(id);
        QVERIFY(e.loaded);
        QVERIFY2(!e.shown().contains(u"before"_s), qPrintable(e.shown()));
        QVERIFY2(!e.shown().contains(date), qPrintable(e.shown()));
    }
    e.type(u"second"_s);
    e.click("cmdOK");
    e.open(3);
    QVERIFY(e.loaded && e.shown().contains(u"second"_s) && !e.shown().contains(u"before"_s));
}

void tst_Editors::keyboardOrder()
{
    Editor e;
    if (e.kind.tabOrder.isEmpty())
        return;
    e.open(0);
    QVERIFY(QTest::qWaitForWindowActive(e.window.get()));
    for (QAbstractButton* alarm : e.window->findChildren<QAbstractButton*>(u"chkAlarm"_s))
        alarm->click(); // enables its pickers
    for (QDateTimeEdit* picker : e.window->findChildren<QDateTimeEdit*>())
        picker->setDisplayFormat(u"yyyy"_s); // one stop instead of one for each part
    QStringList order;
    for (int i = 0; i < 30 && !order.contains(u"cmdClose"_s); ++i) {
        QWidget* at = QApplication::focusWidget();
        order << at->objectName();
        if (order.last() == "txtMemoLink"_L1 || order.last() == "txtLink"_L1)
            QTest::keyClicks(at, u"https://x"_s); // enables the link button and Apply
        const bool leaves = order.last() == "codeEditor"_L1 || order.last().startsWith(u"rtf"); // Tab types there
        QTest::keyClick(at, Qt::Key_Tab, leaves ? Qt::ControlModifier : Qt::NoModifier);
    }
    order.removeAll(QString()); // the bar's first button
    order.removeDuplicates(); // a time has several stops
    QCOMPARE(order.join(u' '), e.kind.tabOrder);
}

SNIPVALE_TEST(tst_Editors)
#include "tst_Editors.moc"
