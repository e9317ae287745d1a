// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "explorer/ui/ExplorerFixture.h"
#include "support/Registry.h"

#include "explorer/ui/SearchPane.h"

#include <QLineEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

const QString deleteQuestion = u"Are you sure you want to delete selected elements? "_s;

// A row for each kind of elements.
void eachKind()
{
    QTest::addColumn<ElementKind>("kind");
    for (const ElementKind kind : elementKinds)
        QTest::newRow(wordsOf(kind).image.toLatin1().constData()) << kind;
}

// Three elements of each kind.
void fill(Explorer& e)
{
    for (const ElementKind kind : elementKinds)
        e.add(kind, {u"b"_s, u"c"_s, u"a"_s});
}

QString fillStatement(ElementKind kind)
{
    const QString statements[] = {u" SELECT * FROM tab_memo WHERE categoryID=1"_s,
                                  u" SELECT * FROM tab_bookmark WHERE categoryID = 2"_s,
                                  u" SELECT * FROM tab_todo WHERE categoryID = 3"_s};
    return statements[size_t(kind)];
}

} // namespace

class tst_ElementPanes : public QObject {
    Q_OBJECT
private slots:
    void opening_data() { eachKind(); }
    void opening();
    void deleting_data() { eachKind(); }
    void deleting();
    void menusAndCommands_data() { eachKind(); }
    void menusAndCommands();
    void errors_data() { eachKind(); }
    void errors();
    void visitBookmark();
    void tickingToDos();
    void prioritySteps();
    void oneSortDirectionForAllLists();
    void widthsAndOrderAreKept();
};

void tst_ElementPanes::opening()
{
    QFETCH(ElementKind, kind);
    Explorer e(fill);
    ListView& list = e.list(kind);
    e.click(kind);
    QCOMPARE(e.statements, QStringList(fillStatement(kind)));
    const QString statuses[] = {u"Memo -  items: 3"_s, u"Bookmarks -  items: 3"_s, u"ToDo -  items: 3"_s};
    QCOMPARE(e.frame.status, statuses[size_t(kind)]);
    QCOMPARE(e.texts(list), QStringList({u"b"_s, u"c"_s, u"a"_s})); // the archive's order
    const QString nameBox = kind == ElementKind::Memo ? u"txtMemoName"_s : u"txtName"_s;
    QStringList opened;
    const auto look = [&](QWidget& window) {
        opened.append(window.findChild<QLineEdit*>(nameBox)->text());
        window.close();
    };
    whenModal(look);
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, e.cellAt(list, 1, 2));
    QTest::keyClick(&list, Qt::Key_Down);
    whenModal(look);
    QTest::keyClick(&list, Qt::Key_Return);
    whenModal([&](QWidget& window) {
        window.findChild<QLineEdit*>(nameBox)->setText(u"new"_s);
        window.findChild<QPushButton*>(u"cmdOK"_s)->click();
    });
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, e.below(list)); // on empty space: a new one
    QCOMPARE(opened, QStringList({u"c"_s, u"a"_s}));
    QCOMPARE(e.texts(list), QStringList({u"b"_s, u"c"_s, u"a"_s, u"new"_s}));
    QCOMPARE(list.selectedKeys(), QStringList({keyOf(kind, 4)})); // what was saved
    const qint32 edited[] = {e.filter.EditingModeMemoID, e.filter.EditingModeBookmarkID, e.filter.EditingModeToDoID};
    QCOMPARE(edited[size_t(kind)], 4);
}

void tst_ElementPanes::deleting()
{
    QFETCH(ElementKind, kind);
    Explorer e(fill);
    ListView& list = e.list(kind);
    e.click(kind);
    QTest::keyClick(&list, Qt::Key_Delete); // nothing is selected: no question
    list.selectKeys({keyOf(kind, 1), keyOf(kind, 2)}, keyOf(kind, 1));
    e.questions.expect(deleteQuestion, Answer::No);
    QTest::keyClick(&list, Qt::Key_Delete);
    QCOMPARE(e.questions.asked.last().title, u"Deleting elements"_s);
    QCOMPARE(e.questions.asked.last().style, MessageStyle::YesNoDefaultNo);
    e.statements.clear();
    e.questions.expect(deleteQuestion, Answer::Yes);
    QTest::keyClick(&list, Qt::Key_Delete);
    const QString deletions[] = {u"DELETE * FROM tab_memo WHERE tab_memo.memoID IN ( 1, 2) "_s,
                                 u"DELETE * FROM tab_bookmark WHERE tab_bookmark.bookmarkID IN ( 1, 2) "_s,
                                 u"DELETE * FROM tab_todo WHERE tab_todo.ToDoID IN ( 1, 2) "_s};
    QCOMPARE(e.statements, QStringList({deletions[size_t(kind)], fillStatement(kind)}));
    QCOMPARE(list.selectedKeys(), QStringList({keyOf(kind, 3)})); // the next one
    QVERIFY(e.enabled(u"mi%1Modify"_s.arg(wordsOf(kind).name)));
    QVERIFY(e.frame.status.endsWith(u" -  items: 1"_s));
}

void tst_ElementPanes::menusAndCommands()
{
    QFETCH(ElementKind, kind);
    Explorer e(fill);
    const QString& name = wordsOf(kind).name;
    const QStringList more[] = {{u"miMemoPrint"_s, u"miMemoPrintPreview"_s},
                                {u"miBookmarkVisit"_s},
                                {u"miToDoIncreasePriority"_s, u"miToDoDecreasePriority"_s}};
    const QStringList needing = more[size_t(kind)] + QStringList{u"mi%1Modify"_s.arg(name), u"mi%1Delete"_s.arg(name)};
    const auto areEnabled = [&](bool enabled) {
        return std::all_of(needing.begin(), needing.end(), [&](const QString& c) { return e.enabled(c) == enabled; });
    };
    ListView& list = e.list(kind);
    e.click(kind);
    QVERIFY(e.enabled(needing.last())); // the delete tool goes with the section
    QVERIFY(!e.enabled(needing.first())); // the others with the selection
    QTest::mouseClick(list.viewport(), Qt::RightButton, {}, e.cellAt(list, 0, 1));
    QVERIFY(areEnabled(true));
    QTest::mouseClick(list.viewport(), Qt::RightButton, {}, e.below(list));
    QVERIFY(areEnabled(false));
    list.selectKey(keyOf(kind, 2));
    QVERIFY(areEnabled(true));
    QCOMPARE(e.frame.menus, QStringList({u"mnu"_s + name, u"mnu"_s + name}));
    e.click(0);
    QVERIFY(areEnabled(false));
    // What is selected there is not seen.
    e.statements.clear();
    e.pane(kind).modifyElement();
    e.pane(kind).deleteElements();
    e.window.toDos().ToDoIncreasePriority();
    e.window.bookmarks().VisitBookmark();
    QCOMPARE(e.statements + e.shell.opened, QStringList());
}

void tst_ElementPanes::errors()
{
    QFETCH(ElementKind, kind);
    Explorer e(fill);
    e.click(kind);
    ListView& list = e.list(kind);
    list.selectKey(keyOf(kind, 2));
    e.loseArchive();
    const auto failsAs = [&](const QString& routine) {
        return e.questions.asked.last().text.startsWith(u"Error in %1: "_s.arg(routine.arg(wordsOf(kind).name)));
    };
    e.questions.expect(QString());
    e.pane(kind).makeContents();
    QVERIFY(failsAs(u"MakeLvw%1Contents"_s));
    e.questions.expect(deleteQuestion, Answer::Yes);
    e.questions.expect(QString());
    e.pane(kind).deleteElements();
    QVERIFY(failsAs(u"Delete%1"_s));
    if (kind == ElementKind::ToDo) {
        e.questions.expect(QString());
        e.window.toDos().ToDoIncreasePriority();
        QVERIFY(failsAs(u"%1IncreasePriority"_s));
    }
    QCOMPARE(e.texts(list).size(), 3);
    QCOMPARE(list.selectedKeys(), QStringList({keyOf(kind, 2)}));
}

void tst_ElementPanes::visitBookmark()
{
    Explorer e([](Explorer& empty) {
        empty.add(ElementKind::Bookmark, {u"here"_s});
        empty.run(u"INSERT INTO tab_bookmark (categoryID, name) VALUES (2, 'nowhere')"_s);
    });
    e.click(ElementKind::Bookmark);
    e.window.bookmarks().VisitBookmark(); // nothing is selected
    for (const int id : {2, 1}) {
        e.list(ElementKind::Bookmark).selectKey(keyOf(ElementKind::Bookmark, id));
        e.window.bookmarks().VisitBookmark();
    }
    QCOMPARE(e.shell.opened, QStringList({u"https://example.org/"_s}));
}

void tst_ElementPanes::tickingToDos()
{
    Explorer e(fill);
    e.click(ElementKind::ToDo);
    e.statements.clear();
    ListView& list = e.list(ElementKind::ToDo);
    const auto done = [&e](int id) { return e.value(u"SELECT done FROM tab_todo WHERE todoID = %1"_s.arg(id)); };
    const QRect cell = list.visualRect(list.model()->index(1, 0));
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, QPoint(cell.left() + 9, cell.center().y()));
    QCOMPARE(done(2), u"-1"_s);
    QVERIFY(e.statements.contains(fillStatement(ElementKind::ToDo)));
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
    Explorer e(fill);
    e.click(ElementKind::ToDo);
    ListView& list = e.list(ElementKind::ToDo);
    list.selectKey(u"1 T_ID"_s);
    QStringList seen;
    const auto step = [&](void (ToDoPane::*change)()) {
        (e.window.toDos().*change)();
        seen.append(list.model()->index(0, 2).data().toString());
    };
    for (int i = 0; i < 5; ++i)
        step(&ToDoPane::ToDoIncreasePriority);
    for (int i = 0; i < 2; ++i)
        step(&ToDoPane::ToDoDecreasePriority);
    QCOMPARE(seen.join(u' '), u"Normal High Highest Urgent Urgent Highest High"_s);
    e.run(u"UPDATE tab_todo SET tab_todo.name = 'changed' WHERE tab_todo.todoID = 2"_s);
    e.window.toDos().rowsChanged(); // by an alarm window
    QCOMPARE(e.texts(list), QStringList({u"b"_s, u"changed"_s, u"a"_s}));
    QCOMPARE(list.selectedKeys(), QStringList({u"1 T_ID"_s}));
}

void tst_ElementPanes::oneSortDirectionForAllLists()
{
    Explorer e(fill);
    const QStringList down = {u"c"_s, u"b"_s, u"a"_s}, up = {u"a"_s, u"b"_s, u"c"_s};
    bool isDown = false;
    for (const ElementKind kind : elementKinds) { // the first click of all sorts downwards
        e.click(kind);
        e.clickHeader(e.list(kind), e.list(kind).nameColumn());
        isDown = !isDown;
        QCOMPARE(e.texts(e.list(kind)), isDown ? down : up);
    }
    e.window.search().show();
    e.find<QLineEdit>("txtSearchText").setText(u"%"_s);
    e.window.search().SearchMemo();
    e.clickHeader(e.find<ListView>("lvwSearch"), 0);
    QCOMPARE(e.texts(e.find<ListView>("lvwSearch")), up);
}

void tst_ElementPanes::widthsAndOrderAreKept()
{
    Explorer e([](Explorer& empty) {
        empty.addCategory(9, 0, 1, u"Other"_s);
        empty.add(ElementKind::Bookmark, {u"a"_s, u"b"_s});
    });
    ListView& list = e.list(ElementKind::Bookmark);
    e.click(2);
    list.header()->resizeSection(0, 333);
    e.clickHeader(list, 0);
    e.click(9);
    e.add(ElementKind::Bookmark, {u"c"_s});
    e.click(2);
    QCOMPARE(list.header()->sectionSize(0), 333);
    QCOMPARE(e.texts(list), QStringList({u"c"_s, u"b"_s, u"a"_s}));
}

SNIPVALE_TEST(tst_ElementPanes)
#include "tst_ElementPanes.moc"
