// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/CoreSupport.h"
#include "support/Registry.h"

#include "archive/Archive.h"
#include "archive/ErrorTrap.h"
#include "archive/SqlText.h"
#include "archive/cCategory.h"

#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

// A tree of keys: 7 over 9 and 12, 9 over 10.
class FakeTree : public CategoryTree {
public:
    QString selectedKey() const override { return {}; }
    QString selectedTag() const override { return {}; }
    QStringList childKeys(const QString& key) const override
    {
        if (key == "7 ID"_L1)
            return {u"9 ID"_s, u"12 ID"_s};
        return key == "9 ID"_L1 ? QStringList{u"10 ID"_s} : QStringList();
    }
    void renameNode(const QString&, const QString&) override { }
    void addNode(const QString&, const CategoryNode&) override { }
    void clickSelectedNode() override { }
};

} // namespace

class tst_Archive : public QObject {
    Q_OBJECT
private slots:
    void sqlText();
    void namesInOrder();
    void upgradeOfAFreshArchive();
    void upgradeOfAnArchiveWithToDos();
    void upgradeThatCannotBeDone();
    void categoryRecord();
    void categoryStatements();
    void deletingTakesEverythingBelow();
    void unitsAreClosedAlsoAfterErrors();
};

void tst_Archive::sqlText()
{
    QCOMPARE(FormatDateSQL(QDateTime(QDate(2005, 3, 4), QTime(9, 5, 0))), u"2005-3-4 9:5:0"_s);
    QCOMPARE(FormatDateSQL(QDateTime(QDate(12024, 12, 31), QTime(23, 59, 59))), u"12024-12-31 23:59:59"_s);
    QCOMPARE(FormatDateSQL(QDateTime()), QString());
    QCOMPARE(quoted(u"O'Brien''s"_s), u"O''Brien''''s"_s);
    QCOMPARE(idList({3, 8}), u" 3, 8"_s);
    QCOMPARE(idList({}), QString());
    QCOMPARE(leadingNumber(u"12 ID"_s), 12);
    QCOMPARE(leadingNumber(u"7 M_ID"_s), 7);
    QCOMPARE(leadingNumber(u"-3 ID"_s), -3);
    QCOMPARE(leadingNumber(u"ID"_s), 0);
    QCOMPARE(leadingNumber(u"99999999999 ID"_s), 0); // no key of ours: not a wrapped number
}

void tst_Archive::namesInOrder()
{
    QStringList names = {u"zebra"_s, u"Äpfel"_s, u"apple"_s, u"_tmp"_s, u"2nd"_s, u"Zoo"_s, u"ёлка"_s, u"ЖУК"_s};
    std::sort(names.begin(), names.end(), [](const QString& a, const QString& b) { return compareNames(a, b) < 0; });
    QCOMPARE(names.first(), u"_tmp"_s);
    QCOMPARE(names[1], u"2nd"_s);
    QVERIFY(names.indexOf(u"Äpfel"_s) < names.indexOf(u"zebra"_s));
    QVERIFY(names.indexOf(u"zebra"_s) < names.indexOf(u"Zoo"_s));
    QVERIFY(names.indexOf(u"ёлка"_s) < names.indexOf(u"ЖУК"_s));
}

void tst_Archive::upgradeOfAFreshArchive()
{
    ArchiveFixture f;
    f.questions.expect(u"Ver 3.0 - archive update completed successfully!"_s);
    QVERIFY(UpdateArchiveVersion(f.archive));
    QCOMPARE(f.questions.asked.last().style, MessageStyle::Information);
    QCOMPARE(f.value(u"SELECT dateMod FROM tab_version WHERE versionName = '3.0' AND versionBuild = 191"_s),
             u"2026-03-04 09:05:00"_s);
    QCOMPARE(
        f.value(u"SELECT COUNT(categoryID) AS n FROM tab_category WHERE parentID = 0 AND type = 2 AND name = 'ToDo'"_s),
        u"1"_s);

    f.statements.clear();
    QVERIFY(UpdateArchiveVersion(f.archive)); // a second start changes nothing and says nothing
    QVERIFY(f.statements.isEmpty());
    QVERIFY(ExistTable(f.archive, u"TAB_TODO"_s));
    QVERIFY(!ExistTable(f.archive, u"tab_tod"_s));
}

void tst_Archive::upgradeOfAnArchiveWithToDos()
{
    ArchiveFixture f;
    f.questions.expect(u"Ver 3.0 - archive update completed successfully!"_s);
    UpdateArchiveVersion(f.archive);
    {
        ArchiveUnit unit(f.archive);
        unit.Execute(u"DROP TABLE tab_version"_s);
    }
    QVERIFY(UpdateArchiveVersion(f.archive)); // no message this time
    QCOMPARE(f.value(u"SELECT COUNT(versionID) AS n FROM tab_version"_s), u"1"_s);
}

void tst_Archive::upgradeThatCannotBeDone()
{
    ArchiveFixture f;
    f.archive.setPath(f.scratch.path(u"missing.SVA"_s));
    f.questions.expect(QString()); // Error in ExistTable: ...
    f.questions.expect(u"Error updating db to version 3.0"_s);
    QVERIFY(!UpdateArchiveVersion(f.archive));
    QVERIFY(f.questions.asked.first().text.startsWith("Error in ExistTable: "_L1));
    QCOMPARE(f.questions.asked.last().style, MessageStyle::Critical);
    QVERIFY(!QFile::exists(f.archive.ArchivePath()));
}

void tst_Archive::categoryRecord()
{
    ArchiveFixture f;
    cCategory category(f.archive);
    category.CategoryName = u"  O'Brien's"_s;
    category.CategoryDescription = u"it's\r\nall 'quoted'"_s;
    category.CategoryParentID = 1;
    category.CategoryType = 0;
    QVERIFY(category.Save());
    const qint32 id = category.CategoryID;
    QVERIFY(id > 2);

    cCategory read(f.archive);
    read.CategoryID = id;
    QVERIFY(read.Load());
    QCOMPARE(read.CategoryName, category.CategoryName);
    QCOMPARE(read.CategoryDescription, category.CategoryDescription);
    QCOMPARE(read.CategoryParentID, 1);

    read.CategoryParentID = 2; // an update never moves
    read.CategoryName = u"l'été"_s;
    QVERIFY(read.Update());
    QCOMPARE(f.value(u"SELECT parentID FROM tab_category WHERE name = 'l''été'"_s), u"1"_s);

    read.CategoryID = 99999; // no such row: everything stays
    QVERIFY(read.Load());
    QCOMPARE(read.CategoryName, u"l'été"_s);
    {
        ArchiveUnit unit(f.archive);
        unit.Execute(
            u"UPDATE tab_category SET tab_category.name = NULL, tab_category.description = NULL, tab_category.type = NULL WHERE categoryID = "_s +
            QString::number(id));
    }
    read.CategoryID = id;
    read.CategoryType = 2;
    QVERIFY(read.Load());
    QCOMPARE(read.CategoryName, QString());
    QCOMPARE(read.CategoryType, qint16(0));
}

void tst_Archive::categoryStatements()
{
    ArchiveFixture f;
    cCategory category(f.archive);
    category.CategoryID = 1;
    category.Load();
    category.CategoryName = u"a'b"_s;
    category.CategoryDescription = u"d"_s;
    category.Update();
    category.Delete(u"7,9,12"_s);
    const QStringList expected = {
        u" SELECT * FROM tab_category WHERE categoryID = 1 "_s,
        u"UPDATE tab_category SET tab_category.type = 0  , tab_category.name = 'a''b'  , tab_category.description = 'd'  WHERE (tab_category.categoryID = 1 ) "_s,
        u"DELETE * FROM tab_category WHERE tab_category.categoryID IN (7,9,12) "_s};
    QCOMPARE(f.statements, expected);
}

void tst_Archive::deletingTakesEverythingBelow()
{
    ArchiveFixture f;
    cCategory category(f.archive);
    category.CategoryIDsPath = u"7"_s;
    category.TraverseTree(FakeTree(), u"7 ID"_s);
    QCOMPARE(category.CategoryIDsPath, u"7,9,10,12"_s);

    category.CategoryParentID = 1;
    category.CategoryName = u"doomed"_s;
    category.Save();
    {
        ArchiveUnit unit(f.archive);
        unit.Execute(u"INSERT INTO tab_memo (categoryID, memoTypeID, memoName) VALUES ("_s +
                     QString::number(category.CategoryID) + u", 3, 'x')"_s);
    }
    QVERIFY(category.Delete(QString::number(category.CategoryID)));
    QCOMPARE(f.value(u"SELECT COUNT(memoID) AS n FROM tab_memo"_s), u"0"_s);

    f.questions.expect(QString());
    QVERIFY(!category.Delete(u"1,"_s)); // a statement that does not parse deletes nothing
    QVERIFY(f.questions.asked.last().text.startsWith("Error in Delete: "_L1));
    QCOMPARE(f.value(u"SELECT name FROM tab_category WHERE categoryID = 1"_s), u"Code"_s);
}

void tst_Archive::unitsAreClosedAlsoAfterErrors()
{
    ArchiveFixture f;
    f.questions.expect(QString());
    QVERIFY(!trapErrors(f.questions, u"Somewhere"_s, [&] {
        ArchiveUnit outer(f.archive);
        {
            ArchiveUnit inner(f.archive);
            QVERIFY(f.archive.cn);
        }
        QVERIFY(f.archive.cn); // the outer one is back
        outer.Execute(u"SELECT nothing"_s);
    }));
    QVERIFY(!f.archive.cn);
    QVERIFY(f.questions.asked.last().text.startsWith("Error in Somewhere: "_L1));
    QCOMPARE(f.questions.asked.last().style, MessageStyle::Critical);
}

SNIPVALE_TEST(tst_Archive)
#include "tst_Archive.moc"
