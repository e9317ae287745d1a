// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/CoreSupport.h"
#include "support/Registry.h"

#include "explorer/DragRules.h"

#include <QtTest>
#include <map>

using namespace Qt::StringLiterals;

namespace {

// 0 > 1 > (2, 3 > 4), 0 > 5 > a chain down to 505
class NumberTree : public CategoryTree {
public:
    NumberTree() : m_children({{0, {1, 5}}, {1, {2, 3}}, {3, {4}}})
    {
        for (int id = 5; id < 505; ++id)
            m_children[id] = {id + 1};
    }
    const CategoryNode* selectedNode() const override { return nullptr; }
    std::vector<qint32> childrenOf(qint32 id) const override
    {
        const auto found = m_children.find(id);
        return found == m_children.end() ? std::vector<qint32>() : found->second;
    }
    void renameNode(qint32, const QString&) override { }
    void addNode(qint32, const CategoryNode&) override { }
    void clickSelectedNode() override { }

private:
    std::map<qint32, std::vector<qint32>> m_children;
};

const CategoryNode targets[] = {
    {0, ElementKind::Memo, {}}, {1, ElementKind::Memo, {}}, {2, ElementKind::Bookmark, {}}, {3, ElementKind::ToDo, {}}};

} // namespace

class tst_DragRules : public QObject {
    Q_OBJECT
private slots:
    void elements();
    void categories_data();
    void categories();
    void isParentNode();
    void statements();
};

void tst_DragRules::elements()
{
    const QString refusals[] = {
        u"Drop not allowed in root folder"_s,
        u"Drop not allowed here.\r\nMoving into a memo folder you must select a memo item."_s,
        u"Drop not allowed here\r\nMoving into a bookmark folder you must select a bookmark item."_s,
        u"Drop not allowed here\r\nMoving into a ToDo folder you must select a ToDo item."_s};
    const std::optional<ElementKind> nothingYet;
    for (const auto& kind : {nothingYet, {ElementKind::Memo}, {ElementKind::Bookmark}, {ElementKind::ToDo}})
        for (const CategoryNode& target : targets) {
            const bool fits = target.id != 0 && kind == target.kind;
            QCOMPARE(dropRefusal({kind, false, 1, u"x"_s, true}, target, NumberTree()),
                     fits ? QString() : refusals[target.id]);
        }
}

void tst_DragRules::categories_data()
{
    QTest::addColumn<int>("dragged");
    QTest::addColumn<int>("target");
    QTest::addColumn<QString>("refusal");
    const QString root = u"You Cannot move Root element!"_s;
    const QString same = u"Cannot move it's: The destination folder is the same as the source folder!"_s;
    const QString below = u"Cannot move it's: The destination folder is a subfolder of the source folder!"_s;
    QTest::newRow("the root") << 0 << 1 << root;
    QTest::newRow("the root on itself") << 0 << 0 << root;
    QTest::newRow("itself") << 3 << 3 << same;
    QTest::newRow("its child") << 1 << 2 << below;
    QTest::newRow("its grandchild") << 1 << 4 << below;
    QTest::newRow("the root takes all") << 4 << 0 << QString();
    QTest::newRow("its parent") << 4 << 3 << QString();
    QTest::newRow("another kind") << 1 << 5 << QString();
    QTest::newRow("a brother") << 3 << 2 << QString();
}

void tst_DragRules::categories()
{
    QFETCH(int, dragged);
    QFETCH(int, target);
    const CategoryNode node{target, ElementKind::ToDo, {}};
    QTEST(dropRefusal({ElementKind::Memo, true, dragged, u"it's"_s, true}, node, NumberTree()), "refusal");
}

void tst_DragRules::isParentNode()
{
    const NumberTree tree;
    QVERIFY(IsParentNode(tree, 1, 3) && IsParentNode(tree, 1, 4) && IsParentNode(tree, 5, 505));
    QVERIFY(!IsParentNode(tree, 4, 3) && !IsParentNode(tree, 3, 3) && !IsParentNode(tree, 2, 4));
    QVERIFY(!IsParentNode(tree, 999, 1));
}

void tst_DragRules::statements()
{
    StartedArchive f;
    {
        ArchiveUnit unit(f.archive);
        for (const char* row : {"7, 1, 0, 'a'", "8, 2, 1, 'b'", "9, 3, 2, 'c'"})
            unit.Execute(
                u"INSERT INTO tab_category (categoryID, parentID, type, name) VALUES (%1)"_s.arg(QLatin1String(row)));
        for (const ElementKind kind : elementKinds)
            for (const char* id : {"3", "8", "9"})
                unit.Execute(u"INSERT INTO %1 (%2, categoryID, dateLastMod) VALUES (%3, %4, '2020-1-2 3:4:5')"_s.arg(
                    wordsOf(kind).table, wordsOf(kind).keyColumn, QLatin1String(id), QString::number(int(kind) + 1)));
    }
    f.statements.clear();
    ChangeMemoCategory(f.archive, u" 3, 8"_s, 7);
    ChangeBookmarkCategory(f.archive, u" 3, 8"_s, 8);
    ChangeToDoCategory(f.archive, u" 3, 8"_s, 9);
    ChangeCategoryParent(f.archive, 8, 9);
    QCOMPARE(f.statements,
             QStringList(
                 {u"UPDATE tab_memo SET tab_memo.categoryID = 7  WHERE tab_memo.memoID IN ( 3, 8) "_s,
                  u"UPDATE tab_bookmark SET tab_bookmark.categoryID = 8  WHERE tab_bookmark.bookmarkID IN ( 3, 8) "_s,
                  u"UPDATE tab_todo SET tab_todo.categoryID = 9  WHERE tab_todo.todoID IN ( 3, 8) "_s,
                  u"UPDATE tab_category SET tab_category.parentID = 9  WHERE tab_category.categoryID = 8 "_s}));
    QVERIFY(!f.archive.cn); // each released its connection
    const auto sum = [&](const QString& table) { return f.value(u"SELECT SUM(categoryID) AS n FROM "_s + table); };
    QCOMPARE(sum(u"tab_memo"_s), u"15"_s); // 7 + 7 + 1
    QCOMPARE(sum(u"tab_bookmark"_s), u"18"_s);
    QCOMPARE(sum(u"tab_todo"_s), u"21"_s);
    QCOMPARE(f.value(u"SELECT COUNT(*) AS n FROM tab_memo WHERE dateLastMod = #2020-1-2 3:4:5#"_s), u"3"_s);
    // Nothing moves on an error.
    QVERIFY_THROWS_EXCEPTION(std::exception, ChangeMemoCategory(f.archive, u" 3, 9"_s, 4711)); // no such category
    QCOMPARE(sum(u"tab_memo"_s), u"15"_s);
}

SNIPVALE_TEST(tst_DragRules)
#include "tst_DragRules.moc"
