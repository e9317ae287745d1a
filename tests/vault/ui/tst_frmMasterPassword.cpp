// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Registry.h"
#include "vault/MemoryScan.h"
#include "vault/ui/VaultWindows.h"

#include "desktop/SecretMemory.h"
#include "vault/ui/VaultView.h"
#include "vault/ui/frmPasswordChange.h"
#include "vault/ui/frmPasswordS.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

const QString nothingToDo = u"Nothing to do. Try to close and restart SnipVale. If problem persist contact my author "
                            "(I am SnipVale:) for help."_s;
constexpr QLatin1StringView master("master word"); // of VaultWindows

// A vault that is locked, as when the program starts. The windows run modally, driven by `step`.
struct Windows : VaultWindows {
    Windows() { vault.lock(); }
    using Step = std::function<void(QWidget&)>;
    bool open(const Step& step) { return modal(openVault, step); }
    bool change(const Step& step) { return modal(changeMasterPassword, step); }
    bool reset(const Step& step) { return modal(resetMasterPassword, step); }
    template <typename Command>
    bool modal(Command command, const Step& step)
    {
        if (step)
            whenModal(step);
        return command(vault, desktop, nullptr);
    }
    // Types into the boxes from the first one on and presses Enter; the message must come.
    void enter(QWidget& window, const QStringList& texts, const QString& message, MessageStyle style)
    {
        const char* setting[] = {"txtPassword1", "txtPassword2"};
        const char* changing[] = {"txtPasswordOld", "txtPassword1", "txtPassword2"};
        const char** names = window.objectName() == "frmPasswordChange"_L1 ? changing : setting;
        for (const QString& text : texts)
            part<QLineEdit>(window, *names++).setText(text);
        if (!message.isEmpty())
            questions.expect(message);
        const qsizetype before = questions.asked.size();
        QTest::keyClick(&part<QLineEdit>(window, "txtPassword1"), Qt::Key_Return);
        if (!message.isEmpty() && (questions.asked.size() <= before || questions.asked[before].style != style))
            QTest::qFail(qPrintable(u"style of: "_s + message), __FILE__, __LINE__);
    }
    // The next statement that begins so fails.
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
    void unlocking();
    void choosing();
    void repairing();
    void changing();
    void resetting();
    void nothingStaysInMemory();
};

void tst_frmMasterPassword::unlocking()
{
    Windows w;
    const auto step = [&](QWidget& window) {
        QCOMPARE(window.windowTitle(), u"Master password"_s);
        QCOMPARE(part<QLabel>(window, "lblMessage").text(), u"Insert master password"_s);
        QVERIFY(!part<QLabel>(window, "lblPassword2").isVisible() &&
                !part<QLineEdit>(window, "txtPassword2").isVisible());
        w.enter(window, {u"wrong"_s}, u"Bad Password"_s, MessageStyle::Critical);
        QVERIFY(window.isVisible() && !w.vault.isUnlocked());
        w.enter(window, {QString()}, u"Bad Password"_s, MessageStyle::Critical);
        w.enter(window, {master}, {}, {});
        QVERIFY(part<QLineEdit>(window, "txtPassword1").text().isEmpty());
    };
    QVERIFY(w.open(step) && w.vault.isUnlocked());
    QVERIFY(w.open(nullptr)); // no window: for the rest of the session
    w.execute(u"UPDATE tab_option SET options = '' WHERE code = 'MasterPwd'"_s); // as after another file was put there
    QVERIFY(!w.open([](QWidget& window) { QTest::keyClick(&window, Qt::Key_Escape); }));
    QVERIFY(!w.vault.isUnlocked());
    w.archive.setPath(w.scratch.path(u"gone.SVA"_s));
    w.questions.expect(QString());
    QVERIFY(!w.open(nullptr));
    QVERIFY(w.questions.asked.last().text.startsWith("Error in OpenVault: "_L1));
}

void tst_frmMasterPassword::choosing()
{
    Windows w;
    w.vault.ResetMasterPwd();
    QVERIFY(w.open([&](QWidget& window) {
        QCOMPARE(window.windowTitle(), u"New master password"_s);
        QCOMPARE(part<QLabel>(window, "lblMessage").text(), u"Choose a master password"_s);
        const auto refused = [&](const QStringList& texts, const QString& message) {
            w.enter(window, texts, message, MessageStyle::Exclamation);
            QCOMPARE(part<QLineEdit>(window, "txtPassword1").text() + part<QLineEdit>(window, "txtPassword2").text(),
                     QString());
            QCOMPARE(window.focusWidget()->objectName(), u"txtPassword1"_s);
            part<QLineEdit>(window, "txtPassword2").setFocus();
        };
        refused({u"abc"_s, u"abcdef"_s}, u"The two passwords do not match. Retype."_s);
        refused({u"12345"_s, u"12345"_s}, u"Password lenght must be six chars or more."_s);
        w.enter(window, {u"lone\xD800 half"_s, u"lone\xD800 half"_s},
                u"I found an error coding and decoding your password!"_s, MessageStyle::Critical);
        w.breakStatement(u"UPDATE tab_option"_s);
        w.enter(window, {u"日本語123"_s, u"日本語123"_s}, u"Error saving master password"_s, MessageStyle::Critical);
        w.archive.onStatement = nullptr;
        QCOMPARE(w.vault.ReadMasterPwd(), QString());
        w.enter(window, {}, u"Master Password saved!"_s, MessageStyle::Information);
    }));
    w.vault.lock();
    QVERIFY(w.open([&](QWidget& window) { w.enter(window, {u"日本語123"_s}, {}, {}); }));
}

void tst_frmMasterPassword::repairing()
{
    Windows w;
    w.vault.DeleteMasterPwd();
    const QString found = u"I found a problem on DB reading options and I try to fix it for you."_s;
    w.breakStatement(u"INSERT INTO tab_option"_s);
    w.questions.expect(found);
    w.questions.expect(nothingToDo);
    QVERIFY(!w.open(nullptr));
    QCOMPARE(w.questions.asked.last().style, MessageStyle::Critical);
    w.archive.onStatement = nullptr;
    w.questions.expect(found);
    QVERIFY(w.open([&](QWidget& window) {
        w.enter(window, {u"123456"_s, u"123456"_s}, u"Master Password saved!"_s, MessageStyle::Information);
    }));
    QVERIFY(w.vault.matchesArchive());
}

void tst_frmMasterPassword::changing()
{
    Windows w;
    w.open([&](QWidget& window) { w.enter(window, {master}, {}, {}); });
    w.add(u"Bank"_s, u"user"_s, u"a|b"_s);
    w.vault.lock(); // the old password that is typed opens it
    QVERIFY(w.change([&](QWidget& window) {
        for (const auto mode : {QLineEdit::Normal, QLineEdit::Password}) {
            QTest::mouseClick(&part<QPushButton>(window, "cmdShowHide"), Qt::LeftButton);
            for (const QLineEdit* box : window.findChildren<QLineEdit*>())
                QCOMPARE(box->echoMode(), mode);
        }
        const auto refused = [&](const QStringList& texts, const QString& message, MessageStyle style) {
            w.enter(window, texts, message, style);
            QVERIFY(window.isVisible() && !w.vault.isUnlocked());
        };
        using enum MessageStyle;
        refused({QString(), u"x"_s, u"y"_s}, u"You must insert old password."_s, Exclamation);
        refused({u"Master word"_s, u"x"_s, u"y"_s}, u"Old password incorrect."_s, Exclamation);
        refused({master, u"12345"_s, u"y"_s}, u"New password must be at least 6 chars."_s, Exclamation);
        refused({master, u"123456"_s, u"y"_s}, u"Inserted passwords do not match."_s, Exclamation);
        // The account would be damaged.
        w.questions.expect(QString(), Answer::No);
        refused({master, u"123456"_s, u"123456"_s}, {}, {});
        QCOMPARE(w.questions.asked.last().style, YesNoDefaultNo);
        QVERIFY(w.questions.asked.last().text.contains("\n   Bank\n"_L1));
        const auto fails = [&](const QString& statement, const QString& message) {
            w.breakStatement(statement);
            w.questions.expect(QString(), Answer::Yes);
            w.questions.expect(message);
            refused({}, {}, {});
            w.archive.onStatement = nullptr;
        };
        fails(u"UPDATE tab_option"_s, u"Error saving master password"_s);
        fails(u" UPDATE tab_password"_s, u"Error in cmdOK_Click: broken"_s);
        for (const QString& message : {QString(), u"Master Password saved!"_s, u"Change Password completed!"_s})
            w.questions.expect(message, message.isEmpty() ? Answer::Yes : Answer::Ok);
        w.enter(window, {}, {}, {});
    }));
    QVERIFY(w.vault.isUnlocked() && w.vault.matchesArchive());
    QCOMPARE(w.vault.DecryptEntry(w.column("password")), u"a"_s); // what was confirmed
    for (const QString& stored : {u"damaged"_s, QString()}) {
        stored.isEmpty() ? w.vault.DeleteMasterPwd() : void(w.vault.UpdateMasterPwd(stored));
        w.questions.expect(u"There is an error. I can't read old password."_s);
        QVERIFY(!w.change(nullptr));
    }
}

void tst_frmMasterPassword::resetting()
{
    Windows w;
    w.open([&](QWidget& window) { w.enter(window, {master}, {}, {}); });
    w.add(u"t"_s, u"user"_s, u"secret"_s);
    const QString stored = w.column("password");
    const QString sure = u"Are you sure you want to reset master password? "_s;
    const auto click = [&](QWidget& window, Answer answer) {
        w.questions.expect(sure, answer);
        QTest::mouseClick(&part<QPushButton>(window, "cmdResetPassword"), Qt::LeftButton);
    };
    QVERIFY(!w.reset([&](QWidget& window) {
        click(window, Answer::No);
        QCOMPARE(w.questions.asked.last().title, u"Reset master password"_s);
        QCOMPARE(w.questions.asked.last().style, MessageStyle::YesNoDefaultNo);
        w.breakStatement(u"INSERT INTO tab_option"_s);
        w.questions.expect(sure, Answer::Yes);
        w.questions.expect(nothingToDo);
        QTest::mouseClick(&part<QPushButton>(window, "cmdResetPassword"), Qt::LeftButton);
        w.archive.onStatement = nullptr;
        QVERIFY(window.isVisible() && w.vault.matchesArchive()); // the old row is still there
        QTest::keyClick(&window, Qt::Key_Return); // the default button only closes
    }));
    QVERIFY(w.reset([&](QWidget& window) { click(window, Answer::Yes); }));
    QVERIFY(!w.vault.isUnlocked());
    QCOMPARE(w.vault.ReadMasterPwd(), QString());
    QCOMPARE(w.column("password"), stored);
    QVERIFY(w.open([&](QWidget& window) {
        w.enter(window, {master, master}, u"Master Password saved!"_s, MessageStyle::Information);
    }));
    QCOMPARE(w.vault.DecryptEntry(stored), u"secret"_s); // remembered after all
}

void tst_frmMasterPassword::nothingStaysInMemory()
{
    Windows w;
    const auto type = [&](QWidget& window, const char* box) {
        QString secret = memoryscan::secret();
        part<QLineEdit>(window, box).setText(secretCopy(secret));
        wipe(secret);
    };
    QVERIFY(w.change([&](QWidget& window) {
        part<QLineEdit>(window, "txtPasswordOld").setText(master);
        type(window, "txtPassword1");
        type(window, "txtPassword2");
        w.questions.expect(u"Master Password saved!"_s);
        w.enter(window, {}, u"Change Password completed!"_s, MessageStyle::Information);
    }));
    w.vault.lock();
    QVERIFY2(!memoryscan::isInMemory(), "changing the master password");
    QVERIFY(!w.change([&](QWidget& window) { QTest::keyClick(&window, Qt::Key_Escape); }));
    QVERIFY2(!memoryscan::isInMemory(), "giving up its change");
    QVERIFY(w.open([&](QWidget& window) {
        type(window, "txtPassword1");
        w.enter(window, {}, {}, {});
    }));
    w.vault.lock();
    QVERIFY2(!memoryscan::isInMemory(), "unlocking");
    QVERIFY(w.change([&](QWidget& window) {
        type(window, "txtPasswordOld");
        part<QLineEdit>(window, "txtPassword1").setText(master);
        part<QLineEdit>(window, "txtPassword2").setText(master);
        w.questions.expect(u"Master Password saved!"_s);
        w.enter(window, {}, u"Change Password completed!"_s, MessageStyle::Information);
    }));
    QString secret = memoryscan::secret();
    w.add(u"t"_s, u"u"_s, secret);
    wipe(secret);
    frmPasswordS list({w.archive, w.vaultDesktop, w.vaultFrame, w.filter, w.password, w.vault});
    list.show();
    list.setInFront(true);
    part<QTreeView>(list, "lvwPassword").selectAll();
    whenModal([](QWidget& editor) { editor.close(); });
    list.ModifyPassword();
    list.Lock();
    QVERIFY2(!memoryscan::isInMemory(), "the list and the editor");
}

SNIPVALE_TEST(tst_frmMasterPassword)
#include "tst_frmMasterPassword.moc"
