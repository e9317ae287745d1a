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
    // Somebody handles each command, and it is shown somewhere.
    void commandTables()
    {
        Program p;
        QByteArray shown = " ";
        for (const MenuRow& row : menuTable())
            shown += row.items + QByteArray(" ");
        for (const BarRow& row : barTable())
            shown += row.items + QByteArray(" ");
        for (const CommandRow& row : commandTable()) {
            p.window->enableCommand(QString::fromLatin1(row.name), true);
            QVERIFY2(p.action(row.name).isEnabled() != QByteArrayView(row.name).startsWith("miOptions"), row.name);
            QVERIFY2(shown.contains(QByteArray(" ") + row.name + ' '), row.name);
        }
    }

    void starts()
    {
        Program p;
        QCOMPARE(p.window->windowTitle(), u" SnipVale 3.1.12 - [scratch.SVA]"_s);
        QVERIFY(p.status() == "Snip Vale"_L1 && p.bar("barMemo").isVisible() && !p.bar("barPassword").isVisible());
        QCOMPARE(p.get<QTimer>("TimerTask").interval(), 15000);
        QVERIFY(p.bar("barMemo").isMovable());
        QVERIFY(!p.action("miMemoNew").isEnabled()); // on the welcome page
        writeFile(p.scratch.path(), shippedArchive);
        p.setIni("[setup]\ndbfullpath=scratch.SVA\n[preferences]\nxplook=1\n");
        p.questions.expect(u"Ver 3.0 - archive update completed successfully!"_s);
        p.start();
        QVERIFY(!p.bar("barMemo").isMovable()); // the flat look
        p.previous.running = true;
        const QString again = u"SnipVale is already running.\r\nWould you run a new instance?"_s;
        p.questions.expect(again, Answer::Yes);
        p.start(); // nothing to upgrade, nothing more to say
        QVERIFY(p.window && !p.previous.broughtToFront);
        p.questions.expect(again, Answer::No);
        p.start();
        QVERIFY(!p.window && p.previous.broughtToFront);
    }

    // The way out of a missing archive is another one, for this run only. A file that is none is never written to.
    void otherArchives()
    {
        Program p;
        const QByteArray ini = "[setup]\ndbfullpath=missing.SVA\n";
        p.setIni(ini);
        const auto refused = [&] {
            for (const QString& text : {QString(), u"Error updating db to version 3.0"_s, QString()})
                p.questions.expect(text);
        };
        p.questions.expect(u"Specified archive file does not exist. Check menu tools->options"_s);
        refused();
        p.start();
        p.files.answers = {std::nullopt};
        p.run("miFileOpen"); // cancelled
        QVERIFY(p.window->windowTitle().contains("[missing.SVA]"_L1));
        const QString odd = p.scratch.path(u"odd.SVA"_s);
        for (const QByteArray& bytes :
             {QByteArray(), "\x89PNG\r\n\x1A\n" + QByteArray(5000, 'x'), shippedArchive.left(9000)}) {
            writeFile(odd, bytes);
            refused();
            p.openArchive(odd);
            QCOMPARE(bytesOf(odd), bytes);
        }
        writeFile(p.scratch.path(), shippedArchive);
        p.questions.expect(u"Ver 3.0 - archive update completed successfully!"_s);
        p.openArchive(p.scratch.path());
        QCOMPARE(p.window->windowTitle(), u"SnipVale 3.1.12  ["_s + p.scratch.path() + u']');
        QVERIFY(p.bar("barMemo").isVisible());
        p.chooseToDos();
        QCOMPARE(p.status(), u"ToDo -  items: 0"_s);
        QCOMPARE(bytesOf(p.scratch.path(u"snipvale.ini"_s)), ini);
        QCOMPARE(QDir(p.scratch.folder()).entryList({u"*.SVA"_s}), u"odd.SVA scratch.SVA"_s.split(u' '));
    }

    void passwordsStayWithTheirArchive()
    {
        Program p;
        whenModal(enterMasterWord);
        p.questions.expect(u"Master Password saved!"_s);
        p.action("Password").trigger();
        p.run("miPasswordLock");
        QVERIFY(p.action("Memo").isChecked() && !p.action("miPasswordLock").isEnabled());
        whenModal(enterMasterWord); // a change before there is a list unlocks the vault
        p.questions.expect(QString(), Answer::Yes);
        p.questions.expect(u"Change Password completed!"_s);
        p.run("miPasswordChange");
        p.action("Password").trigger();
        p.action("miPasswordHideShow").trigger();
        ArchiveUnit(p.archive).Execute(u"INSERT INTO tab_password (title) VALUES ('t')"_s);
        p.action("Memo").trigger(); // the summary counts anew, and its status takes the list's place
        QCOMPARE(p.get<QLabel>("lblSummaryPassword").text().trimmed(), u"Passwords:  1"_s);
        QVERIFY(p.status() == "SnipVale"_L1 && !p.action("miPasswordHideShow").isChecked());
        p.action("Password").trigger();
        const QString other = p.scratch.path(u"other.SVA"_s);
        QVERIFY(QFile::copy(p.scratch.path(), other));
        p.openArchive(other);
        QVERIFY(!p.action("miPasswordNew").isEnabled() && !p.action("miPasswordLock").isEnabled());
        whenModal([](QWidget& window) { window.close(); }); // it is asked for again
        p.action("Password").trigger();
        QVERIFY(p.bar("barMemo").isVisible() && p.action("Memo").isChecked() && !p.action("Password").isChecked());
    }

    void saveCopy()
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
        QCOMPARE(bytesOf(p.scratch.path(u"copy.SVA"_s)).size(), before.size());
        p.questions.expect(QString());
        p.run("miFileSaveAs");
        QVERIFY(p.questions.asked.last().text.startsWith("Error in SaveArchiveAs: "_L1));
    }

    void compactAndRepair()
    {
        Program p;
        ArchiveUnit(p.archive).Execute(u"DELETE * FROM tab_style"_s);
        const QString archive = p.scratch.path();
        const qint64 before = QFileInfo(archive).size();
        const auto compact = [&](Answer answer, int messages) {
            p.questions.expect(u"The following procedure will compact and repair the current archive!\r\n"
                               "You might do a backup copy of you archive  before starting.\r\nCurrent archive: "_s +
                                   archive + u"\r\nConfirm procedure?"_s,
                               answer);
            for (int i = 0; i < messages; ++i)
                p.questions.expect(QString());
            p.run("miFileCompactDB");
            return p.questions.asked.last().text;
        };
        compact(Answer::No, 0);
        QCOMPARE(QFileInfo(archive).size(), before);
        {
            ArchiveUnit other(p.archive); // another program is at work on it
            const jet::Connection::Transaction work(other.connection());
            other.Execute(u"INSERT INTO tab_note (content) VALUES ('x')"_s);
            QVERIFY(compact(Answer::Yes, 1).startsWith("Error in CompactArchive: "_L1));
        }
        QCOMPARE(p.status(), u"SnipVale"_s);
        const QString report = compact(Answer::Yes, 1);
        const qint64 now = QFileInfo(archive).size();
        QVERIFY(now < before);
        QCOMPARE(
            report,
            u"Done!\r\nFile lenght in byte before procedure: %1\r\nFile lenght in byte now: %2"_s.arg(before).arg(now));
        {
            ArchiveUnit unit(p.archive);
            jet::Connection::Transaction transaction(unit.connection());
            const QString values = u"VALUES (1, 3, 'm', '%1')"_s.arg(QString(3000, u'x'));
            for (int i = 0; i < 300; ++i)
                unit.Execute(u"INSERT INTO tab_memo (categoryID, memoTypeID, memoName, snipVale) "_s + values);
            transaction.commit();
        }
        QByteArray damaged = bytesOf(archive);
        damaged.replace((now / 4096 + 100) * 4096, 3 * 4096, QByteArray(3 * 4096, 0)); // three pages among the memos
        writeFile(archive, damaged);
        QVERIFY(compact(Answer::Yes, 2).startsWith("The archive was damaged."_L1));
        QCOMPARE(bytesOf(archive + u".damaged"_s), damaged); // kept as it was
        const QString kept = p.value(u"SELECT COUNT(memoID) AS n FROM tab_memo"_s);
        QVERIFY2(kept.toInt() >= 290 && kept.toInt() < 300, qPrintable(kept));
        QVERIFY(p.get<QLabel>("lblSummaryMemo").text().contains(kept + u" in"_s)); // the views read again
    }

    // From the task timer to the answer: the list that is seen shows it, another archive takes the open pop-ups away.
    void reminders()
    {
        Program p;
        p.addReminder();
        p.chooseToDos();
        const auto hasAlarmIcon = [&] {
            return !p.get<QTreeView>("lvwToDo").model()->index(0, 1).data(Qt::DecorationRole).isNull();
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

    // last: nothing modal runs after the program left
    void viewsAndExit()
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
        p.action("miViewToolBar").trigger();
        p.action("miCategoryExpandAll").trigger(); // a command of the view does not bring back what was hidden
        QVERIFY(!p.bar("barMemo").isVisible() && !p.action("miViewToolBar").isChecked());
        p.action("Memo").trigger(); // a view in front stays checked
        QVERIFY(p.bar("barMemo").isVisible() && p.action("miViewToolBar").isChecked() && p.action("Memo").isChecked());
        p.action("miNoteNew").trigger(); // one of a view that is not there yet
        QVERIFY(p.bar("barNote").isVisible() && p.action("Note").isChecked() && p.status() == "Note -  items: 0"_L1);
        p.window->close(); // without a notification area: only minimised, so that it can be found again
        QVERIFY(p.window->isVisible() && p.window->isMinimized());
        p.previous.onBringToFront();
        QVERIFY(p.window->isVisible() && !p.window->isMinimized());
        p.questions.expect(u"Bye from SnipVale"_s);
        p.run("miFileExit");
        QVERIFY(!p.window->isVisible());
    }
};

SNIPVALE_TEST(tst_frmMain)
#include "tst_frmMain.moc"
