// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "explorer/ui/ExplorerFixture.h"
#include "x11/RealDesktop.h"

using namespace Qt::StringLiterals;

namespace {

struct RealExplorer : DragExplorer {
    RealExplorer()
    {
        QVERIFY(QTest::qWaitForWindowActive(&window));
        show(1);
        QTRY_VERIFY(list().isVisible() && list().viewport()->width() > 300);
    }
    // Also when a test failed in the middle.
    ~RealExplorer() { QProcess::execute(u"xdotool"_s, {u"mouseup"_s, u"1"_s}); }
    QPoint memo(int row) { return list().viewport()->mapToGlobal(cellAt(list(), row)); }
    QPoint folder(int id) { return tree().viewport()->mapToGlobal(nodeAt(id)); }
};

} // namespace

// Drags with a real pointer: what only the windowing system's own loop shows. Which drop is allowed and what it does
// is tested offscreen.
class tst_RealDrag : public QObject {
    Q_OBJECT
private slots:
    // Three that are selected; then one that is not, whose press selects it; and a click afterwards is a click again.
    void memosAndCategoriesMove()
    {
        RealExplorer e;
        e.select(e.list(), 1, 3);
        realdesktop::drag(e.memo(2), e.folder(10), [&] { QCOMPARE(e.hover().marked(), e.node(10)); });
        QTRY_COMPARE(e.filedIn(10), u"2 3 4"_s);
        QVERIFY(!e.hover().marked().isValid());
        realdesktop::drag(e.memo(1), e.folder(11));
        QTRY_COMPARE(e.filedIn(11), u"5"_s);
        realdesktop::clickAt(e.folder(10));
        QTRY_COMPARE(e.category.CategoryID, 10);
        realdesktop::drag(e.folder(11), e.folder(30), [&] { QCOMPARE(e.category.CategoryID, 10); }); // no click
        QTRY_COMPARE(e.parentOf(11), u"30"_s);
        QTRY_COMPARE(e.selected(), 11);
    }

    // Over a collapsed node, which opens on the way.
    void escapeCancels()
    {
        RealExplorer e;
        e.tree().collapse(e.node(1));
        realdesktop::drag(e.memo(0), e.folder(1), [&] {
            QTRY_VERIFY(e.tree().isExpanded(e.node(1)));
            realdesktop::xdotool(realdesktop::pointerTo(e.folder(10)));
            realdesktop::xdotool(realdesktop::pointerTo(e.folder(10) + QPoint(1, 0)));
            QTRY_COMPARE(e.hover().marked(), e.node(10));
            realdesktop::xdotool({u"key"_s, u"Escape"_s});
        });
        QTRY_VERIFY(!e.hover().marked().isValid());
        QCOMPARE(e.filedIn(1), u"1 2 3 4 5"_s);
    }
};

int main(int argc, char** argv)
{
    return realdesktop::run<tst_RealDrag>(argc, argv);
}
#include "tst_RealDrag.moc"
