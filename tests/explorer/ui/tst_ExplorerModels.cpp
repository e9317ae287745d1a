// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Registry.h"
#include "support/UiSupport.h"

#include "explorer/ui/CategoryTreeModel.h"
#include "explorer/ui/ElementLists.h"

#include <QAbstractItemModelTester>
#include <QtTest>
#include <algorithm>
#include <random>

using namespace Qt::StringLiterals;

namespace {

QString rowOf(const QAbstractItemModel& model, int row)
{
    QStringList cells;
    for (int column = 0; column < model.columnCount(); ++column)
        cells.append(model.index(row, column).data().toString());
    return cells.join(u'|');
}

QString keyAndTag(const QModelIndex& index)
{
    return index.data(Qt::UserRole).toString() + u'|' + index.data(Qt::UserRole + 1).toString();
}

} // namespace

class tst_ExplorerModels : public QObject {
    Q_OBJECT
private slots:
    void tree();
    void lists();
    void sortingIsThatOfTheTexts();
};

void tst_ExplorerModels::tree()
{
    CategoryTreeModel model;
    const QAbstractItemModelTester tester(&model);
    const std::vector<CategoryRow> rows = {{{1, ElementKind::Memo, u"b"_s}, 0},
                                           {{5, ElementKind::Memo, u"zz"_s}, 1},
                                           {{6, ElementKind::Memo, u"Äa"_s}, 1},
                                           {{2, ElementKind::Bookmark, u"A"_s}, 0},
                                           {{3, ElementKind::ToDo, u"d"_s}, 0}};
    model.setRows(rows);
    QCOMPARE(model.childrenOf(0), std::vector<qint32>({2, 1, 3}));
    QCOMPARE(model.childrenOf(1), std::vector<qint32>({6, 5}));
    QCOMPARE(model.fullPath(model.indexOf(6)), u"Code Root\\b\\Äa"_s);
    const QString tags[] = {u"root"_s, u"category"_s, u"bookmark"_s, u"todo"_s};
    for (int id = 0; id < 4; ++id)
        QCOMPARE(keyAndTag(model.indexOf(id)), u"%1 ID|%2"_s.arg(QString::number(id), tags[id]));
    const QPersistentModelIndex d = model.indexOf(3);
    QCOMPARE(model.add(0, {7, ElementKind::Memo, u"C"_s}).row(), 2);
    QVERIFY(!model.add(0, {7, ElementKind::Memo, u"again"_s}).isValid());
    QVERIFY(!model.add(99, {8, ElementKind::Memo, u"orphan"_s}).isValid());
    model.rename(3, u"a'"_s);
    QCOMPARE(d.row(), 1); // sorted again, and views follow the node
    model.rename(0, u"x"_s); // the top is no row
    QCOMPARE(model.rootIndex().data().toString(), u"Code Root"_s);
}

// One row of each kind from the archive, and one of Nulls.
void tst_ExplorerModels::lists()
{
    UiFixture f;
    for (const char* sql :
         {"INSERT INTO tab_memo (categoryID, memoTypeID, memoName, dateIn) VALUES (1, 3, 'm''s', '2026-3-4 9:5:0')",
          "INSERT INTO tab_memo (categoryID) VALUES (1)",
          "INSERT INTO tab_bookmark (categoryID, name, url, description) VALUES (2, 'b', 'https://x.org/?b=<2>', "
          "'one\r\ntwo\nthree\r\r\n')",
          "INSERT INTO tab_bookmark (categoryID) VALUES (2)",
          "INSERT INTO tab_todo (categoryID, name, priority, status, percentComplete, dueDate, alarmOn, done) "
          "VALUES (3, 'pay', 6, 2, 40, '2026-3-4 8:0:0', 1, 1)",
          "INSERT INTO tab_todo (categoryID) VALUES (3)"})
        ArchiveUnit(f.archive).Execute(QString::fromLatin1(sql));
    const QString day = QLocale().toString(QDate(2026, 3, 4), QLocale::ShortFormat);
    const QString moment = day + u' ' + QLocale().toString(QTime(9, 5), QLocale::ShortFormat);
    MemoList memos;
    BookmarkList bookmarks;
    ToDoList toDos;
    const std::tuple<CategoryList*, QString, QString> kinds[] = {
        {&memos, u"1 M_ID|Memo"_s, u"m's|"_s + moment + u'|'},
        {&bookmarks, u"1 B_ID|bookmark"_s, u"b|https://x.org/?b=<2>|one - two - three -  - "_s},
        {&toDos, u"1 T_ID|todo"_s, u"|pay|Urgent|40 %|In progress|"_s + day}};
    for (const auto& [list, key, texts] : kinds) {
        const QAbstractItemModelTester tester(list);
        list->read(f.archive, int(list->kind()) + 1);
        QCOMPARE(list->rowCount(), 2);
        QCOMPARE(rowOf(*list, 0), texts);
        QCOMPARE(keyAndTag(list->index(0, 1)), key);
        QCOMPARE(rowOf(*list, 1).remove(u'|'), QString());
    }
    toDos.setRows({{1, false, false, u"x"_s, -1, 6, -5, {}}}); // codes that another program wrote
    QCOMPARE(rowOf(toDos, 0), u"|x||-5 %||"_s);
    // A tip is plain text, whatever it looks like.
    QVERIFY(bookmarks.index(0, 1).data(Qt::ToolTipRole).toString().contains(u"&lt;2&gt;"_s));
}

// Letters of both cases, accents, Greek, beyond the basic plane, NUL and the highest unit.
void tst_ExplorerModels::sortingIsThatOfTheTexts()
{
    std::mt19937 random(7);
    const QList<uint> letters = (u"aAbBeéÉΣσςЖж\U00010400\U00010428\uFFFF"_s + QChar(0)).toUcs4();
    std::vector<MemoRow> rows;
    for (int id = 0; id < 400; ++id) {
        QString name = id % 2 ? u"Memo number "_s : QString();
        for (auto n = random() % 7; n > 0; --n)
            name += QChar::fromUcs4(letters[qsizetype(random() % size_t(letters.size()))]);
        rows.push_back({id, name, {}, {}});
    }
    MemoList model;
    const QAbstractItemModelTester tester(&model);
    model.setRows(rows);
    model.sort(0, Qt::AscendingOrder);
    model.sort(0, Qt::DescendingOrder);
    std::stable_sort(rows.begin(), rows.end(), [](const MemoRow& a, const MemoRow& b) {
        return QString::compare(a.name.toCaseFolded(), b.name.toCaseFolded()) > 0;
    });
    for (int i = 0; i < model.rowCount(); ++i)
        QCOMPARE(model.rowAt(i).id, rows[size_t(i)].id);
}

SNIPVALE_TEST(tst_ExplorerModels)
#include "tst_ExplorerModels.moc"
