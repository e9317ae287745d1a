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
    void opening();
    void deleting();
    void menusAndCommands();
    void errors();
    void visitBookmark();
    void tickingToDos();
    void prioritySteps();
    void sortingAndWidthsAreKept();
};

void tst_ElementPanes::opening()
{
    Explorer e(fill);
    const QString statuses[] = {u"Memo -  items: 3"_s, u"Bookmarks -  items: 3"_s, u"ToDo -  items: 3"_s};
    for (const ElementKind kind : elementKinds) {
        ListView& list = e.list(kind);
        e.statements.clear();
        e.click(kind);
        QCOMPARE(e.statements, QStringList(fillStatement(kind)));
        QCOMPARE(e.frame.status, statuses[size_t(kind)]);
        QStringList opened;
        const auto nameOf = [kind](QWidget& window) {
            return window.findChild<QLineEdit*>(kind == ElementKind::Memo ? u"txtMemoName"_s : u"txtName"_s);
        };
        const auto look = [&](QWidget& window) {
            opened.append(nameOf(window)->text());
            window.close();
        };
        whenModal(look);
        QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, e.cellAt(list, 1, 2));
        QTest::keyClick(&list, Qt::Key_Down);
        whenModal(look);
        QTest::keyClick(&list, Qt::Key_Return);
        whenModal([&](QWidget& window) {
            nameOf(window)->setText(u"new"_s);
            window.findChild<QPushButton*>(u"cmdOK"_s)->click();
        });
        QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, e.below(list)); // on empty space: a new one
        QCOMPARE(opened, QStringList({u"c"_s, u"a"_s}));
        QCOMPARE(e.texts(list).join(u' '), u"b c a new"_s); // the archive's order
        QCOMPARE(list.selectedKeys(), QStringList({keyOf(kind, 4)})); // what was saved
    }
}

void tst_ElementPanes::deleting()
{
    Explorer e(fill);
    const QString deletions[] = {u"DELETE * FROM tab_memo WHERE tab_memo.memoID IN ( 1, 2) "_s,
                                 u"DELETE * FROM tab_bookmark WHERE tab_bookmark.bookmarkID IN ( 1, 2) "_s,
                                 u"DELETE * FROM tab_todo WHERE tab_todo.ToDoID IN ( 1, 2) "_s};
    for (const ElementKind kind : elementKinds) {
        ListView& list = e.list(kind);
        e.click(kind);
        e.statements.clear();
        QTest::keyClick(&list, Qt::Key_Delete); // nothing is selected: no question
        list.selectKeys({keyOf(kind, 1), keyOf(kind, 2)}, keyOf(kind, 1));
        e.questions.expect(deleteQuestion, Answer::No);
        QTest::keyClick(&list, Qt::Key_Delete);
        QCOMPARE(e.questions.asked.last().title, u"Deleting elements"_s);
        QCOMPARE(e.questions.asked.last().style, MessageStyle::YesNoDefaultNo);
        e.questions.expect(deleteQuestion, Answer::Yes);
        QTest::keyClick(&list, Qt::Key_Delete);
        QCOMPARE(e.statements, QStringList({deletions[size_t(kind)], fillStatement(kind)}));
        QCOMPARE(list.selectedKeys(), QStringList({keyOf(kind, 3)})); // the next one
        QVERIFY(e.enabled(u"mi%1Modify"_s.arg(wordsOf(kind).name)));
        QVERIFY(e.frame.status.endsWith(u" -  items: 1"_s));
    }
}

void tst_ElementPanes::menusAndCommands()
{
    Explorer e(fill);
    const QStringList needed[] = {
        {u"miMemoPrint"_s, u"miMemoPrintPreview"_s, u"miMemoModify"_s, u"miMemoDelete"_s},
        {u"miBookmarkVisit"_s, u"miBookmarkModify"_s, u"miBookmarkDelete"_s},
        {u"miToDoIncreasePriority"_s, u"miToDoDecreasePriority"_s, u"miToDoModify"_s, u"miToDoDelete"_s}};
    for (const ElementKind kind : elementKinds) {
        const QStringList& needing = needed[size_t(kind)];
        const auto areEnabled = [&](bool enabled) {
            return std::all_of(needing.begin(), needing.end(),
                               [&](const QString& command) { return e.enabled(command) == enabled; });
        };
        ListView& list = e.list(kind);
        e.click(kind);
        QVERIFY(e.enabled(needing.last())); // the delete tool goes with the section
        QVERIFY(!e.enabled(needing.first())); // the others with the selection
        QTest::mouseClick(list.viewport(), Qt::RightButton, {}, e.cellAt(list, 0, 1));
        QVERIFY(areEnabled(true));
        QTest::mouseClick(list.viewport(), Qt::RightButton, {}, e.below(list));
        QVERIFY(areEnabled(false));
        QCOMPARE(e.frame.menus.last(), u"mnu"_s + wordsOf(kind).name);
        list.selectKey(keyOf(kind, 2));
        QVERIFY(areEnabled(true));
        e.click(0);
        QVERIFY(areEnabled(false));
    }
    // What is selected there is not seen.
    e.statements.clear();
    e.window.memos().modifyElement();
    e.window.memos().deleteElements();
    e.window.toDos().ToDoIncreasePriority();
    e.window.bookmarks().VisitBookmark();
    QCOMPARE(e.statements + e.shell.opened, QStringList());
}

void tst_ElementPanes::errors()
{
    Explorer e(fill);
    const QString path = e.archive.ArchivePath();
    for (const ElementKind kind : elementKinds) {
        e.archive.setPath(path);
        e.click(kind);
        ListView& list = e.list(kind);
        list.selectKey(keyOf(kind, 2));
        e.loseArchive();
        e.questions.expect(deleteQuestion, Answer::Yes);
        e.questions.expect(QString());
        QTest::keyClick(&list, Qt::Key_Delete);
        QVERIFY(e.questions.asked.last().text.startsWith(u"Error in Delete%1: "_s.arg(wordsOf(kind).name)));
        QCOMPARE(e.texts(list).size(), 3);
        QCOMPARE(list.selectedKeys(), QStringList({keyOf(kind, 2)}));
        e.questions.expect(QString());
        e.click(kind);
        QVERIFY(e.questions.asked.last().text.startsWith(u"Error in MakeLvw%1Contents: "_s.arg(wordsOf(kind).name)));
        QCOMPARE(e.texts(list).size(), 3);
    }
    e.questions.expect(QString());
    e.window.toDos().ToDoIncreasePriority();
    QVERIFY(e.questions.asked.last().text.startsWith("Error in ToDoIncreasePriority: "_L1));
}

void tst_ElementPanes::visitBookmark()
{
    Explorer e([](Explorer& empty) {
        empty.add(ElementKind::Bookmark, {u"here"_s});
        empty.run(u"INSERT INTO tab_bookmark (categoryID, name) VALUES (2, 'nowhere')"_s);
    });
    e.click(ElementKind::Bookmark);
    for (const int id : {0, 2, 1}) { // at first nothing is selected
        e.list(ElementKind::Bookmark).selectKey(keyOf(ElementKind::Bookmark, id));
        e.window.bookmarks().VisitBookmark();
    }
    QCOMPARE(e.shell.opened, QStringList({u"https://example.org/"_s}));
}

void tst_ElementPanes::tickingToDos()
{
    Explorer e(fill);
    e.click(ElementKind::ToDo);
    ListView& list = e.list(ElementKind::ToDo);
    const auto done = [&e](int id) { return e.value(u"SELECT done FROM tab_todo WHERE todoID = %1"_s.arg(id)); };
    const QRect cell = list.visualRect(list.model()->index(1, 0));
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, QPoint(cell.left() + 9, cell.center().y()));
    QCOMPARE(done(2), u"-1"_s);
    QCOMPARE(list.model()->index(1, 0).data(Qt::CheckStateRole).toInt(), int(Qt::Checked));
    list.selectKey(u"3 T_ID"_s);
    for (const QString& expected : {u"-1"_s, u"0"_s}) {
        QTest::keyClick(&list, Qt::Key_Space);
        QCOMPARE(done(3), expected);
        QCOMPARE(list.selectedKeys(), QStringList({u"3 T_ID"_s})); // the list was filled again under it
    }
    QCOMPARE(done(1), u"0"_s);
}

void tst_ElementPanes::prioritySteps()
{
    Explorer e(fill);
    e.click(ElementKind::ToDo);
    ListView& list = e.list(ElementKind::ToDo);
    list.selectKey(u"1 T_ID"_s);
    QStringList seen;
    for (int i = 0; i < 6; ++i) {
        i < 5 ? e.window.toDos().ToDoIncreasePriority() : e.window.toDos().ToDoDecreasePriority();
        seen.append(list.model()->index(0, 2).data().toString());
    }
    QCOMPARE(seen.join(u' '), u"Normal High Highest Urgent Urgent Highest"_s);
    e.run(u"UPDATE tab_todo SET tab_todo.name = 'changed' WHERE tab_todo.todoID = 2"_s);
    e.window.toDos().rowsChanged(); // by an alarm window
    QCOMPARE(e.texts(list).join(u' '), u"b changed a"_s);
    QCOMPARE(list.selectedKeys(), QStringList({u"1 T_ID"_s}));
}

// All lists have one direction, which each click on a header turns; a list that is filled again stays sorted.
void tst_ElementPanes::sortingAndWidthsAreKept()
{
    Explorer e(fill);
    const auto clickName = [](ListView& list) {
        QHeaderView* bar = list.header();
        const int left = bar->sectionViewportPosition(list.nameColumn());
        QTest::mouseClick(bar->viewport(), Qt::LeftButton, {}, QPoint(left + 12, 8));
    };
    QStringList orders;
    for (const ElementKind kind : elementKinds) {
        e.click(kind);
        clickName(e.list(kind));
        orders.append(e.texts(e.list(kind)).join(QString()));
    }
    auto& hits = e.find<ListView>("lvwSearch");
    e.window.search().show();
    e.find<QLineEdit>("txtSearchText").setText(u"%"_s);
    e.window.search().SearchMemo();
    clickName(hits);
    orders.append(e.texts(hits).join(QString()));
    ListView& bookmarks = e.list(ElementKind::Bookmark);
    bookmarks.header()->resizeSection(0, 333);
    e.add(ElementKind::Bookmark, {u"bb"_s});
    e.click(2);
    orders.append(e.texts(bookmarks).join(QString()));
    QCOMPARE(orders.join(u' '), u"cba abc cba abc abbbc"_s);
    QCOMPARE(bookmarks.header()->sectionSize(0), 333);
}

SNIPVALE_TEST(tst_ElementPanes)
#include "tst_ElementPanes.moc"
