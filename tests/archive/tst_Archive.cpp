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

// A tree: 7 over 9 and 12, 9 over 10.
class FakeTree : public CategoryTree {
public:
    const CategoryNode* selectedNode() const override { return nullptr; }
    std::vector<qint32> childrenOf(qint32 id) const override
    {
        if (id == 7)
            return {9, 12};
        return id == 9 ? std::vector<qint32>{10} : std::vector<qint32>();
    }
    void renameNode(qint32, const QString&) override { }
    void addNode(qint32, const CategoryNode&) override { }
    void clickSelectedNode() override { }
};

} // namespace

class tst_Archive : public QObject {
    Q_OBJECT
private slots:
    void sqlText()
    {
        QCOMPARE(FormatDateSQL(QDateTime(QDate(2005, 3, 4), QTime(9, 5, 0))), u"2005-3-4 9:5:0"_s);
        QCOMPARE(FormatDateSQL(QDateTime()) + sqlDate({}) + sqlTime({}) + sqlDateTime({}) + idList({}), QString());
        QCOMPARE(idList({3, 8}), u" 3, 8"_s);
        QCOMPARE(leadingNumber(u"7 M_ID"_s), 7);
        QCOMPARE(leadingNumber(u"99999999999 ID"_s), 0); // no key of ours: not a wrapped number
        QVERIFY(compareNames(u"zebra"_s, u"Zoo"_s) < 0 && compareNames(u"Äpfel"_s, u"apple"_s) < 0);
        // The blanks are part of the text.
        UpdateText plain(u"t"_s), wide(u"t"_s, u"  , "_s);
        plain.set(u"t.a"_s, u"it's"_s).set(u"t.b"_s, 7).setFlag(u"t.c"_s, true).setDate(u"t.d"_s, QString());
        QCOMPARE(
            plain.setDate(u"t.e"_s, u"2005-3-4"_s).where(u"t.id"_s, 3),
            u"UPDATE t SET t.a = 'it''s' , t.b = 7 , t.c = 1 ,  t.d = Null ,  t.e = '2005-3-4' WHERE (t.id = 3 ) "_s);
        QCOMPARE(wide.put(u"a"_s, u"null"_s).setFlag(u"b"_s, false).where(u"id"_s, 3, u"  "_s),
                 u"UPDATE t SET a = null  , b = 0  WHERE (id = 3 ) "_s);
    }

    void upgrades()
    {
        ArchiveFixture f;
        f.questions.expect(u"Ver 3.0 - archive update completed successfully!"_s);
        QVERIFY(UpdateArchiveVersion(f.archive));
        QCOMPARE(f.questions.asked.last().style, MessageStyle::Information);
        QCOMPARE(f.value(u"SELECT dateMod FROM tab_version WHERE versionName = '3.0' AND versionBuild = 191"_s),
                 u"2026-03-04 09:05:00"_s);
        const QString category =
            f.value(u"SELECT categoryID FROM tab_category WHERE parentID = 0 AND type = 2 AND name = 'ToDo'"_s);
        QVERIFY(category.toInt() > 0);
        f.statements.clear();
        QVERIFY(UpdateArchiveVersion(f.archive)); // a second start changes nothing and says nothing
        QVERIFY(f.statements.isEmpty());
        QVERIFY(ExistTable(f.archive, u"TAB_TODO"_s) && !ExistTable(f.archive, u"tab_tod"_s));

        ArchiveUnit unit(f.archive);
        unit.Execute(u"INSERT INTO tab_todo (categoryID, name) VALUES (%1, 'x')"_s.arg(category));
        unit.Execute(u"UPDATE tab_category SET categoryID = 90 WHERE categoryID = "_s + category);
        unit.Execute(u"DELETE * FROM tab_category WHERE categoryID = 90"_s); // the to-do goes with it
        QCOMPARE(f.value(u"SELECT COUNT(todoID) AS n FROM tab_todo"_s), u"0"_s);
        unit.Execute(u"DROP TABLE tab_version"_s);
        QVERIFY(UpdateArchiveVersion(f.archive)); // an archive that has its to-dos is not told
        QCOMPARE(f.value(u"SELECT COUNT(versionID) AS n FROM tab_version"_s), u"1"_s);

        f.archive.setPath(f.scratch.path(u"missing.SVA"_s));
        f.questions.expect(QString()); // Error in ExistTable: ...
        f.questions.expect(u"Error updating db to version 3.0"_s);
        QVERIFY(!UpdateArchiveVersion(f.archive));
        QVERIFY(f.questions.asked[1].text.startsWith("Error in ExistTable: "_L1));
        QCOMPARE(f.questions.asked.last().style, MessageStyle::Critical);
        QVERIFY(!QFile::exists(f.archive.ArchivePath()));
        QVERIFY(f.archive.cn); // the outer unit is back
    }

    void categoryRecord()
    {
        ArchiveFixture f;
        cCategory category(f.archive);
        category.CategoryName = u"  O'Brien's"_s;
        category.CategoryDescription = u"it's\r\nall 'quoted'"_s;
        category.CategoryParentID = 1;
        QVERIFY(category.Save());
        const QString id = QString::number(category.CategoryID);

        cCategory read(f.archive);
        read.CategoryID = category.CategoryID;
        QVERIFY(read.Load());
        QCOMPARE(read.CategoryName + read.CategoryDescription, category.CategoryName + category.CategoryDescription);
        read.CategoryParentID = 2; // an update never moves
        read.CategoryName = u"a'b"_s;
        read.CategoryDescription = u"d"_s;
        f.statements.clear();
        QVERIFY(read.Update() && read.Delete(u"7,9,12"_s));
        const QStringList expected = {
            u"UPDATE tab_category SET tab_category.type = 0  , tab_category.name = 'a''b'  , tab_category.description = 'd'  WHERE (tab_category.categoryID = %1 ) "_s
                .arg(id),
            u"DELETE * FROM tab_category WHERE tab_category.categoryID IN (7,9,12) "_s};
        QCOMPARE(f.statements, expected);
        QCOMPARE(f.value(u"SELECT parentID FROM tab_category WHERE name = 'a''b'"_s), u"1"_s);
        read.CategoryID = 99999; // no such row: everything stays
        QVERIFY(read.Load());
        QCOMPARE(read.CategoryName, u"a'b"_s);
    }

    void deletingTakesEverythingBelow()
    {
        ArchiveFixture f;
        cCategory category(f.archive);
        category.CategoryIDsPath = u"7"_s;
        category.TraverseTree(FakeTree(), u"7 ID"_s);
        QCOMPARE(category.CategoryIDsPath, u"7,9,10,12"_s);

        category.Save();
        const QString id = QString::number(category.CategoryID);
        ArchiveUnit(f.archive).Execute(u"INSERT INTO tab_memo (categoryID, memoTypeID) VALUES (%1, 3)"_s.arg(id));
        QVERIFY(category.Delete(id));
        QCOMPARE(f.value(u"SELECT COUNT(memoID) AS n FROM tab_memo"_s), u"0"_s);
        f.questions.expect(QString());
        QVERIFY(!category.Delete(u"1,"_s)); // a statement that does not parse deletes nothing
        QVERIFY(f.questions.asked.last().text.startsWith("Error in Delete: "_L1));
        QVERIFY(!f.archive.cn); // closed also after an error
        QCOMPARE(f.value(u"SELECT name FROM tab_category WHERE categoryID = 1"_s), u"Code"_s);
    }
};

SNIPVALE_TEST(tst_Archive)
#include "tst_Archive.moc"
