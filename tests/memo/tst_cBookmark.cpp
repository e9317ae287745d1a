// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/CoreSupport.h"
#include "support/Registry.h"

#include "memo/cBookmark.h"

#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

constexpr qint32 category = 2; // the root of the bookmarks

cBookmark sample(Archive& archive)
{
    cBookmark bookmark(archive);
    bookmark.CategoryID = category;
    bookmark.BookmarkName = u"l'été; DROP TABLE tab_bookmark --"_s;
    bookmark.BookmarkKeywords = u"'' \"q\" Привет 世界 שלום"_s;
    bookmark.BookmarkDescription = u"it's\r\nline\rline\n\tनमस्ते \U0001F600 #1# %_[] a\u00A0b"_s;
    bookmark.BookmarkLink = u"https://x/?a='b'&c=%27#d"_s;
    return bookmark;
}

void compare(const cBookmark& a, const cBookmark& b)
{
    QCOMPARE(a.CategoryID, b.CategoryID);
    QCOMPARE(a.BookmarkName, b.BookmarkName);
    QCOMPARE(a.BookmarkKeywords, b.BookmarkKeywords);
    QCOMPARE(a.BookmarkDescription, b.BookmarkDescription);
    QCOMPARE(a.BookmarkLink, b.BookmarkLink);
}

} // namespace

class tst_cBookmark : public QObject {
    Q_OBJECT
private slots:
    void savedAndUpdatedTextComesBack();
    void datesAreStamped();
    void statements();
    void nullsAndMissingRows();
    void failuresSayWhatTheyShould();
};

void tst_cBookmark::savedAndUpdatedTextComesBack()
{
    ArchiveFixture f;
    cBookmark bookmark = sample(f.archive);
    QVERIFY(bookmark.Save());
    cBookmark other = sample(f.archive);
    QVERIFY(other.Save());
    QVERIFY(other.BookmarkID != bookmark.BookmarkID);
    cBookmark read(f.archive);
    read.BookmarkID = bookmark.BookmarkID;
    QVERIFY(read.Load());
    compare(read, bookmark);

    bookmark.BookmarkName = u"''"_s;
    bookmark.BookmarkKeywords.clear();
    bookmark.BookmarkDescription += bookmark.BookmarkDescription;
    bookmark.BookmarkLink = u"C:\\it's\\here.txt"_s;
    QVERIFY2(bookmark.Update(), qPrintable(bookmark.lastError()));
    QVERIFY(read.Load());
    compare(read, bookmark);
    read.BookmarkID = other.BookmarkID; // the other row was left alone
    QVERIFY(read.Load());
    compare(read, other);
}

void tst_cBookmark::datesAreStamped()
{
    ArchiveFixture f;
    cBookmark bookmark = sample(f.archive);
    bookmark.BookmarkDateIn = bookmark.BookmarkDateLastMod = QDateTime(QDate(1999, 1, 1), QTime(0, 0));
    QVERIFY(bookmark.Save());
    QCOMPARE(f.value(u"SELECT dateIn FROM tab_bookmark"_s), u"2026-03-04 09:05:00"_s);
    QCOMPARE(f.value(u"SELECT dateLastMod FROM tab_bookmark"_s), u"2026-03-04 09:05:00"_s);
    f.clock.moment = QDateTime(QDate(2027, 2, 1), QTime(23, 59, 58));
    QVERIFY(bookmark.Update());
    QCOMPARE(f.value(u"SELECT dateLastMod FROM tab_bookmark"_s), u"2027-02-01 23:59:58"_s);
    QVERIFY(bookmark.Load());
    QCOMPARE(bookmark.BookmarkDateIn, QDateTime(QDate(2026, 3, 4), QTime(9, 5)));
    QCOMPARE(bookmark.BookmarkDateLastMod, f.clock.moment);
}

void tst_cBookmark::statements()
{
    ArchiveFixture f;
    cBookmark bookmark(f.archive);
    bookmark.CategoryID = category;
    bookmark.BookmarkName = u"n'"_s;
    bookmark.BookmarkKeywords = u"k"_s;
    bookmark.BookmarkDescription = u"d"_s;
    bookmark.BookmarkLink = u"'u'"_s;
    QVERIFY(bookmark.Save() && bookmark.Load() && bookmark.Update());
    const QStringList expected = {
        u"SELECT * FROM tab_bookmark where 1=2 "_s, u" SELECT * FROM tab_bookmark  WHERE bookmarkID = 1 "_s,
        u"UPDATE tab_bookmark SET tab_bookmark.categoryID = 2 , tab_bookmark.name = 'n''' , "
        "tab_bookmark.keywords = 'k' , tab_bookmark.description = 'd' , tab_bookmark.url = '''u''' , "
        "tab_bookmark.dateLastMod = '2026-3-4 9:5:0'  WHERE (tab_bookmark.bookmarkID = 1 ) "_s};
    QCOMPARE(f.statements, expected);
}

void tst_cBookmark::nullsAndMissingRows()
{
    ArchiveFixture f;
    {
        ArchiveUnit unit(f.archive);
        unit.Execute(u"INSERT INTO tab_bookmark (url) VALUES ('x')"_s);
        unit.Execute(u"INSERT INTO tab_bookmark (name) VALUES ('x')"_s);
    }
    cBookmark bookmark = sample(f.archive);
    bookmark.BookmarkDateIn = bookmark.BookmarkDateLastMod = f.clock.now();
    bookmark.BookmarkID = 1;
    QVERIFY(bookmark.Load());
    cBookmark expected(f.archive); // a Null text is empty; a Null number or date leaves the field alone
    expected.CategoryID = category;
    expected.BookmarkLink = u"x"_s;
    compare(bookmark, expected);
    QCOMPARE(bookmark.BookmarkDateIn, f.clock.now());
    QCOMPARE(bookmark.BookmarkDateLastMod, f.clock.now());
    bookmark.BookmarkID = 2;
    QVERIFY(bookmark.Load());
    QCOMPARE(bookmark.BookmarkLink, QString());

    cBookmark gone = sample(f.archive);
    gone.BookmarkID = 77;
    QVERIFY(gone.Load());
    compare(gone, sample(f.archive));
    QVERIFY(!gone.Update()); // it would be lost without a word
    QCOMPARE(gone.lastError(), u"The bookmark is no longer in the archive."_s);
}

void tst_cBookmark::failuresSayWhatTheyShould()
{
    ArchiveFixture f;
    cBookmark bookmark = sample(f.archive);
    bookmark.CategoryID = 4711; // no such category
    f.questions.expect(QString());
    QVERIFY(!bookmark.Save());
    QVERIFY(f.questions.asked.last().text.startsWith("Error in Save: "_L1));
    QCOMPARE(f.questions.asked.last().style, MessageStyle::Critical);
    QCOMPARE(bookmark.BookmarkID, 0);

    f.archive.setPath(f.scratch.path(u"missing.SVA"_s));
    QVERIFY(!bookmark.Load()); // no message
    QVERIFY(bookmark.lastError().contains("missing.SVA"_L1));
    QVERIFY(!bookmark.Update());
    QVERIFY(bookmark.lastError().contains("missing.SVA"_L1));
}

SNIPVALE_TEST(tst_cBookmark)
#include "tst_cBookmark.moc"
