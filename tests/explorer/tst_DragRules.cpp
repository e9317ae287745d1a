// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/CoreSupport.h"
#include "support/Registry.h"

#include "archive/Archive.h"
#include "archive/cCategory.h"
#include "explorer/CategoryRows.h"
#include "explorer/DragRules.h"

#include <QHash>
#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

// A tree of keys alone.
class KeyTree : public CategoryTree {
public:
    QHash<QString, QStringList> children;

    QString selectedKey() const override { return {}; }
    QString selectedTag() const override { return {}; }
    QStringList childKeys(const QString& key) const override { return children.value(key); }
    void renameNode(const QString&, const QString&) override { }
    void addNode(const QString&, const CategoryNode&) override { }
    void clickSelectedNode() override { }
};

// 0 > 1 > (2, 3 > 4), 0 > 5 > a chain down to 505
KeyTree sample()
{
    KeyTree tree;
    tree.children = {
        {u"0 ID"_s, {u"1 ID"_s, u"5 ID"_s}}, {u"1 ID"_s, {u"2 ID"_s, u"3 ID"_s}}, {u"3 ID"_s, {u"4 ID"_s}}};
    for (int id = 5; id < 505; ++id)
        tree.children.insert(QString::number(id) + u" ID"_s, {QString::number(id + 1) + u" ID"_s});
    return tree;
}

} // namespace

class tst_DragRules : public QObject {
    Q_OBJECT
private slots:
    void elements_data();
    void elements();
    void categories_data();
    void categories();
    void isParentNode_data();
    void isParentNode();
    void statements();
    void nothingMovesOnAnError();
};

void tst_DragRules::elements_data()
{
    QTest::addColumn<DragSource>("source");
    QTest::addColumn<DropTarget>("target");
    QTest::addColumn<QString>("refusal");
    const DropTarget root{u"0 ID"_s, u"root"_s};
    const DropTarget memo{u"1 ID"_s, u"category"_s};
    const DropTarget bookmark{u"2 ID"_s, u"bookmark"_s};
    const DropTarget toDo{u"3 ID"_s, u"todo"_s};
    const QString onRoot = u"Drop not allowed in root folder"_s;
    const QString onMemo = u"Drop not allowed here.\r\nMoving into a memo folder you must select a memo item."_s;
    const QString onBookmark =
        u"Drop not allowed here\r\nMoving into a bookmark folder you must select a bookmark item."_s;
    const QString onToDo = u"Drop not allowed here\r\nMoving into a ToDo folder you must select a ToDo item."_s;
    struct Kind {
        const char* name;
        DragSource source;
        QString memo, bookmark, toDo;
    };
    for (const Kind& kind : {Kind{"memo", DragSource::Memo, {}, onBookmark, onToDo},
                             Kind{"bookmark", DragSource::Bookmark, onMemo, {}, onToDo},
                             Kind{"to-do", DragSource::ToDo, onMemo, onBookmark, {}},
                             Kind{"nothing yet", DragSource::None, onMemo, onBookmark, onToDo}}) {
        QTest::addRow("%s on root", kind.name) << kind.source << root << onRoot;
        QTest::addRow("%s on memos", kind.name) << kind.source << memo << kind.memo;
        QTest::addRow("%s on bookmarks", kind.name) << kind.source << bookmark << kind.bookmark;
        QTest::addRow("%s on to-dos", kind.name) << kind.source << toDo << kind.toDo;
    }
}

void tst_DragRules::elements()
{
    QFETCH(DragSource, source);
    QFETCH(DropTarget, target);
    QTEST(dropRefusal({source, 1, u"x"_s, true}, target, sample()), "refusal");
}

void tst_DragRules::categories_data()
{
    QTest::addColumn<int>("dragged");
    QTest::addColumn<DropTarget>("target");
    QTest::addColumn<QString>("refusal");
    const QString same = u"Cannot move it's: The destination folder is the same as the source folder!"_s;
    const QString below = u"Cannot move it's: The destination folder is a subfolder of the source folder!"_s;
    QTest::newRow("the root") << 0 << DropTarget{u"1 ID"_s, u"category"_s} << u"You Cannot move Root element!"_s;
    QTest::newRow("the root on itself") << 0 << DropTarget{u"0 ID"_s, u"root"_s} << u"You Cannot move Root element!"_s;
    QTest::newRow("itself") << 3 << DropTarget{u"3 ID"_s, u"category"_s} << same;
    QTest::newRow("its child") << 1 << DropTarget{u"2 ID"_s, u"category"_s} << below;
    QTest::newRow("its grandchild") << 1 << DropTarget{u"4 ID"_s, u"bookmark"_s} << below;
    QTest::newRow("the root takes all") << 4 << DropTarget{u"0 ID"_s, u"root"_s} << QString();
    QTest::newRow("its parent") << 4 << DropTarget{u"3 ID"_s, u"category"_s} << QString();
    QTest::newRow("another kind") << 1 << DropTarget{u"5 ID"_s, u"todo"_s} << QString();
    QTest::newRow("a brother") << 3 << DropTarget{u"2 ID"_s, u"category"_s} << QString();
}

void tst_DragRules::categories()
{
    QFETCH(int, dragged);
    QFETCH(DropTarget, target);
    QTEST(dropRefusal({DragSource::Category, dragged, u"it's"_s, true}, target, sample()), "refusal");
}

void tst_DragRules::isParentNode_data()
{
    QTest::addColumn<QString>("source");
    QTest::addColumn<QString>("destination");
    QTest::addColumn<bool>("below");
    QTest::newRow("child") << u"1 ID"_s << u"3 ID"_s << true;
    QTest::newRow("last grandchild") << u"1 ID"_s << u"4 ID"_s << true;
    QTest::newRow("500 levels down") << u"5 ID"_s << u"505 ID"_s << true;
    QTest::newRow("parent") << u"4 ID"_s << u"3 ID"_s << false;
    QTest::newRow("itself") << u"3 ID"_s << u"3 ID"_s << false;
    QTest::newRow("beside it") << u"2 ID"_s << u"4 ID"_s << false;
    QTest::newRow("a key that begins alike") << u"1 ID"_s << u"40 ID"_s << false;
    QTest::newRow("unknown") << u"999 ID"_s << u"1 ID"_s << false;
}

void tst_DragRules::isParentNode()
{
    QFETCH(QString, source);
    QFETCH(QString, destination);
    QTEST(IsParentNode(sample(), source, destination), "below");
}

void tst_DragRules::statements()
{
    ArchiveFixture f;
    f.questions.expect(QString());
    UpdateArchiveVersion(f.archive); // brings the to-dos
    {
        ArchiveUnit unit(f.archive);
        for (const char* row : {"7, 1, 0, 'a'", "8, 2, 1, 'b'", "9, 3, 2, 'c'", "10, 7, 0, 'd'"})
            unit.Execute(u"INSERT INTO tab_category (categoryID, parentID, type, name) VALUES ("_s +
                         QString::fromLatin1(row) + u')');
        for (const char* row : {"3", "8", "9"}) {
            const QString id = QString::fromLatin1(row);
            unit.Execute(u"INSERT INTO tab_memo (memoID, categoryID, memoTypeID, memoName, dateLastMod) "
                         "VALUES (%1, 1, 3, 'm%1', '2020-1-2 3:4:5')"_s.arg(id));
            unit.Execute(u"INSERT INTO tab_bookmark (bookmarkID, categoryID, name) VALUES (%1, 2, 'b%1')"_s.arg(id));
            unit.Execute(u"INSERT INTO tab_todo (todoID, categoryID, name) VALUES (%1, 3, 't%1')"_s.arg(id));
        }
    }
    const QString stamp = f.value(u"SELECT dateLastMod FROM tab_memo WHERE memoID = 3"_s);
    f.statements.clear();
    ChangeMemoCategory(f.archive, u" 3, 8"_s, 7);
    ChangeBookmarkCategory(f.archive, u" 3, 8"_s, 8);
    ChangeToDoCategory(f.archive, u" 3, 8"_s, 9);
    ChangeCategoryParent(f.archive, 7, 0);
    ChangeCategoryParent(f.archive, 8, 9);
    QCOMPARE(f.statements,
             QStringList(
                 {u"UPDATE tab_memo SET tab_memo.categoryID = 7  WHERE tab_memo.memoID IN ( 3, 8) "_s,
                  u"UPDATE tab_bookmark SET tab_bookmark.categoryID = 8  WHERE tab_bookmark.bookmarkID IN ( 3, 8) "_s,
                  u"UPDATE tab_todo SET tab_todo.categoryID = 9  WHERE tab_todo.todoID IN ( 3, 8) "_s,
                  u"UPDATE tab_category SET tab_category.parentID = 0  WHERE tab_category.categoryID = 7 "_s,
                  u"UPDATE tab_category SET tab_category.parentID = 9  WHERE tab_category.categoryID = 8 "_s}));
    QVERIFY(!f.archive.cn); // each released its connection
    const auto sum = [&](const QString& column, const QString& table) {
        return f.value(u"SELECT SUM(%1) AS n FROM %2"_s.arg(column, table));
    };
    QCOMPARE(sum(u"categoryID"_s, u"tab_memo"_s), u"15"_s); // 7 + 7 + 1
    QCOMPARE(sum(u"categoryID"_s, u"tab_bookmark"_s), u"18"_s);
    QCOMPARE(sum(u"categoryID"_s, u"tab_todo"_s), u"21"_s);
    QCOMPARE(f.value(u"SELECT dateLastMod FROM tab_memo WHERE memoID = 3"_s), stamp);
    std::vector<CategoryRow> rows;
    readCategories(f.archive, rows);
    const auto parentOf = [&rows](qint32 id) {
        const auto row = std::find_if(rows.begin(), rows.end(), [id](const CategoryRow& r) { return r.node.id == id; });
        return row == rows.end() ? -1 : row->parentID;
    };
    QCOMPARE(parentOf(7), 0);
    QCOMPARE(parentOf(10), 7); // came along
    QCOMPARE(parentOf(8), 9);
}

void tst_DragRules::nothingMovesOnAnError()
{
    ArchiveFixture f;
    {
        ArchiveUnit unit(f.archive);
        unit.Execute(u"INSERT INTO tab_memo (memoID, categoryID, memoTypeID, memoName) VALUES (3, 1, 3, 'm')"_s);
    }
    QVERIFY_THROWS_EXCEPTION(std::exception, ChangeMemoCategory(f.archive, u" 3"_s, 4711)); // no such category
    QCOMPARE(f.value(u"SELECT categoryID FROM tab_memo"_s), u"1"_s);
    f.archive.setPath(f.scratch.path(u"gone.SVA"_s));
    QVERIFY_THROWS_EXCEPTION(std::exception, ChangeCategoryParent(f.archive, 1, 2));
    QVERIFY(!f.archive.cn);
}

SNIPVALE_TEST(tst_DragRules)
#include "tst_DragRules.moc"
