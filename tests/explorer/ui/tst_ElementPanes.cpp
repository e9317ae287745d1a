// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "explorer/ui/ExplorerFixture.h"
#include "support/Registry.h"

#include "explorer/ui/BookmarkPane.h"
#include "explorer/ui/MemoPane.h"
#include "explorer/ui/SearchPane.h"
#include "explorer/ui/ToDoPane.h"

#include <QLineEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

const QString deleteQuestion = u"Are you sure you want to delete selected elements? "_s;

struct Routine {
    const char* name;
    std::function<void(Explorer&)> run;
    QStringList statements;
};

void selectAndRun(Explorer& e, const QString& category, const char* list, const QString& key,
                  const std::function<void()>& action)
{
    e.click(category);
    e.list(list).selectKey(key);
    e.statements.clear();
    action();
}

// What each routine of the explorer says to the archive.
QList<Routine> routines()
{
    const QString memos = u" SELECT * FROM tab_memo WHERE categoryID=1"_s;
    const QString bookmarks = u" SELECT * FROM tab_bookmark WHERE categoryID = 2"_s;
    const QString toDos = u" SELECT * FROM tab_todo WHERE categoryID = 3"_s;
    const QString stamp = u"tab_ToDo.dateLastMod = '2026-03-04 09:05:00'  WHERE (tab_ToDo.ToDoID = 1 ) "_s;
    return {
        {"fill memos", [](Explorer& e) { e.click(u"1 ID"_s); }, {memos}},
        {"fill bookmarks", [](Explorer& e) { e.click(u"2 ID"_s); }, {bookmarks}},
        {"fill to-dos", [](Explorer& e) { e.click(u"3 ID"_s); }, {toDos}},
        {"delete memos",
         [](Explorer& e) {
             e.questions.expect(deleteQuestion, Answer::Yes);
             selectAndRun(e, u"1 ID"_s, "lvwMemo", u"1 M_ID"_s, [&] { e.window.memos().DeleteMemo(); });
         },
         {u"DELETE * FROM tab_memo WHERE tab_memo.memoID IN ( 1) "_s, memos}},
        {"delete bookmarks",
         [](Explorer& e) {
             e.questions.expect(deleteQuestion, Answer::Yes);
             selectAndRun(e, u"2 ID"_s, "lvwBookmark", u"1 B_ID"_s, [&] {
                 e.list("lvwBookmark").selectAll();
                 e.window.bookmarks().DeleteBookmark();
             });
         },
         {u"DELETE * FROM tab_bookmark WHERE tab_bookmark.bookmarkID IN ( 1, 2) "_s, bookmarks}},
        {"delete to-dos",
         [](Explorer& e) {
             e.questions.expect(deleteQuestion, Answer::Yes);
             selectAndRun(e, u"3 ID"_s, "lvwToDo", u"1 T_ID"_s, [&] { e.window.toDos().DeleteToDo(); });
         },
         {u"DELETE * FROM tab_todo WHERE tab_todo.ToDoID IN ( 1) "_s, toDos}},
        {"mark done",
         [](Explorer& e) {
             e.click(u"3 ID"_s);
             e.statements.clear();
             ElementListView& list = e.list("lvwToDo");
             list.model()->setData(list.model()->index(0, 0), Qt::Checked, Qt::CheckStateRole);
         },
         {u"UPDATE tab_ToDo SET tab_todo.done = 1 ,  "_s + stamp, toDos}},
        {"raise",
         [](Explorer& e) {
             selectAndRun(e, u"3 ID"_s, "lvwToDo", u"1 T_ID"_s, [&] { e.window.toDos().ToDoIncreasePriority(); });
         },
         {u" SELECT * FROM tab_todo  WHERE todoID = 1 "_s, u"UPDATE tab_ToDo SET tab_todo.priority = 3 ,  "_s + stamp,
          toDos}},
        {"lower",
         [](Explorer& e) {
             selectAndRun(e, u"3 ID"_s, "lvwToDo", u"1 T_ID"_s, [&] { e.window.toDos().ToDoDecreasePriority(); });
         },
         {u" SELECT * FROM tab_todo  WHERE todoID = 1 "_s, u"UPDATE tab_ToDo SET tab_todo.priority = 1 ,  "_s + stamp,
          toDos}},
    };
}

} // namespace

class tst_ElementPanes : public QObject {
    Q_OBJECT
private slots:
    void statements_data();
    void statements();
    void statusTexts();
    void bookmarkEditor();
    void visitBookmark();
    void deletingAsks();
    void menusAndCommands_data();
    void menusAndCommands();
    void commandsOfAHiddenListDoNothing();
    void tickingToDos();
    void prioritySteps();
    void toDoErrors();
    void oneSortDirectionForAllLists();
    void widthsAndOrderAreKept();
    void typingFindsNames();
    void savedElementsAreSelected();
    void longTextsArePainted();
};

void tst_ElementPanes::statements_data()
{
    QTest::addColumn<int>("routine");
    for (int i = 0; i < routines().size(); ++i)
        QTest::newRow(routines()[i].name) << i;
}

void tst_ElementPanes::statements()
{
    QFETCH(int, routine);
    Explorer e;
    e.addMemo(u"m"_s);
    e.addBookmark(u"b"_s);
    e.addBookmark(u"c"_s);
    e.addToDo(u"t"_s, 2);
    e.statements.clear();
    const Routine expected = routines()[routine];
    expected.run(e);
    QCOMPARE(e.statements, expected.statements);
}

void tst_ElementPanes::statusTexts()
{
    Explorer e;
    e.addBookmark(u"b"_s);
    e.addToDo(u"t"_s);
    e.addToDo(u"u"_s);
    e.click(u"1 ID"_s);
    QCOMPARE(e.frame.status, u"Memo -  items: 0"_s);
    e.click(u"2 ID"_s);
    QCOMPARE(e.frame.status, u"Bookmarks -  items: 1"_s);
    e.click(u"3 ID"_s);
    QCOMPARE(e.frame.status, u"ToDo -  items: 2"_s);
}

void tst_ElementPanes::bookmarkEditor()
{
    Explorer e;
    e.addBookmark(u"first"_s);
    e.click(u"2 ID"_s);
    ElementListView& list = e.list("lvwBookmark");
    whenModal([](QWidget& window) { // a double click on empty space makes a new one
        QCOMPARE(window.findChild<QLineEdit*>(u"txtName"_s)->text(), QString());
        window.findChild<QLineEdit*>(u"txtName"_s)->setText(u"second"_s);
        window.findChild<QPushButton*>(u"cmdOK"_s)->click();
    });
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, QPoint(100, list.viewport()->height() - 10));
    QCOMPARE(e.texts("lvwBookmark"), QStringList({u"first"_s, u"second"_s}));
    QCOMPARE(list.selectedKeys(), QStringList({u"2 B_ID"_s}));
    QCOMPARE(e.filter.EditingModeBookmarkID, 2);
    int opened = 0;
    const auto close = [&opened](QWidget& window) {
        ++opened;
        QCOMPARE(window.findChild<QLineEdit*>(u"txtName"_s)->text(), u"second"_s);
        window.close();
    };
    whenModal(close);
    QTest::keyClick(&list, Qt::Key_Return);
    whenModal(close);
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, e.cellOf(list, 1, 2));
    QCOMPARE(opened, 2);
}

void tst_ElementPanes::visitBookmark()
{
    Explorer e;
    e.addBookmark(u"here"_s, u"https://example.org/?a=1"_s);
    e.addBookmark(u"nowhere"_s);
    e.click(u"2 ID"_s);
    e.window.bookmarks().VisitBookmark(); // nothing is selected
    e.list("lvwBookmark").selectKey(u"2 B_ID"_s);
    e.window.bookmarks().VisitBookmark(); // no link
    QCOMPARE(e.shell.opened, QStringList());
    e.list("lvwBookmark").selectKey(u"1 B_ID"_s);
    e.window.bookmarks().VisitBookmark();
    QCOMPARE(e.shell.opened, QStringList({u"https://example.org/?a=1"_s}));
}

void tst_ElementPanes::deletingAsks()
{
    Explorer e;
    e.addToDo(u"t"_s);
    e.click(u"3 ID"_s);
    e.window.toDos().DeleteToDo(); // nothing is selected: no question
    e.list("lvwToDo").selectKey(u"1 T_ID"_s);
    e.questions.expect(deleteQuestion, Answer::No);
    QTest::keyClick(&e.list("lvwToDo"), Qt::Key_Delete);
    QCOMPARE(e.questions.asked.last().title, u"Deleting elements"_s);
    QCOMPARE(e.questions.asked.last().style, MessageStyle::YesNoDefaultNo);
    QCOMPARE(e.value(u"SELECT COUNT(*) AS n FROM tab_todo"_s), u"1"_s);
    e.archive.setPath(e.scratch.path(u"gone.SVA"_s));
    e.questions.expect(deleteQuestion, Answer::Yes);
    e.questions.expect(QString());
    e.window.toDos().DeleteToDo();
    QVERIFY(e.questions.asked.last().text.startsWith("Error in DeleteToDo: "_L1));
    QCOMPARE(e.texts("lvwToDo", 1), QStringList({u"t"_s}));
}

void tst_ElementPanes::menusAndCommands_data()
{
    QTest::addColumn<QString>("category");
    QTest::addColumn<QByteArray>("list");
    QTest::addColumn<QString>("menu");
    QTest::addColumn<QStringList>("needing");
    QTest::newRow("memo") << u"1 ID"_s << QByteArray("lvwMemo") << u"mnuMemo"_s
                          << QStringList({u"miMemoModify"_s, u"miMemoDelete"_s});
    QTest::newRow("bookmark") << u"2 ID"_s << QByteArray("lvwBookmark") << u"mnuBookmark"_s
                              << QStringList({u"miBookmarkModify"_s, u"miBookmarkVisit"_s, u"miBookmarkDelete"_s});
    QTest::newRow("to-do") << u"3 ID"_s << QByteArray("lvwToDo") << u"mnuToDo"_s
                           << QStringList({u"miToDoModify"_s, u"miToDoIncreasePriority"_s, u"miToDoDecreasePriority"_s,
                                           u"miToDoDelete"_s});
}

void tst_ElementPanes::menusAndCommands()
{
    QFETCH(QString, category);
    QFETCH(QByteArray, list);
    QFETCH(QString, menu);
    QFETCH(QStringList, needing);
    Explorer e;
    e.addMemo(u"x"_s);
    e.addBookmark(u"x"_s);
    e.addToDo(u"x"_s);
    const auto areEnabled = [&](bool enabled) {
        return std::all_of(needing.begin(), needing.end(),
                           [&](const QString& command) { return e.frame.enabledCommands.value(command) == enabled; });
    };
    e.click(category);
    ElementListView& view = e.list(list.constData());
    QVERIFY(e.frame.enabledCommands.value(needing.last())); // the delete tool goes with the section
    QVERIFY(!e.frame.enabledCommands.value(needing.first())); // the others with the selection
    QTest::mouseClick(view.viewport(), Qt::RightButton, {}, e.cellOf(view, 0, 1));
    QVERIFY(areEnabled(true));
    QTest::mouseClick(view.viewport(), Qt::RightButton, {}, QPoint(50, view.viewport()->height() - 10));
    QVERIFY(areEnabled(false));
    view.selectKey(view.keyOf(0));
    QVERIFY(areEnabled(true));
    QContextMenuEvent menuKey(QContextMenuEvent::Keyboard, QPoint(), QPoint());
    QCoreApplication::sendEvent(view.viewport(), &menuKey);
    QVERIFY(areEnabled(true));
    QCOMPARE(e.frame.menus, QStringList({menu, menu, menu}));
    e.click(category == "1 ID"_L1 ? u"2 ID"_s : u"1 ID"_s);
    QVERIFY(areEnabled(false));
}

void tst_ElementPanes::commandsOfAHiddenListDoNothing()
{
    Explorer e;
    e.addToDo(u"t"_s, 2);
    e.addBookmark(u"b"_s, u"https://example.org"_s);
    e.click(u"2 ID"_s);
    e.list("lvwBookmark").selectKey(u"1 B_ID"_s);
    e.click(u"3 ID"_s);
    e.list("lvwToDo").selectKey(u"1 T_ID"_s);
    e.click(u"0 ID"_s);
    e.statements.clear();
    e.window.toDos().ToDoIncreasePriority();
    e.window.toDos().DeleteToDo();
    e.window.bookmarks().VisitBookmark();
    e.window.bookmarks().DeleteBookmark();
    QCOMPARE(e.statements, QStringList());
    QCOMPARE(e.shell.opened, QStringList());
}

void tst_ElementPanes::tickingToDos()
{
    Explorer e;
    for (const char* name : {"a", "b", "c"})
        e.addToDo(QString::fromLatin1(name));
    e.click(u"3 ID"_s);
    ElementListView& list = e.list("lvwToDo");
    const auto done = [&e](int id) { return e.value(u"SELECT done FROM tab_todo WHERE todoID = %1"_s.arg(id)); };
    const QRect cell = list.visualRect(list.model()->index(1, 0));
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, QPoint(cell.left() + 9, cell.center().y()));
    QCOMPARE(done(2), u"-1"_s);
    QCOMPARE(list.model()->index(1, 0).data(Qt::CheckStateRole).toInt(), int(Qt::Checked));
    list.selectKey(u"3 T_ID"_s);
    QTest::keyClick(&list, Qt::Key_Space);
    QCOMPARE(done(3), u"-1"_s);
    QCOMPARE(list.selectedKeys(), QStringList({u"3 T_ID"_s})); // the list was filled again under it
    QTest::keyClick(&list, Qt::Key_Space);
    QCOMPARE(done(3), u"0"_s);
    QCOMPARE(done(1), u"0"_s);
}

void tst_ElementPanes::prioritySteps()
{
    Explorer e;
    e.addToDo(u"none yet"_s, 0);
    e.click(u"3 ID"_s);
    ElementListView& list = e.list("lvwToDo");
    list.selectKey(u"1 T_ID"_s);
    QStringList seen;
    const auto note = [&] { seen.append(list.model()->index(0, 2).data().toString()); };
    for (int i = 0; i < 7; ++i, note())
        e.window.toDos().ToDoIncreasePriority();
    for (int i = 0; i < 6; ++i, note())
        e.window.toDos().ToDoDecreasePriority();
    QCOMPARE(seen.join(u' '), u"Lowest Low Normal High Highest Urgent Urgent Highest High Normal Low Lowest Lowest"_s);
}

void tst_ElementPanes::toDoErrors()
{
    Explorer e;
    e.addToDo(u"t"_s, 2);
    e.click(u"3 ID"_s);
    ElementListView& list = e.list("lvwToDo");
    list.selectKey(u"1 T_ID"_s);
    e.archive.setPath(e.scratch.path(u"gone.SVA"_s));
    e.questions.expect(QString());
    e.window.toDos().ToDoIncreasePriority();
    QVERIFY(e.questions.asked.last().text.startsWith("Error in ToDoIncreasePriority: "_L1));
    e.questions.expect(QString());
    e.window.toDos().MakeLvwToDoContents();
    QVERIFY(e.questions.asked.last().text.startsWith("Error in MakeLvwToDoContents: "_L1));
    e.questions.expect(QString());
    e.window.bookmarks().MakeLvwBookmarkContents();
    QVERIFY(e.questions.asked.last().text.startsWith("Error in MakeLvwBookmarkContents: "_L1));
    QCOMPARE(e.texts("lvwToDo", 1), QStringList({u"t"_s}));
    QCOMPARE(list.selectedKeys(), QStringList({u"1 T_ID"_s}));
}

void tst_ElementPanes::oneSortDirectionForAllLists()
{
    Explorer e;
    for (const char* name : {"b", "c", "a"}) {
        e.addMemo(QString::fromLatin1(name));
        e.addBookmark(QString::fromLatin1(name));
        e.addToDo(QString::fromLatin1(name));
    }
    const QStringList down = {u"c"_s, u"b"_s, u"a"_s}, up = {u"a"_s, u"b"_s, u"c"_s};
    e.click(u"1 ID"_s);
    e.clickHeader("lvwMemo", 0); // the first click of all sorts downwards
    QCOMPARE(e.texts("lvwMemo"), down);
    e.click(u"2 ID"_s);
    e.clickHeader("lvwBookmark", 0);
    QCOMPARE(e.texts("lvwBookmark"), up);
    e.click(u"3 ID"_s);
    e.clickHeader("lvwToDo", 1);
    QCOMPARE(e.texts("lvwToDo", 1), down);
    e.window.search().show();
    e.find<QLineEdit>("txtSearchText").setText(u"%"_s);
    e.window.search().SearchMemo();
    e.clickHeader("lvwSearch", 0);
    QCOMPARE(e.texts("lvwSearch"), up);
}

void tst_ElementPanes::widthsAndOrderAreKept()
{
    Explorer e;
    e.run(u"INSERT INTO tab_category (categoryID, parentID, type, name) VALUES (9, 0, 1, 'Other')"_s);
    e.addBookmark(u"a"_s);
    e.addBookmark(u"b"_s);
    e.window.LoadTreeView();
    e.click(u"2 ID"_s);
    QHeaderView* header = e.list("lvwBookmark").header();
    header->resizeSection(0, 333);
    e.clickHeader("lvwBookmark", 0);
    e.click(u"9 ID"_s);
    QCOMPARE(header->sectionSize(0), 333);
    e.addBookmark(u"c"_s);
    e.click(u"2 ID"_s);
    QCOMPARE(header->sectionSize(0), 333);
    QCOMPARE(e.texts("lvwBookmark"), QStringList({u"c"_s, u"b"_s, u"a"_s}));
}

void tst_ElementPanes::typingFindsNames()
{
    Explorer e;
    for (const char* name : {"alpha", "beta", "gamma"})
        e.addToDo(QString::fromLatin1(name));
    e.click(u"3 ID"_s);
    ElementListView& list = e.list("lvwToDo");
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, e.cellOf(list, 1, 4)); // the focus in another column
    QTest::keyClicks(&list, u"ga"_s);
    QCOMPARE(list.selectedKeys(), QStringList({u"3 T_ID"_s}));
}

void tst_ElementPanes::savedElementsAreSelected()
{
    Explorer e;
    e.addMemo(u"m"_s);
    e.addBookmark(u"b"_s);
    e.addToDo(u"t"_s);
    for (const ElementKind kind : elementKinds) {
        const ElementKey key{kind, 1};
        e.click(QString::number(int(kind) + 1) + u" ID"_s);
        e.window.elementSaved(key);
        ElementListView& list = e.list(("lvw" + wordsOf(kind).name.toLatin1()).constData());
        QCOMPARE(list.selectedKeys(), QStringList({key.text()}));
        QVERIFY(list.currentIndex().isValid());
    }
}

void tst_ElementPanes::longTextsArePainted()
{
    Explorer e;
    for (int i = 0; i < 3; ++i)
        e.run(u"INSERT INTO tab_bookmark (categoryID, name, description) VALUES (2, 'b', '"_s + QString(1000000, u'x') +
              u"')"_s);
    e.click(u"2 ID"_s);
    QElapsedTimer clock;
    clock.start();
    e.window.grab();
    QVERIFY2(clock.elapsed() < 2000, qPrintable(QString::number(clock.elapsed())));
    QCOMPARE(e.texts("lvwBookmark", 2).first().size(), 1000000); // the cell has all of it
}

SNIPVALE_TEST(tst_ElementPanes)
#include "tst_ElementPanes.moc"
