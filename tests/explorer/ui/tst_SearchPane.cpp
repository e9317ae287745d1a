// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "explorer/ui/ExplorerFixture.h"
#include "support/Registry.h"

#include "explorer/ui/SearchPane.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

const QString deleteQuestion = u"Are you sure you want to delete selected elements? "_s;
// An explorer with its search pane open over one element of each kind, and boxes to check by their names.
struct Searching : Explorer {
    Searching()
    {
        for (const ElementKind kind : elementKinds)
            add(kind, {u"sort "_s + wordsOf(kind).image});
        window.search().show();
    }
    QCheckBox& box(const char* name) { return find<QCheckBox>(name); }
    QLineEdit& text() { return find<QLineEdit>("txtSearchText"); }
    ListView& hits() { return find<ListView>("lvwSearch"); }
    void check(const QString& boxes)
    {
        for (const char* name : {"chkMemo", "chkBookmark", "chkToDo"})
            box(name).setChecked(boxes.contains(QLatin1String(name)));
    }
    void search(const QString& what)
    {
        text().setText(what);
        statements.clear();
        QTest::keyClick(&text(), Qt::Key_Return);
    }
};

} // namespace

class tst_SearchPane : public QObject {
    Q_OBJECT
private slots:
    void boxesAndRefusals()
    {
        Searching e;
        for (const char* name : {"chkMemo", "chkMemoName", "chkSnipVale", "chkMemoNotes", "chkBookmark", "chkToDo"})
            QVERIFY2(e.box(name).isChecked() && e.box(name).isEnabled(), name);
        e.questions.expect(u"Please enter text to search for"_s);
        e.search(u" \t "_s);
        e.check({});
        for (const char* name : {"chkMemoName", "chkSnipVale", "chkMemoNotes"})
            QVERIFY2(!e.box(name).isEnabled(), name);
        e.questions.expect(u"Choose where you want to find your memos."_s);
        e.search(u"x"_s);
        QCOMPARE(e.statements, QStringList());
        e.find<QPushButton>("cmdCloseSearch").click();
        QVERIFY(!e.hits().isVisible());
    }

    void statements()
    {
        const QString memos =
            u" SELECT tab_category.categoryID, tab_category.name as categoryName, tab_memo.memoID as memoID, "
            "tab_memo.memoName, tab_memoType.name as memoType FROM tab_memoType INNER JOIN (tab_category INNER JOIN "
            "tab_memo ON tab_category.categoryID = tab_memo.categoryID) ON tab_memoType.memoTypeID = "
            "tab_memo.memoTypeID "
            " WHERE 1 <> 1 "_s;
        Searching e;
        e.search(u" a_b "_s); // as typed, with its blanks
        QCOMPARE(
            e.statements,
            QStringList(
                {memos +
                     u"  OR ( tab_memo.memoName LIKE '% a_b %' )"
                     "  OR ( tab_memo.snipVale LIKE '% a_b %' )  OR ( tab_memo.memoNotes LIKE '% a_b %' )"_s,
                 u" SELECT tab_category.categoryID, tab_category.name as categoryName, tab_bookmark.bookmarkID, "
                 "tab_bookmark.name as bookmarkName, tab_bookmark.url, tab_bookmark.keywords, "
                 "tab_bookmark.description, "
                 "tab_bookmark.dateIn, tab_bookmark.dateLastMod  FROM tab_category INNER JOIN tab_bookmark ON "
                 "tab_category.categoryID = tab_bookmark.categoryID  WHERE 1 <> 1   OR ( tab_bookmark.name LIKE '% a_b "
                 "%' "
                 ")  OR ( tab_bookmark.description LIKE '% a_b %' )  OR ( tab_bookmark.keywords LIKE '% a_b %' )"_s,
                 u" SELECT tab_category.categoryID, tab_category.name as categoryName, tab_todo.todoID, "
                 "tab_todo.name as todoName, tab_todo.description, tab_todo.dateIn, tab_todo.dateLastMod  FROM "
                 "tab_category INNER JOIN tab_todo ON tab_category.categoryID = tab_todo.categoryID  WHERE 1 <> 1 "
                 "  OR ( tab_todo.name LIKE '% a_b %' )  OR ( tab_todo.description LIKE '% a_b %' )"_s}));
        for (const char* name : {"chkMemoName", "chkMemoNotes", "chkBookmark", "chkToDo"})
            e.box(name).setChecked(false);
        e.search(u"x"_s);
        QCOMPARE(e.statements, QStringList(memos + u"  OR ( tab_memo.snipVale LIKE '%x%' )"_s));
    }

    void hitsOfAllKinds()
    {
        Searching e;
        e.addCategory(u"20, 1, 0, 'Code Root'"_s);
        e.window.LoadTreeView();
        e.run(u"INSERT INTO tab_memo (categoryID, memoTypeID, memoName, snipVale, memoNotes) VALUES (20, 3, NULL, "
              "'qsort()', 'notes')"_s);
        e.run(u"INSERT INTO tab_bookmark (categoryID, keywords) VALUES (2, 'resorts')"_s);
        e.run(u"INSERT INTO tab_todo (categoryID, description) VALUES (3, 'SORTED')"_s);
        e.search(u"Sort"_s);
        QCOMPARE(e.texts(e.hits()).join(u'|'), u"sort memo||sort bookmark||sort todo|"_s);
        QCOMPARE(e.texts(e.hits(), 1).join(u'|'), u"Code|Code\\Code Root|Bookmarks|Bookmarks|ToDo|ToDo"_s);
        QCOMPARE(e.label("lblSearch"), u" Search: (6)"_s);
        // Nothing of a search that fails on its way is shown; and one failure is told once.
        e.add(ElementKind::Memo, {u"sort again"_s});
        e.run(u"DROP TABLE tab_todo"_s);
        e.questions.expect(QString());
        e.search(u"sort"_s);
        QVERIFY(e.questions.asked.last().text.startsWith("Error in SearchToDo: "_L1));
        e.questions.expect(QString());
        e.search(u"'; DELETE * FROM tab_memo; --"_s);
        QVERIFY(e.questions.asked.last().text.startsWith("Error in SearchMemo: "_L1));
        QCOMPARE(e.texts(e.hits()).size(), 6);
        e.check(u"chkMemo"_s);
        e.search(u"zz%' ) OR ( 1 = 1 ) OR ( 'a' LIKE '"_s);
        QCOMPARE(e.texts(e.hits()).size(), 3);
    }

    void hitsAccumulate()
    {
        const std::tuple<QString, void (SearchPane::*)(), QString> steps[] = {
            {u"chkMemo chkBookmark"_s, &SearchPane::SearchToDo, u"todo"_s},
            {u"chkMemo chkBookmark"_s, &SearchPane::SearchMemo, u"memo"_s}, // always begins anew
            {u"chkMemo"_s, &SearchPane::SearchBookmark, u"memo bookmark"_s},
            {u"chkBookmark"_s, &SearchPane::SearchBookmark, u"bookmark"_s}, // "Look in Memo" is off
            {u"chkBookmark"_s, &SearchPane::SearchToDo, u"bookmark todo"_s},
            {u"chkToDo"_s, &SearchPane::SearchToDo, u"todo"_s}};
        Searching e;
        e.text().setText(u"sort"_s);
        for (const auto& [boxes, search, hits] : steps) {
            e.check(boxes);
            (e.window.search().*search)();
            QCOMPARE(e.texts(e.hits()).join(u' ').remove(u"sort "_s), hits);
        }
    }

    void commandsAndOpening()
    {
        Searching e;
        const auto enabled = [&e] {
            return e.enabled(u"miSearchOpenElement"_s) + e.enabled(u"miSearchDeleteMemo"_s) +
                e.enabled(u"miSearchSelectElementInTreeView"_s);
        };
        e.search(u"sort"_s);
        QCOMPARE(enabled(), 0);
        e.questions.expect(u"Error: Nothing is selected"_s);
        QTest::keyClick(&e.hits(), Qt::Key_Return);
        e.hits().model()->sort(0, Qt::DescendingOrder);
        int row = 0;
        for (const ElementKind kind : {ElementKind::ToDo, ElementKind::Memo, ElementKind::Bookmark}) {
            whenModal([kind](QWidget& window) {
                window.close();
                QVERIFY(window.windowTitle().startsWith(wordsOf(kind).name));
            });
            QTest::mouseDClick(e.hits().viewport(), Qt::LeftButton, {}, e.cellAt(e.hits(), row++, 1));
            QCOMPARE(e.selected(), categoryOf(kind));
            QCOMPARE(e.list(kind).selectedKeys(), QStringList({keyOf(kind, 1)}));
            QCOMPARE(enabled(), 3);
        }
        QTest::mouseClick(e.hits().viewport(), Qt::RightButton, {}, e.below(e.hits()));
        QCOMPARE(enabled(), 0);
        e.run(u"DELETE * FROM tab_category WHERE categoryID = 1"_s);
        e.window.LoadTreeView();
        e.hits().selectKey(u"1 M_ID"_s);
        e.questions.expect(u"Error in SelectElementInTreeView: The category is no longer in the tree."_s);
        e.window.OpenSearchElement(); // and no editor
        e.window.search().hide();
        QCOMPARE(enabled(), 0);
        QVERIFY(!e.window.SelectElementInTreeView());
    }

    void deletingHits()
    {
        Searching e;
        e.add(ElementKind::Memo, {u"sort another"_s});
        e.add(ElementKind::Bookmark, {u"no match"_s});
        e.click(2);
        e.search(u"sort"_s);
        e.statements.clear();
        e.window.search().DeleteSearchMemo(); // nothing is selected: no question
        e.hits().selectKeys({u"1 M_ID"_s, u"1 B_ID"_s}, u"1 M_ID"_s);
        for (const Answer answer : {Answer::No, Answer::Yes}) {
            QCOMPARE(e.label("lblSearch"), u" Search: (4)"_s);
            e.questions.expect(deleteQuestion, answer);
            QTest::keyClick(&e.hits(), Qt::Key_Delete);
        }
        QCOMPARE(e.statements,
                 QStringList({u"DELETE * FROM tab_memo WHERE tab_memo.memoID IN ( 1) "_s,
                              u"DELETE * FROM tab_bookmark WHERE tab_bookmark.bookmarkID IN ( 1) "_s,
                              u" SELECT * FROM tab_bookmark WHERE categoryID = 2"_s}));
        QCOMPARE(e.texts(e.hits()), QStringList({u"sort another"_s, u"sort todo"_s}));
        e.loseArchive();
        e.hits().selectKey(u"2 M_ID"_s);
        e.questions.expect(deleteQuestion, Answer::Yes);
        e.questions.expect(QString());
        e.window.search().DeleteSearchMemo();
        QVERIFY(e.questions.asked.last().text.startsWith("Error in DeleteSearchMemo: "_L1));
        QCOMPARE(e.texts(e.hits()).size(), 2);
    }

    void nothingButEscapeWhileItSearches()
    {
        Searching e;
        e.search(u"sort"_s);
        e.add(ElementKind::Memo, QStringList(3000, u"x"_s));
        e.click(3);
        e.window.search().setPatience(0);
        const QPoint at = e.nodeAt(1);
        QWidget* tree = e.tree().viewport();
        for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease})
            QCoreApplication::postEvent(
                tree, new QMouseEvent(type, at, tree->mapToGlobal(at), Qt::LeftButton, Qt::LeftButton, Qt::NoModifier));
        QCoreApplication::postEvent(&e.text(), new QKeyEvent(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier, u"a"_s));
        QCoreApplication::postEvent(&e.window, new QCloseEvent);
        QCoreApplication::postEvent(&e.window, new QKeyEvent(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier));
        bool ticked = false;
        QTimer::singleShot(1, this, [&ticked] { ticked = true; });
        e.search(u"x"_s);
        QVERIFY(!ticked); // no reminder comes up
        QVERIFY(e.window.isVisible() && !QApplication::overrideCursor());
        QCOMPARE(e.text().text(), u"x"_s);
        QCOMPARE(e.selected(), 3);
        QCOMPARE(e.statements.size(), 1); // the other kinds were not looked at any more
        QCOMPARE(e.frame.status, u"The search was stopped"_s);
        QCOMPARE(e.texts(e.hits()).size(), 3);
        e.search(u"x"_s); // the next one is not stopped
        QCOMPARE(e.frame.status, u"Search -  items: 3000"_s);
    }
};

SNIPVALE_TEST(tst_SearchPane)
#include "tst_SearchPane.moc"
