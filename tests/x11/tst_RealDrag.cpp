// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "explorer/ui/ExplorerFixture.h"
#include "x11/RealDesktop.h"

using namespace Qt::StringLiterals;

// Drags with a real pointer: what only the windowing system's own loop shows. Which drop is allowed and what it does
// is tested offscreen.
class tst_RealDrag : public QObject {
    Q_OBJECT
private slots:
    void init();
    void cleanup();
    void memosMove();
    void aCategoryMoves();
    void escapeCancels();

private:
    QPoint memo(int row) { return onScreen(list(), DragExplorer::cellAt(list(), row)); }
    QPoint node(int id) { return onScreen(m_e->tree(), m_e->nodeAt(id)); }
    ListView& list() { return m_e->list(); }
    static QPoint onScreen(QAbstractItemView& view, const QPoint& at) { return view.viewport()->mapToGlobal(at); }

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

// Three that are selected; then one that is not, whose press selects it; and a click afterwards is a click again.
void tst_RealDrag::memosMove()
{
    m_e->select(list(), 1, 3);
    realdesktop::drag(memo(2), node(10), [&] {
        QCOMPARE(m_e->hover().marked(), m_e->node(10));
        QCOMPARE(m_e->frame.status, u"Dragging memo elements ..."_s);
    });
    QTRY_COMPARE(m_e->frame.status, u"Memo -  items: 2"_s);
    QCOMPARE(m_e->filedIn(10), u"2 3 4"_s);
    QVERIFY(!m_e->hover().marked().isValid());
    realdesktop::drag(memo(1), node(11));
    QTRY_COMPARE(m_e->filedIn(11), u"5"_s);
    realdesktop::clickAt(node(10));
    QTRY_COMPARE(m_e->category.CategoryID, 10);
    QCOMPARE(list().model()->rowCount(), 3);
}

void tst_RealDrag::aCategoryMoves()
{
    realdesktop::drag(node(11), node(30), [&] {
        QCOMPARE(m_e->frame.status, u"Dragging category element 'innermost' ..."_s);
        QCOMPARE(m_e->category.CategoryID, 1); // nothing was clicked so far
    });
    QTRY_COMPARE(m_e->parentOf(11), u"30"_s);
    QTRY_COMPARE(m_e->selected(), 11);
}

// Over a collapsed node, which opens on the way.
void tst_RealDrag::escapeCancels()
{
    m_e->tree().collapse(m_e->node(1));
    realdesktop::drag(memo(0), node(1), [&] {
        QTRY_VERIFY(m_e->tree().isExpanded(m_e->node(1)));
        realdesktop::xdotool(realdesktop::pointerTo(node(10)) + realdesktop::pointerTo(node(10) + QPoint(1, 0)));
        QTRY_COMPARE(m_e->hover().marked(), m_e->node(10));
        realdesktop::xdotool({u"key"_s, u"Escape"_s});
    });
    QTRY_COMPARE(m_e->frame.status, u"Memo -  items: 5"_s);
    QVERIFY(!m_e->hover().marked().isValid());
    QCOMPARE(m_e->filedIn(1), u"1 2 3 4 5"_s);
}

int main(int argc, char** argv)
{
    return realdesktop::run<tst_RealDrag>(argc, argv);
}
#include "tst_RealDrag.moc"
