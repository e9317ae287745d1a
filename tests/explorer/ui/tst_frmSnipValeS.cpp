// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "explorer/ui/ExplorerFixture.h"
#include "support/Registry.h"

#include <QAbstractItemModelTester>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

using namespace Qt::StringLiterals;

class tst_frmSnipValeS : public QObject {
    Q_OBJECT
private slots:
    void tree()
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
        const QPersistentModelIndex d = model.indexOf(3);
        QCOMPARE(model.add(0, {7, ElementKind::Memo, u"C"_s}).row(), 2);
        QVERIFY(!model.add(99, {8, ElementKind::Memo, u"orphan"_s}).isValid());
        model.rename(3, u"a'"_s);
        QCOMPARE(d.row(), 1); // sorted again, and views follow the node
    }

    void sections()
    {
        Explorer e;
        const std::tuple<int, QString, QString> sections[] = {
            {1, u"lvwMemo"_s, u" Memo - Code Root\\Code "_s},
            {2, u"picBookmark"_s, u" Bookmark - Code Root\\Bookmarks"_s},
            {3, u"picToDo"_s, u" ToDo - Code Root\\ToDo "_s},
            {0, u"picWelcome"_s, u" Memo"_s}};
        for (const auto& [id, page, caption] : sections) {
            e.click(id);
            QCOMPARE(e.section(), page);
            QCOMPARE(e.label("lblFolderName"), caption);
            QCOMPARE(e.category.CategoryID, id);
            QVERIFY(e.enabled(u"miCategoryModify"_s) == (id != 0) && e.enabled(u"miCategoryDelete"_s) == (id != 0));
            for (const ElementKind kind : elementKinds)
                QCOMPARE(e.enabled(u"mi%1New"_s.arg(wordsOf(kind).name)), categoryOf(kind) == id);
            e.frame.status.clear();
            e.window.cameToFront();
            QVERIFY(e.frame.status.endsWith(id == 0 ? u"SnipVale"_s : u"items: 0"_s));
        }
        QTest::keyClick(&e.tree(), Qt::Key_Down);
        QCOMPARE(e.section(), u"picBookmark"_s);
        QTest::keyClick(&e.tree(), Qt::Key_F2);
        QCOMPARE(e.frame.ran, QStringList({u"miCategoryModify"_s}));
        QTest::mouseClick(e.tree().viewport(), Qt::RightButton, {}, e.nodeAt(0));
        QVERIFY(!e.enabled(u"miCategoryModify"_s) && e.enabled(u"miCategoryDelete"_s));
    }

    void newAndModifiedCategory()
    {
        Explorer e;
        e.click(2);
        e.questions.expect(u"Please choose a name!"_s);
        whenModal([](QWidget& window) {
            QVERIFY(window.findChild<QRadioButton*>(u"optType_1"_s)->isChecked()); // like its parent
            auto* name = window.findChild<QLineEdit*>(u"txtName"_s);
            name->setText(u"  "_s);
            QTest::keyClick(name, Qt::Key_Return);
            name->setText(u"it's new"_s);
            window.findChild<QRadioButton*>(u"optType_0"_s)->click();
            QTest::keyClick(name, Qt::Key_Return);
        });
        e.window.NewCategory();
        QCOMPARE(e.selected(), 4);
        QCOMPARE(e.value(u"SELECT parentID FROM tab_category WHERE name = 'it''s new' AND type = 0"_s), u"2"_s);
        e.click(1);
        for (const auto& [button, text] : {std::pair{u"cmdOK"_s, u"Zipped"_s}, {u"cmdClose"_s, u"not this"_s}}) {
            whenModal([&button = button, &text = text](QWidget& window) {
                window.findChild<QLineEdit*>(u"txtName"_s)->setText(text);
                window.findChild<QPushButton*>(button)->click();
            });
            e.window.ModifyCategory();
            QCOMPARE(e.label("lblFolderName"), u" Memo - Code Root\\Zipped "_s);
            QCOMPARE(e.node(1).row(), 2); // sorted again
            QCOMPARE(e.value(u"SELECT name FROM tab_category WHERE categoryID = 1"_s), u"Zipped"_s);
        }
    }

    void deleteCategory()
    {
        Explorer e([](Explorer& empty) {
            for (const char* category : {"7, 1, 0, 'a'", "9, 7, 0, 'b'", "12, 9, 0, 'c'"})
                empty.addCategory(QLatin1String(category));
            empty.run(u"INSERT INTO tab_memo (categoryID, memoTypeID, memoName) VALUES (12, 3, 'deep')"_s);
        });
        e.questions.expect(u"You cannot delete Root Code"_s);
        QTest::keyClick(&e.tree(), Qt::Key_Delete);
        e.click(7);
        const QString question = u"Are you sure you want to delete selected categories 'Code Root\\Code\\a' ? \r\n"
                                 "ATTENTION: this will delete all elements too!"_s;
        for (const Answer answer : {Answer::No, Answer::Yes}) {
            QVERIFY(e.node(12).isValid());
            e.questions.expect(question, answer);
            e.window.DeleteCategory();
        }
        QVERIFY(e.statements.contains(u"DELETE * FROM tab_category WHERE tab_category.categoryID IN (7,9,12) "_s));
        QCOMPARE(e.value(u"SELECT COUNT(memoID) AS n FROM tab_memo"_s), u"0"_s);
        QVERIFY(!e.node(7).isValid());
    }

    void welcomePage()
    {
        Explorer e([](Explorer& empty) {
            empty.addCategory(u"8, 2, 1, 'more links'"_s);
            empty.add(ElementKind::Bookmark, {u"x"_s, u"y"_s});
            empty.run(u"INSERT INTO tab_todo (categoryID, name, dueDate) VALUES (3, 'pay', '2026-3-1 8:0:0')"_s);
        });
        e.add(ElementKind::Memo, {u"x"_s});
        e.run(u"INSERT INTO tab_todo (categoryID, name, dueDate) VALUES (3, 'call', '2026-3-1 7:0:0')"_s);
        e.window.cameToFront(); // from another view, with news
        QString summary;
        for (const char* name : {"Memo", "Bookmark", "ToDo", "Password", "Note"})
            summary += e.label(("lblSummary" + QByteArray(name)).constData());
        QCOMPARE(
            summary,
            u"Code: 1 in 1 categories\nBookmarks:  2 in 2 categories\nToDo:  2 in 1 categories\nPasswords:  0\nNotes:  0\n"_s);
        auto& due = e.find<QTreeView>("tvwToDo");
        const QModelIndex group = due.model()->index(0, 0, due.model()->index(0, 0));
        QCOMPARE(group.data().toString(), u"Out of date (2)"_s);
        const QModelIndex toDo = due.model()->index(0, 0, group);
        due.setCurrentIndex(toDo);
        emit due.activated(toDo);
        QCOMPARE(e.list(ElementKind::ToDo).selectedKeys(), QStringList({u"1 T_ID"_s}));
    }

    void errorsLeaveTheWindowUsable()
    {
        Explorer e;
        e.addCategory(u"50, 50, 0, 'below itself'"_s);
        e.questions.expect(QString());
        e.window.LoadTreeView();
        QVERIFY(e.questions.asked[0].text.startsWith("1 categories of this archive cannot be shown"_L1));
        e.window.LoadTreeView(); // once
        e.click(1);
        e.loseArchive();
        e.questions.expect(QString());
        e.window.LoadTreeView();
        QVERIFY(e.questions.asked[1].text.startsWith("Error in LoadTreeView: "_L1));
        e.questions.expect(QString());
        e.questions.expect(QString());
        e.click(0); // the root is there
        QVERIFY(e.questions.asked[2].text.startsWith("Error in ShowSummary: "_L1));
        QVERIFY(e.questions.asked[3].text.startsWith("Error in LoadTodoTree: "_L1));
    }
};

SNIPVALE_TEST(tst_frmSnipValeS)
#include "tst_frmSnipValeS.moc"
