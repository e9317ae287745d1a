// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Registry.h"
#include "vault/VaultFixture.h"

#include "desktop/SecretMemory.h"
#include "vault/PasswordRows.h"

#include <csignal>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>

namespace {

constexpr QLatin1StringView unlockedText("master word");

struct Vault : VaultOn<StartedArchive> {
    QString accounts() // every value as the session reads it
    {
        QString all;
        for (const PasswordRow& row : readPasswordRows(archive, vault, 0))
            all += row.userName + u'/' + row.password + u' ';
        return all;
    }
    bool unlock(const QString& typed)
    {
        vault.setStoredText(vault.ReadMasterPwd());
        return vault.Unlock(typed);
    }
    QString changeError(const QString& password)
    {
        try {
            return vault.ChangeMasterPassword(password) == modPassword::Choice::Saved ? QString() : u"not saved"_s;
        } catch (const std::exception& error) {
            return QString::fromUtf8(error.what());
        }
    }
};

} // namespace

// The vault's state and its accounts.
class tst_modPassword : public QObject {
    Q_OBJECT
private slots:
    // The disk's own pace would be most of the time of the hundred kills, and no kill depends on it.
    void initTestCase() { qputenv("TMPDIR", QFile::exists(u"/dev/shm"_s) ? "/dev/shm" : ""); }

    void storage()
    {
        Vault f;
        const QString stored = f.vault.ReadMasterPwd();
        QVERIFY(QRegularExpression(u"^([0-9A-F]{2} ){23}[0-9A-F]{2}$"_s).match(stored).hasMatch());
        const QString bytes = QString::fromLatin1(modPassword::HexDecode(stored));
        QCOMPARE(cBlowfish().DecryptString(bytes, u"tkwe52918306pv4417mbzqd60395hqxoeprjzlkaudfgnmetsowv"_s),
                 unlockedText);
        QCOMPARE(modPassword::HexDecode(u"3F ab é１2 0AC2"_s), QByteArray("\x3F\x20\xAC", 3));
        QCOMPARE(f.vault.UpdateMasterPwd(u"AB 01"_s), -1);
        f.vault.DeleteMasterPwd();
        QCOMPARE(f.vault.ReadMasterPwd(), u"fail"_s);
        QCOMPARE(f.vault.UpdateMasterPwd(u"AB"_s), 0); // nothing was stored
        QVERIFY(f.vault.InsertMasterPwd());
        QCOMPARE(f.vault.ReadMasterPwd(), QString());
        QCOMPARE(f.statements.mid(1, 3),
                 QStringList({u"UPDATE tab_option SET tab_option.options = 'AB 01'  WHERE code ='MasterPwd' "_s,
                              u"DELETE * FROM tab_option WHERE code = 'MasterPwd'"_s,
                              u" SELECT * FROM tab_option WHERE code = 'MasterPwd'"_s}));
    }

    void session()
    {
        const auto mayDump = [] {
            rlimit size{};
            ::getrlimit(RLIMIT_CORE, &size);
            return size.rlim_cur > 0 || ::prctl(PR_GET_DUMPABLE) == 1;
        };
        const bool mightDump = mayDump();
        Vault f;
        QVERIFY(!mayDump());
        const QString text = u"пароль 密码 |'\" \U0001F511"_s;
        const QString stored = f.vault.EncryptEntry(text);
        bool isWhole = true;
        for (const QString& damaged : {stored.toLower(), stored.first(stored.size() - 5), u"A"_s, stored + u" 00"_s}) {
            f.vault.DecryptEntry(damaged, &isWhole);
            QVERIFY2(!isWhole, qPrintable(damaged));
        }
        QVERIFY(f.vault.DecryptEntry(QString(), &isWhole).isEmpty() && isWhole);
        f.vault.lock();
        QVERIFY(!f.vault.isUnlocked() && mayDump() == mightDump);
        QCOMPARE(f.vault.DecryptEntry(stored), QString());
        QVERIFY_THROWS_EXCEPTION(std::runtime_error, f.vault.EncryptEntry(u"x"_s));
        QVERIFY(!f.unlock(u"Master word"_s) && !f.unlock(QString()) && !f.vault.isUnlocked());
        QVERIFY(f.unlock(unlockedText) && f.vault.isUnlocked() && f.vault.matchesArchive());
        QCOMPARE(f.vault.DecryptEntry(stored), text);
        const QString path = f.archive.ArchivePath();
        f.archive.setPath(f.scratch.path(u"another.SVA"_s)); // has a password of its own
        QVERIFY(!f.vault.isUnlocked());
        f.archive.setPath(path);
        QVERIFY(f.vault.ResetMasterPwd() && !f.vault.isUnlocked());
        for (const QString& damaged : {QString(), u"AB CD"_s, u"not hexadecimal"_s}) {
            f.vault.UpdateMasterPwd(damaged);
            QVERIFY(!f.unlock(QString()) && !f.unlock(unlockedText));
        }
    }

    void secretsAreWiped()
    {
        QString one = secretCopy(u"shared"_s);
        const QString two = one;
        wipe(one); // not this one's alone
        QVERIFY(one.isEmpty() && two == u"shared"_s);
        Vault f;
        const auto leavesNothing = [](const char* what, auto routine) {
            QString secret = scannedSecret();
            routine(secret);
            wipe(secret);
            QVERIFY2(!isSecretInMemory(), what);
        };
        leavesNothing("wiping", [](const QString&) { QVERIFY(isSecretInMemory()); }); // it would be found
        leavesNothing("wiping what was cut", [](QString& secret) { secret.truncate(1); });
        leavesNothing("the session's password", [&](const QString& secret) {
            QCOMPARE(f.vault.ChangeMasterPassword(secret), modPassword::Choice::Saved);
            f.vault.lock();
            QVERIFY(f.unlock(secret));
            f.vault.lock();
        });
        leavesNothing("the master password before", [&](const QString& secret) {
            QVERIFY(f.unlock(secret) && f.changeError(u"other word"_s).isEmpty());
        });
        leavesNothing("writing an account", [&](const QString& secret) { f.add(u"t"_s, secret, secret); });
        f.password.PasswordID = 1;
        QVERIFY(f.password.Load() && f.password.Update() && isSecretInMemory());
        f.password.clear();
        QVERIFY2(!isSecretInMemory(), "editing an account");
        exportPasswords(f.archive, f.vault, u"1"_s, f.scratch.path(u"out"_s));
        QVERIFY2(!isSecretInMemory(), "exporting");
        QVERIFY(readChangeRisks(f.vault).isEmpty() && f.changeError(u"third word"_s).isEmpty());
        QVERIFY2(!isSecretInMemory(), "enciphering all anew");
    }

    void changeIsAllOrNothing()
    {
        Vault f;
        f.add(u"t"_s, u"имя"_s, u"世界 '"_s);
        f.add(u"no name"_s, QString(), u"p"_s);
        f.execute(u"UPDATE tab_password SET userName = Null WHERE passwordID = 2"_s);
        const QString before = f.accounts();
        const QString stored = f.vault.ReadMasterPwd();
        for (int failing = 1; failing <= 4; ++failing) {
            f.archive.onStatement = [left = failing](const QString&) mutable {
                if (--left == 0)
                    throw std::runtime_error("broken");
            };
            QCOMPARE(f.changeError(u"new password"_s), failing == 2 ? u"not saved"_s : u"broken"_s);
            f.archive.onStatement = nullptr;
            QCOMPARE(f.accounts() + f.vault.ReadMasterPwd(), before + stored);
        }
        QStringList statements;
        f.archive.onStatement = [&](const QString& sql) { statements << sql; };
        QCOMPARE(f.changeError(u"new password"_s), QString());
        QCOMPARE(statements.size(), 4);
        QCOMPARE(statements[0], u" SELECT passwordID, userName, password FROM tab_password "_s);
        QCOMPARE(statements[2],
                 u" UPDATE tab_password SET  tab_password.userName  =  '"_s + f.column("userName") +
                     u"' , tab_password.password = '"_s + f.column("password") + u"'  WHERE passwordID = 1 "_s);
        f.vault.lock();
        QCOMPARE(f.changeError(u"new password"_s), u"The vault is locked."_s);
        QVERIFY(!f.unlock(unlockedText) && f.unlock(u"new password"_s));
        QCOMPARE(f.accounts(), u"имя/世界 ' -/p "_s);
    }

    void changeSurvivesBeingKilled()
    {
        Vault f;
        for (int i = 0; i < 200; ++i)
            f.add(u"t"_s, u"user %1"_s.arg(i), u"password %1"_s.arg(i));
        const QString expected = f.accounts();
        QString current = unlockedText;
        double pause = 20000; // microseconds until the kill: about one change, however fast the machine is just now
        int changes = 0;
        for (int kill = 0; kill < 80; ++kill) {
            const QString next = u"password %1"_s.arg(kill);
            const pid_t victim = ::fork();
            if (victim == 0) {
                f.changeError(next);
                while (true)
                    ::pause();
            }
            ::usleep(useconds_t(pause));
            QVERIFY(victim > 0 && ::kill(victim, SIGKILL) == 0 && ::waitpid(victim, nullptr, 0) == victim);
            const bool isChanged = f.unlock(next);
            QVERIFY(isChanged || f.unlock(current));
            QCOMPARE(f.accounts(), expected);
            changes += isChanged;
            pause = qMin(1e6, pause * (isChanged ? 0.8 : 1.1));
            current = isChanged ? next : current;
        }
        QVERIFY(changes > 0 && changes < 80); // both sides were hit
    }

    void risks()
    {
        const QStringList cases[] = {
            // the passwords of the first account and of the second one, and what the change makes of all
            {u"p"_s, u"a|b"_s, u"u/p user/a "_s}, // the rest is dropped
            {u"p|2"_s, u"x"_s, u"u/p 2/user "_s}, // a number where an identifier was
            {u"p| 2"_s, u"x"_s, u"u/p| 2 user/x "_s}, // text there: refused
        };
        for (const auto& row : cases) {
            Vault f;
            f.add(u"first"_s, u"u"_s, row[0]);
            f.add(u"second"_s, u"user"_s, row[1]);
            const QString before = f.accounts();
            QCOMPARE(f.changeError(u"new password"_s).isEmpty(), before != row[2]);
            QCOMPARE(f.accounts(), row[2]);
            QVERIFY(f.vault.matchesArchive());
        }
        Vault f;
        for (int i = 1; i <= 12; ++i)
            f.add(u"bar %1"_s.arg(i), u"a|"_s, u"p"_s);
        f.add(u"harmless"_s, u"u"_s, QString());
        f.execute(u"INSERT INTO tab_password (title, password) VALUES ('foreign', 'no hexadecimal text')"_s);
        const QString question = readChangeRisks(f.vault).question();
        QVERIFY(question.contains("bar 10"_L1) && question.contains("and 2 more"_L1) &&
                question.contains("foreign"_L1));
        QVERIFY(!question.contains("bar 11"_L1) && !question.contains("harmless"_L1));
    }

    void everyTextSurvives()
    {
        Vault v;
        const QString user = u"O'Brien Ünï 世界 \U0001F600\r\n "_s;
        const QString secret = u"пароль"_s.repeated(100);
        QCOMPARE(v.add(u"it's"_s, user, secret, 7), 1);
        v.password.PasswordID = 1;
        QVERIFY(v.password.Load());
        QVERIFY(v.password.UserName == user && v.password.Password == secret);
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

    void refusals()
    {
        Vault v;
        v.add(u"t"_s, u"u"_s, u"p"_s);
        // What cannot be read is not rewritten.
        const QString foreign = v.vault.EncryptEntry(u"a user name"_s);
        v.vault.ChooseMasterPassword(u"another word"_s);
        v.execute(u"INSERT INTO tab_password (title, userName) VALUES ('t', '"_s + foreign + u"')"_s);
        v.password.PasswordID = 2;
        QVERIFY(v.password.Load());
        QCOMPARE(v.password.Password, QString()); // Null
        v.password.Title = u"changed"_s;
        QVERIFY(v.password.Update());
        QCOMPARE(v.column("title", 2) + v.column("userName", 2), u"changed"_s + foreign);
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
        v.questions.expect(u"Error in Save: The password list is locked."_s);
        QVERIFY(!v.password.Save());
        QCOMPARE(v.column("password"), stored);
        QCOMPARE(v.password.GetPasswordCount(), 2);
    }
};

SNIPVALE_TEST(tst_modPassword)
#include "tst_modPassword.moc"
