// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "jet/JetFixture.h"
#include "support/Registry.h"

#include "jet/Maintenance.h"

#include <sys/stat.h>
#include <unistd.h>

namespace {

struct Scratch : JetFixture {
    explicit Scratch(int memos)
    {
        addMemos(memos);
        connection.Close();
    }
    QString temporary() const { return path(u"temp.mdb"_s); }
    QString folder() const { return QFileInfo(path()).path(); }
    QStringList names() const { return QDir(folder()).entryList(QDir::Files | QDir::Hidden, QDir::Name); }
    QString memos(const QString& query = u"SELECT COUNT(memoID) FROM tab_memo"_s)
    {
        reopen();
        const QString result = rows(query);
        connection.Close();
        return result;
    }
    qint64 nextMemo() // the key that a new memo gets
    {
        reopen();
        jet::Recordset set = connection.OpenRecordset(u"SELECT * FROM tab_memo WHERE 1=2"_s);
        set.AddNew({u"categoryID"_s}, {qint64(1)});
        set.Update();
        return set.integer(u"memoID"_s);
    }
    // These pages are damaged, and then repaired. The damaged file is kept.
    void repair(const QList<qsizetype>& pages, const QString& suffix = u".damaged"_s)
    {
        QByteArray bytes = bytesOf(path());
        for (const qsizetype page : pages)
            bytes.replace(page * 4096, 4096, QByteArray(4096, '\0'));
        writeFile(path(), bytes);
        const jet::CompactResult result = jet::compactArchive(path(), temporary());
        QVERIFY(result.wasDamaged);
        QCOMPARE(result.damagedCopy, path() + suffix);
        QVERIFY(bytesOf(result.damagedCopy) == bytes);
        QCOMPARE(RawSqlite(path()).first("PRAGMA integrity_check"), QByteArray("ok"));
    }
};

} // namespace

class tst_Maintenance : public QObject {
    Q_OBJECT

private slots:
    // Through a link, with the rows that another tool wrote against the rules of a column.
    void compacts()
    {
        Scratch archive(400);
        RawSqlite(archive.path())
            .run("PRAGMA ignore_check_constraints=ON; DELETE FROM tab_memo WHERE memoID > 100; INSERT INTO tab_todo "
                 "(name, "
                 "dueDate, done) VALUES ('odd', '1.1.2025', 1)");
        writeFile(archive.temporary(), "left over");
        writeFile(archive.temporary() + u"-journal"_s, "left over");
        chmod(QFile::encodeName(archive.path()).constData(), 0640);
        QTemporaryDir elsewhere;
        const QString link = elsewhere.filePath(u"link.SVA"_s);
        QVERIFY(QFile::link(archive.path(), link));
        const jet::CompactResult result = jet::compactArchive(link, elsewhere.filePath(u"temp.mdb"_s));
        QVERIFY(!result.wasDamaged);
        QVERIFY(result.bytesNow * 2 < result.bytesBefore && result.bytesNow == QFileInfo(archive.path()).size());
        QVERIFY(QFileInfo(link).isSymLink() && !QFileInfo(archive.path()).isSymLink());
        QCOMPARE(QDir(elsewhere.path()).entryList(QDir::Files), QStringList{u"link.SVA"_s});
        QCOMPARE(archive.names(), QStringList{u"scratch.SVA"_s});
        QCOMPARE(archive.memos(), u"100"_s);
        QCOMPARE(archive.memos(u"SELECT name, dueDate, done FROM tab_todo"_s), u"odd|1.1.2025|1"_s);
        struct stat status { };
        stat(QFile::encodeName(archive.path()).constData(), &status);
        QCOMPARE(status.st_mode & 0777, 0640U);
        QCOMPARE(archive.nextMemo(), 401); // the counter and the header are the old ones
        QCOMPARE(RawSqlite(archive.path()).first("PRAGMA application_id"), QByteArray("1398161713"));
    }

    void refusesItself()
    {
        Scratch archive(5);
        const QString folder = archive.folder(), hard = archive.path(u"hard"_s), soft = archive.path(u"soft"_s);
        QCOMPARE(link(QFile::encodeName(archive.path()).constData(), QFile::encodeName(hard).constData()), 0);
        QVERIFY(QFile::link(archive.path(), soft) && QDir().mkdir(archive.temporary()));
        const QStringList before = stateOf(folder);
        const QString dots = folder + u"/../"_s + QFileInfo(folder).fileName() + u"/./scratch.SVA"_s;
        for (const QString& other :
             {archive.path(), dots, hard, soft, archive.path() + u"-journal"_s, archive.temporary()}) {
            QVERIFY(!errorOf([&] { jet::compactArchive(archive.path(), other); }).isEmpty());
            QVERIFY(!errorOf([&] { jet::copyArchive(archive.path(), other); }).isEmpty());
            QCOMPARE(stateOf(folder), before);
        }
    }

    void leavesAllAlone()
    {
        Scratch archive(5);
        const QString ini = archive.path(u"x.ini"_s), target = archive.path(u"target.SVA"_s);
        writeFile(ini, "[setup]\n");
        writeFile(archive.temporary(), "mine");
        jet::copyArchive(archive.path(), target);
        const QStringList before = stateOf(archive.folder());
        for (const QString& from : {ini, archive.path(u"none"_s)}) {
            const QString words = from == ini ? u"Unrecognized"_s : u"Could not find"_s;
            QVERIFY(errorOf([&] { jet::compactArchive(from, archive.temporary()); }).contains(words));
            QVERIFY(errorOf([&] { jet::copyArchive(from, target); }).contains(words));
        }
        {
            RawSqlite other(target);
            QCOMPARE(other.run("BEGIN IMMEDIATE"), SQLITE_OK);
            QVERIFY(errorOf([&] { jet::copyArchive(archive.path(), target); }).contains(u"in use"_s));
            QVERIFY(errorOf([&] { jet::compactArchive(target, archive.path(u"other"_s)); }).contains(u"in use"_s));
        }
        QCOMPARE(stateOf(archive.folder()), before);
    }

    void salvages()
    {
        Scratch archive(1000);
        const qsizetype pages = bytesOf(archive.path()).size() / 4096;
        QList<qsizetype> zeroed;
        for (const int percent : {20, 21, 22, 30, 40, 55, 56, 70, 85, 86, 98})
            zeroed.append(pages * percent / 100);
        archive.repair(zeroed);
        QVERIFY2(archive.memos().toInt() >= 920, qPrintable(archive.memos()));
        QFile::resize(archive.path(), bytesOf(archive.path()).size() / 4096 * 6 / 10 * 4096);
        archive.repair({}, u".damaged-2"_s);
        QVERIFY2(archive.memos().toInt() >= 500, qPrintable(archive.memos()));
        QCOMPARE(archive.names(),
                 (QStringList{u"scratch.SVA"_s, u"scratch.SVA.damaged"_s, u"scratch.SVA.damaged-2"_s}));
        QCOMPARE(archive.memos(u"SELECT MIN(snipVale), MAX(snipVale) FROM tab_memo"_s),
                 QString(900, u'x') + u'|' + QString(900, u'x'));
        // Everything is as it was made: relations and indexes hold.
        QCOMPARE(archive.memos(u"SELECT COUNT(name) FROM sqlite_schema WHERE type = 'index' AND sql LIKE '%'"_s),
                 u"2"_s);
        archive.reopen();
        archive.connection.Execute(u"DELETE * FROM tab_category WHERE categoryID = 1"_s);
        QCOMPARE(archive.memos(), u"0"_s);
        // Without its first page nothing says what the file holds: it stays as it is.
        writeFile(archive.path(), QByteArray(4096, '\0') + bytesOf(archive.path()).mid(4096));
        const QStringList before = stateOf(archive.folder());
        QVERIFY(!errorOf([&] { jet::compactArchive(archive.path(), archive.temporary()); }).isEmpty());
        QCOMPARE(stateOf(archive.folder()), before);
    }

    // Every page of rows that is sound is found between wide damage, however long it takes, and where many others are
    // not.
    void salvagesIslands()
    {
        for (const bool isWide : {true, false}) {
            Scratch archive(4000);
            RawSqlite(archive.path()).run("DELETE FROM tab_memo WHERE memoID % 5 = 0; VACUUM");
            const QByteArray bytes = bytesOf(archive.path());
            QList<qsizetype> leaves, damaged;
            for (qsizetype page = 1; page < bytes.size() / 4096; ++page)
                if (bytes[page * 4096] == 0x0D && bytes.mid(page * 4096, 4096).contains(QByteArray(900, 'x')))
                    leaves.append(page);
            int sound = 0;
            for (qsizetype i = 0; i < leaves.size(); ++i)
                if (isWide ? i != 300 && i != 700 : i < 500 ? i % 2 == 0 : i == leaves.size() - 9)
                    damaged.append(leaves[i]);
                else
                    sound += bytes[leaves[i] * 4096 + 4]; // the number of its rows
            archive.repair(damaged);
            QCOMPARE(archive.memos().toInt(), sound);
        }
    }

    // What has lost the category it was in is put where it can be seen. No key is given out again.
    void adoptsOrphans()
    {
        for (const QByteArray table : {"tab_category", "tab_memo"}) {
            Scratch archive(50);
            RawSqlite shell(archive.path());
            QCOMPARE(shell.run("DELETE FROM tab_memo WHERE memoID > 40; INSERT INTO tab_todo (categoryID) VALUES (2); "
                               "INSERT INTO tab_category (parentID, type, name) VALUES (77, 2, 'stray')"),
                     SQLITE_OK);
            const QByteArray root = "SELECT rootpage FROM sqlite_schema WHERE name = '" + table + '\'';
            archive.repair({shell.first(root.constData()).toLongLong() - 1});
            const bool isMemo = table == "tab_memo";
            QCOMPARE(archive.memos(), isMemo ? u"0"_s : u"40"_s);
            QCOMPARE(archive.memos(u"SELECT todoID, categoryID FROM tab_todo"_s), u"1|2"_s);
            QCOMPARE(archive.memos(u"SELECT categoryID, type, name, parentID FROM tab_category"_s),
                     isMemo ? u"1|0|Code|0;2|2|ToDo|0;3|2|stray|2"_s : u"1|0|Recovered 1|0;2|2|Recovered 2|0"_s);
            QCOMPARE(archive.nextMemo(), 51);
        }
    }

    void copies()
    {
        Scratch archive(30);
        const QString target = archive.path(u"copy;'x'.SVA"_s), link = archive.path(u"link.SVA"_s);
        jet::copyArchive(archive.path(), target);
        JetFixture other;
        other.connection.Open(connectionString(target));
        QCOMPARE(other.rows(u"SELECT COUNT(memoID) FROM tab_memo"_s), u"30"_s);
        other.connection.Close();
        // Over an old file, through a link, with what a killed program left beside it.
        QVERIFY(QFile::link(target, link));
        writeFile(target + u"-journal"_s, QByteArray(1024, '\0'));
        archive.reopen();
        archive.connection.Execute(u"DELETE * FROM tab_memo WHERE memoID > 3"_s); // still open
        jet::copyArchive(archive.path(), link);
        QVERIFY(QFileInfo(link).isSymLink());
        QCOMPARE(archive.names(), (QStringList{u"copy;'x'.SVA"_s, u"link.SVA"_s, u"scratch.SVA"_s}));
        other.connection.Open(connectionString(target));
        QCOMPARE(other.rows(u"SELECT COUNT(memoID) FROM tab_memo"_s), u"3"_s);
    }
};

SNIPVALE_TEST(tst_Maintenance)
#include "tst_Maintenance.moc"
