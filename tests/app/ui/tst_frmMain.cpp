// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/ui/ProgramFixture.h"
#include "support/Registry.h"

#include "app/ui/CommandTable.h"

#include <QtTest>
#include <QtWidgets>

using namespace Qt::StringLiterals;

namespace {

const QByteArray shippedArchive = bytesOf(QStringLiteral(SHIPPED_DIR "/snipvale.SVA"));

struct Program : ProgramFixture {
    QString status() { return get<QLabel>("status").text(); }
    QToolBar& bar(const char* name) { return get<QToolBar>(name); }
    QString lastQuestion() { return questions.asked.last().text; }
    void openArchive(const QString& name)
    {
        files.answers = {name};
        run("miFileOpen");
    }
    void chooseToDos()
    {
        auto& tree = get<QTreeView>("tvTreeView");
        tree.setCurrentIndex(tree.model()->index(2, 0, tree.model()->index(0, 0)));
    }
};

void enterMasterWord(QWidget& window)
{
    for (QLineEdit* box : window.findChildren<QLineEdit*>())
        box->setText(u"master word"_s);
    window.findChild<QPushButton*>(u"cmdOK"_s)->click();
}

} // namespace

class tst_frmMain : public QObject {
    Q_OBJECT
private slots:
    void commandTables();
    void starts();
    void fileThatIsNoArchive();
    void viewCommands();
    void missingAndOtherArchive();
    void passwordsStayWithTheirArchive();
    void saveCopy();
    void compact();
    void damagedArchiveIsRepaired();
    void closeBoxAndExit();
    void reminders();
    void aboutBox();
};

// Each command stands once, is shown somewhere, and somebody handles it.
void tst_frmMain::commandTables()
{
    Program p;
    QStringList known;
    for (const CommandRow& row : commandTable()) {
        known.append(QString::fromLatin1(row.name));
        p.window->enableCommand(known.last(), true);
        QVERIFY2(p.action(row.name).isEnabled() != known.last().startsWith("miOptions"_L1), row.name);
    }
    QStringList shown;
    for (const MenuRow& row : menuTable())
        shown += QString::fromLatin1(row.items).split(u' ');
    for (const BarRow& row : barTable())
        shown += QString::fromLatin1(row.items).split(u' ');
    shown.removeIf([](const QString& item) { return item == "-"_L1 || item.startsWith("mnu"_L1); });
    shown.removeDuplicates();
    shown.sort();
    known.sort();
    QCOMPARE(shown, known);
}

void tst_frmMain::starts()
{
    Program p;
    QCOMPARE(p.window->windowTitle(), u" SnipVale 3.1.12 - [scratch.SVA]"_s);
    QCOMPARE(p.status(), u"Snip Vale"_s);
    QVERIFY(p.get<QWidget>("frmSnipValeS").isVisible());
    QVERIFY(p.bar("barMemo").isVisible() && !p.bar("barPassword").isVisible());
    const auto& timer = p.get<QTimer>("TimerTask");
    QVERIFY(timer.isActive() && timer.interval() == 15000);
    p.run("miMemoNew"); // disabled on the welcome page: no window opens
    QVERIFY(!p.action("miMemoNew").isEnabled() && !QApplication::activeModalWidget());
    writeFile(p.scratch.path(), shippedArchive);
    p.questions.expect(u"Ver 3.0 - archive update completed successfully!"_s);
    p.start();
    p.previous.running = true;
    const QString again = u"SnipVale is already running.\r\nWould you run a new instance?"_s;
    p.questions.expect(again, Answer::Yes);
    p.start(); // nothing to upgrade, nothing more to say
    QVERIFY(p.window && !p.previous.broughtToFront);
    p.questions.expect(again, Answer::No);
    p.start();
    QVERIFY(!p.window && p.previous.broughtToFront);
    QCOMPARE(p.questions.asked.last().style, MessageStyle::YesNoDefaultNo);
    p.previous.running = false;
    p.setIni("[setup]\ndbfullpath=scratch.SVA\n[preferences]\nxplook=pretty\n");
    p.questions.expect(u"Error in Main: Type mismatch"_s);
    p.start();
    QVERIFY(!p.window);
}

void tst_frmMain::fileThatIsNoArchive()
{
    Program p;
    const QString name = p.scratch.path(u"odd.SVA"_s);
    for (const QByteArray& bytes :
         {QByteArray(), "\x89PNG\r\n\x1A\n" + QByteArray(5000, 'x'), shippedArchive.left(9000)}) {
        writeFile(name, bytes);
        p.questions.expect(QString());
        p.questions.expect(u"Error updating db to version 3.0"_s);
        p.questions.expect(QString());
        p.openArchive(name);
        QCOMPARE(bytesOf(name), bytes); // never written to
        QCOMPARE(QDir(p.scratch.folder()).entryList({u"odd*"_s}), QStringList({u"odd.SVA"_s}));
    }
}

void tst_frmMain::viewCommands()
{
    Program p;
    const std::pair<const char*, QWidget*> toggles[] = {{"miViewTools", &p.bar("barOutlook")},
                                                        {"miViewToolBar", &p.bar("barMemo")},
                                                        {"miViewStatusBar", p.window->statusBar()}};
    for (const auto& [command, widget] : toggles)
        for (const bool isShown : {true, false}) {
            QVERIFY(widget->isVisible() == isShown && p.action(command).isChecked() == isShown);
            p.action(command).trigger();
        }
    p.action("Memo").trigger();
    QVERIFY(p.action("Memo").isChecked()); // a view in front stays checked
    p.action("miViewToolBar").trigger();
    p.action("miCategoryExpandAll").trigger(); // a command of the view does not bring back what was hidden
    QVERIFY(!p.bar("barMemo").isVisible() && !p.action("miViewToolBar").isChecked());
    p.action("Memo").trigger();
    QVERIFY(p.bar("barMemo").isVisible() && p.action("miViewToolBar").isChecked());
    p.action("miNoteNew").trigger(); // one of a view that is not there yet
    QVERIFY(p.bar("barNote").isVisible() && p.action("Note").isChecked());
    QCOMPARE(p.status(), u"Note -  items: 0"_s);
}

// The way out of a missing archive is another one, for this run only.
void tst_frmMain::missingAndOtherArchive()
{
    Program p;
    const QByteArray ini = "[setup]\ndbfullpath=missing.SVA\n";
    p.setIni(ini);
    p.questions.expect(u"Specified archive file does not exist. Check menu tools->options"_s);
    p.questions.expect(QString());
    p.questions.expect(u"Error updating db to version 3.0"_s);
    p.questions.expect(QString());
    p.start();
    QVERIFY(!QFile::exists(p.scratch.path(u"missing.SVA"_s)));
    p.files.answers = {std::nullopt};
    p.run("miFileOpen"); // cancelled
    QCOMPARE(p.window->windowTitle(), u" SnipVale 3.1.12 - [missing.SVA]"_s);
    writeFile(p.scratch.path(), shippedArchive);
    p.questions.expect(u"Ver 3.0 - archive update completed successfully!"_s);
    p.openArchive(p.scratch.path());
    QCOMPARE(p.files.asked.last(), u"Open Archive|SnipVale Archive (*.SVA) |*.SVA"_s);
    QCOMPARE(p.window->windowTitle(), u"SnipVale 3.1.12  ["_s + p.scratch.path() + u']');
    QCOMPARE(p.status(), u"SnipVale"_s);
    p.chooseToDos();
    QCOMPARE(p.status(), u"ToDo -  items: 0"_s);
    QVERIFY(p.bar("barMemo").isVisible());
    QCOMPARE(bytesOf(p.scratch.path(u"snipvale.ini"_s)), ini);
}

void tst_frmMain::passwordsStayWithTheirArchive()
{
    Program p;
    whenModal([&](QWidget& window) {
        QVERIFY(p.action("Memo").isChecked() && !p.action("Password").isChecked()); // not in front yet
        enterMasterWord(window);
    });
    p.questions.expect(u"Master Password saved!"_s);
    p.action("Password").trigger();
    QVERIFY(p.bar("barPassword").isVisible() && !p.bar("barMemo").isVisible());
    p.run("miPasswordLock");
    QVERIFY(p.action("Memo").isChecked() && !p.action("miPasswordLock").isEnabled());
    p.start();
    whenModal(enterMasterWord); // a change before there is a list unlocks the vault
    p.questions.expect(QString(), Answer::Yes);
    p.questions.expect(u"Change Password completed!"_s);
    p.run("miPasswordChange");
    QVERIFY(p.action("Memo").isChecked() && p.action("miPasswordLock").isEnabled());
    p.action("Password").trigger();
    p.action("miPasswordHideShow").trigger();
    ArchiveUnit(p.archive).Execute(u"INSERT INTO tab_password (title) VALUES ('t')"_s);
    p.action("Memo").trigger(); // the summary counts anew, and its status takes the list's place
    QCOMPARE(p.get<QLabel>("lblSummaryPassword").text().trimmed(), u"Passwords:  1"_s);
    QCOMPARE(p.status(), u"SnipVale"_s);
    QVERIFY(!p.action("miPasswordHideShow").isChecked());
    p.action("Password").trigger();
    const QString other = p.scratch.path(u"other.SVA"_s);
    QVERIFY(QFile::copy(p.scratch.path(), other));
    p.openArchive(other);
    for (const char* command : {"miPasswordNew", "miPasswordHideShow", "miPasswordLock"})
        QVERIFY2(!p.action(command).isEnabled() && !p.action(command).isChecked(), command);
    whenModal([](QWidget& window) { window.close(); }); // it is asked for again
    p.action("Password").trigger();
    QVERIFY(p.bar("barMemo").isVisible() && p.action("Memo").isChecked() && !p.action("Password").isChecked());
}

void tst_frmMain::saveCopy()
{
    Program p;
    const QString archive = p.scratch.path();
    const QString linked = p.scratch.path(u"link.SVA"_s);
    QVERIFY(QFile::link(archive, linked));
    const QByteArray before = bytesOf(archive);
    for (const QString& target : {archive, QString(u' ' + archive.toUpper()), linked}) {
        p.files.answers = {target};
        p.questions.expect(u"Attention: it's forbidden to save on working archive! "_s);
        p.run("miFileSaveAs");
    }
    QCOMPARE(bytesOf(archive), before);
    p.files.answers = {p.scratch.path(u"copy.SVA"_s), p.scratch.path(u"no/folder/x.SVA"_s)};
    p.run("miFileSaveAs");
    QCOMPARE(p.files.asked.last(), u"Save SnipVale Archive...|SnipVale Archive (*.SVA) |*.SVA"_s);
    QCOMPARE(QFileInfo(p.scratch.path(u"copy.SVA"_s)).size(), before.size());
    p.questions.expect(QString());
    p.run("miFileSaveAs");
    QVERIFY(p.lastQuestion().startsWith("Error in SaveArchiveAs: "_L1));
}

void tst_frmMain::compact()
{
    Program p;
    ArchiveUnit(p.archive).Execute(u"DELETE * FROM tab_style"_s);
    const QString archive = p.scratch.path();
    const qint64 before = QFileInfo(archive).size();
    const auto compact = [&](Answer answer) {
        p.questions.expect(u"The following procedure will compact and repair the current archive!\r\n"
                           "You might do a backup copy of you archive  before starting.\r\nCurrent archive: "_s +
                               archive + u"\r\nConfirm procedure?"_s,
                           answer);
        if (answer == Answer::Yes)
            p.questions.expect(QString());
        p.run("miFileCompactDB");
        return p.lastQuestion();
    };
    compact(Answer::No);
    QCOMPARE(QFileInfo(archive).size(), before);
    {
        jet::Connection other; // another program is at work on it
        other.Open(p.archive.ConnectionString());
        const jet::Connection::Transaction work(other);
        other.Execute(u"INSERT INTO tab_note (content) VALUES ('x')"_s);
        QVERIFY(compact(Answer::Yes).startsWith("Error in CompactArchive: "_L1));
        QCOMPARE(p.status(), u"SnipVale"_s);
    }
    const QString report = compact(Answer::Yes);
    const qint64 now = QFileInfo(archive).size();
    QVERIFY(now < before);
    QCOMPARE(
        report,
        u"Done!\r\nFile lenght in byte before procedure: %1\r\nFile lenght in byte now: %2"_s.arg(before).arg(now));
    QVERIFY(!QFile::exists(p.scratch.path(u"tmpCompactDB.sva"_s)));
}

void tst_frmMain::damagedArchiveIsRepaired()
{
    Program p;
    const QString archive = p.scratch.path();
    const qint64 pages = QFileInfo(archive).size() / 4096;
    {
        ArchiveUnit unit(p.archive);
        jet::Connection::Transaction transaction(unit.connection());
        for (int i = 0; i < 300; ++i)
            unit.Execute(
                u"INSERT INTO tab_memo (categoryID, memoTypeID, memoName, snipVale) VALUES (1, 3, 'm', '%1')"_s.arg(
                    QString(3000, u'x')));
        transaction.commit();
    }
    QByteArray damaged = bytesOf(archive);
    damaged.replace((pages + 100) * 4096, 3 * 4096, QByteArray(3 * 4096, 0)); // three pages among the memos
    writeFile(archive, damaged);
    p.questions.expect(QString(), Answer::Yes);
    p.questions.expect(QString());
    p.questions.expect(QString());
    p.run("miFileCompactDB");
    QVERIFY(p.lastQuestion().startsWith("The archive was damaged."_L1));
    QCOMPARE(bytesOf(archive + u".damaged"_s), damaged); // kept as it was
    const QString kept = p.value(u"SELECT COUNT(memoID) AS n FROM tab_memo"_s);
    QVERIFY2(kept.toInt() >= 290 && kept.toInt() < 300, qPrintable(kept));
    QVERIFY(p.get<QLabel>("lblSummaryMemo").text().contains(kept + u" in"_s)); // the views read again
}

// A desktop without a notification area: the close box minimises, so that the frame can be found again.
void tst_frmMain::closeBoxAndExit()
{
    Program p;
    p.window->close();
    QVERIFY(p.window->isVisible() && p.window->isMinimized());
    p.previous.onBringToFront();
    QVERIFY(p.window->isVisible() && !p.window->isMinimized());
    p.questions.expect(u"Bye from SnipVale"_s);
    p.run("miFileExit");
    QVERIFY(!p.window->isVisible());
}

// From the task timer to the answer: the list that is seen shows it, another archive takes the open pop-ups away.
void tst_frmMain::reminders()
{
    Program p;
    p.addReminder();
    p.chooseToDos();
    const auto hasAlarmIcon = [&] {
        const auto* list = p.get<QTreeView>("lvwToDo").model();
        return list->rowCount() == 1 && !list->index(0, 1).data(Qt::DecorationRole).isNull();
    };
    QVERIFY(hasAlarmIcon());
    p.tick();
    QTRY_VERIFY(p.popup());
    p.openArchive(p.scratch.path());
    QVERIFY(!p.popup());
    p.chooseToDos();
    p.tick();
    QTRY_VERIFY(p.popup());
    p.popup()->findChild<QAbstractButton*>(u"cmdOK"_s)->click();
    QVERIFY(!p.popup() && !hasAlarmIcon());
}

void tst_frmMain::aboutBox()
{
    Program p;
    p.program->ShippedPath = QStringLiteral(SHIPPED_DIR);
    whenModal([&](QWidget& box) {
        box.findChild<QPushButton*>(u"cmdCopy"_s)->click();
        const QString copied = QGuiApplication::clipboard()->text();
        QVERIFY(copied.startsWith("SnipVale: " SNIPVALE_VERSION "\n"_L1));
        QVERIFY(copied.contains(u"Archive: %1\nProgram directory: %2\n"_s.arg(p.scratch.path(), p.scratch.folder())));
        box.findChild<QTabWidget*>(u"tabAbout"_s)->setCurrentIndex(1);
        const QString text = box.findChild<QPlainTextEdit*>(u"txtLicence"_s)->toPlainText();
        QVERIFY(text.contains("GNU GENERAL PUBLIC LICENSE"_L1) && text.size() > 30000);
        QTest::keyClick(&box, Qt::Key_Escape);
    });
    p.run("miHelpAbout");
}

SNIPVALE_TEST(tst_frmMain)
#include "tst_frmMain.moc"
