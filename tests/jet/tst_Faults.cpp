// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "jet/JetFixture.h"
#include "support/Registry.h"

#include "jet/Maintenance.h"

#include <map>
#include <random>

namespace {

// While it lives, every file that SQLite opens can be made to fail: from the n-th change on, each write, sync,
// truncation and deletion does nothing (a write: half of it) and gives the result code.
class FailingDisk {
public:
    FailingDisk()
    {
        s_real = sqlite3_vfs_find(nullptr);
        m_vfs = *s_real;
        m_vfs.zName = "failing";
        m_vfs.xOpen = open;
        m_vfs.xDelete = remove;
        m_vfs.pNext = nullptr;
        sqlite3_vfs_register(&m_vfs, 1);
    }
    ~FailingDisk()
    {
        sqlite3_vfs_unregister(&m_vfs);
        sqlite3_vfs_register(s_real, 1);
        works();
    }
    FailingDisk(const FailingDisk&) = delete;
    FailingDisk& operator=(const FailingDisk&) = delete;

    static void failFrom(int change, int code)
    {
        s_left = change;
        s_code = code;
    }
    static void works() { s_code = SQLITE_OK; }
    static bool hasFailed() { return s_code && s_left <= 0; }
    // Of all files so far; a deletion is synced with its folder.
    inline static int s_syncs = 0, s_syncedDeletions = 0;

private:
    // What SQLite's own files can do, with the changes replaced.
    struct Methods {
        sqlite3_io_methods patched;
        const sqlite3_io_methods* real;
    };
    static const sqlite3_io_methods& real(const sqlite3_file* file)
    {
        return *reinterpret_cast<const Methods*>(file->pMethods)->real;
    }
    static bool fails() { return s_code && --s_left <= 0; }

    static int open(sqlite3_vfs*, const char* name, sqlite3_file* file, int flags, int* given)
    {
        static std::map<const sqlite3_io_methods*, Methods> known;
        const int result = s_real->xOpen(s_real, name, file, flags, given);
        if (file->pMethods) {
            Methods& methods = known[file->pMethods];
            methods = {*file->pMethods, file->pMethods};
            methods.patched.iVersion = 1; // no shared memory, no mapping
            methods.patched.xWrite = write;
            methods.patched.xTruncate = [](sqlite3_file* f, sqlite3_int64 n) {
                return fails() ? SQLITE_IOERR_TRUNCATE : real(f).xTruncate(f, n);
            };
            methods.patched.xSync = [](sqlite3_file* f, int flags) {
                ++s_syncs;
                return fails() ? SQLITE_IOERR_FSYNC : real(f).xSync(f, flags);
            };
            file->pMethods = &methods.patched;
        }
        return result;
    }
    static int write(sqlite3_file* file, const void* from, int n, sqlite3_int64 at)
    {
        const bool isBroken = fails();
        const int result = real(file).xWrite(file, from, isBroken ? n / 2 : n, at);
        return isBroken ? s_code : result;
    }
    static int remove(sqlite3_vfs*, const char* name, int sync)
    {
        s_syncedDeletions += sync != 0;
        return fails() ? SQLITE_IOERR_DELETE : s_real->xDelete(s_real, name, sync);
    }

    sqlite3_vfs m_vfs{};
    inline static sqlite3_vfs* s_real = nullptr;
    inline static int s_left = 0, s_code = 0;
};

} // namespace

// What a full or broken disk and a damaged file may cost: never more than the change that was going on.
class tst_Faults : public QObject {
    Q_OBJECT

private slots:
    void savesOrNot()
    {
        FailingDisk disk;
        JetFixture fixture;
        fixture.addMemos(30);
        const QString query = u"SELECT MIN(memoDescription), MAX(memoDescription) FROM tab_memo WHERE memoID < 20"_s;
        int failures = 0;
        bool hasFailed = true;
        for (int round = 2; hasFailed; ++round) { // each change fails in both ways
            fixture.reopen();
            const QString before = fixture.rows(query),
                          text = QString(3000, QChar(u'a' + round % 26)) + QString::number(round);
            const int syncs = disk.s_syncs, deletions = disk.s_syncedDeletions;
            disk.failFrom(round / 2, round % 2 ? SQLITE_FULL : SQLITE_IOERR_WRITE);
            const QString said = errorOf([&] {
                fixture.connection.Execute(u"UPDATE tab_memo SET memoDescription = '"_s + text +
                                           u"' WHERE memoID < 20"_s);
            });
            hasFailed = disk.hasFailed();
            // A power cut takes nothing back: the journal, the file and at last the journal's deletion were synced.
            QVERIFY(hasFailed || (disk.s_syncs >= syncs + 2 && disk.s_syncedDeletions == deletions + 1));
            fixture.connection.Close();
            disk.works();
            fixture.reopen();
            const QString now = fixture.rows(query);
            const bool isSaved = now == text + u'|' + text;
            QVERIFY2(isSaved || (now == before && hasFailed), qPrintable(said + u'\n' + now.left(60)));
            QVERIFY2(said.isEmpty() ? isSaved : said.contains(u"disk"_s, Qt::CaseInsensitive), qPrintable(said));
            failures += !said.isEmpty();
        }
        QVERIFY2(failures > 20, qPrintable(QString::number(failures)));
    }

    // SQLite may end a transaction by itself when the disk is full. What is written after that must not stay alone.
    void transactionOrNothing()
    {
        FailingDisk disk;
        JetFixture fixture;
        const QString insert = u"INSERT INTO tab_note (content) VALUES ('%1')"_s, large(5'000'000, u'x');
        int takenBack = 0;
        for (int change = 1; change < 400; change += 20) {
            jet::Recordset notes = fixture.connection.OpenRecordset(u"SELECT * FROM tab_note WHERE 1=2"_s);
            {
                jet::Connection::Transaction all(fixture.connection);
                disk.failFrom(change, SQLITE_FULL);
                QVERIFY(!errorOf([&] { fixture.connection.Execute(insert.arg(large)); }).isEmpty());
                disk.works();
                const QString said = errorOf([&] { fixture.connection.Execute(insert.arg(u'x')); });
                takenBack += said.contains(u"taken back"_s);
                errorOf([&] {
                    notes.AddNew({u"content"_s}, {u"y"_s});
                    notes.Update();
                });
                QCOMPARE(errorOf([&] { all.commit(); }).isEmpty(), said.isEmpty());
            }
            const QString count = fixture.rows(u"SELECT COUNT(noteID) FROM tab_note WHERE content NOT IN ('x', 'y')"_s);
            QCOMPARE(count, u"0"_s);
            if (takenBack)
                QCOMPARE(fixture.rows(u"SELECT COUNT(noteID) FROM tab_note"_s), u"0"_s);
        }
        QVERIFY(takenBack > 0);
    }

    void compactsOrNot()
    {
        FailingDisk disk;
        JetFixture fixture;
        fixture.addMemos(60);
        fixture.connection.Execute(u"DELETE * FROM tab_memo WHERE memoID > 20"_s);
        fixture.connection.Close();
        const QString folder = QFileInfo(fixture.path()).path();
        const QStringList before = stateOf(folder);
        QString said;
        for (int change = 1; change == 1 || !said.isEmpty(); ++change) {
            QCOMPARE(stateOf(folder), before);
            disk.failFrom(change, change % 2 ? SQLITE_FULL : SQLITE_IOERR_WRITE);
            said = errorOf([&] { jet::compactArchive(fixture.path(), fixture.path(u"temporary"_s)); });
            disk.works();
        }
        fixture.reopen();
        QCOMPARE(fixture.rows(u"SELECT COUNT(memoID) FROM tab_memo"_s), u"20"_s);
        QCOMPARE(stateOf(folder).size(), 1);
    }

    // Any damage ends in rows or in a description, and compacting it keeps the damaged file.
    void damagedFiles()
    {
        JetFixture fixture;
        fixture.addMemos(120);
        fixture.connection.Close();
        const QByteArray sound = bytesOf(fixture.path());
        std::mt19937 random(5);
        for (int round = 0; round < 120; ++round) { // cut off, a page of zeros, one wrong byte, a page of noise
            QByteArray bytes = sound;
            const qsizetype page = round % (bytes.size() / 4096) * 4096;
            if (round % 4 == 0)
                bytes.truncate(random() % bytes.size());
            else if (round % 4 == 1)
                bytes.replace(page, 4096, QByteArray(4096, '\0'));
            else
                for (int n = round % 4 == 2 ? 1 : 400; n; --n)
                    bytes[page + random() % 4096] = char(random());
            QTemporaryDir folder;
            const QString path = folder.filePath(u"x.SVA"_s);
            writeFile(path, bytes);
            errorOf([&] {
                jet::Connection connection;
                connection.Open(connectionString(path));
                const QString sql = u"SELECT * FROM tab_memo WHERE snipVale LIKE '%xy%' OR memoID > 0"_s;
                for (jet::Recordset set = connection.OpenRecordset(sql); !set.eof(); set.moveNext())
                    set.text(u"snipVale"_s);
                connection.Execute(u"UPDATE tab_memo SET memoName = 'new' WHERE memoID < 60"_s);
                connection.Execute(u"DELETE * FROM tab_memo WHERE memoID IN (3, 100)"_s);
            });
            errorOf([&] {
                const jet::CompactResult result = jet::compactArchive(path, folder.filePath(u"temporary"_s));
                QCOMPARE(QFile::exists(result.damagedCopy), result.wasDamaged);
                // A value may have been damaged unnoticed; it stays for the user to see.
                const QByteArray state = RawSqlite(path).first("PRAGMA quick_check");
                QVERIFY2(state == "ok" || state.startsWith("CHECK ") || state.startsWith("NULL value"),
                         state.constData());
            });
            QVERIFY(!QFile::exists(folder.filePath(u"temporary"_s)) && QFile::exists(path));
        }
    }
};

SNIPVALE_TEST(tst_Faults)
#include "tst_Faults.moc"
