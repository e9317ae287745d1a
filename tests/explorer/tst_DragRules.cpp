// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/CoreSupport.h"
#include "support/Registry.h"

#include "explorer/DragRules.h"

#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

// 0 > 1 > (2, 3 > 4), 0 > 5
class NumberTree : public CategoryTree {
public:
    const CategoryNode* selectedNode() const override { return nullptr; }
    std::vector<qint32> childrenOf(qint32 id) const override
    {
        const std::vector<qint32> children[] = {{1, 5}, {2, 3}, {}, {4}, {}, {}};
        return children[id];
    }
    void renameNode(qint32, const QString&) override { }
    void addNode(qint32, const CategoryNode&) override { }
    void clickSelectedNode() override { }
};

} // namespace

class tst_DragRules : public QObject {
    Q_OBJECT
private slots:
    void elements();
    void categories();
    void statements();
};

void tst_DragRules::elements()
{
    const ElementKind kinds[] = {ElementKind::Memo, ElementKind::Memo, ElementKind::Bookmark, ElementKind::ToDo};
    const QString refusals[] = {
        u"Drop not allowed in root folder"_s,
        u"Drop not allowed here.\r\nMoving into a memo folder you must select a memo item."_s,
        u"Drop not allowed here\r\nMoving into a bookmark folder you must select a bookmark item."_s,
        u"Drop not allowed here\r\nMoving into a ToDo folder you must select a ToDo item."_s};
    const std::optional<ElementKind> nothingYet;
    for (const auto& kind : {nothingYet, {ElementKind::Memo}, {ElementKind::Bookmark}, {ElementKind::ToDo}})
        for (int id = 0; id < 4; ++id) {
            const bool fits = id != 0 && kind == kinds[id];
            QCOMPARE(dropRefusal({kind, false, 1, u"x"_s, true}, {id, kinds[id], {}}, NumberTree()),
                     fits ? QString() : refusals[id]);
        }
}

void tst_DragRules::categories()
{
    const QString root = u"You Cannot move Root element!"_s;
    const QString same = u"Cannot move it's: The destination folder is the same as the source folder!"_s;
    const QString below = u"Cannot move it's: The destination folder is a subfolder of the source folder!"_s;
    const std::tuple<int, int, QString> drags[] = {
        {0, 1, root},  {0, 0, root}, {3, 3, same}, {1, 2, below}, // its child
        {1, 4, below}, {4, 0, {}},   {4, 3, {}},   {3, 2, {}}, // below a child; to the top; to the parent; to a brother
        {1, 5, {}}};
    for (const auto& [dragged, target, refusal] : drags)
        QCOMPARE(dropRefusal({ElementKind::Memo, true, dragged, u"it's"_s, true}, {target, ElementKind::ToDo, {}},
                             NumberTree()),
                 refusal);
}

void tst_DragRules::statements()
{
    StartedArchive f;
    ChangeMemoCategory(f.archive, u" 3, 8"_s, 1);
    ChangeBookmarkCategory(f.archive, u" 3, 8"_s, 2);
    ChangeToDoCategory(f.archive, u" 3, 8"_s, 3);
    ChangeCategoryParent(f.archive, 3, 2);
    QCOMPARE(f.statements,
             QStringList(
                 {u"UPDATE tab_memo SET tab_memo.categoryID = 1  WHERE tab_memo.memoID IN ( 3, 8) "_s,
                  u"UPDATE tab_bookmark SET tab_bookmark.categoryID = 2  WHERE tab_bookmark.bookmarkID IN ( 3, 8) "_s,
                  u"UPDATE tab_todo SET tab_todo.categoryID = 3  WHERE tab_todo.todoID IN ( 3, 8) "_s,
                  u"UPDATE tab_category SET tab_category.parentID = 2  WHERE tab_category.categoryID = 3 "_s}));
    QVERIFY(!f.archive.cn); // each released its connection
}

SNIPVALE_TEST(tst_DragRules)
#include "tst_DragRules.moc"
