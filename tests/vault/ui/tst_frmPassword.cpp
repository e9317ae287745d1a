// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Registry.h"
#include "vault/ui/VaultWindows.h"

#include "vault/ui/frmPassword.h"

#include <QtWidgets>

// What only the account editor does; the rest is in tst_Editors.
class tst_frmPassword : public QObject {
    Q_OBJECT
private slots:
    void newAccount();
    void whatWasNotEditedStays();
};

namespace {

struct Editor : VaultWindows {
    void open(qint32 id)
    {
        filter.EditingModePasswordID = id;
        show(std::make_unique<frmPassword>(PasswordContext{archive, desktop, filter, password, 1}, nullptr));
    }
    void refused(const QString& message, const char* field)
    {
        questions.expect(message);
        click("cmdOK");
        QVERIFY(window->isVisible());
        QCOMPARE(window->focusWidget()->objectName(), QLatin1String(field));
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
    e.refused(u"Please choose a UserName!"_s, "txtUserName");
    e.box("txtUserName").setText(u"O'Brien"_s);
    e.refused(u"Please choose a password!"_s, "txtPassword");
    QLineEdit& secret = e.box("txtPassword");
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

SNIPVALE_TEST(tst_frmPassword)
#include "tst_frmPassword.moc"
