// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Registry.h"

#include "ui/widgets/Colors.h"
#include "ui/widgets/ListView.h"
#include "ui/widgets/ShownText.h"

#include <QtTest>
#include <QtWidgets>

using namespace Qt::StringLiterals;

namespace {

// A list of rows "row1" to "row100" with the keys "1 ID" to "100 ID", eight of which are to be seen. It writes down
// what the list asks for.
struct List {
    List()
    {
        view.setList(&model, 1);
        view.resize(300, 8 * 20);
        fill();
        view.show();
        QObject::connect(&view, &ListView::openRequested, &view, [this] { asked += "open "; });
        QObject::connect(&view, &ListView::newRequested, &view, [this] { asked += "new "; });
        QObject::connect(&view, &ListView::deleteRequested, &view, [this] { asked += "delete "; });
        QObject::connect(&view, &ListView::menuRequested, &view,
                         [this](const QPoint&, bool overItem) { asked += overItem ? "menu " : "empty menu "; });
    }
    void fill(const QList<int>& without = {})
    {
        model.clear();
        for (int i = 1; i <= 100; ++i) {
            if (without.contains(i))
                continue;
            auto* box = new QStandardItem;
            box->setCheckable(true);
            box->setData(keyOf(i), Qt::UserRole);
            model.appendRow({box, new QStandardItem(u"row"_s + QString::number(i))});
        }
    }
    static QString keyOf(int id) { return QString::number(id) + u" ID"_s; }
    // "2 3 at 3": the selected ones and the one with the focus.
    QString state() const
    {
        const QString current = view.keyOf(view.currentIndex().row()).section(u' ', 0, 0);
        return view.selectedKeys().join(u' ').remove(u" ID"_s) + u" at "_s + current;
    }
    QPoint at(int row, int column) const { return view.visualRect(model.index(row, column)).center(); }
    QByteArray whatWasAsked() { return std::exchange(asked, {}).trimmed(); }

    QStandardItemModel model;
    ListView view;
    QByteArray asked;
};

} // namespace

class tst_ListView : public QObject {
    Q_OBJECT
private slots:
    void refills()
    {
        struct Row {
            QList<int> selected, gone;
            bool wasDelete;
            QString after;
        };
        const Row rows[] = {
            {{52, 54}, {1, 53, 55}, false, u"52 54 at 54"_s},
            {{52, 54}, {52}, false, u"54 at 54"_s},
            {{54}, {54}, false, u" at 55"_s}, // its place gets the focus
            {{2, 54}, {2, 54}, true, u"55 at 55"_s},
            {{97, 99, 100}, {97, 99, 100}, true, u"98 at 98"_s},
            {{1}, {1}, true, u"2 at 2"_s},
        };
        for (const Row& row : rows) {
            List l;
            for (const int id : row.selected)
                l.view.selectKeys(l.view.selectedKeys() << List::keyOf(id), List::keyOf(id));
            l.view.verticalScrollBar()->setValue(45); // wherever the selection is
            const auto fill = [&] { l.fill(row.gone); };
            const QSignalSpy told(&l.view, &ListView::selectionMade);
            row.wasDelete ? l.view.refillAfterDelete(fill) : l.view.refill(fill);
            QCOMPARE(l.state(), row.after);
            QVERIFY(told.size() > 0);
            QCOMPARE(l.view.verticalScrollBar()->value(), 45);
            QVERIFY_THROWS_EXCEPTION(std::runtime_error, l.view.refill([] { throw std::runtime_error("unreadable"); }));
            QCOMPARE(l.state(), row.after);
            l.view.selectAll();
            l.view.refillAfterDelete([&] { l.model.clear(); });
            QCOMPARE(l.state(), u" at "_s);
        }
    }

    void keysAndPointer()
    {
        List l;
        l.view.addKey(Qt::Key_F9, [&] { l.asked += "own "; });
        for (const Qt::Key key :
             {Qt::Key_Return, Qt::Key_Enter, Qt::Key_F2, Qt::Key_Insert, Qt::Key_Delete, Qt::Key_F9}) {
            QKeyEvent before(QEvent::ShortcutOverride, key, {}); // the list's, although the frame has such a command
            before.ignore();
            QApplication::sendEvent(&l.view, &before);
            QVERIFY(before.isAccepted());
            QTest::keyClick(&l.view, key);
        }
        QTest::mouseDClick(l.view.viewport(), Qt::LeftButton, {}, l.at(2, 1));
        QTest::mouseDClick(l.view.viewport(), Qt::RightButton, {}, l.at(2, 1));
        QCOMPARE(l.state(), u"3 at 3"_s);
        QContextMenuEvent byKey(QContextMenuEvent::Keyboard, {}, {});
        QApplication::sendEvent(&l.view, &byKey);
        l.view.selectKey(u"nobody's"_s); // selects nothing
        QApplication::sendEvent(&l.view, &byKey);
        l.model.clear();
        const QPoint below(20, l.view.viewport()->height() - 5);
        QTest::mouseClick(l.view.viewport(), Qt::RightButton, {}, below);
        QTest::mouseDClick(l.view.viewport(), Qt::LeftButton, {}, below);
        QCOMPARE(l.whatWasAsked(), "open open open new delete own open menu empty menu empty menu new");
    }

    void checkBoxesAndTyping()
    {
        List l;
        QTest::mouseClick(l.view.viewport(), Qt::LeftButton, {}, l.at(1, 1));
        QTest::keyClick(&l.view, Qt::Key_Space); // wherever in the row the focus is
        QCOMPARE(l.model.item(1)->checkState(), Qt::Checked);
        QTest::mouseDClick(l.view.viewport(), Qt::LeftButton, {}, l.at(1, 0));
        QCOMPARE(l.whatWasAsked(), ""); // two ticks
        l.model.item(1)->setText(u"row7 is no name"_s);
        QTest::mouseDClick(l.view.viewport(), Qt::LeftButton, {}, l.at(1, 0));
        QCOMPARE(l.whatWasAsked(), "open"); // beside the box
        QTest::keyClicks(&l.view, u"row7"_s);
        QCOMPARE(l.state(), u"7 at 7"_s);
    }

    void oddCharactersAndColors()
    {
        const List l;
        const auto* cells = static_cast<const QStyledItemDelegate*>(l.view.itemDelegate());
        QCOMPARE(cells->displayText(u"a\tb\nc\u2028d\u202Ee\u2066f\u200Fg\x07h\u0085i"_s, {}), u"a b c d e f g h i"_s);
        QCOMPARE(cells->displayText(QString(1'000'000, u'x'), {}).size(), 1000);
        QCOMPARE(shownHeading(u"\n\n one \n\r\n two\a\u202E"_s), u"one - two"_s);
        QVERIFY(plainToolTip(u"R&D <b>\u202E\r\nserver"_s).contains(u">R&amp;D &lt;b&gt; \nserver<"_s));
        QVERIFY(plainToolTip(QString(2000, u'x')).contains(u'…') && plainToolTip(QString()).isEmpty());
        QCOMPARE(colorOfNumber(0x00FF8001), QColor(0x01, 0x80, 0xFF));
        QCOMPARE(numberOfColor(QColor(0x01, 0x80, 0xFF)), 0x00FF8001U);
    }
};

SNIPVALE_TEST(tst_ListView)
#include "tst_ListView.moc"
