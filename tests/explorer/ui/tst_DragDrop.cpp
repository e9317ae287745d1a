// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "explorer/ui/ExplorerFixture.h"
#include "support/Registry.h"

#include "explorer/ui/DragDrop.h"

#include <QDrag>
#include <QMimeData>
#include <QScrollBar>
#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

constexpr Qt::DropActions MoveOrLink = Qt::MoveAction | Qt::LinkAction;

// The action that a view answers to a drag at a place; IgnoreAction when it does not take it.
Qt::DropAction over(QWidget& viewport, const QPoint& at, const QMimeData& data)
{
    QDragEnterEvent enter(at, MoveOrLink, &data, Qt::LeftButton, {});
    QApplication::sendEvent(&viewport, &enter);
    if (!enter.isAccepted())
        return Qt::IgnoreAction;
    QDragMoveEvent move(at, MoveOrLink, &data, Qt::LeftButton, {});
    QApplication::sendEvent(&viewport, &move);
    return move.isAccepted() ? move.dropAction() : Qt::IgnoreAction;
}

// Ends what over() began; the toolkit keeps the view of a drag that never ends.
void drop(QWidget& viewport, const QPoint& at, const QMimeData& data)
{
    over(viewport, at, data);
    QDropEvent event(at, MoveOrLink, &data, Qt::LeftButton, {});
    QApplication::sendEvent(&viewport, &event);
}

// Presses on a place, pulls far enough and lets go. `during` stands in for the drag's own loop, which there is none
// of offscreen.
void pull(DragExplorer& e, QAbstractItemView& view, const QPoint& from,
          const std::function<void(const QMimeData&)>& during)
{
    QWidget& viewport = *view.viewport();
    bool wasDragged = false;
    e.window.findChild<DragDrop*>()->runDrag = [&](QDrag& drag) {
        wasDragged = true;
        during(*drag.mimeData());
        drag.deleteLater();
    };
    QTest::mousePress(&viewport, Qt::LeftButton, {}, from);
    for (int distance = 3; distance < 30 && !wasDragged; distance += 4) {
        const QPoint at = from + QPoint(distance, 0);
        QMouseEvent move(QEvent::MouseMove, at, viewport.mapToGlobal(at), Qt::NoButton, Qt::LeftButton, {});
        QApplication::sendEvent(&viewport, &move);
    }
    QTest::mouseRelease(&viewport, Qt::LeftButton, {}, from);
    QVERIFY(wasDragged);
}

void pullTo(DragExplorer& e, QAbstractItemView& view, const QPoint& from, int category)
{
    pull(e, view, from, [&](const QMimeData& data) { drop(*e.tree().viewport(), e.nodeAt(category), data); });
}

} // namespace

class tst_DragDrop : public QObject {
    Q_OBJECT
private slots:
    void elementsMove()
    {
        DragExplorer e;
        for (const ElementKind kind : elementKinds) {
            const int from = categoryOf(kind);
            const int to = from * 10;
            ListView& view = e.list(kind);
            e.show(from);
            e.select(view, 1, 2);
            pull(e, view, e.cellAt(view, 2), [&](const QMimeData& data) {
                QCOMPARE(e.frame.status, u"Dragging %1 elements ..."_s.arg(wordsOf(kind).inDrag));
                QCOMPARE(over(*e.tree().viewport(), e.nodeAt(to), data), Qt::MoveAction);
                drop(*e.tree().viewport(), e.nodeAt(to), data);
            });
            QCOMPARE(e.filedIn(to, kind), u"2 3"_s);
            QVERIFY(e.frame.status.endsWith(kind == ElementKind::Memo ? u" -  items: 3"_s : u" -  items: 1"_s));
            QCOMPARE(e.selected(), from);
        }
    }

    // The press and the moves before the drag leave a selection of several as it is; a press on another item drags
    // that.
    void selectionsAndClicks()
    {
        DragExplorer e;
        ListView& list = e.list();
        e.show(1);
        e.select(list, 0, 2);
        pull(e, list, e.cellAt(list, 1), [&](const QMimeData&) { QCOMPARE(list.selectedKeys().size(), 3); });
        QCOMPARE(list.selectedKeys().size(), 3); // nor does a drag to nowhere
        pullTo(e, list, e.cellAt(list, 4), 10);
        QCOMPARE(e.filedIn(10), u"5"_s);
        e.select(list, 0, 2);
        pullTo(e, e.tree(), e.nodeAt(0), 11); // the top takes no memos along
        QCOMPARE(e.filedIn(11), QString());
        // Clicks after a drag are still clicks.
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, e.cellAt(list, 1)); // of three: it alone
        QCOMPARE(list.selectedKeys().size(), 1);
    }

    void categoriesMove()
    {
        DragExplorer e;
        e.show(3);
        e.tree().collapse(e.node(2));
        pullTo(e, e.tree(), e.nodeAt(10), 30); // another kind
        QCOMPARE(e.parentOf(10), u"30"_s);
        QCOMPARE(e.model().fullPath(e.node(11)), u"Code Root\\ToDo\\later\\inner\\innermost"_s);
        QCOMPARE(e.selected(), 10);
        QVERIFY(e.tree().isExpanded(e.node(10)) && !e.tree().isExpanded(e.node(2))); // as they were before
        e.show(3);
        e.questions.expect(u"Cannot move later: The destination folder is a subfolder of the source folder!"_s);
        pullTo(e, e.tree(), e.nodeAt(30), 11);
        QCOMPARE(e.selected(), 3); // the shown one, not the pressed one
        QCOMPARE(e.parentOf(30), u"3"_s);
        e.questions.expect(u"You Cannot move Root element!"_s);
        pullTo(e, e.tree(), e.nodeAt(0), 10);
    }

    void refusedAndToNowhere()
    {
        DragExplorer e;
        ListView& list = e.list();
        QWidget& viewport = *e.tree().viewport();
        e.show(1);
        pull(e, e.tree(), e.nodeAt(30),
             [&](const QMimeData& data) { over(viewport, e.nodeAt(10), data); }); // cancelled
        QCOMPARE(e.frame.status, u"Memo - items: 5"_s);
        QCOMPARE(e.selected(), 1);
        e.select(list, 1, 2);
        e.questions.expect(u"Drop not allowed in root folder"_s);
        pull(e, list, e.cellAt(list, 1), [&](const QMimeData& data) {
            QCOMPARE(over(viewport, e.nodeAt(20), data), Qt::LinkAction); // the pointer forbids
            drop(viewport, e.nodeAt(0), data);
            QVERIFY(e.questions.asked.isEmpty()); // the message waits for the end of the drag
        });
        QCOMPARE(list.selectedKeys(), QStringList({u"2 M_ID"_s, u"3 M_ID"_s}));
        QMimeData otherProcess;
        pull(e, list, e.cellAt(list, 0), [&](const QMimeData& data) {
            const QPoint empty(60, viewport.height() - 5);
            QCOMPARE(over(*list.viewport(), QPoint(20, 20), data), Qt::IgnoreAction); // a list takes nothing
            otherProcess.setData(data.formats().first(), "1");
            drop(viewport, e.nodeAt(10), otherProcess);
            drop(viewport, empty, data);
        });
        QCOMPARE(over(viewport, e.nodeAt(10), otherProcess), Qt::IgnoreAction);
        QCOMPARE(e.filedIn(1), u"1 2 3 4 5"_s);
    }

    void failures()
    {
        DragExplorer e;
        ListView& list = e.list();
        e.show(1);
        const QString path = e.archive.ArchivePath();
        e.loseArchive();
        e.questions.expect(QString()); // once is enough
        pullTo(e, list, e.cellAt(list, 0), 11);
        QVERIFY(e.questions.asked.last().text.startsWith("Error in tvTreeView_OLEDragDrop: "_L1));
        QCOMPARE(e.selected(), 1);
        QCOMPARE(list.model()->rowCount(), 5);
        e.archive.setPath(path);
        pullTo(e, list, e.cellAt(list, 0), 11); // and it works again
        QCOMPARE(e.filedIn(11), u"1"_s);
    }
};

SNIPVALE_TEST(tst_DragDrop)
#include "tst_DragDrop.moc"
