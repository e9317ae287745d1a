// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "explorer/ui/ExplorerFixture.h"
#include "support/Registry.h"

#include "explorer/ui/MemoPane.h"

#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

using namespace Qt::StringLiterals;

class tst_frmSnipValeS : public QObject {
    Q_OBJECT
private slots:
    void sections();
    void keyboardMovesThroughTheTree();
    void newCategory();
    void modifyCategory();
    void deleteCategory();
    void hiddenCategoriesAreReported();
    void summary();
    void dueDateTree();
    void memoListShowsAndSorts();
    void memoListOpens();
    void memoListDeletes();
    void contextMenus();
    void errorsKeepTheList();
};

void tst_frmSnipValeS::sections()
{
    Explorer e;
    QCOMPARE(e.section(), u"picWelcome"_s);
    QCOMPARE(e.label("lblFolderName"), u" Memo"_s);
    QVERIFY(e.enabled("miCategoryNew") && !e.enabled("miCategoryModify") && !e.enabled("miCategoryDelete") &&
            !e.enabled("miMemoNew"));
    e.click(u"1 ID"_s);
    QCOMPARE(e.section(), u"lvwMemo"_s);
    QCOMPARE(e.label("lblFolderName"), u" Memo - Code Root\\Code "_s);
    QCOMPARE(e.category.CategoryID, 1);
    QVERIFY(e.enabled("miMemoNew") && e.enabled("miCategoryModify") && !e.enabled("miBookmarkNew") &&
            !e.enabled("miToDoNew"));
    QCOMPARE(e.frame.status, u"Memo -  items: 0"_s);
    e.click(u"2 ID"_s);
    QCOMPARE(e.section(), u"picBookmark"_s);
    QCOMPARE(e.label("lblFolderName"), u" Bookmark - Code Root\\Bookmarks"_s);
    QVERIFY(!e.enabled("miMemoNew") && e.enabled("miBookmarkNew") && !e.enabled("miMemoDelete"));
    e.click(u"3 ID"_s);
    QCOMPARE(e.section(), u"picToDo"_s);
    QCOMPARE(e.label("lblFolderName"), u" ToDo - Code Root\\ToDo "_s);
    QVERIFY(e.enabled("miToDoNew") && !e.enabled("miBookmarkNew"));
    e.click(u"0 ID"_s);
    QCOMPARE(e.section(), u"picWelcome"_s);
    QCOMPARE(e.category.CategoryID, 0);
}

void tst_frmSnipValeS::keyboardMovesThroughTheTree()
{
    Explorer e;
    QTest::keyClick(&e.tree(), Qt::Key_Down); // Bookmarks
    QCOMPARE(e.section(), u"picBookmark"_s);
    QTest::keyClick(&e.tree(), Qt::Key_Down); // Code
    QCOMPARE(e.section(), u"lvwMemo"_s);
    QTest::keyClick(&e.tree(), Qt::Key_F2);
    QCOMPARE(e.frame.ran, QStringList({u"miCategoryModify"_s}));
}

void tst_frmSnipValeS::newCategory()
{
    Explorer e;
    e.click(u"2 ID"_s);
    e.questions.expect(u"Please choose a name!"_s);
    whenModal([](QWidget& window) {
        QVERIFY(window.findChild<QRadioButton*>(u"optType_1"_s)->isChecked()); // like its parent
        auto* name = window.findChild<QLineEdit*>(u"txtName"_s);
        name->setText(u"  "_s);
        QTest::keyClick(name, Qt::Key_Return);
        QVERIFY(window.isVisible());
        name->setText(u"it's new"_s);
        window.findChild<QRadioButton*>(u"optType_0"_s)->click();
        QTest::keyClick(name, Qt::Key_Return);
    });
    e.window.NewCategory();
    QCOMPARE(e.window.selectedKey(), u"4 ID"_s);
    QCOMPARE(e.window.selectedTag(), u"category"_s);
    QCOMPARE(e.section(), u"lvwMemo"_s);
    QCOMPARE(e.value(u"SELECT parentID FROM tab_category WHERE name = 'it''s new' AND type = 0"_s), u"2"_s);
}

void tst_frmSnipValeS::modifyCategory()
{
    Explorer e;
    e.click(u"1 ID"_s);
    whenModal([](QWidget& window) {
        QCOMPARE(window.windowTitle(), u"Category - Memo"_s);
        QVERIFY(!window.findChild<QRadioButton*>(u"optType_0"_s)->isVisible());
        window.findChild<QLineEdit*>(u"txtName"_s)->setText(u"Zipped"_s);
        window.findChild<QPushButton*>(u"cmdOK"_s)->click();
    });
    e.window.ModifyCategory();
    QCOMPARE(e.label("lblFolderName"), u" Memo - Code Root\\Zipped "_s);
    QCOMPARE(e.node(u"1 ID"_s).row(), 2); // sorted again
    whenModal([](QWidget& window) {
        window.findChild<QLineEdit*>(u"txtName"_s)->setText(u"not this"_s);
        window.findChild<QPushButton*>(u"cmdClose"_s)->click();
    });
    e.window.ModifyCategory();
    QCOMPARE(e.value(u"SELECT name FROM tab_category WHERE categoryID = 1"_s), u"Zipped"_s);
}

void tst_frmSnipValeS::deleteCategory()
{
    Explorer e;
    e.questions.expect(u"You cannot delete Root Code"_s);
    e.window.DeleteCategory();
    {
        ArchiveUnit unit(e.archive);
        for (const char* row : {"7, 1, 'a'", "9, 7, 'b'", "12, 9, 'c'"})
            unit.Execute(u"INSERT INTO tab_category (categoryID, parentID, name, type) VALUES ("_s +
                         QString::fromLatin1(row) + u", 0)"_s);
        unit.Execute(u"INSERT INTO tab_memo (categoryID, memoTypeID, memoName) VALUES (12, 3, 'deep')"_s);
    }
    e.window.LoadTreeView();
    e.click(u"7 ID"_s);
    const QString question =
        u"Are you sure you want to delete selected categories 'Code Root\\Code\\a' ? \r\nATTENTION: this will delete all elements too!"_s;
    e.questions.expect(question, Answer::No);
    e.window.DeleteCategory();
    QCOMPARE(e.questions.asked.last().title, u"Deleting "_s);
    QVERIFY(e.node(u"12 ID"_s).isValid());
    e.questions.expect(question, Answer::Yes);
    e.window.DeleteCategory();
    QVERIFY(e.statements.contains(u"DELETE * FROM tab_category WHERE tab_category.categoryID IN (7,9,12) "_s));
    QCOMPARE(e.value(u"SELECT COUNT(memoID) AS n FROM tab_memo"_s), u"0"_s);
    QVERIFY(!e.node(u"7 ID"_s).isValid());
    QCOMPARE(e.window.selectedKey(), u"0 ID"_s);
}

void tst_frmSnipValeS::hiddenCategoriesAreReported()
{
    Explorer e;
    {
        ArchiveUnit unit(e.archive);
        unit.Execute(
            u"INSERT INTO tab_category (categoryID, parentID, type, name) VALUES (50, 50, 0, 'below itself')"_s);
    }
    e.questions.expect(QString());
    e.window.LoadTreeView();
    QVERIFY(e.questions.asked.last().text.startsWith("1 categories of this archive cannot be shown"_L1));
    e.window.LoadTreeView(); // once
    QCOMPARE(e.window.selectedKey(), u"0 ID"_s);
}

void tst_frmSnipValeS::summary()
{
    Explorer e;
    e.addMemo(u"x"_s);
    e.click(u"0 ID"_s);
    QCOMPARE(e.label("lblSummary"), u"  Elements archived  "_s);
    QCOMPARE(e.label("lblSummaryMemo"), u"Code: 1 in 1 categories\n"_s);
    QCOMPARE(e.label("lblSummaryBookmark"), u"Bookmarks:  0 in 1 categories\n"_s);
    QCOMPARE(e.label("lblSummaryToDo"), u"ToDo:  0 in 1 categories\n"_s);
    QCOMPARE(e.label("lblSummaryPassword"), u"Passwords:  0\n"_s);
    QCOMPARE(e.label("lblSummaryNote"), u"Notes:  0\n"_s);
}

void tst_frmSnipValeS::dueDateTree()
{
    Explorer e;
    {
        ArchiveUnit unit(e.archive);
        unit.Execute(u"INSERT INTO tab_todo (categoryID, name, dueDate) VALUES (3, 'pay', '2026-3-1 8:0:0')"_s);
    }
    e.click(u"0 ID"_s);
    auto& due = *e.window.findChild<QTreeView*>(u"tvwToDo"_s);
    const QModelIndex root = due.model()->index(0, 0);
    QCOMPARE(root.data().toString(), u"Due Dates"_s);
    const QModelIndex group = due.model()->index(0, 0, root);
    QCOMPARE(group.data().toString(), u"Out of date (1)"_s);
    const QModelIndex toDo = due.model()->index(0, 0, group);
    QCOMPARE(toDo.data().toString(), u"pay ("_s + QLocale().toString(QDate(2026, 3, 1), QLocale::LongFormat) + u')');
    QCOMPARE(toDo.data(Qt::UserRole).toString(), u"1 T_ID"_s);
    QCOMPARE(toDo.data(Qt::UserRole + 1).toString(), u"3 todo"_s);
    due.setCurrentIndex(group);
    emit due.activated(group);
    QCOMPARE(e.section(), u"picWelcome"_s); // a group does nothing
    due.setCurrentIndex(toDo);
    emit due.activated(toDo);
    QCOMPARE(e.section(), u"picToDo"_s);
    QCOMPARE(e.window.selectedKey(), u"3 ID"_s);
}

void tst_frmSnipValeS::memoListShowsAndSorts()
{
    Explorer e;
    for (const char* name : {"b", "c", "a"})
        e.addMemo(QString::fromLatin1(name));
    e.click(u"1 ID"_s);
    QCOMPARE(e.frame.status, u"Memo -  items: 3"_s);
    QVERIFY(e.statements.contains(u" SELECT * FROM tab_memo WHERE categoryID=1"_s));
    const auto header = [&](int column) {
        QHeaderView* bar = e.list().header();
        QTest::mouseClick(bar->viewport(), Qt::LeftButton, {}, QPoint(bar->sectionViewportPosition(column) + 20, 8));
    };
    const auto first = [&] { return e.list().model()->index(0, 0).data().toString(); };
    QCOMPARE(first(), u"b"_s); // the archive's order
    header(0);
    QCOMPARE(first(), u"c"_s); // the first click sorts downwards
    header(0);
    QCOMPARE(first(), u"a"_s);
    header(1);
    header(0);
    QCOMPARE(first(), u"a"_s);
}

void tst_frmSnipValeS::memoListOpens()
{
    Explorer e;
    e.addMemo(u"first"_s);
    e.addMemo(u"second"_s);
    e.click(u"1 ID"_s);
    QStringList titles;
    const auto remember = [&titles](QWidget& window) {
        titles.append(window.windowTitle());
        window.close();
    };
    const QPoint second = e.list().visualRect(e.list().model()->index(1, 0)).center();
    whenModal(remember);
    QTest::mouseDClick(e.list().viewport(), Qt::LeftButton, {}, second);
    whenModal([&](QWidget& window) { // a double click on empty space makes a new one
        titles.append(window.windowTitle());
        window.findChild<QLineEdit*>(u"txtMemoName"_s)->setText(u"third"_s);
        window.findChild<QPushButton*>(u"cmdOK"_s)->click();
    });
    QTest::mouseDClick(e.list().viewport(), Qt::LeftButton, {}, QPoint(100, e.list().viewport()->height() - 10));
    QCOMPARE(e.list().selectedKeys(), QStringList({u"3 M_ID"_s})); // it is selected
    whenModal(remember);
    QTest::keyClick(&e.list(), Qt::Key_Return);
    QCOMPARE(titles, QStringList({u"Memo: second"_s, u"Memo"_s, u"Memo: third"_s}));
}

void tst_frmSnipValeS::memoListDeletes()
{
    Explorer e;
    for (int i = 0; i < 4; ++i)
        e.addMemo(QString::number(i));
    e.click(u"1 ID"_s);
    QTest::keyClick(&e.list(), Qt::Key_Delete); // nothing selected: no question
    e.list().selectKey(u"2 M_ID"_s);
    QTest::keyClick(&e.list(), Qt::Key_Down, Qt::ShiftModifier);
    e.questions.expect(u"Are you sure you want to delete selected elements? "_s, Answer::No);
    QTest::keyClick(&e.list(), Qt::Key_Delete);
    QCOMPARE(e.questions.asked.last().title, u"Deleting elements"_s);
    QCOMPARE(e.questions.asked.last().style, MessageStyle::YesNoDefaultNo);
    e.questions.expect(u"Are you sure you want to delete selected elements? "_s, Answer::Yes);
    QTest::keyClick(&e.list(), Qt::Key_Delete);
    QVERIFY(e.statements.contains(u"DELETE * FROM tab_memo WHERE tab_memo.memoID IN ( 2, 3) "_s));
    QCOMPARE(e.list().model()->rowCount(), 2);
    QCOMPARE(e.frame.status, u"Memo -  items: 2"_s);
}

void tst_frmSnipValeS::contextMenus()
{
    Explorer e;
    e.addMemo(u"x"_s);
    e.click(u"1 ID"_s);
    const auto rightClick = [](QAbstractItemView& view, QPoint at) {
        QTest::mouseClick(view.viewport(), Qt::RightButton, {}, at);
    };
    rightClick(e.list(), QPoint(50, e.list().viewport()->height() - 10));
    QVERIFY(!e.enabled("miMemoModify") && !e.enabled("miMemoDelete"));
    rightClick(e.list(), e.list().visualRect(e.list().model()->index(0, 0)).center());
    QVERIFY(e.enabled("miMemoModify") && e.enabled("miMemoDelete"));
    rightClick(e.tree(), e.tree().visualRect(e.node(u"0 ID"_s)).center());
    QVERIFY(!e.enabled("miCategoryModify"));
    QCOMPARE(e.frame.menus, QStringList({u"mnuMemo"_s, u"mnuMemo"_s, u"mnuCategory"_s}));
}

void tst_frmSnipValeS::errorsKeepTheList()
{
    Explorer e;
    e.addMemo(u"x"_s);
    e.click(u"1 ID"_s);
    e.archive.setPath(e.scratch.path(u"gone.SVA"_s));
    e.questions.expect(QString());
    e.click(u"1 ID"_s);
    QVERIFY(e.questions.asked.last().text.startsWith("Error in MakeLvwMemoContents: "_L1));
    QCOMPARE(e.list().model()->rowCount(), 1);
    e.list().selectKey(u"1 M_ID"_s);
    e.questions.expect(u"Are you sure you want to delete selected elements? "_s, Answer::Yes);
    e.questions.expect(QString());
    e.window.memos().DeleteMemo();
    QVERIFY(e.questions.asked.last().text.startsWith("Error in DeleteMemo: "_L1));
    e.questions.expect(QString());
    e.window.LoadTreeView();
    QVERIFY(e.questions.asked.last().text.startsWith("Error in LoadTreeView: "_L1));
    QCOMPARE(e.window.selectedKey(), u"0 ID"_s); // the root is there, and the window is usable
}

SNIPVALE_TEST(tst_frmSnipValeS)
#include "tst_frmSnipValeS.moc"
