// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/CoreSupport.h"
#include "support/Registry.h"

#include "desktop/TextFile.h"
#include "memo/cMemo.h"

#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

cMemo sample(Archive& archive)
{
    cMemo memo(archive);
    memo.CategoryID = 1;
    memo.MemoTypeID = 3;
    memo.MemoName = u"l'été"_s;
    memo.MemoDescription = u"it's \"odd\"; DROP TABLE tab_memo --"_s;
    memo.MemoLink = u"https://x/?a='b'"_s;
    memo.SnipVale = u"a\r\nb\rc\n\tПривет 世界 \U0001F600 'x' #1# %_[]\n"_s + QChar(0) + u"tail"_s;
    memo.MemoNotes = u"{\\rtf1 it's}"_s;
    memo.MemoOpeningState = 2;
    return memo;
}

void compare(const cMemo& a, const cMemo& b)
{
    QCOMPARE(a.MemoName, b.MemoName);
    QCOMPARE(a.MemoDescription, b.MemoDescription);
    QCOMPARE(a.MemoLink, b.MemoLink);
    QCOMPARE(a.SnipVale, b.SnipVale);
    QCOMPARE(a.MemoNotes, b.MemoNotes);
    QCOMPARE(a.CategoryID, b.CategoryID);
    QCOMPARE(a.MemoTypeID, b.MemoTypeID);
    QCOMPARE(a.MemoOpeningState, b.MemoOpeningState);
}

} // namespace

class tst_cMemo : public QObject {
    Q_OBJECT
private slots:
    void savedAndUpdatedTextComesBack();
    void datesAreStamped();
    void statements();
    void nullsAndMissingRows();
    void failuresSayWhatTheyShould();
    void textFiles();
};

void tst_cMemo::savedAndUpdatedTextComesBack()
{
    ArchiveFixture f;
    cMemo memo = sample(f.archive);
    QVERIFY(memo.Save());
    cMemo read(f.archive);
    read.MemoID = memo.MemoID;
    QVERIFY(read.Load());
    compare(read, memo);

    memo.SnipVale += memo.SnipVale;
    memo.MemoName = u"''"_s;
    QVERIFY2(memo.Update(), qPrintable(memo.lastError()));
    QVERIFY(read.Load());
    compare(read, memo);
    QCOMPARE(memo.GetMemoCount(), 1);
    QCOMPARE(f.value(u"SELECT COUNT(memoID) AS n FROM tab_memo"_s), u"1"_s);
}

void tst_cMemo::datesAreStamped()
{
    ArchiveFixture f;
    cMemo memo = sample(f.archive);
    memo.MemoDateIn = memo.MemoDateLastMod = QDateTime(QDate(1999, 1, 1), QTime(0, 0));
    memo.Save();
    QCOMPARE(f.value(u"SELECT dateIn FROM tab_memo"_s), u"2026-03-04 09:05:00"_s);
    QCOMPARE(f.value(u"SELECT dateLastMod FROM tab_memo"_s), u"2026-03-04 09:05:00"_s);
    f.clock.moment = QDateTime(QDate(2027, 12, 31), QTime(23, 59, 58));
    memo.Update();
    QCOMPARE(f.value(u"SELECT dateIn FROM tab_memo"_s), u"2026-03-04 09:05:00"_s);
    QCOMPARE(f.value(u"SELECT dateLastMod FROM tab_memo"_s), u"2027-12-31 23:59:58"_s);
}

void tst_cMemo::statements()
{
    ArchiveFixture f;
    cMemo memo(f.archive);
    memo.CategoryID = 1;
    memo.MemoTypeID = 3;
    memo.MemoName = u"n"_s;
    memo.SnipVale = u"c'"_s;
    memo.Save();
    memo.Load();
    memo.Update();
    memo.GetMemoCount();
    const QStringList expected = {
        u"SELECT * FROM tab_memo where 1=2 "_s, u" SELECT * FROM tab_memo WHERE memoID = 1 "_s,
        u"UPDATE tab_memo SET tab_memo.categoryID = 1 , tab_memo.memoTypeID = 3 , tab_memo.memoName = 'n' , "
        "tab_memo.memoDescription = '' , tab_memo.memoLink = '' , tab_memo.snipVale = 'c''' , tab_memo.memoNotes = '' "
        ", "
        "tab_memo.dateLastMod = '2026-3-4 9:5:0' , tab_memo.openingState = 0 WHERE (tab_memo.memoID = 1 ) "_s,
        u"SELECT COUNT(memoID) AS MemoCount FROM tab_memo  "_s};
    QCOMPARE(f.statements, expected);
}

void tst_cMemo::nullsAndMissingRows()
{
    ArchiveFixture f;
    {
        ArchiveUnit unit(f.archive);
        unit.Execute(u"INSERT INTO tab_memo (categoryID) VALUES (1)"_s); // Null in every other column
    }
    cMemo memo = sample(f.archive);
    memo.MemoDateIn = f.clock.now();
    memo.MemoID = 1;
    QVERIFY(memo.Load());
    QCOMPARE(memo.MemoName, QString());
    QCOMPARE(memo.SnipVale, QString());
    QCOMPARE(memo.MemoOpeningState, qint16(0));
    QCOMPARE(memo.MemoTypeID, 3); // a Null number or date leaves the field alone
    QCOMPARE(memo.MemoDateIn, f.clock.now());

    cMemo gone = sample(f.archive);
    gone.MemoID = 77;
    QVERIFY(gone.Load());
    compare(gone, sample(f.archive));
    QVERIFY(!gone.Update()); // it would be lost without a word
    QVERIFY(!gone.lastError().isEmpty());
}

void tst_cMemo::failuresSayWhatTheyShould()
{
    ArchiveFixture f;
    cMemo memo = sample(f.archive);
    memo.CategoryID = 4711; // no such category
    f.questions.expect(QString());
    QVERIFY(!memo.Save());
    QVERIFY(f.questions.asked.last().text.startsWith("Error in Save: "_L1));
    QCOMPARE(memo.MemoID, 0);

    f.archive.setPath(f.scratch.path(u"missing.SVA"_s));
    QVERIFY(!memo.Load()); // no message
    QVERIFY(!memo.Update());
    QVERIFY(memo.lastError().contains("missing.SVA"_L1));
    QCOMPARE(memo.GetMemoCount(), 0);
}

void tst_cMemo::textFiles()
{
    QTemporaryDir folder;
    const QString name = folder.filePath(u"данные.txt"_s);
    const std::pair<QByteArray, QString> cases[] = {
        {"a\r\nb\n\nc\n", u"a\nb\n\nc"_s},
        {"\xEF\xBB\xBFПривет", u"Привет"_s},
        {QByteArray("\xFF\xFEh\0i\0", 6), u"hi"_s},
        {"caf\xE9 \x80 \x93q\x94", u"café € “q”"_s},
        {"", QString()},
    };
    for (const auto& [bytes, text] : cases) {
        writeTextFile(name, bytes);
        QCOMPARE(readTextFile(name), text);
    }
    QVERIFY_THROWS_EXCEPTION(std::runtime_error, readTextFile(folder.path()));
    QVERIFY_THROWS_EXCEPTION(std::runtime_error, readTextFile(folder.filePath(u"missing"_s)));
    QVERIFY_THROWS_EXCEPTION(std::runtime_error, writeTextFile(folder.filePath(u"no/folder"_s), "x"));
}

SNIPVALE_TEST(tst_cMemo)
#include "tst_cMemo.moc"
