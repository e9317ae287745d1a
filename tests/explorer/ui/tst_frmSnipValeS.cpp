// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "explorer/ui/ExplorerFixture.h"
#include "support/Registry.h"

#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

using namespace Qt::StringLiterals;

class tst_frmSnipValeS : public QObject {
    Q_OBJECT
private slots:
    void sections();
    void keyboardAndMenuOfTheTree();
    void newCategory();
    void modifyCategory();
    void deleteCategory();
    void hiddenCategoriesAreReported();
    void welcomePage();
    void errorsLeaveTheWindowUsable();
};

void tst_frmSnipValeS::sections()
{
    Explorer e;
    const std::tuple<int, QString, QString> sections[] = {{0, u"picWelcome"_s, u" Memo"_s},
                                                          {1, u"lvwMemo"_s, u" Memo - Code Root\\Code "_s},
                                                          {2, u"picBookmark"_s, u" Bookmark - Code Root\\Bookmarks"_s},
                                                          {3, u"picToDo"_s, u" ToDo - Code Root\\ToDo "_s},
                                                          {0, u"picWelcome"_s, u" Memo"_s}};
    for (const auto& [id, page, caption] : sections) {
        e.click(id);
        QCOMPARE(e.section(), page);
        QCOMPARE(e.label("lblFolderName"), caption);
        QCOMPARE(e.category.CategoryID, id);
        QVERIFY(e.enabled(u"miCategoryNew"_s));
        QCOMPARE(e.enabled(u"miCategoryModify"_s), id != 0);
        QCOMPARE(e.enabled(u"miCategoryDelete"_s), id != 0);
        for (const ElementKind kind : elementKinds)
            for (const QString& command : {u"mi%1New"_s, u"mi%1Delete"_s})
                QCOMPARE(e.enabled(command.arg(wordsOf(kind).name)), categoryOf(kind) == id);
        e.frame.status.clear();
        e.window.cameToFront();
        QCOMPARE(e.frame.status.isEmpty(), false);
    }
    QCOMPARE(e.frame.status, u"SnipVale"_s);
}

void tst_frmSnipValeS::keyboardAndMenuOfTheTree()
{
    Explorer e;
    QTest::keyClick(&e.tree(), Qt::Key_Down); // Bookmarks
    QCOMPARE(e.section(), u"picBookmark"_s);
    QTest::keyClick(&e.tree(), Qt::Key_Down); // Code
    QCOMPARE(e.section(), u"lvwMemo"_s);
    QTest::keyClick(&e.tree(), Qt::Key_F2);
    QCOMPARE(e.frame.ran, QStringList({u"miCategoryModify"_s}));
    QTest::mouseClick(e.tree().viewport(), Qt::RightButton, {}, e.nodeAt(0));
    QVERIFY(!e.enabled(u"miCategoryModify"_s) && e.enabled(u"miCategoryDelete"_s));
    QCOMPARE(e.frame.menus, QStringList({u"mnuCategory"_s}));
}

void tst_frmSnipValeS::newCategory()
{
    Explorer e;
    e.click(2);
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
    QCOMPARE(e.selected(), 4);
    QCOMPARE(e.section(), u"lvwMemo"_s);
    QCOMPARE(e.value(u"SELECT parentID FROM tab_category WHERE name = 'it''s new' AND type = 0"_s), u"2"_s);
}

void tst_frmSnipValeS::modifyCategory()
{
    Explorer e;
    e.click(1);
    whenModal([](QWidget& window) {
        QCOMPARE(window.windowTitle(), u"Category - Memo"_s);
        QVERIFY(!window.findChild<QRadioButton*>(u"optType_0"_s)->isVisible());
        window.findChild<QLineEdit*>(u"txtName"_s)->setText(u"Zipped"_s);
        window.findChild<QPushButton*>(u"cmdOK"_s)->click();
    });
    e.window.ModifyCategory();
    QCOMPARE(e.label("lblFolderName"), u" Memo - Code Root\\Zipped "_s);
    QCOMPARE(e.node(1).row(), 2); // sorted again
    whenModal([](QWidget& window) {
        window.findChild<QLineEdit*>(u"txtName"_s)->setText(u"not this"_s);
        window.findChild<QPushButton*>(u"cmdClose"_s)->click();
    });
    e.window.ModifyCategory();
    QCOMPARE(e.value(u"SELECT name FROM tab_category WHERE categoryID = 1"_s), u"Zipped"_s);
}

void tst_frmSnipValeS::deleteCategory()
{
    Explorer e([](Explorer& empty) {
        empty.addCategory(7, 1, 0, u"a"_s);
        empty.addCategory(9, 7, 0, u"b"_s);
        empty.addCategory(12, 9, 0, u"c"_s);
        empty.run(u"INSERT INTO tab_memo (categoryID, memoTypeID, memoName) VALUES (12, 3, 'deep')"_s);
    });
    e.questions.expect(u"You cannot delete Root Code"_s);
    QTest::keyClick(&e.tree(), Qt::Key_Delete);
    e.click(7);
    const QString question =
        u"Are you sure you want to delete selected categories 'Code Root\\Code\\a' ? \r\nATTENTION: this will delete all elements too!"_s;
    e.questions.expect(question, Answer::No);
    e.window.DeleteCategory();
    QCOMPARE(e.questions.asked.last().title, u"Deleting "_s);
    QVERIFY(e.node(12).isValid());
    e.questions.expect(question, Answer::Yes);
    e.window.DeleteCategory();
    QVERIFY(e.statements.contains(u"DELETE * FROM tab_category WHERE tab_category.categoryID IN (7,9,12) "_s));
    QCOMPARE(e.value(u"SELECT COUNT(memoID) AS n FROM tab_memo"_s), u"0"_s);
    QVERIFY(!e.node(7).isValid());
    QCOMPARE(e.selected(), 0);
}

void tst_frmSnipValeS::hiddenCategoriesAreReported()
{
    Explorer e;
    e.addCategory(50, 50, 0, u"below itself"_s);
    e.questions.expect(QString());
    e.window.LoadTreeView();
    QVERIFY(e.questions.asked.last().text.startsWith("1 categories of this archive cannot be shown"_L1));
    e.window.LoadTreeView(); // once
    QCOMPARE(e.selected(), 0);
}

void tst_frmSnipValeS::welcomePage()
{
    Explorer e([](Explorer& empty) {
        empty.addCategory(8, 2, 1, u"more links"_s);
        empty.add(ElementKind::Memo, {u"x"_s});
        empty.add(ElementKind::Bookmark, {u"x"_s, u"y"_s});
        empty.run(u"INSERT INTO tab_todo (categoryID, name, dueDate) VALUES (3, 'pay', '2026-3-1 8:0:0')"_s);
    });
    QStringList summary;
    for (const char* name : {"Memo", "Bookmark", "ToDo", "Password", "Note"})
        summary.append(e.label(("lblSummary" + QByteArray(name)).constData()));
    QCOMPARE(e.label("lblSummary"), u"  Elements archived  "_s);
    QCOMPARE(summary,
             QStringList({u"Code: 1 in 1 categories\n"_s, u"Bookmarks:  2 in 2 categories\n"_s,
                          u"ToDo:  1 in 1 categories\n"_s, u"Passwords:  0\n"_s, u"Notes:  0\n"_s}));
    auto& due = e.find<QTreeView>("tvwToDo");
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
    QCOMPARE(e.selected(), 3);
    QCOMPARE(e.list(ElementKind::ToDo).selectedKeys(), QStringList({u"1 T_ID"_s}));
}

void tst_frmSnipValeS::errorsLeaveTheWindowUsable()
{
    Explorer e;
    e.click(1);
    e.loseArchive();
    e.questions.expect(QString());
    e.window.LoadTreeView();
    QVERIFY(e.questions.asked.last().text.startsWith("Error in LoadTreeView: "_L1));
    QCOMPARE(e.selected(), 0); // the root is there
    e.questions.expect(QString());
    e.questions.expect(QString());
    e.click(0);
    QVERIFY(e.questions.asked[1].text.startsWith("Error in ShowSummary: "_L1));
    QVERIFY(e.questions.asked[2].text.startsWith("Error in LoadTodoTree: "_L1));
}

SNIPVALE_TEST(tst_frmSnipValeS)
#include "tst_frmSnipValeS.moc"
