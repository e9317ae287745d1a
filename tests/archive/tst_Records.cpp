// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/CoreSupport.h"
#include "support/Registry.h"

#include "memo/cBookmark.h"
#include "memo/cMemo.h"
#include "tasks/cAlarm.h"
#include "tasks/cToDo.h"
#include "tasks/modToDo.h"

#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

const QString odd = u" O'Hara's \"x\"; DROP TABLE tab_memo --\r\nПривет 世界 שלום \U0001F600\rנ\n\t#1# %_[] a\u00A0b"_s;

// Each text of a full record begins with a number of its own.
cMemo makeMemo(Archive& archive, bool isFull)
{
    cMemo memo(archive);
    memo.CategoryID = 1;
    memo.MemoTypeID = 3;
    if (isFull) {
        memo.MemoName = u'1' + odd;
        memo.MemoDescription = u'2' + odd;
        memo.MemoLink = u'3' + odd;
        memo.SnipVale = u'4' + odd + odd;
        memo.MemoNotes = u'5' + odd;
        memo.MemoOpeningState = 2;
    }
    return memo;
}

cBookmark makeBookmark(Archive& archive, bool isFull)
{
    cBookmark bookmark(archive);
    bookmark.CategoryID = 1;
    if (isFull) {
        bookmark.BookmarkName = u'1' + odd;
        bookmark.BookmarkKeywords = u'2' + odd;
        bookmark.BookmarkDescription = u'3' + odd;
        bookmark.BookmarkLink = u'4' + odd;
    }
    return bookmark;
}

cToDo makeToDo(Archive& archive, bool isFull)
{
    cToDo todo(archive);
    todo.CategoryID = 1;
    if (isFull) {
        todo.ToDoName = u'1' + odd;
        todo.ToDoDescription = u'2' + odd;
        todo.Resources = u'3' + odd;
        todo.StartDate = QDate(2024, 2, 29);
        todo.DueDate = QDate(2024, 12, 31);
        todo.EndDate = QDate(2025, 1, 1);
        todo.AlarmDate = {QDate(2024, 3, 7), QTime(9, 5, 59)};
        todo.PercentComplete = 40;
        todo.Priority = 6;
        todo.Status = 2;
        todo.AlarmOn = true;
    }
    return todo;
}

struct Kind {
    QString word, table, key;
    QString columns; // all but the key and the stamps
    QString routine; // of Save
    QString afterNull; // of a full record that a row of Null was read over
};

const Kind kinds[] = {
    {u"memo"_s, u"tab_memo"_s, u"memoID"_s,
     u"categoryID, memoTypeID, memoName, memoDescription, memoLink, snipVale, memoNotes, openingState"_s, u"Save"_s,
     u"1|3||||||0"_s},
    {u"bookmark"_s, u"tab_bookmark"_s, u"bookmarkID"_s, u"categoryID, name, keywords, description, url"_s, u"Save"_s,
     u"1||||"_s},
    {u"to-do"_s, u"tab_todo"_s, u"todoID"_s,
     u"categoryID, name, description, resources, startDate, dueDate, endDate, alarmDate, percentComplete, priority, status, alarmOn, done"_s,
     u"ToDo.Save"_s, u"1||||||||40|6|2|0|0"_s},
};

struct Records : StartedArchive {
    std::unique_ptr<ElementRecord> make(const Kind& kind, bool isFull)
    {
        if (kind.word == u"memo"_s)
            return std::make_unique<cMemo>(makeMemo(archive, isFull));
        if (kind.word == u"bookmark"_s)
            return std::make_unique<cBookmark>(makeBookmark(archive, isFull));
        return std::make_unique<cToDo>(makeToDo(archive, isFull));
    }
    QString row(const Kind& kind, int key, const QString& columns = {})
    {
        QStringList cells;
        for (const QString& column : (columns.isEmpty() ? kind.columns : columns).split(u", "_s))
            cells.append(value(u"SELECT %1 FROM %2 WHERE %3 = %4"_s.arg(column, kind.table, kind.key).arg(key)));
        return cells.join(u'|');
    }
};

} // namespace

// What the records of all kinds do alike, and every statement that they send.
class tst_Records : public QObject {
    Q_OBJECT
private slots:
    void everyFieldComesBack()
    {
        const auto restore = qScopeGuard([before = QLocale()] { QLocale::setDefault(before); });
        QLocale::setDefault(QLocale(u"ar_EG"_s)); // a region changes nothing in the archive
        for (const Kind& kind : kinds) {
            Records f;
            const auto record = f.make(kind, true), other = f.make(kind, false), read = f.make(kind, false);
            QVERIFY(record->Save() && other->Save());
            const QString full = f.row(kind, 1), empty = f.row(kind, 2);
            for (int i = 1; i <= 3; ++i)
                QVERIFY2(full.contains(u'|' + QString::number(i) + odd), qPrintable(full));
            const QString stamps = u"dateIn, dateLastMod"_s;
            QCOMPARE(f.row(kind, 1, stamps), u"2026-03-04 09:05:00|2026-03-04 09:05:00"_s);
            read->key() = 1;
            QVERIFY(read->Load() && read->lastError().isEmpty());
            read->key() = 2;
            f.clock.moment = QDateTime(QDate(2027, 2, 1), QTime(23, 0, 8));
            QVERIFY(read->Update());
            QCOMPARE(f.row(kind, 2), full);
            QCOMPARE(f.row(kind, 2, stamps), u"2026-03-04 09:05:00|2027-02-01 23:00:08"_s);
            other->key() = 1;
            QVERIFY(other->Update());
            QCOMPARE(f.row(kind, 1), empty);
            QCOMPARE(f.row(kind, 2), full); // that one was left alone
        }
        Records f;
        cToDo todo = makeToDo(f.archive, true);
        todo.Save();
        todo.ToDoDateIn = todo.ToDoDateLastMod = {};
        const QDateTime before = std::exchange(f.clock.moment, f.clock.moment.addDays(1));
        QVERIFY(todo.Update() && todo.Load());
        QCOMPARE(todo.ToDoDateIn, before);
        QCOMPARE(todo.ToDoDateLastMod, f.clock.moment);
    }

    void nullsAndMissingRows()
    {
        for (const Kind& kind : kinds) {
            Records f;
            const auto record = f.make(kind, true);
            ArchiveUnit(f.archive).Execute(u"INSERT INTO %1 (categoryID) VALUES (1)"_s.arg(kind.table));
            record->key() = 1;
            QVERIFY(record->Load() && record->Update());
            QCOMPARE(f.row(kind, 1), kind.afterNull);

            const auto gone = f.make(kind, true);
            const QString text = u"The %1 is no longer in the archive."_s.arg(kind.word);
            gone->key() = 77;
            QVERIFY(gone->Load());
            QCOMPARE(gone->lastError(), text);
            QVERIFY(record->Load() && record->lastError().isEmpty());
            QVERIFY(!gone->Update()); // it would be lost without a word
            QCOMPARE(gone->lastError(), text);
            QVERIFY(gone->Save()); // nothing was read into it
            QVERIFY(f.row(kind, 2).contains(odd));
        }
    }

    void failuresSayWhatTheyShould()
    {
        for (const Kind& kind : kinds) {
            Records f;
            const auto record = f.make(kind, true);
            ArchiveUnit(f.archive).Execute(u"UPDATE tab_category SET categoryID = 90 WHERE categoryID = 1"_s);
            f.questions.expect(QString());
            QVERIFY(!record->Save()); // there is no such category
            QVERIFY(f.questions.asked.last().text.startsWith(u"Error in %1: "_s.arg(kind.routine)));
            QCOMPARE(record->key(), 0);
            ArchiveUnit(f.archive).Execute(u"INSERT INTO %1 (categoryID) VALUES (90)"_s.arg(kind.table));
            const QString before = f.row(kind, 1);
            record->key() = 1;
            QVERIFY(!record->Update() && !record->lastError().isEmpty());
            QCOMPARE(f.row(kind, 1), before);

            const QString path = f.scratch.path(u"missing.SVA"_s);
            f.archive.setPath(path);
            QVERIFY(!record->Load()); // no message, but the text is there
            QVERIFY(record->lastError().contains("missing.SVA"_L1));
            QCOMPARE(cMemo(f.archive).GetMemoCount() + cToDo(f.archive).GetToDoCount(), 0);
            QVERIFY(!QFile::exists(path));
        }
    }

    // Routine after routine, and the statements that it sends.
    void statements()
    {
        StartedArchive f;
        cMemo memo = makeMemo(f.archive, false);
        memo.MemoName = u"n"_s;
        memo.SnipVale = u"c'"_s;
        cBookmark bookmark = makeBookmark(f.archive, false);
        bookmark.BookmarkName = u"n'"_s;
        bookmark.BookmarkKeywords = u"k"_s;
        bookmark.BookmarkLink = u"'u'"_s;
        cToDo todo = makeToDo(f.archive, true);
        todo.ToDoName = u"O'Hara"_s;
        todo.Resources = todo.ToDoDescription = u"'d"_s;
        const QString byId = u" SELECT * FROM tab_todo  WHERE todoID = 1 "_s;
        const QString stamp = u"tab_ToDo.dateLastMod = '2026-03-04 09:05:00'  WHERE (tab_ToDo.ToDoID = 1 ) "_s;
        const std::pair<std::function<void()>, QStringList> rows[] = {
            {[&] { memo.Save(); }, {u"SELECT * FROM tab_memo where 1=2 "_s}},
            {[&] { memo.Load(); }, {u" SELECT * FROM tab_memo WHERE memoID = 1 "_s}},
            {[&] { memo.Update(); },
             {u"UPDATE tab_memo SET tab_memo.categoryID = 1 , tab_memo.memoTypeID = 3 , tab_memo.memoName = 'n' , "
              "tab_memo.memoDescription = '' , tab_memo.memoLink = '' , tab_memo.snipVale = 'c''' , tab_memo.memoNotes "
              "= "
              "'' , tab_memo.dateLastMod = '2026-3-4 9:5:0' , tab_memo.openingState = 0 WHERE (tab_memo.memoID = 1 ) "_s}},
            {[&] { memo.GetMemoCount(); }, {u"SELECT COUNT(memoID) AS MemoCount FROM tab_memo  "_s}},
            {[&] { bookmark.Save(); }, {u"SELECT * FROM tab_bookmark where 1=2 "_s}},
            {[&] { bookmark.Load(); }, {u" SELECT * FROM tab_bookmark  WHERE bookmarkID = 1 "_s}},
            {[&] { bookmark.Update(); },
             {u"UPDATE tab_bookmark SET tab_bookmark.categoryID = 1 , tab_bookmark.name = 'n''' , "
              u"tab_bookmark.keywords = "
              "'k' , tab_bookmark.description = '' , tab_bookmark.url = '''u''' , tab_bookmark.dateLastMod = "
              "'2026-3-4 9:5:0'  WHERE (tab_bookmark.bookmarkID = 1 ) "_s}},
            {[&] { todo.Save(); }, {u"SELECT * FROM tab_ToDo where 1=2 "_s}},
            {[&] { todo.Load(); }, {byId}},
            {[&] { todo.Update(); },
             {u"UPDATE tab_ToDo SET tab_todo.categoryID = 1 , tab_todo.name = 'O''Hara' , tab_todo.description = '''d' "
              u", "
              "tab_todo.startDate = '2024-2-29' , tab_todo.dueDate = '2024-12-31' , tab_todo.endDate = '2025-1-1' , "
              "tab_todo.alarmOn = 1 ,  tab_todo.alarmDate = '2024-3-7 9:5:59' , tab_todo.percentComplete = 40 , "
              "tab_todo.priority = 6 , tab_todo.status = 2 , tab_todo.resources = '''d' , tab_todo.done = 0 ,  "_s +
              stamp}},
            {[&] { todo.GetToDoCount(); }, {u"SELECT COUNT(todoID) AS ToDoCount FROM tab_todo  "_s}},
            {[&] { markToDoDone(f.archive, 1, true); }, {u"UPDATE tab_ToDo SET tab_todo.done = 1 ,  "_s + stamp}},
            {[&] { markToDoDone(f.archive, 1, false); }, {u"UPDATE tab_ToDo SET tab_todo.done = 0 ,  "_s + stamp}},
            {[&] { changeToDoPriority(f.archive, 1, false); },
             {byId, u"UPDATE tab_ToDo SET tab_todo.priority = 5 ,  "_s + stamp}},
            {[&] { readAlarm(f.archive, 1); }, {u" SELECT * FROM tab_ToDo WHERE tab_ToDo.todoID = 1 "_s}},
            {[&] {
                 UpdateAlarm(f.archive, 1, jet::LocalMoment{QDate(2026, 3, 7), QTime(9, 5)});
             },
             {u"UPDATE tab_ToDo SET tab_todo.alarmOn = 1 , tab_todo.alarmDate = '2026-3-7 9:5:0' , "_s + stamp}},
            {[&] { UpdateAlarm(f.archive, 1, std::nullopt); },
             {u"UPDATE tab_ToDo SET tab_todo.alarmOn = 0 , tab_todo.alarmDate = Null ,  "_s + stamp}},
        };
        for (const auto& [run, sent] : rows) {
            f.statements.clear();
            run();
            QCOMPARE(f.statements, sent);
        }
    }
};

SNIPVALE_TEST(tst_Records)
#include "tst_Records.moc"
