// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Registry.h"
#include "support/UiSupport.h"

#include "explorer/CategoryRows.h"
#include "explorer/DueDates.h"
#include "explorer/Summary.h"
#include "explorer/ui/CategoryTreeModel.h"
#include "explorer/ui/MemoListModel.h"

#include <QAbstractItemModelTester>
#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

CategoryRow row(qint32 id, qint32 parent, const QString& text, ElementKind kind = ElementKind::Memo)
{
    return {{id, kind, text}, parent};
}

QStringList textsBelow(const CategoryTreeModel& model, const QModelIndex& parent)
{
    QStringList texts;
    for (int i = 0; i < model.rowCount(parent); ++i)
        texts.append(model.index(i, 0, parent).data().toString());
    return texts;
}

} // namespace

class tst_ExplorerModels : public QObject {
    Q_OBJECT
private slots:
    void tree();
    void treeEdits();
    void treeOfADamagedArchive();
    void categoriesAreReadInOrder();
    void memoList();
    void memoListSorting();
    void dueGroups();
    void summaryStatements();
};

void tst_ExplorerModels::tree()
{
    CategoryTreeModel model;
    const QAbstractItemModelTester tester(&model);
    QCOMPARE(model.rowCount(), 1);
    QCOMPARE(model.rootIndex().data().toString(), u"Code Root"_s);
    const std::vector<CategoryRow> rows = {row(1, 0, u"b"_s), row(5, 1, u"zz"_s), row(6, 1, u"Äa"_s),
                                           row(2, 0, u"A"_s, ElementKind::Bookmark),
                                           row(3, 0, u"c"_s, ElementKind::ToDo)};
    model.setRows(rows);
    QCOMPARE(textsBelow(model, model.rootIndex()), QStringList({u"A"_s, u"b"_s, u"c"_s}));
    const QModelIndex b = model.indexOf(u"1 ID"_s);
    QCOMPARE(textsBelow(model, b), QStringList({u"Äa"_s, u"zz"_s}));
    QCOMPARE(model.fullPath(model.indexOf(u"6 ID"_s)), u"Code Root\\b\\Äa"_s);
    QCOMPARE(b.data(Qt::UserRole).toString(), u"1 ID"_s);
    QCOMPARE(b.data(Qt::UserRole + 1).toString(), u"category"_s);
    QCOMPARE(model.rootIndex().data(Qt::UserRole).toString(), u"0 ID"_s);
    QCOMPARE(model.rootIndex().data(Qt::UserRole + 1).toString(), u"root"_s);
    QCOMPARE(model.indexOf(u"2 ID"_s).data(Qt::UserRole + 1).toString(), u"bookmark"_s);
    QCOMPARE(model.indexOf(u"3 ID"_s).data(Qt::UserRole + 1).toString(), u"todo"_s);
    QVERIFY(!model.indexOf(u"99 ID"_s).isValid());
    QCOMPARE(model.childKeys(u"1 ID"_s), QStringList({u"6 ID"_s, u"5 ID"_s}));
}

void tst_ExplorerModels::treeEdits()
{
    CategoryTreeModel model;
    const QAbstractItemModelTester tester(&model);
    const std::vector<CategoryRow> rows = {row(1, 0, u"b"_s), row(2, 0, u"d"_s)};
    model.setRows(rows);
    const QPersistentModelIndex d = model.indexOf(u"2 ID"_s);
    const QModelIndex added = model.add(u"0 ID"_s, {7, ElementKind::Memo, u"C"_s});
    QCOMPARE(added.row(), 1);
    QCOMPARE(d.row(), 2);
    QVERIFY(!model.add(u"0 ID"_s, {7, ElementKind::Memo, u"again"_s}).isValid());
    QVERIFY(!model.add(u"99 ID"_s, {8, ElementKind::Memo, u"orphan"_s}).isValid());
    model.rename(u"2 ID"_s, u"a'"_s);
    QCOMPARE(d.row(), 0); // sorted again, and views follow the node
    QCOMPARE(d.data().toString(), u"a'"_s);
    QCOMPARE(textsBelow(model, model.rootIndex()), QStringList({u"a'"_s, u"b"_s, u"C"_s}));
    model.rename(u"0 ID"_s, u"x"_s); // the top is no row
    QCOMPARE(model.rootIndex().data().toString(), u"Code Root"_s);
}

void tst_ExplorerModels::treeOfADamagedArchive()
{
    ArchiveFixture f;
    {
        ArchiveUnit unit(f.archive);
        // Below itself, in a ring, below nothing, without a type; and a chain of 500.
        for (const char* values : {"50, 50, 0, 'self'", "51, 52, 0, 'ring'", "52, 51, 0, 'ring2'",
                                   "53, 4711, 0, 'orphan'", "54, 1, NULL, 'untyped'", "55, 1, 9, 'odd type'"})
            unit.Execute(u"INSERT INTO tab_category (categoryID, parentID, type, name) VALUES ("_s +
                         QString::fromLatin1(values) + u')');
        for (int id = 100; id < 600; ++id)
            unit.Execute(
                u"INSERT INTO tab_category (categoryID, parentID, type, name) VALUES (%1, %2, 0, 'deep')"_s.arg(id).arg(
                    id == 100 ? 1 : id - 1));
    }
    std::vector<CategoryRow> rows;
    QCOMPARE(readCategories(f.archive, rows), qint64(4)); // self, both of the ring, the orphan
    CategoryTreeModel model;
    model.setRows(rows);
    QVERIFY(model.indexOf(u"599 ID"_s).isValid());
    QVERIFY(!model.indexOf(u"50 ID"_s).isValid());
    QVERIFY(!model.indexOf(u"51 ID"_s).isValid());
    QCOMPARE(model.indexOf(u"54 ID"_s).data(Qt::UserRole + 1).toString(), u"category"_s);
    QCOMPARE(model.indexOf(u"55 ID"_s).data(Qt::UserRole + 1).toString(), u"category"_s);
}

void tst_ExplorerModels::categoriesAreReadInOrder()
{
    ArchiveFixture f;
    std::vector<CategoryRow> rows;
    readCategories(f.archive, rows);
    QCOMPARE(rows.size(), size_t(2));
    QCOMPARE(f.statements.first(), u" SELECT * FROM tab_category WHERE parentID = 0  ORDER BY tab_category.name "_s);
    QVERIFY(f.statements.contains(u"SELECT * FROM tab_category WHERE parentID = 1  ORDER BY tab_category.name "_s));
}

void tst_ExplorerModels::memoList()
{
    MemoListModel model;
    const QAbstractItemModelTester tester(&model);
    model.setRows({{7, u"b"_s, {2460000, 32700}, {}}, {3, u"A"_s, {}, {}}});
    QCOMPARE(model.rowCount(), 2);
    QCOMPARE(model.headerData(1, Qt::Horizontal, Qt::DisplayRole).toString(), u"Date In"_s);
    const QModelIndex first = model.index(0, 0);
    QCOMPARE(first.data().toString(), u"b"_s);
    QCOMPARE(first.data(Qt::UserRole).toString(), u"7 M_ID"_s);
    QCOMPARE(first.data(Qt::UserRole + 1).toString(), u"Memo"_s);
    const QLocale locale;
    QCOMPARE(model.index(0, 1).data().toString(),
             locale.toString(QDate::fromJulianDay(2460000), QLocale::ShortFormat) + u' ' +
                 locale.toString(QTime(9, 5), QLocale::ShortFormat));
    QCOMPARE(model.index(0, 2).data().toString(), QString());
    QCOMPARE(model.rowOf(u"3 M_ID"_s), 1);
    QCOMPARE(model.rowOf(u"3 T_ID"_s), -1);
    QCOMPARE(model.rowOf(u"4 M_ID"_s), -1);
}

void tst_ExplorerModels::memoListSorting()
{
    MemoListModel model;
    const QAbstractItemModelTester tester(&model);
    model.setRows({{1, u"b"_s, {2460000, 0}, {}}, {2, u"A"_s, {2460001, 0}, {}}, {3, u"ä"_s, {2459000, 0}, {}}});
    const QPersistentModelIndex b = model.index(0, 0);
    model.sort(0, Qt::DescendingOrder);
    QCOMPARE(b.row(), 1);
    model.sort(0, Qt::AscendingOrder);
    QCOMPARE(model.keyOf(0), u"2 M_ID"_s);
    model.setRows({{4, u"z"_s, {}, {}}, {5, u"a"_s, {}, {}}}); // sorting stays on
    QCOMPARE(model.keyOf(0), u"5 M_ID"_s);
}

void tst_ExplorerModels::dueGroups()
{
    UiFixture f;
    const QDateTime now = f.clock.now();
    const auto add = [&](const QString& name, const QDateTime& due, bool done = false) {
        ArchiveUnit unit(f.archive);
        unit.Execute(u"INSERT INTO tab_todo (categoryID, name, dueDate, done) VALUES (3, '%1', '%2', %3)"_s.arg(
            name, due.toString(u"yyyy-M-d H:m:s"_s), done ? u"1"_s : u"0"_s));
    };
    add(u"late"_s, now.addSecs(-1));
    add(u"later still"_s, now.addYears(-3));
    add(u"late but done"_s, now.addSecs(-1), true);
    add(u"this second"_s, now);
    add(u"in an hour"_s, now.addSecs(3600)); // in no group
    add(u"tomorrow"_s, now.addDays(1));
    add(u"in 7 days"_s, now.addDays(7)); // in two
    add(u"in 28 days"_s, now.addDays(28));
    add(u"in 29 days"_s, now.addDays(29));
    {
        ArchiveUnit unit(f.archive);
        unit.Execute(u"INSERT INTO tab_todo (categoryID, name) VALUES (3, 'never')"_s);
    }
    f.statements.clear();
    QStringList found;
    std::vector<DueGroup> groups;
    readDueGroups(f.archive, groups);
    for (const DueGroup& due : groups) {
        found.append(due.title);
        for (const DueToDo& toDo : due.toDos)
            found.append(toDo.name);
    }
    const QStringList expected = {u"Out of date"_s,  u"late"_s,        u"later still"_s, u"Today"_s,
                                  u"this second"_s,  u"Next 6 days"_s, u"tomorrow"_s,    u"in 7 days"_s,
                                  u"Next 3 Weeks"_s, u"in 7 days"_s,   u"in 28 days"_s};
    QCOMPARE(found, expected);
    QCOMPARE(
        f.statements.first(),
        u" SELECT * FROM tab_todo  WHERE tab_todo.dueDate  <  #2026-3-4 9:5:0#  AND tab_todo.done = 0  ORDER BY tab_todo.dueDate DESC "_s);
    QCOMPARE(
        f.statements.last(),
        u" SELECT * FROM tab_todo  WHERE tab_todo.dueDate  BETWEEN #2026-3-11 9:5:0#  AND  #2026-4-1 9:5:0#  AND tab_todo.done = 0  ORDER BY tab_todo.dueDate ASC "_s);
}

void tst_ExplorerModels::summaryStatements()
{
    UiFixture f;
    Summary summary;
    readSummary(f.archive, summary);
    QCOMPARE(summary.memoCategories, 1);
    QCOMPARE(summary.toDoCategories, 1);
    QCOMPARE(summary.memos + summary.bookmarks + summary.toDos + summary.passwords + summary.notes, 0);
    QCOMPARE(f.statements.value(0), u"SELECT COUNT(memoID) AS totalMemo From tab_memo "_s);
    QCOMPARE(f.statements.value(1),
             u"SELECT COUNT(categoryID) AS totalCat From tab_category  WHERE tab_category.type = 0 "_s);
    QCOMPARE(f.statements.value(6), u"SELECT COUNT(passwordID) AS totalPassword From tab_password "_s);
    QCOMPARE(f.statements.value(7), u"SELECT COUNT(noteID) AS totalNote From tab_note "_s);
}

SNIPVALE_TEST(tst_ExplorerModels)
#include "tst_ExplorerModels.moc"
