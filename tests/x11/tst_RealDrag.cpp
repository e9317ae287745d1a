// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "explorer/ui/DragFixture.h"
#include "x11/RealDesktop.h"
#include "x11/RealPointer.h"

using namespace Qt::StringLiterals;

// Drags with a real pointer: what only the windowing system's own loop shows. Which drop is allowed and what it does
// is tested offscreen.
class tst_RealDrag : public QObject {
    Q_OBJECT
private slots:
    void init();
    void cleanup();
    void memosMove();
    void oneMemoMovesAtOnce();
    void aCategoryMoves();
    void aRefusedDropIsTold();
    void escapeCancels();
    void collapsedNodesOpenOnTheWay();
    void clicksAfterADrag();

private:
    QPoint memo(int row) { return onScreen(list(), DragExplorer::rowAt(list(), row)); }
    QPoint node(int id) { return onScreen(m_e->tree(), m_e->nodeAt(id)); }
    ElementListView& list() { return m_e->list("lvwMemo"); }
    static QPoint onScreen(QAbstractItemView& view, const QPoint& at) { return view.viewport()->mapToGlobal(at); }
    static void click(const QPoint& at)
    {
        realpointer::xdotool(realpointer::pointerTo(at) + QStringList{u"click"_s, u"1"_s});
    }

    std::unique_ptr<DragExplorer> m_e;
};

void tst_RealDrag::init()
{
    m_e = std::make_unique<DragExplorer>();
    QVERIFY(QTest::qWaitForWindowActive(&m_e->window));
    m_e->show(1);
    QTRY_VERIFY(list().isVisible() && list().viewport()->width() > 300);
}

void tst_RealDrag::cleanup()
{
    QProcess::execute(u"xdotool"_s, {u"mouseup"_s, u"1"_s}); // also when a test failed in the middle
    m_e.reset();
}

void tst_RealDrag::memosMove()
{
    m_e->select(list(), 1, 3);
    realpointer::drag(memo(2), node(10), [&] {
        QCOMPARE(m_e->hover().marked(), m_e->node(10));
        QCOMPARE(m_e->frame.status, u"Dragging memo elements ..."_s);
        QCOMPARE(list().selectedKeys().size(), 3);
    });
    QTRY_COMPARE(m_e->frame.status, u"Memo -  items: 2"_s);
    QCOMPARE(m_e->memosIn(10), u"2 3 4"_s);
    QCOMPARE(m_e->window.selectedKey(), u"1 ID"_s);
    QCOMPARE(m_e->section(), u"lvwMemo"_s);
    QVERIFY(!m_e->hover().marked().isValid());
}

// The press selects the item and the same movement drags it.
void tst_RealDrag::oneMemoMovesAtOnce()
{
    m_e->select(list(), 1, 3);
    realpointer::drag(memo(4), node(11), [] {});
    QTRY_COMPARE(m_e->memosIn(11), u"5"_s);
}

void tst_RealDrag::aCategoryMoves()
{
    realpointer::drag(node(11), node(30), [&] {
        QCOMPARE(m_e->frame.status, u"Dragging category element 'innermost' ..."_s);
        QCOMPARE(m_e->section(), u"lvwMemo"_s); // nothing was clicked so far
        QCOMPARE(m_e->category.CategoryID, 1);
    });
    QTRY_COMPARE(m_e->parentOf(11), u"30"_s);
    QTRY_COMPARE(m_e->frame.status, u"Memo - items: 0"_s);
    QCOMPARE(m_e->window.selectedKey(), u"11 ID"_s);
    QCOMPARE(m_e->category.CategoryID, 11);
}

void tst_RealDrag::aRefusedDropIsTold()
{
    m_e->questions.expect(u"Drop not allowed here\r\nMoving into a ToDo folder you must select a ToDo item."_s);
    realpointer::drag(memo(0), node(30), [] {});
    QTRY_COMPARE(m_e->questions.asked.size(), 1);
    m_e->questions.expect(u"Cannot move Code: The destination folder is a subfolder of the source folder!"_s);
    realpointer::drag(node(1), node(11), [] {});
    QTRY_COMPARE(m_e->questions.asked.size(), 2);
    QCOMPARE(m_e->memosIn(1), u"1 2 3 4 5"_s);
    QCOMPARE(m_e->parentOf(1), u"0"_s);
}

void tst_RealDrag::escapeCancels()
{
    realpointer::drag(memo(0), node(10), [&] {
        QCOMPARE(m_e->hover().marked(), m_e->node(10));
        realpointer::xdotool({u"key"_s, u"Escape"_s});
    });
    QTRY_COMPARE(m_e->frame.status, u"Memo -  items: 5"_s);
    QVERIFY(!m_e->hover().marked().isValid());
    QTest::qWait(100);
    QCOMPARE(m_e->memosIn(1), u"1 2 3 4 5"_s);
    QCOMPARE(m_e->window.selectedKey(), u"1 ID"_s);
}

void tst_RealDrag::collapsedNodesOpenOnTheWay()
{
    m_e->tree().collapse(m_e->node(1));
    realpointer::drag(memo(0), node(1), [&] {
        QTRY_VERIFY(m_e->tree().isExpanded(m_e->node(1)));
        realpointer::xdotool(realpointer::pointerTo(node(10)) + realpointer::pointerTo(node(10) + QPoint(1, 0)));
        QTRY_COMPARE(m_e->hover().marked(), m_e->node(10));
    });
    QTRY_COMPARE(m_e->memosIn(10), u"1"_s);
}

void tst_RealDrag::clicksAfterADrag()
{
    realpointer::drag(memo(0), node(10), [] {});
    QTRY_COMPARE(m_e->memosIn(10), u"1"_s);
    click(node(10));
    QTRY_COMPARE(m_e->category.CategoryID, 10);
    QCOMPARE(list().model()->rowCount(), 1);
    click(node(30));
    QTRY_COMPARE(m_e->section(), u"picToDo"_s);
}

int main(int argc, char** argv)
{
    if (!qEnvironmentVariableIsSet("SNIPVALE_REAL_DESKTOP")) {
        QCoreApplication app(argc, argv);
        return realdesktop::rerun();
    }
    QApplication app(argc, argv);
    QTEST_SET_MAIN_SOURCE_PATH
    tst_RealDrag test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_RealDrag.moc"
