// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Registry.h"
#include "vault/ui/VaultWindows.h"

#include "vault/ui/frmPassword.h"
#include "vault/ui/frmPasswordCategory.h"

#include <QtWidgets>

// What only the account editor does (the rest is in tst_Editors), and the manager of the accounts' categories.
class tst_frmPassword : public QObject {
    Q_OBJECT
private slots:
    void newAccount();
    void whatWasNotEditedStays();
    void categories();
};

namespace {

struct Editor : VaultWindows {
    void open(qint32 id)
    {
        filter.EditingModePasswordID = id;
        show(std::make_unique<frmPassword>(PasswordContext{archive, desktop, filter, password, 1}, nullptr));
    }
};

} // namespace

void tst_frmPassword::newAccount()
{
    Editor e;
    e.addCategory(u"Bank"_s);
    e.open(0);
    auto& category = e.get<QComboBox>("cboCategory");
    QCOMPARE(category.itemText(0) + category.currentText(), u"Not specifiedBank"_s); // the list's
    e.box("txtTitle").setText(u"t"_s);
    e.questions.expect(u"Please choose a UserName!"_s);
    e.click("cmdOK");
    e.box("txtUserName").setText(u"O'Brien"_s);
    e.questions.expect(u"Please choose a password!"_s);
    e.click("cmdOK");
    auto& secret = e.box("txtPassword");
    secret.setText(u"secret"_s);
    QCOMPARE(secret.displayText(), u"******"_s);
    e.click("cmdGenerate");
    const QString made = secret.displayText(); // shown
    QVERIFY(made.size() == 20 && made.contains(QRegularExpression(u"[0-9]"_s)));
    e.click("cmdGenerate");
    QVERIFY(secret.text() != made);
    secret.undo();
    QCOMPARE(secret.text(), made);
    secret.setText(u"p"_s.repeated(1400)); // enciphered wider than its column
    e.questions.expect(QString());
    e.click("cmdOK");
    QVERIFY(e.questions.asked.last().text.startsWith(u"Error in Save: "_s));
    QCOMPARE(secret.text().size(), 1400);
    secret.setText(u"   "_s);
    category.setCurrentIndex(0);
    e.box("txtURL").setText(u"https://x/#世界"_s);
    e.click("cmdVisitURL");
    QCOMPARE(e.shell.opened, QStringList({u"https://x/#世界"_s}));
    QTest::keyClick(&secret, Qt::Key_Return); // OK is the default button
    QVERIFY(!e.window->isVisible());
    QCOMPARE(e.filter.EditingModePasswordID, 1);
    QCOMPARE(e.vault.DecryptEntry(e.column("userName")), u"O'Brien"_s);
    QCOMPARE(e.vault.DecryptEntry(e.column("password")), u"   "_s);
    QCOMPARE(e.column("passwordCategoryID"), u"0"_s);
}

void tst_frmPassword::whatWasNotEditedStays()
{
    Editor e;
    const QString odd = u"one\r\ntwo\u00A0\tthree\x01"_s;
    e.add(odd, odd, odd);
    e.execute(u"UPDATE tab_password SET tab_password.notes = '%1', tab_password.dateIn = Null"_s.arg(odd));
    const QString stored = e.column("password");
    e.open(1);
    e.get<QPlainTextEdit>("txtDescription").setPlainText(u"a\u00A0b\nc"_s);
    e.click("cmdOK");
    QCOMPARE(e.column("description"), u"a\u00A0b\nc"_s);
    QCOMPARE(e.column("title") + e.column("notes"), odd + odd);
    QCOMPARE(e.column("password"), stored);
    QCOMPARE(e.vault.DecryptEntry(e.column("userName")), odd);
}

void tst_frmPassword::categories()
{
    VaultWindows m;
    m.addCategory(u"Bank"_s);
    m.addCategory(u"Work"_s);
    frmPasswordCategory manager(m.archive, nullptr);
    auto& list = part<QTreeWidget>(manager, "lvwCategory");
    auto& name = part<QLineEdit>(manager, "txtName");
    const auto press = [&](const char* action, const QString& message, Answer answer = Answer::Ok) {
        m.questions.expect(message, answer);
        part<QAction>(manager, action).trigger();
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
    name.setText(u"Bank"_s);
    press("New", u"A category named 'Bank' already exists! Chose a different name."_s);
    name.setText(u"bank"_s); // letter case makes another name
    part<QPlainTextEdit>(manager, "txtDescription").setPlainText(u"d'"_s);
    const QString create = u"Are you sure you want to create the new category 'bank' ? "_s;
    press("New", create, Answer::No);
    QCOMPARE(names(), u"Bank Work "_s);
    press("New", create, Answer::Yes);
    QCOMPARE(names(), u"Bank Work bank bank"_s);
    QCOMPARE(m.value(u"SELECT description FROM tab_passwordCategory WHERE passwordCategoryID = 3"_s), u"d'"_s);
    list.setCurrentItem(list.topLevelItem(1));
    QCOMPARE(name.text(), u"Work"_s);
    name.clear();
    press("Modify", u"You must specify new category name"_s);
    name.setText(u"Bank"_s); // two of one name could not be told apart
    press("Modify", u"A category named 'Bank' already exists! Chose a different name."_s);
    name.setText(u"it's"_s);
    press("Modify", u"Are you sure you want to modify category 'Work' ? "_s, Answer::Yes);
    QCOMPARE(names(), u"Bank it's bank it's"_s);
    m.execute(u"DELETE * FROM tab_passwordCategory WHERE passwordCategoryID = 2"_s); // by another program
    m.questions.expect(u"Are you sure you want to modify category 'it's' ? "_s, Answer::Yes);
    press("Modify", u"Error in Toolbar1_ButtonClick: The category is no longer in the archive."_s);
    m.add(u"t"_s, u"u"_s, u"p"_s, 1);
    m.add(u"t"_s, u"u"_s, u"p"_s, 3);
    list.setCurrentItem(list.topLevelItem(0));
    const QString question = u"Are you sure you want delete category 'Bank' ? \r\n(Passwords will NOT be deleted)"_s;
    for (const Answer answer : {Answer::No, Answer::Yes}) {
        QCOMPARE(names(), u"Bank it's bank Bank"_s);
        press("Delete", question, answer);
    }
    QCOMPARE(names(), u"bank "_s);
    QCOMPARE(m.column("passwordCategoryID") + m.column("passwordCategoryID", 2), u"03"_s);
}

SNIPVALE_TEST(tst_frmPassword)
#include "tst_frmPassword.moc"
