// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Registry.h"
#include "vault/ui/VaultWindows.h"

#include "vault/ui/frmPassword.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>

namespace {

// One account editor, opened as the list opens it.
struct Editor : VaultWindows {
    explicit Editor(qint32 id = 0)
    {
        addCategory(u"Bank"_s);
        open(id);
    }
    void open(qint32 id)
    {
        filter.EditingModePasswordID = id;
        window = std::make_unique<frmPassword>(PasswordContext{archive, vaultDesktop, filter, password, 1}, nullptr);
        loaded = window->Form_Load();
        window->show();
    }
    QLineEdit& box(const char* name) { return part<QLineEdit>(*window, name); }
    QPlainTextEdit& texts(const char* name) { return part<QPlainTextEdit>(*window, name); }
    void click(const char* name) { QTest::mouseClick(&part<QPushButton>(*window, name), Qt::LeftButton); }

    std::unique_ptr<frmPassword> window;
    bool loaded = false;
};

} // namespace

// What only the account editor does; the rest is in tst_Editors.
class tst_frmPassword : public QObject {
    Q_OBJECT
private slots:
    void newAccountIsValidatedAndSaved();
    void whatWasNotEditedStays();
    void showingAndVisiting();
};

void tst_frmPassword::newAccountIsValidatedAndSaved()
{
    Editor e;
    QVERIFY(e.loaded && !e.window->isDirty() && !part<QLabel>(*e.window, "lblDateIn").isVisible());
    auto& category = part<QComboBox>(*e.window, "cboCategory");
    QCOMPARE(category.itemText(0), u"Not specified"_s);
    QCOMPARE(category.currentText(), u"Bank"_s); // the list's
    const auto refused = [&](const QString& message, const char* field) {
        e.questions.expect(message);
        e.click("cmdOK");
        QVERIFY(e.window->isVisible());
        QCOMPARE(e.window->focusWidget()->objectName(), QLatin1String(field));
    };
    e.box("txtTitle").setText(u"t"_s);
    refused(u"Please choose a UserName!"_s, "txtUserName");
    e.box("txtUserName").setText(u"O'Brien"_s);
    refused(u"Please choose a password!"_s, "txtPassword");
    e.box("txtPassword").setText(u"p"_s.repeated(1400)); // enciphered wider than its column
    e.questions.expect(QString());
    e.click("cmdOK");
    QVERIFY(e.questions.asked.last().text.startsWith(u"Error in Save: "_s));
    QCOMPARE(e.box("txtPassword").text().size(), 1400);
    e.box("txtPassword").setText(u"   "_s);
    category.setCurrentIndex(0);
    e.texts("txtNotes").setPlainText(u"a\u00A0b\nc"_s);
    QTest::keyClick(&e.box("txtPassword"), Qt::Key_Return); // OK is the default button
    QVERIFY(!e.window->isVisible());
    QCOMPARE(e.filter.EditingModePasswordID, 1);
    QCOMPARE(e.vault.DecryptEntry(e.column("userName")), u"O'Brien"_s);
    QCOMPARE(e.vault.DecryptEntry(e.column("password")), u"   "_s);
    QCOMPARE(e.column("notes"), u"a\u00A0b\nc"_s);
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
    QCOMPARE(part<QLabel>(*e.window, "lblDateLastMod").text(),
             u"Last Mod.: "_s + QLocale().toString(e.clock.moment, QLocale::ShortFormat));
    e.texts("txtDescription").setPlainText(u"changed"_s);
    e.click("cmdOK");
    QCOMPARE(e.column("description"), u"changed"_s);
    QCOMPARE(e.column("title"), odd);
    QCOMPARE(e.column("notes"), odd);
    QCOMPARE(e.column("password"), stored);
    QCOMPARE(e.vault.DecryptEntry(e.column("userName")), odd);
}

void tst_frmPassword::showingAndVisiting()
{
    Editor e;
    e.box("txtPassword").setText(u"secret"_s);
    QCOMPARE(e.box("txtPassword").displayText(), u"******"_s);
    e.click("cmdShowPwd");
    QCOMPARE(e.box("txtPassword").displayText(), u"secret"_s);
    e.click("cmdGenerate");
    const QString made = e.box("txtPassword").text();
    QVERIFY(made.size() == 20 && made.contains(QRegularExpression(u"[0-9]"_s)));
    e.click("cmdGenerate");
    QVERIFY(e.box("txtPassword").text() != made);
    e.box("txtPassword").undo();
    QCOMPARE(e.box("txtPassword").text(), made);
    e.box("txtURL").setText(u"https://x/#世界"_s);
    e.click("cmdVisitURL");
    QCOMPARE(e.shell.opened, QStringList({u"https://x/#世界"_s}));
    e.shell.hasPrograms = false;
    e.questions.expect(u"Error in VisitURL: No program is set up to open this link."_s);
    e.click("cmdVisitURL");
}

SNIPVALE_TEST(tst_frmPassword)
#include "tst_frmPassword.moc"
