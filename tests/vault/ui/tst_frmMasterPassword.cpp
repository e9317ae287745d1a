// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/EditorFixture.h"
#include "support/Registry.h"
#include "vault/VaultFixture.h"

#include "desktop/SecretMemory.h"
#include "vault/ui/VaultView.h"
#include "vault/ui/frmPasswordS.h"

#include <QtWidgets>

namespace {

constexpr QLatin1StringView master("master word");
const QString saved = u"Master Password saved!"_s;
const QString completed = u"Change Password completed!"_s;
const QString nothingToDo = u"Nothing to do. Try to close and restart SnipVale. If problem persist contact my author "
                            "(I am SnipVale:) for help."_s;

// A vault that is locked, as when the program starts. The windows run modally, driven by `step`.
struct Windows : VaultOn<EditorFixture> {
    Windows() { vault.lock(); }
    bool modal(decltype(openVault)& command, const std::function<void(QWidget&)>& step)
    {
        whenModal(step);
        return command(vault, desktop, nullptr);
    }
    // Types into the boxes from the first one on and presses Enter; the message must come.
    void enter(QWidget& window, const QStringList& texts, const QString& message = {})
    {
        const auto boxes = window.findChildren<QLineEdit*>();
        for (qsizetype i = 0; i < texts.size(); ++i)
            boxes[i]->setText(texts[i]);
        if (!message.isEmpty())
            questions.expect(message);
        QTest::keyClick(boxes.first(), Qt::Key_Return);
    }
    bool open(const QStringList& texts, const QString& message = {})
    {
        return modal(openVault, [&](QWidget& window) { enter(window, texts, message); });
    }
    // The statements that begin so fail.
    void breakStatement(const QString& beginning)
    {
        archive.onStatement = [beginning](const QString& sql) {
            if (sql.startsWith(beginning))
                throw std::runtime_error("broken");
        };
    }
};

} // namespace

class tst_frmMasterPassword : public QObject {
    Q_OBJECT
private slots:
    void unlockingAndChoosing()
    {
        Windows w;
        QVERIFY(w.modal(openVault, [&](QWidget& window) {
            QVERIFY(!window.findChild<QLineEdit*>(u"txtPassword2"_s)->isVisible());
            for (const QString& wrong : {u"wrong"_s, QString()}) {
                w.enter(window, {wrong}, u"Bad Password"_s);
                QVERIFY(window.isVisible() && !w.vault.isUnlocked());
            }
            w.enter(window, {master});
        }));
        QVERIFY(w.vault.isUnlocked());
        QVERIFY(openVault(w.vault, w.desktop, nullptr)); // no window: for the rest of the session
        w.execute(
            u"UPDATE tab_option SET options = '' WHERE code = 'MasterPwd'"_s); // as after another file was put there
        QVERIFY(!w.modal(openVault, [](QWidget& window) { QTest::keyClick(&window, Qt::Key_Escape); }));
        QVERIFY(!w.vault.isUnlocked());
        w.vault.DeleteMasterPwd();
        const QString found = u"I found a problem on DB reading options and I try to fix it for you."_s;
        w.breakStatement(u"INSERT INTO tab_option"_s);
        w.questions.expect(found);
        w.questions.expect(nothingToDo);
        QVERIFY(!openVault(w.vault, w.desktop, nullptr));
        w.archive.onStatement = nullptr;
        w.questions.expect(found); // and it is mended
        QVERIFY(w.modal(openVault, [&](QWidget& window) {
            const auto refused = [&](const QString& first, const QString& second, const QString& message) {
                w.enter(window, {first, second}, message);
                QVERIFY(window.isVisible());
                QCOMPARE(w.vault.ReadMasterPwd(), QString());
            };
            refused(u"abcdef"_s, u"abcdeg"_s, u"The two passwords do not match. Retype."_s);
            QVERIFY(window.findChild<QLineEdit*>(u"txtPassword1"_s)->text().isEmpty());
            refused(u"12345"_s, u"12345"_s, u"Password lenght must be six chars or more."_s);
            refused(u"half \xD800"_s, u"half \xD800"_s, u"I found an error coding and decoding your password!"_s);
            w.breakStatement(u"UPDATE tab_option"_s);
            refused(u"日本語123"_s, u"日本語123"_s, u"Error saving master password"_s);
            w.archive.onStatement = nullptr;
            w.enter(window, {}, saved);
        }));
        w.vault.lock();
        QVERIFY(w.open({u"日本語123"_s}));
    }

    void changing()
    {
        Windows w;
        QVERIFY(w.open({master}));
        w.add(u"Bank"_s, u"user"_s, u"a|b"_s);
        w.vault.lock(); // the old password that is typed opens it
        QVERIFY(w.modal(changeMasterPassword, [&](QWidget& window) {
            QLineEdit& box = *window.findChild<QLineEdit*>(u"txtPassword2"_s);
            QCOMPARE(box.echoMode(), QLineEdit::Password);
            window.findChild<QPushButton*>(u"cmdShowHide"_s)->click();
            QCOMPARE(box.echoMode(), QLineEdit::Normal);
            const auto refused = [&](const QStringList& texts, const QString& message = {}) {
                w.enter(window, texts, message);
                QVERIFY(window.isVisible() && !w.vault.isUnlocked());
            };
            refused({u"Master word"_s, u"x"_s, u"y"_s}, u"Old password incorrect."_s);
            refused({master, u"12345"_s, u"y"_s}, u"New password must be at least 6 chars."_s);
            refused({master, u"123456"_s, u"y"_s}, u"Inserted passwords do not match."_s);
            w.questions.expect(QString(), Answer::No); // the account would be damaged
            refused({master, u"123456"_s, u"123456"_s});
            QCOMPARE(w.questions.asked.last().style, MessageStyle::YesNoDefaultNo);
            QVERIFY(w.questions.asked.last().text.contains("\n   Bank\n"_L1));
            w.questions.expect(QString(), Answer::Yes);
            w.questions.expect(saved);
            w.enter(window, {}, completed);
        }));
        QVERIFY(w.vault.isUnlocked() && w.vault.matchesArchive());
        QCOMPARE(w.vault.DecryptEntry(w.column("password")), u"a"_s); // what was confirmed
        w.vault.UpdateMasterPwd(u"damaged"_s);
        w.questions.expect(u"There is an error. I can't read old password."_s);
        QVERIFY(!changeMasterPassword(w.vault, w.desktop, nullptr));
    }

    void resetting()
    {
        Windows w;
        QVERIFY(w.open({master}));
        w.add(u"t"_s, u"user"_s, u"secret"_s);
        const QString stored = w.column("password");
        const QString sure = u"Are you sure you want to reset master password? "_s;
        QVERIFY(!w.modal(resetMasterPassword, [&](QWidget& window) {
            auto& reset = *window.findChild<QPushButton*>(u"cmdResetPassword"_s);
            w.questions.expect(sure, Answer::No);
            reset.click();
            QCOMPARE(w.questions.asked.last().style, MessageStyle::YesNoDefaultNo);
            w.breakStatement(u"INSERT INTO tab_option"_s);
            w.questions.expect(sure, Answer::Yes);
            w.questions.expect(nothingToDo);
            reset.click();
            w.archive.onStatement = nullptr;
            QVERIFY(window.isVisible() && w.vault.matchesArchive()); // the old row is still there
            QTest::keyClick(&window, Qt::Key_Return); // the default button only closes
        }));
        w.questions.expect(sure, Answer::Yes);
        QVERIFY(w.modal(resetMasterPassword,
                        [](QWidget& window) { window.findChild<QPushButton*>(u"cmdResetPassword"_s)->click(); }));
        QVERIFY(!w.vault.isUnlocked());
        QCOMPARE(w.vault.ReadMasterPwd() + w.column("password"), stored);
        QVERIFY(w.open({master, master}, saved));
        QCOMPARE(w.vault.DecryptEntry(stored), u"secret"_s); // remembered after all
    }

    void nothingStaysInMemory()
    {
        Windows w;
        w.vault.ResetMasterPwd();
        const auto type = [&](QWidget& window) {
            for (QLineEdit* box : window.findChildren<QLineEdit*>()) {
                QString secret = scannedSecret();
                box->setText(secretCopy(secret));
                wipe(secret);
            }
            w.enter(window, {});
        };
        w.questions.expect(saved);
        for (const char* what : {"choosing", "unlocking"}) {
            QVERIFY(w.modal(openVault, type));
            w.vault.lock();
            QVERIFY2(!isSecretInMemory(), what);
        }
        QVERIFY(!w.modal(changeMasterPassword, [](QWidget& window) { QTest::keyClick(&window, Qt::Key_Escape); }));
        QVERIFY2(!isSecretInMemory(), "giving up the change");
        w.questions.expect(saved);
        w.questions.expect(completed);
        QVERIFY(w.modal(changeMasterPassword, type));
        QString secret = scannedSecret();
        w.add(u"t"_s, u"u"_s, secret);
        wipe(secret);
        frmPasswordS list({w.archive, w.desktop, w.frame, w.filter, w.password, w.vault});
        list.show();
        list.setInFront(true);
        list.findChild<QTreeView*>(u"lvwPassword"_s)->selectAll();
        whenModal([](QWidget& editor) { editor.close(); });
        list.ModifyPassword();
        list.Lock();
        QVERIFY2(!isSecretInMemory(), "the change, the list and the editor");
    }
};

SNIPVALE_TEST(tst_frmMasterPassword)
#include "tst_frmMasterPassword.moc"
