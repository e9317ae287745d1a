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

// One kind of record. `rest` is what is neither a text nor a stamp: the first or another set of it, or, after a row of
// Null was read over the first, what that leaves.
enum class Rest { First, Second, AfterNull };

struct Kind {
    QString table, key;
    int type; // of its category
    QString routine; // of Save
    std::function<std::unique_ptr<ElementRecord>(Archive&)> make;
    std::function<QList<QString*>(ElementRecord&)> texts;
    std::function<QList<QDateTime*>(ElementRecord&)> stamps;
    std::function<qint32&(ElementRecord&)> category;
    std::function<void(ElementRecord&, Rest)> fill;
    std::function<QVariantList(ElementRecord&)> rest;
};

template <typename Record>
std::unique_ptr<ElementRecord> makeRecord(Archive& archive)
{
    return std::make_unique<Record>(archive);
}

cMemo& memo(ElementRecord& record)
{
    return static_cast<cMemo&>(record);
}

cBookmark& bookmark(ElementRecord& record)
{
    return static_cast<cBookmark&>(record);
}

cToDo& toDo(ElementRecord& record)
{
    return static_cast<cToDo&>(record);
}

void fillMemo(ElementRecord& record, Rest rest)
{
    memo(record).MemoTypeID = rest == Rest::Second ? 2 : 3; // a Null number leaves the field alone
    memo(record).MemoOpeningState = rest == Rest::First ? 2 : 0;
}

void fillToDo(ElementRecord& record, Rest rest)
{
    cToDo& r = toDo(record);
    const bool isSecond = rest == Rest::Second;
    r.PercentComplete = isSecond ? 100 : 40;
    r.Priority = isSecond ? 0 : 6;
    r.Status = isSecond ? 5 : 2;
    r.StartDate = r.EndDate = r.DueDate = QDate(); // Null replaces a date that the field held
    r.AlarmDate = {};
    r.AlarmOn = rest == Rest::First;
    r.Done = isSecond;
    if (rest == Rest::First) {
        r.StartDate = QDate(2024, 2, 29);
        r.EndDate = QDate(2025, 1, 1);
        r.AlarmDate = {QDate(2024, 3, 7), QTime(9, 5, 59)};
    }
    if (rest != Rest::AfterNull)
        r.DueDate = QDate(2024, 12, 31);
}

const QHash<QString, Kind>& kinds()
{
    static const QHash<QString, Kind> all = {
        {u"memo"_s,
         {u"tab_memo"_s, u"memoID"_s, 0, u"Save"_s, makeRecord<cMemo>,
          [](ElementRecord& r) {
              return QList{&memo(r).MemoName, &memo(r).MemoDescription, &memo(r).MemoLink, &memo(r).SnipVale,
                           &memo(r).MemoNotes};
          },
          [](ElementRecord& r) {
              return QList{&memo(r).MemoDateIn, &memo(r).MemoDateLastMod};
          },
          [](ElementRecord& r) -> qint32& { return memo(r).CategoryID; }, fillMemo,
          [](ElementRecord& r) {
              return QVariantList{memo(r).MemoTypeID, memo(r).MemoOpeningState};
          }}},
        {u"bookmark"_s,
         {u"tab_bookmark"_s, u"bookmarkID"_s, 1, u"Save"_s, makeRecord<cBookmark>,
          [](ElementRecord& r) {
              return QList{&bookmark(r).BookmarkName, &bookmark(r).BookmarkKeywords, &bookmark(r).BookmarkDescription,
                           &bookmark(r).BookmarkLink};
          },
          [](ElementRecord& r) {
              return QList{&bookmark(r).BookmarkDateIn, &bookmark(r).BookmarkDateLastMod};
          },
          [](ElementRecord& r) -> qint32& { return bookmark(r).CategoryID; }, [](ElementRecord&, Rest) {},
          [](ElementRecord&) { return QVariantList(); }}},
        {u"to-do"_s,
         {u"tab_todo"_s, u"todoID"_s, 2, u"ToDo.Save"_s, makeRecord<cToDo>,
          [](ElementRecord& r) {
              return QList{&toDo(r).ToDoName, &toDo(r).ToDoDescription, &toDo(r).Resources};
          },
          [](ElementRecord& r) {
              return QList{&toDo(r).ToDoDateIn, &toDo(r).ToDoDateLastMod};
          },
          [](ElementRecord& r) -> qint32& { return toDo(r).CategoryID; }, fillToDo,
          [](ElementRecord& r) {
              const cToDo& t = toDo(r);
              return QVariantList{t.StartDate, t.DueDate,         t.EndDate,  t.AlarmDate.date, t.AlarmDate.time,
                                  t.AlarmOn,   t.PercentComplete, t.Priority, t.Status,         t.Done};
          }}},
    };
    return all;
}

// Records of the kind that the data row names.
struct Records : StartedArchive {
    std::unique_ptr<ElementRecord> make(Rest rest, const QString& text, qint32 key = 0)
    {
        auto record = kind.make(archive);
        record->key() = key;
        kind.category(*record) = value(u"SELECT categoryID FROM tab_category WHERE type = %1"_s.arg(kind.type)).toInt();
        const QList<QString*> texts = kind.texts(*record);
        for (qsizetype i = 0; i < texts.size(); ++i)
            *texts[i] = text.isEmpty() ? QString() : QString::number(i) + text;
        kind.fill(*record, rest);
        statements.clear();
        return record;
    }
    // All but the stamps.
    QVariantList fields(ElementRecord& record) const
    {
        QVariantList all = kind.rest(record);
        for (const QString* text : kind.texts(record))
            all.append(*text);
        return all << kind.category(record);
    }
    QString column(const QString& name)
    {
        return value(u"SELECT %1 FROM %2 WHERE %3 = 1"_s.arg(name, kind.table, kind.key));
    }
    QString count() { return value(u"SELECT COUNT(*) AS n FROM %1"_s.arg(kind.table)); }

    Kind kind = kinds().value(QString::fromLatin1(QTest::currentDataTag()));
    const QString odd =
        u" O'Hara's \"x\"; DROP TABLE tab_memo --\r\nПривет 世界 שלום \U0001F600\rנ\n\t#1# %_[] a\u00A0b"_s;
};

void kindRows()
{
    QTest::addColumn<int>("unused");
    for (const QString& name : kinds().keys())
        QTest::newRow(qPrintable(name)) << 0;
}

} // namespace

// What the records of all kinds do alike, and every statement that they send.
class tst_Records : public QObject {
    Q_OBJECT
private slots:
    void everyFieldComesBack_data() { kindRows(); }
    void everyFieldComesBack();
    void nullsAndMissingRows_data() { kindRows(); }
    void nullsAndMissingRows();
    void datesAreStamped_data() { kindRows(); }
    void datesAreStamped();
    void failuresSayWhatTheyShould_data() { kindRows(); }
    void failuresSayWhatTheyShould();
    void statements();
};

void tst_Records::everyFieldComesBack()
{
    Records f;
    const auto record = f.make(Rest::First, f.odd);
    const auto other = f.make(Rest::First, f.odd + f.odd.left(100));
    QVERIFY(record->Save() && other->Save());
    QVERIFY(record->key() != other->key());
    const auto read = f.make(Rest::Second, u"x"_s, record->key());
    QVERIFY(read->Load() && read->lastError().isEmpty());
    QCOMPARE(f.fields(*read), f.fields(*record));
    for (const QString& text : {u"''"_s, QString(), f.odd + f.odd}) {
        const auto changed = f.make(Rest::Second, text, record->key());
        QVERIFY2(changed->Update(), qPrintable(changed->lastError()));
        QVERIFY(read->Load());
        QCOMPARE(f.fields(*read), f.fields(*changed));
    }
    read->key() = other->key(); // that row was left alone
    QVERIFY(read->Load());
    QCOMPARE(f.fields(*read), f.fields(*other));
    read->clear();
    QCOMPARE(read->key(), 0);
    QCOMPARE(f.fields(*read), f.fields(*f.kind.make(f.archive)));
}

void tst_Records::nullsAndMissingRows()
{
    Records f;
    const auto record = f.make(Rest::First, f.odd, 1);
    for (QDateTime* stamp : f.kind.stamps(*record))
        *stamp = f.clock.now();
    const auto expected = f.make(Rest::AfterNull, QString());
    const QString sql = u"INSERT INTO %1 (categoryID) VALUES (%2)"_s;
    ArchiveUnit(f.archive).Execute(sql.arg(f.kind.table).arg(f.kind.category(*record)));
    QVERIFY(record->Load());
    QCOMPARE(f.fields(*record), f.fields(*expected));
    for (const QDateTime* stamp : f.kind.stamps(*record))
        QCOMPARE(*stamp, f.clock.now());

    const auto gone = f.make(Rest::First, f.odd, 77);
    QVERIFY(gone->Load());
    QCOMPARE(f.fields(*gone), f.fields(*f.make(Rest::First, f.odd)));
    const QString text = u"The %1 is no longer in the archive."_s.arg(QString::fromLatin1(QTest::currentDataTag()));
    QCOMPARE(gone->lastError(), text);
    QVERIFY(record->Load() && record->lastError().isEmpty());
    QVERIFY(!gone->Update()); // it would be lost without a word
    QCOMPARE(gone->lastError(), text);
}

void tst_Records::datesAreStamped()
{
    const QLocale before;
    const auto restore = qScopeGuard([&] { QLocale::setDefault(before); });
    for (const char* locale : {"C", "en_US", "it_IT", "ar_EG"}) {
        QLocale::setDefault(QLocale(QString::fromLatin1(locale)));
        Records f;
        const auto record = f.make(Rest::First, u"n"_s);
        for (QDateTime* stamp : f.kind.stamps(*record))
            *stamp = QDateTime(QDate(1999, 1, 1), QTime(0, 0));
        QVERIFY(record->Save());
        QCOMPARE(f.column(u"dateIn"_s) + f.column(u"dateLastMod"_s), u"2026-03-04 09:05:002026-03-04 09:05:00"_s);
        f.clock.moment = QDateTime(QDate(2027, 2, 1), QTime(23, 0, 8));
        QVERIFY(record->Update());
        QCOMPARE(f.column(u"dateLastMod"_s), u"2027-02-01 23:00:08"_s);
        QVERIFY(record->Load());
        QCOMPARE(*f.kind.stamps(*record).first(), QDateTime(QDate(2026, 3, 4), QTime(9, 5)));
        QCOMPARE(*f.kind.stamps(*record).last(), f.clock.moment);
    }
}

void tst_Records::failuresSayWhatTheyShould()
{
    Records f;
    const auto record = f.make(Rest::First, u"n"_s);
    const qint32 category = std::exchange(f.kind.category(*record), 4711); // no such category
    f.questions.expect(QString());
    QVERIFY(!record->Save());
    QVERIFY(f.questions.asked.last().text.startsWith(u"Error in %1: "_s.arg(f.kind.routine)));
    QCOMPARE(f.questions.asked.last().style, MessageStyle::Critical);
    QCOMPARE(record->key(), 0);
    QCOMPARE(f.count(), u"0"_s);

    f.kind.category(*record) = category;
    QVERIFY(record->Save());
    *f.kind.texts(*record).first() = QString(256, u'x'); // does not fit: nothing is cut, nothing is written
    *f.kind.texts(*record).last() = u"new"_s;
    QVERIFY(!record->Update() && !record->lastError().isEmpty());
    const auto read = f.make(Rest::Second, QString(), record->key());
    QVERIFY(read->Load());
    QVERIFY(*f.kind.texts(*read).last() != u"new"_s);

    const QString path = f.scratch.path(u"missing.SVA"_s);
    f.archive.setPath(path);
    QVERIFY(!record->Load()); // no message, but the text is there
    QVERIFY(record->lastError().contains("missing.SVA"_L1));
    QVERIFY(!record->Update());
    QVERIFY(record->lastError().contains("missing.SVA"_L1));
    QCOMPARE(cMemo(f.archive).GetMemoCount() + cToDo(f.archive).GetToDoCount(), 0);
    QVERIFY(!QFile::exists(path));
}

// Routine after routine, and the statements that it sends.
void tst_Records::statements()
{
    StartedArchive f;
    const QString category = f.value(u"SELECT categoryID FROM tab_category WHERE type = 2"_s);
    cMemo memo(f.archive);
    memo.MemoTypeID = 3;
    memo.MemoName = u"n"_s;
    memo.SnipVale = u"c'"_s;
    cBookmark bookmark(f.archive);
    bookmark.BookmarkName = u"n'"_s;
    bookmark.BookmarkKeywords = u"k"_s;
    bookmark.BookmarkLink = u"'u'"_s;
    cToDo todo(f.archive);
    todo.ToDoName = u"O'Hara"_s;
    memo.CategoryID = bookmark.CategoryID = todo.CategoryID = category.toInt();
    cToDo full(f.archive);
    full.ToDoID = full.CategoryID = 1;
    fillToDo(full, Rest::First);
    full.Resources = full.ToDoDescription = u"'d"_s;
    const QString byId = u" SELECT * FROM tab_todo  WHERE todoID = 1 "_s;
    const QString stamp = u"tab_ToDo.dateLastMod = '2026-03-04 09:05:00'  WHERE (tab_ToDo.ToDoID = 1 ) "_s;
    const std::pair<std::function<void()>, QStringList> rows[] = {
        {[&] { memo.Save(); }, {u"SELECT * FROM tab_memo where 1=2 "_s}},
        {[&] { memo.Load(); }, {u" SELECT * FROM tab_memo WHERE memoID = 1 "_s}},
        {[&] { memo.Update(); },
         {u"UPDATE tab_memo SET tab_memo.categoryID = %1 , tab_memo.memoTypeID = 3 , tab_memo.memoName = 'n' , "
          "tab_memo.memoDescription = '' , tab_memo.memoLink = '' , tab_memo.snipVale = 'c''' , tab_memo.memoNotes = "
          "'' , tab_memo.dateLastMod = '2026-3-4 9:5:0' , tab_memo.openingState = 0 WHERE (tab_memo.memoID = 1 ) "_s
              .arg(category)}},
        {[&] { memo.GetMemoCount(); }, {u"SELECT COUNT(memoID) AS MemoCount FROM tab_memo  "_s}},
        {[&] { bookmark.Save(); }, {u"SELECT * FROM tab_bookmark where 1=2 "_s}},
        {[&] { bookmark.Load(); }, {u" SELECT * FROM tab_bookmark  WHERE bookmarkID = 1 "_s}},
        {[&] { bookmark.Update(); },
         {u"UPDATE tab_bookmark SET tab_bookmark.categoryID = %1 , tab_bookmark.name = 'n''' , tab_bookmark.keywords = "
          "'k' , tab_bookmark.description = '' , tab_bookmark.url = '''u''' , tab_bookmark.dateLastMod = "
          "'2026-3-4 9:5:0'  WHERE (tab_bookmark.bookmarkID = 1 ) "_s.arg(category)}},
        {[&] { todo.Save(); }, {u"SELECT * FROM tab_ToDo where 1=2 "_s}},
        {[&] { todo.Load(); }, {byId}},
        {[&] { todo.Update(); },
         {u"UPDATE tab_ToDo SET tab_todo.categoryID = %1 , tab_todo.name = 'O''Hara' , tab_todo.description = '' , "
          "tab_todo.startDate = Null ,  tab_todo.dueDate = Null ,  tab_todo.endDate = Null ,  tab_todo.alarmOn = 0 ,  "
          "tab_todo.alarmDate = Null ,  tab_todo.percentComplete = 0 , tab_todo.priority = 0 , tab_todo.status = 0 , "
          "tab_todo.resources = '' , tab_todo.done = 0 ,  "_s.arg(category) +
          stamp}},
        {[&] { full.Update(); },
         {u"UPDATE tab_ToDo SET tab_todo.categoryID = 1 , tab_todo.name = '' , tab_todo.description = '''d' , "
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

SNIPVALE_TEST(tst_Records)
#include "tst_Records.moc"
