// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "explorer/ui/ExplorerFixture.h"
#include "support/Registry.h"

#include "explorer/ui/ElementLists.h"

#include <QAbstractItemModelTester>
#include <QLineEdit>
#include <QPushButton>
#include <algorithm>
#include <random>

using namespace Qt::StringLiterals;

namespace {

const QString deleteQuestion = u"Are you sure you want to delete selected elements? "_s;

// Three elements of each kind.
void fill(Explorer& e)
{
    for (const ElementKind kind : elementKinds)
        e.add(kind, {u"b"_s, u"c"_s, u"a"_s});
}

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

class tst_ElementPanes : public QObject {
    Q_OBJECT
private slots:
    void opening()
    {
        Explorer e(fill);
        for (const ElementKind kind : elementKinds) {
            ListView& list = e.list(kind);
            e.click(kind);
            const QString box = kind == ElementKind::Memo ? u"txtMemoName"_s : u"txtName"_s;
            whenModal([&](QWidget& window) {
                window.close();
                QCOMPARE(window.findChild<QLineEdit*>(box)->text(), u"c"_s);
            });
            QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, e.cellAt(list, 1, 2));
            whenModal([&](QWidget& window) {
                window.findChild<QLineEdit*>(box)->setText(u"new"_s);
                window.findChild<QPushButton*>(u"cmdOK"_s)->click();
            });
            QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, e.below(list)); // on empty space: a new one
            QCOMPARE(e.texts(list).join(u' '), u"b c a new"_s); // the archive's order
            QCOMPARE(list.selectedKeys(), QStringList({keyOf(kind, 4)})); // what was saved
        }
    }

    void deleting()
    {
        Explorer e(fill);
        const QString path = e.archive.ArchivePath();
        const QStringList statements[] = {{u"DELETE * FROM tab_memo WHERE tab_memo.memoID IN ( 1, 2) "_s,
                                           u" SELECT * FROM tab_memo WHERE categoryID=1"_s},
                                          {u"DELETE * FROM tab_bookmark WHERE tab_bookmark.bookmarkID IN ( 1, 2) "_s,
                                           u" SELECT * FROM tab_bookmark WHERE categoryID = 2"_s},
                                          {u"DELETE * FROM tab_todo WHERE tab_todo.ToDoID IN ( 1, 2) "_s,
                                           u" SELECT * FROM tab_todo WHERE categoryID = 3"_s}};
        for (const ElementKind kind : elementKinds) {
            ListView& list = e.list(kind);
            e.archive.setPath(path);
            e.click(kind);
            QTest::keyClick(&list, Qt::Key_Delete); // nothing is selected: no question
            list.selectKeys({keyOf(kind, 1), keyOf(kind, 2)}, keyOf(kind, 1));
            e.statements.clear();
            for (const Answer answer : {Answer::No, Answer::Yes}) {
                e.questions.expect(deleteQuestion, answer);
                QTest::keyClick(&list, Qt::Key_Delete);
            }
            QCOMPARE(e.questions.asked.last().style, MessageStyle::YesNoDefaultNo);
            QCOMPARE(e.statements, statements[size_t(kind)]);
            QCOMPARE(list.selectedKeys(), QStringList({keyOf(kind, 3)})); // the next one
            QVERIFY(e.enabled(u"mi%1Modify"_s.arg(wordsOf(kind).name)));
            e.loseArchive();
            e.questions.expect(deleteQuestion, Answer::Yes);
            e.questions.expect(QString());
            QTest::keyClick(&list, Qt::Key_Delete);
            QVERIFY(e.questions.asked.last().text.startsWith(u"Error in Delete%1: "_s.arg(wordsOf(kind).name)));
            e.questions.expect(QString());
            e.click(kind);
            QVERIFY(
                e.questions.asked.last().text.startsWith(u"Error in MakeLvw%1Contents: "_s.arg(wordsOf(kind).name)));
            QCOMPARE(list.selectedKeys(), QStringList({keyOf(kind, 3)}));
        }
    }

    void menusAndCommands()
    {
        Explorer e(fill);
        const QStringList more[] = {
            {u"Print"_s, u"PrintPreview"_s}, {u"Visit"_s}, {u"IncreasePriority"_s, u"DecreasePriority"_s}};
        for (const ElementKind kind : elementKinds) {
            const QStringList commands = more[size_t(kind)] + QStringList{u"Modify"_s, u"Delete"_s};
            const auto enabled = [&] {
                return std::count_if(commands.begin(), commands.end(),
                                     [&](const QString& c) { return e.enabled(u"mi"_s + wordsOf(kind).name + c); });
            };
            ListView& list = e.list(kind);
            e.click(kind);
            QCOMPARE(enabled(), 1); // the delete tool goes with the section, the others with the selection
            QTest::mouseClick(list.viewport(), Qt::RightButton, {}, e.cellAt(list, 0, 1));
            QCOMPARE(enabled(), commands.size());
            QTest::mouseClick(list.viewport(), Qt::RightButton, {}, e.below(list));
            QCOMPARE(enabled(), 0);
            QCOMPARE(e.frame.menus.last(), u"mnu"_s + wordsOf(kind).name);
            list.selectKey(keyOf(kind, 2));
            QCOMPARE(enabled(), commands.size());
            e.click(0);
            QCOMPARE(enabled(), 0);
        }
        // What is selected there is not seen.
        e.statements.clear();
        e.window.memos().modifyElement();
        e.window.memos().deleteElements();
        e.window.toDos().ToDoIncreasePriority();
        e.window.bookmarks().VisitBookmark();
        QCOMPARE(e.statements + e.shell.opened, QStringList());
        e.click(ElementKind::Bookmark);
        e.list(ElementKind::Bookmark).selectKey(u"2 B_ID"_s);
        e.window.bookmarks().VisitBookmark();
        QCOMPARE(e.shell.opened, QStringList({u"https://example.org/"_s}));
    }

    void toDosChange()
    {
        Explorer e(fill);
        e.click(ElementKind::ToDo);
        ListView& list = e.list(ElementKind::ToDo);
        const auto done = [&e] { return e.value(u"SELECT SUM(done * todoID) AS n FROM tab_todo"_s); };
        const QRect cell = list.visualRect(list.model()->index(1, 0));
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, QPoint(cell.left() + 9, cell.center().y()));
        QCOMPARE(done(), u"-2"_s);
        list.selectKey(u"3 T_ID"_s);
        for (const QString& expected : {u"-5"_s, u"-2"_s}) {
            QTest::keyClick(&list, Qt::Key_Space);
            QCOMPARE(done(), expected);
            QCOMPARE(list.selectedKeys(), QStringList({u"3 T_ID"_s})); // the list was filled again under it
        }
        QStringList seen;
        for (int i = 0; i < 6; ++i) {
            i < 5 ? e.window.toDos().ToDoIncreasePriority() : e.window.toDos().ToDoDecreasePriority();
            seen.append(list.model()->index(2, 2).data().toString());
        }
        QCOMPARE(seen.join(u' '), u"Normal High Highest Urgent Urgent Highest"_s);
        e.run(u"UPDATE tab_todo SET tab_todo.name = 'changed' WHERE tab_todo.todoID = 2"_s);
        e.window.toDos().rowsChanged(); // by an alarm window
        QCOMPARE(e.texts(list).join(u' '), u"b changed a"_s);
        e.loseArchive();
        e.questions.expect(QString());
        e.window.toDos().ToDoIncreasePriority();
        QVERIFY(e.questions.asked.last().text.startsWith("Error in ToDoIncreasePriority: "_L1));
        QCOMPARE(list.selectedKeys(), QStringList({u"3 T_ID"_s}));
    }

    // All lists have one direction, which each click on a header turns; a list that is filled again stays sorted.
    void sortingAndWidthsAreKept()
    {
        Explorer e(fill);
        QStringList orders;
        for (const ElementKind kind : elementKinds) {
            e.click(kind);
            ListView& list = e.list(kind);
            QHeaderView* bar = list.header();
            bar->resizeSection(list.nameColumn(), 333);
            const int left = bar->sectionViewportPosition(list.nameColumn());
            list.selectKey(list.keyOf(0));
            const QString selected = list.selectedKey();
            QTest::mouseClick(bar->viewport(), Qt::LeftButton, {}, QPoint(left + 12, 8));
            QCOMPARE(list.selectedKey(), selected); // the element, not the row
            orders.append(e.texts(list).join(QString()));
        }
        e.add(ElementKind::Bookmark, {u"bb"_s});
        e.click(2);
        orders.append(e.texts(e.list(ElementKind::Bookmark)).join(QString()));
        QCOMPARE(orders.join(u' '), u"cba abc cba abbbc"_s);
        QCOMPARE(e.list(ElementKind::Bookmark).header()->sectionSize(0), 333);
    }

    // One row of each kind from the archive, and one of Nulls.
    void lists()
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
    void sortingIsThatOfTheTexts()
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
};

SNIPVALE_TEST(tst_ElementPanes)
#include "tst_ElementPanes.moc"
