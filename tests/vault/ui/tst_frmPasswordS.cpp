// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/EditorFixture.h"
#include "support/Registry.h"
#include "vault/VaultFixture.h"

#include "vault/ui/frmPassword.h"
#include "vault/ui/frmPasswordCategory.h"
#include "vault/ui/frmPasswordS.h"

#include <QtWidgets>

namespace {

// The list in front, with three accounts: two of a category, one of none.
struct List : VaultOn<EditorFixture> {
    List()
    {
        for (const QString& name : {u"Work"_s, u"Bank"_s})
            execute(u"INSERT INTO tab_passwordCategory (name) VALUES ('%1')"_s.arg(name));
        add(u"mail"_s, u"me"_s, u"secret"_s, 1);
        add(u"shop"_s, u"世界"_s, u"a much longer secret"_s);
        add(u"Bank"_s, u"O'Brien"_s, u"x"_s, 2);
        view.show();
        view.setInFront(true);
    }
    QString text(int row, int column) { return list.model()->index(row, column).data().toString(); }
    QString titles()
    {
        QString all;
        for (int row = 0; row < list.model()->rowCount(); ++row)
            all += text(row, 0) + u' ';
        return all.chopped(!all.isEmpty());
    }
    void choose(int row, Qt::KeyboardModifiers modifiers = {})
    {
        const QPoint middle = list.visualRect(list.model()->index(row, 0)).center();
        QTest::mouseClick(list.viewport(), Qt::LeftButton, modifiers, middle);
    }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) { QTest::keyClick(&list, key, modifiers); }
    QString enabled() // "New Lock", in the order of the alphabet
    {
        QStringList names = frame.enabledCommands.keys(true);
        names.sort();
        return names.join(u' ').remove(u"miPassword"_s);
    }
    void edit(qint32 id)
    {
        filter.EditingModePasswordID = id;
        show(std::make_unique<frmPassword>(PasswordContext{archive, desktop, filter, password, 1}, nullptr));
    }
    frmPasswordS view{{archive, desktop, frame, filter, password, vault}};
    QTreeView& list = *view.findChild<QTreeView*>(u"lvwPassword"_s);
    QComboBox& category = *view.findChild<QComboBox*>(u"cboCategory"_s);
};

} // namespace

// The list of accounts, what only the account editor does (the rest is in tst_Editors), and their categories.
class tst_frmPasswordS : public QObject {
    Q_OBJECT
private slots:
    void listing()
    {
        List l;
        QCOMPARE(l.titles() + l.text(1, 2), u"mail shop Bank世界"_s);
        for (const char* titles : {"Bank mail shop", "shop mail Bank"}) {
            QTest::mouseClick(l.list.header()->viewport(), Qt::LeftButton, {}, {10, 5});
            QCOMPARE(l.titles(), QLatin1String(titles));
        }
        l.choose(1);
        l.view.MakeLvwContents();
        QCOMPARE(l.titles() + l.list.currentIndex().data().toString(), u"shop mail Bankmail"_s);
        QCOMPARE(l.category.itemText(0) + l.category.itemText(1), u"AllBank"_s);
        l.category.setCurrentIndex(1);
        QCOMPARE(l.titles() + l.frame.status, u"BankPassword -  items: 1"_s);
        l.execute(u"DELETE * FROM tab_passwordCategory WHERE name = 'Work'"_s);
        whenModal([](QWidget& manager) { manager.close(); });
        l.view.showCategories(); // reads both again, and the choice stays
        QCOMPARE(l.titles() + QString::number(l.category.count()), u"Bank2"_s);
    }

    void showingCopyingVisiting()
    {
        List l;
        QCOMPARE(l.enabled(), u"Category Export HideShow Lock New"_s);
        l.execute(u"UPDATE tab_password SET URL = 'https://x/?a=''1''' WHERE passwordID = 2"_s);
        l.view.MakeLvwContents();
        l.choose(1);
        QCOMPARE(l.enabled(), u"Category CopyPwd CopyUserName Delete Export HideShow Lock Modify New VisitURL"_s);
        QVERIFY(l.list.model()->index(1, 3).data(Qt::ToolTipRole).toString().isEmpty());
        QCOMPARE(l.text(0, 3) + l.text(1, 3), u"****************"_s);
        l.press(Qt::Key_C, Qt::ControlModifier);
        l.press(Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(l.clipboard.secrets, QStringList({u"a much longer secret"_s, u"世界"_s}));
        QVERIFY(QGuiApplication::clipboard()->text().isEmpty()); // the list did not copy by itself
        l.view.HideShowPwd();
        QCOMPARE(l.text(1, 3), u"a much longer secret"_s);
        l.view.setInFront(false);
        QCOMPARE(l.enabled(), u"Lock"_s);
        l.view.setInFront(true);
        QCOMPARE(l.text(1, 3), u"********"_s);
        l.press(Qt::Key_U, Qt::ControlModifier);
        QCOMPARE(l.shell.opened, QStringList({u"https://x/?a='1'"_s}));
        l.choose(0);
        l.questions.expect(u"URL not specified"_s);
        l.view.VisitURLPassword();
    }

    void editingAndDeleting()
    {
        List l;
        l.questions.expect(u"Please select the Password you want to modify!"_s);
        l.press(Qt::Key_Return);
        const auto answer = [](const QString& title) {
            whenModal([title](QWidget& editor) {
                for (QLineEdit* box : editor.findChildren<QLineEdit*>())
                    box->setText(title);
                editor.findChild<QPushButton*>(u"cmdOK"_s)->click();
            });
        };
        l.choose(0);
        answer(u"letters"_s);
        l.press(Qt::Key_Return);
        QCOMPARE(l.titles(), u"letters shop Bank"_s);
        QVERIFY(l.password.UserName.isEmpty()); // nothing of it stays in the record
        l.category.setCurrentIndex(2);
        answer(u"new"_s);
        l.press(Qt::Key_N, Qt::ControlModifier);
        QCOMPARE(l.titles() + l.list.currentIndex().data().toString(), u"letters newnew"_s); // in the one that is shown
        l.list.clearSelection();
        l.press(Qt::Key_Delete); // nothing is selected
        l.category.setCurrentIndex(0);
        l.choose(0);
        l.choose(1, Qt::ShiftModifier);
        for (const Answer sure : {Answer::No, Answer::Yes}) {
            QCOMPARE(l.titles(), u"letters shop Bank new"_s);
            l.questions.expect(u"Are you sure you want to delete selected elements? "_s, sure);
            l.press(Qt::Key_Delete);
        }
        QVERIFY(l.statements.contains(u"DELETE * FROM tab_Password WHERE tab_Password.PasswordID IN ( 1, 2) "_s));
        QCOMPARE(l.titles(), u"Bank new"_s);
        QVERIFY(l.list.selectionModel()->isRowSelected(0)); // the one after them
    }

    void exporting()
    {
        List l;
        const QString path = l.scratch.path(u"out.TXT"_s);
        l.files.answers = {path, path};
        l.choose(0);
        l.choose(1, Qt::ShiftModifier);
        l.execute(u"UPDATE tab_password SET tab_password.userName = Null WHERE passwordID = 2"_s);
        const QByteArray lines = "me|secret|\r\n------|a much longer secret|\r\n";
        for (const bool isThere : {false, true}) {
            if (isThere) // a file that everyone may read: the passwords they must not
                QVERIFY(QFile::resize(path, 300) && QFile::setPermissions(path, QFile::Permissions(0x6644)));
            l.questions.expect(u"Export to file completed."_s);
            l.view.ExportPasswordsToTextFile();
            QCOMPARE(bytesOf(path), lines);
            QCOMPARE(int(QFile::permissions(path) & 0x77), 0); // group and others
        }
        l.files.answers = {l.scratch.folder()};
        l.questions.expect(u"Errors were found exporting passwords to file."_s);
        l.view.ExportPasswordsToTextFile();
    }

    void locking()
    {
        List l;
        QVERIFY(QFile::rename(l.archive.ArchivePath(), l.scratch.path(u"moved.SVA"_s)));
        l.questions.expect(QString());
        l.questions.expect(QString());
        l.view.setInFront(true); // what cannot be read empties nothing
        QVERIFY(l.questions.asked.last().text.startsWith("Error in MakeLvwContents: "_L1));
        QCOMPARE(l.titles() + QString::number(l.category.count()), u"mail shop Bank3"_s);
        QVERIFY(QFile::rename(l.scratch.path(u"moved.SVA"_s), l.archive.ArchivePath()));
        l.choose(0);
        l.press(Qt::Key_C, Qt::ControlModifier);
        l.view.Lock();
        for (const Qt::Key key : {Qt::Key_Insert, Qt::Key_Return, Qt::Key_Delete})
            l.press(key); // no question, no editor
        l.view.ExportPasswordsToTextFile();
        l.view.showCategories();
        l.view.setInFront(true);
        QCOMPARE(l.titles() + l.clipboard.secrets.join(u' ') + l.enabled(), QString());
        QVERIFY(l.vault.ResetMasterPwd()); // it was lost: the accounts are garbage now
        QCOMPARE(l.vault.ChooseMasterPassword(u"another password"_s), modPassword::Choice::Saved);
        l.view.setInFront(true);
        QCOMPARE(l.titles(), u"mail shop Bank"_s);
        QVERIFY(l.text(0, 2) != u"me"_s);
    }

    void editor()
    {
        List l;
        l.edit(0);
        auto& category = l.get<QComboBox>("cboCategory");
        QCOMPARE(category.itemText(0) + category.currentText(), u"Not specifiedWork"_s); // the list's
        l.box("txtTitle").setText(u"t"_s);
        l.questions.expect(u"Please choose a UserName!"_s);
        l.click("cmdOK");
        l.box("txtUserName").setText(u"O'Brien"_s);
        l.questions.expect(u"Please choose a password!"_s);
        l.click("cmdOK");
        auto& secret = l.box("txtPassword");
        secret.setText(u"secret"_s);
        QCOMPARE(secret.displayText(), u"******"_s);
        l.click("cmdGenerate");
        const QString made = secret.displayText(); // shown
        QVERIFY(made.size() == 20 && made.contains(QRegularExpression(u"[0-9]"_s)));
        l.click("cmdGenerate");
        QVERIFY(secret.text() != made);
        secret.undo();
        QCOMPARE(secret.text(), made);
        secret.setText(u"p"_s.repeated(1400)); // enciphered wider than its column
        l.questions.expect(QString());
        l.click("cmdOK");
        secret.setText(u"   "_s);
        category.setCurrentIndex(0);
        l.box("txtURL").setText(u"https://x/#世界"_s);
        l.click("cmdVisitURL");
        QCOMPARE(l.shell.opened, QStringList({u"https://x/#世界"_s}));
        QTest::keyClick(&secret, Qt::Key_Return); // OK is the default button
        QVERIFY(!l.window->isVisible());
        QCOMPARE(l.filter.EditingModePasswordID, 4);
        QCOMPARE(l.vault.DecryptEntry(l.column("userName", 4)), u"O'Brien"_s);
        QCOMPARE(l.vault.DecryptEntry(l.column("password", 4)), u"   "_s);
        QCOMPARE(l.column("passwordCategoryID", 4), u"0"_s);
        // What is not edited stays as it is.
        const QString odd = u"one\r\ntwo\u00A0\tthree\x01"_s;
        QCOMPARE(l.add(odd, odd, odd), 5);
        l.execute(u"UPDATE tab_password SET tab_password.notes = '%1'"_s.arg(odd));
        const QString stored = l.column("password", 5);
        l.edit(5);
        l.get<QPlainTextEdit>("txtDescription").setPlainText(u"a\u00A0b\nc"_s);
        l.click("cmdOK");
        QCOMPARE(l.column("description", 5), u"a\u00A0b\nc"_s);
        QCOMPARE(l.column("title", 5) + l.column("notes", 5), odd + odd);
        QCOMPARE(l.column("password", 5), stored);
        QCOMPARE(l.vault.DecryptEntry(l.column("userName", 5)), odd);
    }

    void categories()
    {
        List l;
        frmPasswordCategory manager(l.archive, nullptr);
        auto& list = *manager.findChild<QTreeWidget*>(u"lvwCategory"_s);
        auto& name = *manager.findChild<QLineEdit*>(u"txtName"_s);
        const auto press = [&](const char* action, const QString& message, Answer answer = Answer::Ok) {
            l.questions.expect(message, answer);
            manager.findChild<QAction*>(QString::fromLatin1(action))->trigger();
        };
        const auto names = [&] {
            QString all;
            for (int i = 0; i < list.topLevelItemCount(); ++i)
                all += list.topLevelItem(i)->text(0) + u' ';
            return all + (list.currentItem() ? list.currentItem()->text(0) : QString());
        };
        press("New", u"You must specify a name for the new category."_s);
        press("Modify", u"You must select a category in the list to modify it."_s);
        press("Delete", u"You must select a category in the list to delete it."_s);
        name.setText(u"Work"_s);
        press("New", u"A category named 'Work' already exists! Chose a different name."_s);
        name.setText(u"work"_s); // letter case makes another name
        manager.findChild<QPlainTextEdit*>(u"txtDescription"_s)->setPlainText(u"d'"_s);
        const QString create = u"Are you sure you want to create the new category 'work' ? "_s;
        press("New", create, Answer::No);
        QCOMPARE(names(), u"Work Bank "_s);
        press("New", create, Answer::Yes);
        QCOMPARE(names(), u"Work Bank work work"_s);
        QCOMPARE(l.value(u"SELECT description FROM tab_passwordCategory WHERE passwordCategoryID = 3"_s), u"d'"_s);
        list.setCurrentItem(list.topLevelItem(1));
        QCOMPARE(name.text(), u"Bank"_s);
        name.clear();
        press("Modify", u"You must specify new category name"_s);
        name.setText(u"Work"_s); // two of one name could not be told apart
        press("Modify", u"A category named 'Work' already exists! Chose a different name."_s);
        name.setText(u"it's"_s);
        press("Modify", u"Are you sure you want to modify category 'Bank' ? "_s, Answer::Yes);
        QCOMPARE(names(), u"Work it's work it's"_s);
        list.setCurrentItem(list.topLevelItem(0));
        const QString question =
            u"Are you sure you want delete category 'Work' ? \r\n(Passwords will NOT be deleted)"_s;
        for (const Answer answer : {Answer::No, Answer::Yes}) {
            QCOMPARE(names(), u"Work it's work Work"_s);
            press("Delete", question, answer);
        }
        QCOMPARE(names(), u"it's work "_s);
        QCOMPARE(l.column("passwordCategoryID", 1) + l.column("passwordCategoryID", 3), u"02"_s);
    }
};

SNIPVALE_TEST(tst_frmPasswordS)
#include "tst_frmPasswordS.moc"
