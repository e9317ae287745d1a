// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Registry.h"
#include "support/UiSupport.h"

#include "explorer/ui/BookmarkListModel.h"
#include "explorer/ui/MemoListModel.h"
#include "explorer/ui/ReportIcons.h"
#include "explorer/ui/SearchListModel.h"
#include "explorer/ui/ToDoListModel.h"
#include "tasks/modToDo.h"
#include "ui/widgets/Icons.h"

#include <QAbstractItemModelTester>
#include <QGuiApplication>
#include <QPalette>
#include <QtTest>
#include <algorithm>
#include <random>

using namespace Qt::StringLiterals;

namespace {

QStringList rowOf(const QAbstractItemModel& model, int row)
{
    QStringList cells;
    for (int column = 0; column < model.columnCount(); ++column)
        cells.append(model.index(row, column).data().toString());
    return cells;
}

QStringList titlesOf(const QAbstractItemModel& model)
{
    QStringList titles;
    for (int column = 0; column < model.columnCount(); ++column)
        titles.append(model.headerData(column, Qt::Horizontal, Qt::DisplayRole).toString());
    return titles;
}

void run(Archive& archive, const QString& sql)
{
    ArchiveUnit unit(archive);
    unit.Execute(sql);
}

int paintedPixels(const QIcon& icon)
{
    const QImage image = icon.pixmap(QSize(16, 16), 1.0).toImage();
    int painted = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            painted += qAlpha(image.pixel(x, y)) > 100;
    return painted;
}

} // namespace

class tst_ElementLists : public QObject {
    Q_OBJECT
private slots:
    void bookmarks();
    void toDos();
    void toDoCodes_data();
    void toDoCodes();
    void checkBoxOnlyTells();
    void hits();
    void nullRows();
    void everyPictureCanBeSeen();
    void sortingIsThatOfTheTexts_data();
    void sortingIsThatOfTheTexts();
};

void tst_ElementLists::bookmarks()
{
    UiFixture f;
    run(f.archive,
        u"INSERT INTO tab_bookmark (categoryID, name, url, description) VALUES (2, 'b''s', "
        "'https://x.org/?a=1&b=<2>', 'one\r\ntwo\nthree\r\r\n')"_s);
    run(f.archive, u"INSERT INTO tab_bookmark (categoryID, name) VALUES (1, 'elsewhere')"_s);
    BookmarkListModel model;
    const QAbstractItemModelTester tester(&model);
    std::vector<BookmarkRow> rows;
    readBookmarkRows(f.archive, 2, rows);
    model.setRows(rows);
    QCOMPARE(titlesOf(model), QStringList({u"Bookmark name"_s, u"Link"_s, u"Description"_s}));
    QCOMPARE(model.rowCount(), 1);
    QCOMPARE(rowOf(model, 0), QStringList({u"b's"_s, u"https://x.org/?a=1&b=<2>"_s, u"one - two - three -  - "_s}));
    QCOMPARE(model.index(0, 1).data(Qt::UserRole).toString(), u"1 B_ID"_s);
    QCOMPARE(model.index(0, 0).data(Qt::UserRole + 1).toString(), u"bookmark"_s);
    // A tip is plain text, whatever it looks like.
    QCOMPARE(model.index(0, 1).data(Qt::ToolTipRole).toString(),
             u"<p style='white-space:pre-wrap'>https://x.org/?a=1&amp;b=&lt;2&gt;</p>"_s);
}

void tst_ElementLists::toDos()
{
    UiFixture f;
    run(f.archive,
        u"INSERT INTO tab_todo (categoryID, name, priority, status, percentComplete, dueDate, alarmOn, done) "
        "VALUES (3, 'pay', 6, 2, 40, '2026-3-1 8:0:0', 1, 1)"_s);
    ToDoListModel model;
    const QAbstractItemModelTester tester(&model);
    std::vector<ToDoRow> rows;
    readToDoRows(f.archive, 3, rows);
    model.setRows(rows);
    QCOMPARE(titlesOf(model),
             QStringList({u"Done"_s, u"Name"_s, u"Priority"_s, u"Percent"_s, u"Status"_s, u"Due Date"_s}));
    const QString due = QLocale().toString(QDate(2026, 3, 1), QLocale::ShortFormat);
    QCOMPARE(rowOf(model, 0), QStringList({QString(), u"pay"_s, u"Urgent"_s, u"40 %"_s, u"In progress"_s, due}));
    QCOMPARE(model.index(0, 0).data(Qt::UserRole).toString(), u"1 T_ID"_s);
    QCOMPARE(model.index(0, 0).data(Qt::UserRole + 1).toString(), u"todo"_s);
    QCOMPARE(model.index(0, 0).data(Qt::CheckStateRole).toInt(), int(Qt::Checked));
    QVERIFY(!model.index(0, 1).data(Qt::CheckStateRole).isValid());
    QVERIFY(!model.index(0, 1).data(Qt::DecorationRole).value<QIcon>().isNull()); // the alarm
    model.setRows({{1, false, false, u"quiet"_s, 0, 0, -5, {}}});
    QCOMPARE(rowOf(model, 0).at(ToDoListModel::PercentColumn), u"-5 %"_s); // nothing stops it in the editor
    QVERIFY(model.index(0, 1).data(Qt::DecorationRole).value<QIcon>().isNull());
    QCOMPARE(model.index(0, 0).data(Qt::CheckStateRole).toInt(), int(Qt::Unchecked));
}

void tst_ElementLists::toDoCodes_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("text");
    const char* priorities[] = {"", "Lowest", "Low", "Normal", "High", "Highest", "Urgent", ""};
    const char* statuses[] = {"", "Created", "In progress", "Completed", "Paused", "Cancelled", "", ""};
    for (int code = -1; code < 7; ++code) {
        QTest::addRow("priority %d", code < 0 ? 7 : code)
            << int(ToDoListModel::PriorityColumn) << code << QString::fromLatin1(priorities[code < 0 ? 0 : code]);
        QTest::addRow("status %d", code < 0 ? 7 : code)
            << int(ToDoListModel::StatusColumn) << code << QString::fromLatin1(statuses[code < 0 ? 0 : code]);
    }
}

void tst_ElementLists::toDoCodes()
{
    QFETCH(int, column);
    QFETCH(int, code);
    QFETCH(QString, text);
    ToDoListModel model;
    model.setRows({{1, false, false, u"x"_s, qint16(code), qint16(code), 0, {}}});
    const QModelIndex cell = model.index(0, column);
    QCOMPARE(cell.data().toString(), text);
    QCOMPARE(cell.data(Qt::DecorationRole).value<QIcon>().isNull(), text.isEmpty());
}

void tst_ElementLists::checkBoxOnlyTells()
{
    ToDoListModel model;
    model.setRows({{7, false, false, u"x"_s, 0, 0, 0, {}}, {9, true, false, u"y"_s, 0, 0, 0, {}}});
    QSignalSpy told(&model, &ToDoListModel::doneToggled);
    QVERIFY(model.setData(model.index(1, 0), Qt::Unchecked, Qt::CheckStateRole));
    QVERIFY(model.setData(model.index(0, 0), Qt::Checked, Qt::CheckStateRole));
    QVERIFY(!model.setData(model.index(0, 1), Qt::Checked, Qt::CheckStateRole));
    QVERIFY(!model.setData(model.index(0, 0), u"text"_s, Qt::EditRole));
    QCOMPARE(told, QList<QVariantList>({{9, false}, {7, true}}));
    QCOMPARE(model.index(0, 0).data(Qt::CheckStateRole).toInt(), int(Qt::Unchecked)); // until the list is filled again
    QVERIFY(model.flags(model.index(0, 0)) & Qt::ItemIsUserCheckable);
    QVERIFY(!(model.flags(model.index(0, 1)) & Qt::ItemIsUserCheckable));
}

void tst_ElementLists::hits()
{
    SearchListModel model([](qint32 category) { return u"path %1"_s.arg(category); });
    const QAbstractItemModelTester tester(&model);
    model.setHits({{ElementKind::ToDo, 5, 3, u"c"_s, {}},
                   {ElementKind::Memo, 5, 1, u"a"_s, u"SQL"_s},
                   {ElementKind::Bookmark, 5, 2, u"b"_s, {}}});
    QCOMPARE(titlesOf(model), QStringList({u"Memo"_s, u"Category"_s, u"Type"_s}));
    QCOMPARE(rowOf(model, 1), QStringList({u"a"_s, u"path 1"_s, u"SQL"_s}));
    // One number, three elements.
    QCOMPARE(model.rowOf(u"5 T_ID"_s), 0);
    QCOMPARE(model.rowOf(u"5 M_ID"_s), 1);
    QCOMPARE(model.rowOf(u"5 B_ID"_s), 2);
    QCOMPARE(model.keyOf(2), u"5 B_ID"_s);
    model.sort(0, Qt::AscendingOrder);
    QStringList tags;
    for (int row = 0; row < 3; ++row) {
        tags.append(model.index(row, 0).data(Qt::UserRole + 1).toString());
        tags.append(model.index(row, 1).data(Qt::UserRole + 1).toString());
        QVERIFY(!model.index(row, 0).data(Qt::DecorationRole).value<QIcon>().isNull());
    }
    QCOMPARE(tags, QStringList({u"MEMO"_s, u"1 ID"_s, u"BOOKMARK"_s, u"2 ID"_s, u"TODO"_s, u"3 ID"_s}));
    QCOMPARE(model.hitAt(0).name, u"a"_s);
    QCOMPARE(model.hits().front().name, u"c"_s); // the search's own order stays
}

void tst_ElementLists::nullRows()
{
    UiFixture f;
    run(f.archive, u"INSERT INTO tab_bookmark (categoryID) VALUES (2)"_s);
    run(f.archive, u"INSERT INTO tab_todo (categoryID) VALUES (3)"_s);
    run(f.archive, u"INSERT INTO tab_memo (categoryID) VALUES (1)"_s);
    std::vector<BookmarkRow> bookmarkRows;
    readBookmarkRows(f.archive, 2, bookmarkRows);
    BookmarkListModel bookmarks;
    bookmarks.setRows(bookmarkRows);
    QCOMPARE(rowOf(bookmarks, 0), QStringList({QString(), QString(), QString()}));
    std::vector<ToDoRow> toDoRows;
    readToDoRows(f.archive, 3, toDoRows);
    ToDoListModel toDos;
    toDos.setRows(toDoRows);
    QCOMPARE(rowOf(toDos, 0).join(u'|'), u"|||||"_s);
    std::vector<MemoRow> memoRows;
    readMemoRows(f.archive, 1, memoRows);
    MemoListModel memos;
    memos.setRows(memoRows);
    QCOMPARE(rowOf(memos, 0).join(u'|'), u"||"_s);
}

void tst_ElementLists::everyPictureCanBeSeen()
{
    const QPalette usual = QGuiApplication::palette();
    QPalette dark = usual;
    dark.setColor(QPalette::Window, Qt::black);
    dark.setColor(QPalette::WindowText, Qt::white);
    for (const QPalette& palette : {usual, dark}) {
        QGuiApplication::setPalette(palette);
        setUpIconTheme();
        for (const QString& key : {u"memo"_s, u"bookmark"_s, u"todo"_s, u"alarm"_s})
            QVERIFY2(paintedPixels(reportIcon(key)) > 15, qPrintable(key));
        for (int code = 1; code <= PriorityUrgent; ++code)
            QVERIFY2(paintedPixels(reportIcon(priorityImage(code))) > 15, qPrintable(priorityImage(code)));
        for (int code = 1; code <= StatusCancelled; ++code)
            QVERIFY2(paintedPixels(reportIcon(statusImage(code))) > 15, qPrintable(statusImage(code)));
    }
    QGuiApplication::setPalette(usual);
    setUpIconTheme();
    QVERIFY(reportIcon(QString()).isNull());
}

void tst_ElementLists::sortingIsThatOfTheTexts_data()
{
    QTest::addColumn<QString>("alphabet");
    QTest::addColumn<QString>("start");
    QTest::newRow("letters and none at all") << u"aAbB"_s << QString();
    QTest::newRow("all begin alike") << u"aAbBzZ"_s << u"Memo number "_s;
    QTest::newRow("accents, Greek, beyond the basic plane") << u"eéÉΣσςЖж\U00010400\U00010428"_s << u"é"_s;
    QTest::newRow("NUL and the highest unit") << u"a\uFFFF"_s + QChar(0) << u"x"_s;
}

void tst_ElementLists::sortingIsThatOfTheTexts()
{
    QFETCH(QString, alphabet);
    QFETCH(QString, start);
    std::mt19937 random(7);
    const QList<uint> letters = alphabet.toUcs4();
    std::vector<MemoRow> rows;
    for (int id = 0; id < 400; ++id) {
        QString name = start;
        for (auto n = random() % 7; n > 0; --n)
            name += QChar::fromUcs4(letters[qsizetype(random() % size_t(letters.size()))]);
        rows.push_back({id, name, {}, {}});
    }
    MemoListModel model;
    model.setRows(rows);
    for (const Qt::SortOrder order : {Qt::DescendingOrder, Qt::AscendingOrder}) {
        std::vector<MemoRow> expected = rows;
        std::stable_sort(expected.begin(), expected.end(), [order](const MemoRow& a, const MemoRow& b) {
            const int comparison = QString::compare(a.name.toCaseFolded(), b.name.toCaseFolded());
            return order == Qt::AscendingOrder ? comparison < 0 : comparison > 0;
        });
        model.sort(0, order);
        for (int row = 0; row < model.rowCount(); ++row)
            QCOMPARE(model.keyOf(row), QString::number(expected[size_t(row)].id) + u" M_ID"_s);
    }
}

SNIPVALE_TEST(tst_ElementLists)
#include "tst_ElementLists.moc"
