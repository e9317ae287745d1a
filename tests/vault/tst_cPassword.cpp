// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Registry.h"
#include "vault/VaultFixture.h"

class tst_cPassword : public QObject {
    Q_OBJECT
private slots:
    void everyTextSurvives();
    void whatIsNotReadableIsNotRewritten();
    void refusals();
};

void tst_cPassword::everyTextSurvives()
{
    VaultFixture v;
    const QString user = u"O'Brien | Ünï 世界 \U0001F600\r\n "_s;
    const QString secret = u"пароль"_s.repeated(100);
    QCOMPARE(v.add(u"it's"_s, user, secret, 7), 1);
    v.password.PasswordID = 1;
    QVERIFY(v.password.Load());
    QCOMPARE(v.password.UserName, user);
    QCOMPARE(v.password.Password, secret);
    v.clock.moment = v.clock.moment.addDays(1);
    v.password.Password = u"new'"_s;
    v.password.Notes = u"n'"_s;
    const QString before = v.column("userName");
    QVERIFY(v.password.Update());
    QCOMPARE(v.statements.last(),
             u"UPDATE tab_password SET tab_password.passwordCategoryID = 7 , tab_password.title = 'it''s' , "
             "tab_password.description = '' , tab_password.userName = '"_s +
                 before + u"' , tab_password.password = '"_s + v.column("password") +
                 u"' , tab_password.URL = '' , tab_password.dateLastMod = '2026-3-5 9:5:0' , "
                 "tab_password.notes = 'n'''  WHERE (tab_Password.PasswordID = 1 ) "_s);
    QVERIFY(v.password.Load());
    QCOMPARE(v.password.Password, u"new'"_s);
    QCOMPARE(v.password.PwdDateLastMod, v.password.PwdDateIn.addDays(1));
}

void tst_cPassword::whatIsNotReadableIsNotRewritten()
{
    VaultFixture v;
    const QString foreign =
        modPassword::HexEncode(cBlowfish().EncryptString(u"a user name"_s, u"another key"_s).toLatin1(), u" "_s);
    for (const QString& stored : {u"it is plain"_s, u"3f 0a c2 11 22 33 44 55 3f 0a c2 11 22 33 44 55"_s, foreign}) {
        v.execute(u"INSERT INTO tab_password (title, userName) VALUES ('t', '"_s + stored + u"')"_s);
        v.password.clear();
        v.password.PasswordID = v.value(u"SELECT MAX(passwordID) FROM tab_password"_s).toInt();
        QVERIFY(v.password.Load());
        QCOMPARE(v.password.Password, QString()); // Null
        v.password.Title = u"changed"_s;
        QVERIFY2(v.password.Update(), qPrintable(v.password.lastError()));
        QCOMPARE(v.column("title", v.password.PasswordID), u"changed"_s);
        QCOMPARE(v.column("userName", v.password.PasswordID), stored);
    }
}

void tst_cPassword::refusals()
{
    VaultFixture v;
    v.add(u"t"_s, u"u"_s, u"p"_s);
    v.password.PasswordID = 4711;
    QVERIFY(!v.password.Load() && !v.password.Update());
    QCOMPARE(v.password.lastError(), u"The account is no longer in the archive."_s);
    v.password.PasswordID = 1;
    QVERIFY(v.password.Load());
    const QString stored = v.column("password");
    // Another archive was put in the place of this one.
    v.execute(u"UPDATE tab_option SET tab_option.options = ''  WHERE code ='MasterPwd' "_s);
    v.password.Password = u"new"_s;
    QVERIFY(!v.password.Update());
    QVERIFY(v.password.lastError().startsWith("The archive has another master password now."_L1));
    v.vault.lock();
    QVERIFY(!v.password.Update());
    v.questions.expect(u"Error in Save: The password list is locked."_s);
    QVERIFY(!v.password.Save());
    QCOMPARE(v.column("password"), stored);
    QCOMPARE(v.password.GetPasswordCount(), 1);
}

SNIPVALE_TEST(tst_cPassword)
#include "tst_cPassword.moc"
