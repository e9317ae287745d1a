// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "jet/JetFixture.h"
#include "support/Registry.h"

namespace {

struct Filled : JetFixture {
    Filled()
    {
        for (
            const QString& sql :
            {u"INSERT INTO tab_memoType (memoTypeID, name, lexerCode, enabled, visible) VALUES (2, 'Ärger', 'x', true, 1)"_s,
             u"INSERT INTO tab_memo (categoryID, memoTypeID, memoName, snipVale) VALUES (1, 3, 'Strings', 'ПРИВЕТ 100%')"_s,
             u"INSERT INTO tab_memo (categoryID, memoTypeID, memoName, snipVale) VALUES (1, 3, 'Files', 'ПРИВЕТ 100%')"_s,
             u"INSERT INTO tab_memo (categoryID, memoTypeID, memoName, snipVale) VALUES (1, 3, 'größe', 'ПРИВЕТ 100%')"_s,
             u"INSERT INTO tab_style (lexerCode, fontName, bold, case) VALUES ('sclex_cpp', 'Mono', 0, 2)"_s,
             u"INSERT INTO tab_option (code, options) VALUES ('MasterPwd', '')"_s})
            connection.Execute(sql);
        for (int i = 1; i <= 4; ++i)
            connection.Execute(
                u"INSERT INTO tab_todo (categoryID, name, dueDate, done, alarmOn) VALUES (2, 'todo %1', '2024-3-%2 9:5:0', %3, %3)"_s
                    .arg(i)
                    .arg(i + 4)
                    .arg(i % 2));
        connection.Execute(u"INSERT INTO tab_todo (categoryID, name) VALUES (2, 'undated')"_s);
    }
};

struct Case {
    QString sql;
    QString expected; // the rows, or words of the error
};

const Case readable[] = {
    {u" SELECT name FROM tab_category WHERE parentID = 0  ORDER BY tab_category.name "_s, u"Code;ToDo"_s},
    {u"SELECT COUNT(categoryID) AS totalCat From tab_category  WHERE tab_category.type = 0 "_s, u"1"_s},
    {u"SELECT name FROM tab_memoType  WHERE tab_memoType.enabled = true  ORDER BY  name "_s, u"Ärger;C++"_s},
    {u"SELECT memoTypeID,  keywords  FROM tab_memoType  WHERE lexerCode = 'SCLEX_CPP' "_s, u"3|Null"_s},
    {u"SELECT tab_memoType.name, tab_style.*  FROM tab_memoType INNER JOIN tab_style ON tab_memoType.lexerCode = tab_style.lexerCode "_s,
     u"C++|1"_s},
    {u" SELECT todoID FROM tab_todo  WHERE tab_todo.dueDate  <  #2024-3-7 9:5:0#  AND tab_todo.done = 0 "_s, u"2"_s},
    {u" SELECT todoID FROM tab_todo  WHERE tab_todo.dueDate  BETWEEN #3/6/2024#  AND  #3/8/2024 9:05:00 AM#  ORDER BY tab_todo.dueDate DESC "_s,
     u"4;3;2"_s},
    {u" SELECT options FROM tab_option WHERE code = 'masterpwd'"_s, u""_s},
    {u" SELECT tab_memo.memoID as memoID, tab_memoType.name as memoType FROM tab_memoType INNER JOIN (tab_category INNER JOIN tab_memo ON tab_category.categoryID = tab_memo.categoryID) ON tab_memoType.memoTypeID = tab_memo.memoTypeID  WHERE 1 <> 1   OR ( tab_memo.memoName LIKE '%GRÖ%' )  OR ( tab_memo.memoNotes LIKE '%GRÖ%' )"_s,
     u"3|C++"_s},
    {u"SELECT memoName FROM tab_memo WHERE snipVale LIKE '%привет 100[%]' AND memoName NOT LIKE 'f%' ORDER BY memoName"_s,
     u"größe;Strings"_s},
    {u"SELECT memoName FROM tab_memo WHERE memoName IN ('FILES', 'nothing') OR memoName IS NULL"_s, u"Files"_s},
    {u"SELECT COUNT(name) AS n FROM tab_todo GROUP BY done HAVING COUNT(name) > 2"_s, u"3"_s},
    {u"SELECT name & '!' FROM tab_todo WHERE [todoID] = 1;"_s, u"todo 1!"_s}};

// Each of these ends in a description, and changes nothing. The last ones try to reach other files, settings and code.
const Case refused[] = {
    {u"SELECT * FROM tab_memo WHERE 1 <> 1   OR ( tab_memo.memoName LIKE '%O'Hara%' )"_s, u"Syntax error"_s},
    {u"SELECT * FROM tab_memo WHERE memoName LIKE '%[abc%'"_s, u"Invalid pattern"_s},
    {u"UPDATE tab_todo SET nosuch = 1"_s, u"Unknown field"_s},
    {u"UPDATE tab_todo SET tab_memo.name = 'x'"_s, u"tab_memo"_s},
    {u"UPDATE tab_todo SET name = "_s, u"value is missing"_s},
    {u"SELECT * FROM tab_todo WHERE dueDate = '2024-3-7'"_s, u"mismatch"_s},
    {u"SELECT * FROM tab_todo WHERE todoID IN ('1', '2')"_s, u"mismatch"_s},
    {u"SELECT * FROM tab_todo WHERE name = 5"_s, u"mismatch"_s},
    {u"INSERT INTO tab_option (code, options) VALUES ('x')"_s, u"not the same"_s},
    {u"INSERT INTO tab_option (code) VALUES ('x'), ('y')"_s, u"Syntax error"_s},
    {u"INSERT INTO tab_option (code) SELECT name FROM tab_todo"_s, u"VALUES"_s},
    {u"DROP TABLE tab_category"_s, u"refers to it"_s},
    {u""_s, u"Invalid SQL"_s},
    {u"SELECT 1; DELETE * FROM tab_todo"_s, u"after end"_s},
    {u"ATTACH DATABASE '/tmp/x' AS x"_s, u"Invalid SQL"_s},
    {u"PRAGMA writable_schema = 1"_s, u"Invalid SQL"_s},
    {u"SELECT load_extension('/tmp/x') FROM tab_todo"_s, u"authorized"_s},
    {u"SELECT writefile('/tmp/x', 'y') FROM tab_todo"_s, u"function"_s},
    {u"SELECT * FROM pragma_table_list"_s, u"authorized"_s},
    {u"UPDATE sqlite_schema SET sql = ''"_s, u"sqlite_"_s},
    {u"UPDATE tab_todo SET name = randomblob(9)"_s, u"authorized"_s},
    {u"CREATE TABLE x (y LONG) AS SELECT 1"_s, u"Syntax error"_s},
    {u"CREATE TRIGGER x AFTER DELETE ON tab_todo BEGIN SELECT 1 END"_s, u"TABLE"_s}};

} // namespace

// The statements that the program issues, as they stand, and what must come of them.
class tst_Dialect : public QObject {
    Q_OBJECT

private slots:
    void reads()
    {
        Filled filled;
        for (const Case& row : readable)
            QCOMPARE(filled.rows(row.sql), row.expected);
        const jet::Recordset set = filled.connection.OpenRecordset(
            u"SELECT * FROM tab_category INNER JOIN tab_todo ON tab_category.categoryID = tab_todo.categoryID"_s);
        QCOMPARE(set.text(u"TAB_category.NAME"_s) + set.text(u"tab_todo.name"_s), u"ToDotodo 1"_s);
        QCOMPARE(set.integer(u"ToDoID"_s), 1);
        QVERIFY(errorOf([&] { set.text(u"nosuch"_s); }).contains(u"nosuch"_s));
    }

    void writes()
    {
        const QString rows[][3] = {
            // a change, a query and its rows
            {u"UPDATE tab_ToDo SET tab_todo.categoryID = 2 , tab_todo.name = 'O''Hara \"x\" #1' , tab_todo.startDate = Null ,  tab_todo.dueDate = '2024-3-7' , tab_todo.alarmOn = 1 ,  tab_todo.alarmDate = '2024-3-7 9:5:0' ,  tab_ToDo.dateLastMod = '3/7/2024 9:05:00 PM'  WHERE (tab_ToDo.ToDoID = 5 ) "_s,
             u"SELECT name, startDate, dueDate, alarmOn, alarmDate, dateLastMod FROM tab_todo WHERE todoID = 5"_s,
             u"O'Hara \"x\" #1|Null|2024-03-07 00:00:00|-1|2024-03-07 09:05:00|2024-03-07 21:05:00"_s},
            {u"UPDATE tab_style SET tab_style.bold = '1' , tab_style.case = '1' , tab_style.fontName = null WHERE (tab_style.styleID = 1 ) "_s,
             u"SELECT bold, case, fontName FROM tab_style"_s, u"-1|1|Null"_s},
            {u"UPDATE tab_memo SET tab_memo.categoryID = 2  WHERE tab_memo.memoID IN ( 1, 3) "_s,
             u"SELECT memoID FROM tab_memo WHERE categoryID = 2"_s, u"1;3"_s},
            {u"DELETE tab_todo.* FROM tab_todo WHERE done = true"_s, u"SELECT todoID FROM tab_todo"_s, u"2;4;5"_s},
            {u"UPDATE tab_option SET tab_option.options = '(1);DROP TABLE tab_option--'  WHERE code ='MasterPwd' "_s,
             u"SELECT options FROM tab_option"_s, u"(1);DROP TABLE tab_option--"_s},
            {u"UPDATE tab_todo SET priority = todoID + 1, done = todoID - 4, name = 'n' & todoID, dueDate = dateIn WHERE todoID < 3"_s,
             u"SELECT priority, done, name, dueDate FROM tab_todo WHERE todoID < 3"_s, u"2|-1|n1|Null;3|-1|n2|Null"_s},
            {u"UPDATE tab_todo SET done = Null, priority = -1.5, dueDate = #12/31/2024 23:59:59# WHERE todoID = 1"_s,
             u"SELECT done, priority, dueDate FROM tab_todo WHERE todoID = 1"_s, u"0|-2|2024-12-31 23:59:59"_s}};
        for (const auto& [sql, query, expected] : rows) {
            Filled filled;
            filled.connection.Execute(sql);
            QCOMPARE(filled.rows(query), expected);
        }
    }

    void refuses()
    {
        Filled filled;
        for (const Case& row : refused) {
            const QString sql = row.sql;
            const QString said = errorOf([&] {
                if (sql.startsWith(u"SELECT"_s))
                    for (jet::Recordset set = filled.connection.OpenRecordset(sql); !set.eof();)
                        set.moveNext();
                else
                    filled.connection.Execute(sql);
            });
            QVERIFY2(said.contains(row.expected), qPrintable(sql + u": "_s + said));
        }
        const QString all =
            u"SELECT COUNT(todoID), MIN(categoryID), MIN(name), MAX(priority), MIN(dueDate) FROM tab_todo"_s;
        QCOMPARE(filled.rows(all), u"5|2|todo 1|Null|2024-03-05 09:05:00"_s);
        QCOMPARE(filled.connection.tables().size(), 7);
    }

    void definitions()
    {
        JetFixture fixture;
        jet::Connection& c = fixture.connection;
        // The relation has made an index on its column. The program's own one takes its place.
        QCOMPARE(fixture.rows(u"SELECT name FROM sqlite_schema WHERE type = 'index' AND tbl_name = 'tab_todo'"_s),
                 u"tab_todo.categoryID_IDX"_s);
        QVERIFY(
            fixture.rows(u"SELECT sql FROM sqlite_schema WHERE name = 'tab_category'"_s).contains(u"AUTOINCREMENT"_s));

        c.Execute(
            u"CREATE TABLE [odd name] (id LONG NOT NULL PRIMARY KEY, t TEXT(5) UNIQUE, b YESNO DEFAULT TRUE, w TEXT(9) DEFAULT 'it''s', n BYTE DEFAULT 7)"_s);
        c.Execute(u"CREATE INDEX categoryID_IDX ON [ODD NAME] (n DESC, t)"_s); // a name of another table's index
        c.Execute(u"INSERT INTO [odd name] (id, t) VALUES (1, 'abcde')"_s);
        QCOMPARE(fixture.rows(u"SELECT b, w, n FROM [odd name]"_s), u"-1|it's|7"_s);
        const std::pair<const char*, const char*> refusedHere[] = {
            {"INSERT INTO [odd name] (id, t) VALUES (2, 'abcdef')", "too small"},
            {"INSERT INTO [odd name] (id, t) VALUES (1, 'x')", "duplicate"},
            {"INSERT INTO [odd name] (t) VALUES ('x')", "required"},
            {"CREATE TABLE t2 (a LONG CONSTRAINT x REFERENCES tab_memo (memoID), b LONG CONSTRAINT x REFERENCES "
             "tab_memo "
             "(memoID))",
             ""}, // leaves nothing behind
            {"CREATE INDEX i ON tab_memo (nosuch)", ""},
            {"CREATE TABLE t2 (CONSTRAINT a b LONG)", ""}};
        for (const auto& [bad, words] : refusedHere) {
            const QString said = errorOf([&, sql = bad] { c.Execute(QString::fromUtf8(sql)); });
            QVERIFY2(!said.isEmpty() && said.contains(QString::fromUtf8(words)), bad);
        }
        QVERIFY(!c.tables().contains(u"t2"_s));
        c.Execute(u"DROP INDEX categoryID_IDX ON [odd name]"_s);
        c.Execute(u"DROP TABLE [odd name]"_s);
        QVERIFY(!c.tables().contains(u"odd name"_s));
    }
};

SNIPVALE_TEST(tst_Dialect)
#include "tst_Dialect.moc"
