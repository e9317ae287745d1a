// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "jet/JetFixture.h"
#include "support/Registry.h"

#include <sys/stat.h>
#include <unistd.h>

class tst_Connection : public QObject {
    Q_OBJECT

private slots:
    void refusesWithoutWriting()
    {
        const QByteArray magic("SQLite format 3\0", 16);
        // Its bytes, or what plain SQLite makes it of.
        const std::pair<QByteArray, const char*> rows[] = {

            {"", ""},
            {"[setup]\r\ndbfullpath=snipvale.SVA\r\n", ""},
            {magic + QByteArray(84, '\0'), ""},
            {"", "PRAGMA application_id=7; CREATE TABLE tab_category (x)"},
            {"", "PRAGMA journal_mode=WAL; CREATE TABLE t (x); INSERT INTO t VALUES (1)"}};
        for (const auto& [bytes, sql] : rows) {
            QTemporaryDir folder;
            const QString path = folder.filePath(u"x.SVA"_s);
            writeFile(path, bytes);
            QCOMPARE(RawSqlite(path).run(sql), SQLITE_OK);
            const QStringList before = stateOf(folder.path());
            jet::Connection connection;
            const QString said = errorOf([&] { connection.Open(connectionString(path)); });
            QVERIFY2(said.contains(u"Unrecognized database format"_s), qPrintable(said));
            QCOMPARE(stateOf(folder.path()), before);
        }
    }

    void opensOddPaths()
    {
        QTemporaryDir folder;
        QDir::setCurrent(folder.path());
        jet::Connection connection;
        for (const QString& name : {u"a;b.SVA"_s, u"Größe ж 文.SVA"_s, u"50% of?x#y&mode=ro.SVA"_s,
                                    u"it's \"mine\".SVA"_s, u"file:x.SVA"_s}) {
            const QString path = folder.filePath(name);
            connection.Create(path);
            QVERIFY2(!errorOf([&] { connection.Create(path); }).isEmpty(), "an existing file must stay");
            connection.Open(connectionString(name));
            QVERIFY(QFile::exists(path));
        }
        const QString missing = connectionString(folder.filePath(u"none.SVA"_s));
        QVERIFY(errorOf([&] { connection.Open(missing); }).startsWith(u"Could not find file '"_s));
        QVERIFY(!QFile::exists(folder.filePath(u"none.SVA"_s)));
        for (const QString& bad : {connectionString(folder.path()), u"Provider=x;"_s, u"Data Source=;"_s})
            QVERIFY2(!errorOf([&] { connection.Open(bad); }).isEmpty(), qPrintable(bad));
        QVERIFY(errorOf([&] { connection.tables(); }).contains(u"closed"_s));
    }

    // A dump and restore loses the application id; the tables still tell what the file is. Write-ahead logging ends
    // with the last program that wants it. Text that is no UTF-8 can be read.
    void opensWhatOthersLeave()
    {
        JetFixture fixture;
        fixture.connection.Close();
        {
            RawSqlite other(fixture.path());
            QCOMPARE(
                other.run("PRAGMA application_id=0; PRAGMA journal_mode=WAL; INSERT INTO tab_note (content) VALUES "
                          "(CAST(x'61ff6200c3' AS TEXT))"),
                SQLITE_OK);
            fixture.reopen(); // while the other one has it open
            QCOMPARE(fixture.connection.Execute(u"DELETE * FROM tab_category WHERE type = 2"_s), 1);
            fixture.connection.Close();
        }
        fixture.reopen();
        QCOMPARE(bytesOf(fixture.path()).mid(18, 2), QByteArray("\1\1"));
        QVERIFY(!QFile::exists(fixture.path() + u"-wal"_s) && !QFile::exists(fixture.path() + u"-shm"_s));
        const jet::Recordset set = fixture.connection.OpenRecordset(u"SELECT * FROM tab_note"_s);
        QCOMPARE(set.view(set.index(u"content"_s)).toByteArray().toHex(), QByteArray("61ff6200c3"));
        QCOMPARE(set.text(u"content"_s).at(0), QChar(u'a'));
        QVERIFY(set.isNull(u"color"_s) && set.text(u"color"_s).isEmpty() && !set.dateTime(u"noteDate"_s).isValid());
    }

    void addNew()
    {
        JetFixture fixture;
        jet::Recordset set = fixture.connection.OpenRecordset(u"SELECT * FROM tab_ToDo where 1=2 "_s);
        QVERIFY(set.eof());
        const QDateTime moment(QDate(2026, 3, 4), QTime(9, 5));
        const QString name = u"O'Brien \"x\" Größe 文 😀"_s;
        for (int i = 1; i <= 2; ++i) {
            set.AddNew(
                {u"categoryID"_s, u"NAME"_s, u"dateIn"_s, u"startDate"_s, u"alarmOn"_s, u"done"_s, u"priority"_s},
                {qint64(2), name, moment, jet::Null(), true, false, 3.0});
            set.Update();
            QVERIFY(!set.eof());
            QCOMPARE(set.integer(u"TODOID"_s), i);
        }
        QCOMPARE(set.text(u"name"_s), name);
        QCOMPARE(set.dateTime(u"dateIn"_s), moment);
        QVERIFY(set.isNull(u"startDate"_s) && set.boolean(u"alarmOn"_s) && !set.boolean(u"done"_s));
        QCOMPARE(set.integer(u"alarmOn"_s), -1);
        // A key is not given out twice, not even the highest one.
        fixture.connection.Execute(u"DELETE * FROM tab_todo WHERE todoID = 2"_s);
        set.AddNew({u"name"_s}, {u"x"_s});
        set.Update();
        QCOMPARE(set.integer(u"todoID"_s), 3);
    }

    void addNewRefuses()
    {
        JetFixture fixture;
        jet::Recordset set = fixture.connection.OpenRecordset(u"SELECT * FROM tab_todo WHERE 1=2"_s);
        const auto add = [&](const QStringList& names, const std::vector<jet::Value>& values) {
            return errorOf([&] {
                set.AddNew(names, values);
                set.Update();
            });
        };
        QVERIFY(add({u"name"_s, u"done"_s}, {u"x"_s}).contains(u"not the same"_s));
        QVERIFY(add({u"nosuch"_s}, {u"x"_s}).contains(u"nosuch"_s));
        QVERIFY(add({u"categoryID"_s}, {qint64(77)}).contains(u"related record"_s));
        QVERIFY(errorOf([&] { set.Update(); }).contains(u"AddNew"_s));
        QCOMPARE(fixture.rows(u"SELECT COUNT(todoID) FROM tab_todo"_s), u"0"_s);
    }

    void otherProgramsLock()
    {
        JetFixture fixture;
        RawSqlite other(fixture.path());
        QCOMPARE(other.run("BEGIN IMMEDIATE"), SQLITE_OK);
        QCOMPARE(fixture.rows(u"SELECT name FROM tab_category WHERE type = 0"_s), u"Code"_s); // reading goes on
        const QString said = errorOf([&] { fixture.connection.Execute(u"DELETE * FROM tab_category"_s); });
        QVERIFY2(said.contains(u"in use by another program"_s) && said.contains(fixture.path()), qPrintable(said));
        other.run("ROLLBACK");
        QCOMPARE(fixture.connection.Execute(u"DELETE * FROM tab_category"_s), 2);
    }

    // The file or its folder cannot be written: reading goes on, a change says why not.
    void writeProtected()
    {
        const uid_t before = geteuid();
        for (const int mode : {0444, 0644}) {
            JetFixture fixture;
            fixture.connection.Close();
            const QString folder = QFileInfo(fixture.path()).path();
            chmod(QFile::encodeName(fixture.path()).constData(), mode == 0444 ? 0444 : 0666);
            chmod(QFile::encodeName(folder).constData(), mode == 0444 ? 0777 : 0555);
            if (before == 0 && seteuid(65534) != 0) // protection does not bind the superuser
                QSKIP("no user to test with");
            fixture.reopen();
            const QString said = errorOf([&] { fixture.connection.Execute(u"DELETE * FROM tab_category"_s); });
            const QString count = fixture.rows(u"SELECT COUNT(categoryID) FROM tab_category"_s);
            fixture.connection.Close();
            QCOMPARE(seteuid(before), 0);
            chmod(QFile::encodeName(folder).constData(), 0700);
            QVERIFY2(said.contains(mode == 0444 ? u"write-protected"_s : u"its folder"_s), qPrintable(said));
            QCOMPARE(count, u"2"_s);
        }
    }

    void transactions()
    {
        JetFixture fixture;
        const QString insert = u"INSERT INTO tab_category (name) VALUES ('new')"_s,
                      count = u"SELECT COUNT(categoryID) FROM tab_category"_s;
        for (const bool keeps : {false, true}) {
            {
                jet::Connection::Transaction all(fixture.connection);
                fixture.connection.Execute(insert);
                QVERIFY(!errorOf([&] { jet::Connection::Transaction second(fixture.connection); }).isEmpty());
                QCOMPARE(fixture.rows(count), u"3"_s);
                if (keeps)
                    all.commit();
            }
            fixture.reopen();
            QCOMPARE(fixture.rows(count), keeps ? u"3"_s : u"2"_s);
        }
    }

    // The plain shell can read and write the file, and cannot put nonsense into it.
    void fileGuardsItself()
    {
        JetFixture fixture;
        RawSqlite shell(fixture.path());
        for (const char* bad :
             {"INSERT INTO tab_todo (dueDate) VALUES ('2023-02-29 00:00:00')",
              "INSERT INTO tab_todo (dueDate) VALUES ('1.1.2025')", "INSERT INTO tab_todo (done) VALUES (1)",
              "INSERT INTO tab_todo (done) VALUES (NULL)", "INSERT INTO tab_todo (priority) VALUES ('high')",
              "INSERT INTO tab_todo (name) VALUES (printf('%.*c', 256, 'x'))"})
            QCOMPARE(shell.run(bad) & 0xFF, SQLITE_CONSTRAINT);
        QCOMPARE(shell.run("INSERT INTO tab_todo (name, dueDate, done) VALUES ('Ä', '2024-02-29 12:00:00', -1)"),
                 SQLITE_OK);
        QCOMPARE(fixture.rows(u"SELECT name FROM tab_todo WHERE name = 'ä' AND dueDate > #2/29/2024#"_s), u"Ä"_s);
    }
};

SNIPVALE_TEST(tst_Connection)
#include "tst_Connection.moc"
