// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/CoreSupport.h"
#include "support/Registry.h"

#include "explorer/ArchiveRows.h"
#include "explorer/DragRules.h"
#include "explorer/Overview.h"

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

// What the explorer reads of the archive, beside the lists of elements, and what may be moved in it.
class tst_Explorer : public QObject {
    Q_OBJECT
private slots:
    void categoriesOfADamagedArchive()
    {
        ArchiveFixture f;
        // Below itself, in a ring, below nothing, without a type; and a chain of 500.
        QStringList rowsToAdd = {u"50, 50, 0, 'self'"_s,     u"51, 52, 0, 'ring'"_s,      u"52, 51, 0, 'ring2'"_s,
                                 u"53, 4711, 0, 'orphan'"_s, u"54, 1, NULL, 'untyped'"_s, u"55, 1, 9, 'odd type'"_s};
        for (int id = 100; id < 600; ++id)
            rowsToAdd.append(u"%1, %2, 1, 'deep'"_s.arg(id).arg(id == 100 ? 1 : id - 1));
        {
            ArchiveUnit unit(f.archive);
            jet::Connection::Transaction transaction(unit.connection());
            for (const QString& values : std::as_const(rowsToAdd))
                unit.Execute(u"INSERT INTO tab_category (categoryID, parentID, type, name) VALUES (%1)"_s.arg(values));
            transaction.commit();
        }
        f.statements.clear();
        const CategoryRows rows = readCategories(f.archive);
        QCOMPARE(f.statements.first(),
                 u" SELECT * FROM tab_category WHERE parentID = 0  ORDER BY tab_category.name "_s);
        QVERIFY(f.statements.contains(u"SELECT * FROM tab_category WHERE parentID = 1  ORDER BY tab_category.name "_s));
        QCOMPARE(rows.hidden, qint64(4)); // self, both of the ring, the orphan
        QCOMPARE(rows.reached.size(), size_t(2 + 2 + 500)); // the archive's own two
        for (const CategoryRow& row : rows.reached)
            if (row.node.id >= 50)
                QCOMPARE(row.node.kind, row.node.id < 100 ? ElementKind::Memo : ElementKind::Bookmark);
    }

    void welcomePage()
    {
        StartedArchive f;
        const QDateTime now = f.clock.now();
        const std::tuple<const char*, QDateTime, int> toDos[] = {
            {"late", now.addSecs(-1), 0},         {"later still", now.addYears(-3), 0},
            {"done", now.addSecs(-1), 1},         {"this second", now, 0},
            {"in an hour", now.addSecs(3600), 0}, {"tomorrow", now.addDays(1), 0}, // an hour is in no group
            {"in 7 days", now.addDays(7), 0},     {"in 28 days", now.addDays(28), 0}, // 7 days are in two
            {"in 29 days", now.addDays(29), 0},   {"never", {}, 0}};
        for (const auto& [name, due, done] : toDos)
            ArchiveUnit(f.archive).Execute(
                u"INSERT INTO tab_todo (categoryID, name, dueDate, done) VALUES (3, '%1', %2, %3)"_s.arg(
                    QLatin1String(name), due.isNull() ? u"NULL"_s : due.toString(u"#yyyy-M-d H:m:s#"_s),
                    QString::number(done)));
        f.statements.clear();
        QStringList found;
        for (const DueGroup& due : readDueGroups(f.archive)) {
            found.append(due.title + u':');
            for (const DueToDo& toDo : due.toDos)
                found.append(toDo.name);
        }
        QCOMPARE(found.join(u'|'),
                 u"Out of date:|late|later still|Today:|this second|Next 6 days:|tomorrow|in 7 days|"
                 "Next 3 Weeks:|in 7 days|in 28 days"_s);
        readSummary(f.archive);
        QCOMPARE(
            f.statements.first(),
            u" SELECT * FROM tab_todo  WHERE tab_todo.dueDate  <  #2026-3-4 9:5:0#  AND tab_todo.done = 0  ORDER BY tab_todo.dueDate DESC "_s);
        QCOMPARE(
            f.statements[3],
            u" SELECT * FROM tab_todo  WHERE tab_todo.dueDate  BETWEEN #2026-3-11 9:5:0#  AND  #2026-4-1 9:5:0#  AND tab_todo.done = 0  ORDER BY tab_todo.dueDate ASC "_s);
        QCOMPARE(f.statements.mid(4),
                 QStringList({u"SELECT COUNT(memoID) AS totalMemo From tab_memo "_s,
                              u"SELECT COUNT(categoryID) AS totalCat From tab_category  WHERE tab_category.type = 0 "_s,
                              u"SELECT COUNT(bookmarkID) AS totalBookmark From tab_bookmark "_s,
                              u"SELECT COUNT(categoryID) AS totalCat From tab_category  WHERE tab_category.type = 1 "_s,
                              u"SELECT COUNT(todoID) AS totalToDo From tab_todo "_s,
                              u"SELECT COUNT(categoryID) AS totalCat From tab_category  WHERE tab_category.type = 2 "_s,
                              u"SELECT COUNT(passwordID) AS totalPassword From tab_password "_s,
                              u"SELECT COUNT(noteID) AS totalNote From tab_note "_s}));
    }

    void draggedElements()
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

    void draggedCategories()
    {
        const QString root = u"You Cannot move Root element!"_s;
        const QString same = u"Cannot move it's: The destination folder is the same as the source folder!"_s;
        const QString below = u"Cannot move it's: The destination folder is a subfolder of the source folder!"_s;
        const std::tuple<int, int, QString> drags[] = {
            {0, 1, root},  {0, 0, root},
            {3, 3, same},  {1, 2, below}, // its child
            {1, 4, below}, {4, 0, {}},
            {4, 3, {}},    {3, 2, {}}, // below a child; to the top; to the parent; to a brother
            {1, 5, {}}};
        for (const auto& [dragged, target, refusal] : drags)
            QCOMPARE(dropRefusal({ElementKind::Memo, true, dragged, u"it's"_s, true}, {target, ElementKind::ToDo, {}},
                                 NumberTree()),
                     refusal);
    }

    void movingStatements()
    {
        StartedArchive f;
        ChangeMemoCategory(f.archive, u" 3, 8"_s, 1);
        ChangeBookmarkCategory(f.archive, u" 3, 8"_s, 2);
        ChangeToDoCategory(f.archive, u" 3, 8"_s, 3);
        ChangeCategoryParent(f.archive, 3, 2);
        QCOMPARE(
            f.statements,
            QStringList(
                {u"UPDATE tab_memo SET tab_memo.categoryID = 1  WHERE tab_memo.memoID IN ( 3, 8) "_s,
                 u"UPDATE tab_bookmark SET tab_bookmark.categoryID = 2  WHERE tab_bookmark.bookmarkID IN ( 3, 8) "_s,
                 u"UPDATE tab_todo SET tab_todo.categoryID = 3  WHERE tab_todo.todoID IN ( 3, 8) "_s,
                 u"UPDATE tab_category SET tab_category.parentID = 2  WHERE tab_category.categoryID = 3 "_s}));
        QVERIFY(!f.archive.cn); // each released its connection
    }
};

SNIPVALE_TEST(tst_Explorer)
#include "tst_Explorer.moc"
