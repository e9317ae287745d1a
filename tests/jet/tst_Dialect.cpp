// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "jet/JetFixture.h"
#include "support/Registry.h"

#include <QElapsedTimer>

// The statements that the program issues, as they stand, and what must come of them.
class tst_Dialect : public QObject {
    Q_OBJECT

private slots:
    void reads_data();
    void reads();
    void writes_data();
    void writes();
    void refuses_data();
    void refuses();
    void cascades();
    void definitions();
    void columnNames();
    void longText();
};

namespace {

struct Filled : JetFixture {
    Filled()
    {
        connection.Execute(
            u"INSERT INTO tab_memoType (memoTypeID, name, lexerCode, enabled, visible) VALUES (2, 'Ärger', 'SCLEX_PYTHON', true, 1)"_s);
        for (const char* name : {"Strings", "Files", "größe"})
            connection.Execute(
                u"INSERT INTO tab_memo (categoryID, memoTypeID, memoName, snipVale) VALUES (1, 3, '%1', 'int main() // ПРИВЕТ 100%')"_s
                    .arg(QString::fromUtf8(name)));
        for (int i = 1; i <= 4; ++i)
            connection.Execute(
                u"INSERT INTO tab_todo (categoryID, name, dueDate, done, alarmOn, alarmDate) VALUES (2, 'todo %1', '2024-3-%2 9:5:0', %3, %3, '2024-3-7')"_s
                    .arg(i)
                    .arg(i + 4)
                    .arg(i % 2));
        connection.Execute(u"INSERT INTO tab_todo (categoryID, name) VALUES (2, 'undated')"_s);
        connection.Execute(
            u"INSERT INTO tab_style (lexerCode, fontName, bold, case) VALUES ('sclex_cpp', 'Mono', 0, 2)"_s);
        connection.Execute(u"INSERT INTO tab_option (code, options) VALUES ('MasterPwd', '')"_s);
        connection.Execute(u"INSERT INTO tab_bookmark (categoryID, name, url) VALUES (1, 'home', 'http://x')"_s);
        connection.Execute(u"INSERT INTO tab_passwordCategory (name) VALUES ('mail')"_s);
        connection.Execute(
            u"INSERT INTO tab_password (passwordCategoryID, title, userName, password) VALUES (1, 'post', '0A', '0B')"_s);
        connection.Execute(u"INSERT INTO tab_note (content, color, noteDate) VALUES ('buy', 'yellow', Null)"_s);
    }
};

struct Case {
    const char* sql;
    const char* expected; // the rows, or words of the error
};

const Case readable[] = {
    {" SELECT name FROM tab_category WHERE parentID = 0  ORDER BY tab_category.name ", "Code;ToDo"},
    {"SELECT COUNT(memoID) AS totalMemo From tab_memo ", "3"},
    {"SELECT COUNT(categoryID) AS totalCat From tab_category  WHERE tab_category.type = 0 ", "1"},
    {"SELECT name FROM tab_memoType  WHERE tab_memoType.enabled = true  ORDER BY  name ", "Ärger;C++"},
    {"SELECT name FROM tab_memoType  WHERE enabled = true  AND visible = true  ORDER BY name", "Ärger"},
    {"SELECT name FROM tab_memoType WHERE visible = 0", "C++"},
    {"SELECT memoTypeID,  keywords  FROM tab_memoType  WHERE lexerCode = 'SCLEX_CPP' ", "3|Null"},
    {"SELECT tab_memoType.memoTypeID, tab_memoType.name, tab_style.*  FROM tab_memoType INNER JOIN tab_style ON "
     "tab_memoType.lexerCode = tab_style.lexerCode  WHERE tab_memoType.memoTypeID = 3 ",
     "3|C++|1"},
    {" SELECT todoID FROM tab_todo  WHERE tab_todo.dueDate  <  #2024-3-7 9:5:0#  AND tab_todo.done = 0  ORDER BY "
     "tab_todo.dueDate DESC ",
     "2"},
    {" SELECT todoID FROM tab_todo  WHERE tab_todo.dueDate  BETWEEN #2024-3-7 9:5:0#  AND  #2024-3-7 9:5:0#  AND "
     "tab_todo.done = 0 ",
     ""},
    {" SELECT todoID FROM tab_todo  WHERE tab_todo.dueDate  BETWEEN #3/6/2024#  AND  #3/8/2024 9:05:00 AM#  ORDER "
     "BY tab_todo.dueDate ASC ",
     "2;3;4"},
    {"SELECT todoID FROM tab_ToDo WHERE tab_ToDo.alarmOn <> 0  AND  tab_ToDo.alarmDate < #2024-3-7 0:0:1# ", "1;3"},
    {" SELECT TODOID FROM tab_todo  WHERE todoID = 3 ", "3"},
    {" SELECT options FROM tab_option WHERE code = 'masterpwd'", ""},
    {" SELECT passwordID, userName, password FROM tab_password ", "1|0A|0B"},
    {" SELECT title FROM tab_Password WHERE PasswordID = 1 ", "post"},
    {"SELECT tab_password.title  FROM tab_password INNER JOIN tab_passwordCategory ON "
     "tab_password.passwordCategoryID = tab_passwordCategory.passwordCategoryID   WHERE ( "
     "tab_password.passwordCategoryID = 1 )",
     "post"},
    {" SELECT title FROM tab_password WHERE passwordID IN ( 1, 2)", "post"},
    {"SELECT  tab_passwordCategory.name FROM tab_passwordCategory  WHERE tab_passwordCategory.name =  'MAIL' ", "mail"},
    {"SELECT tab_note.content, color FROM tab_note ", "buy|yellow"},
    {" SELECT tab_category.categoryID, tab_category.name as categoryName, tab_memo.memoID as memoID, "
     "tab_memo.memoName, tab_memoType.name as memoType FROM tab_memoType INNER JOIN (tab_category INNER JOIN "
     "tab_memo ON tab_category.categoryID = tab_memo.categoryID) ON tab_memoType.memoTypeID = tab_memo.memoTypeID  "
     "WHERE 1 <> 1   OR ( tab_memo.memoName LIKE '%GRÖ%' )  OR ( tab_memo.memoNotes LIKE '%GRÖ%' )",
     "1|Code|3|größe|C++"},
    {" SELECT tab_category.categoryID, tab_category.name as categoryName, tab_todo.todoID, tab_todo.name as "
     "todoName, tab_todo.description, tab_todo.dateIn, tab_todo.dateLastMod  FROM tab_category INNER JOIN tab_todo "
     "ON tab_category.categoryID = tab_todo.categoryID  WHERE 1 <> 1   OR ( tab_todo.name LIKE '%DO 4%' )",
     "2|ToDo|4|todo 4|Null|Null|Null"},
    {" SELECT tab_category.categoryID, tab_category.name as categoryName, tab_bookmark.bookmarkID, "
     "tab_bookmark.name as bookmarkName, tab_bookmark.url FROM tab_category INNER JOIN tab_bookmark ON "
     "tab_category.categoryID = tab_bookmark.categoryID  WHERE 1 <> 1 ",
     ""},
    {"SELECT memoName FROM tab_memo WHERE snipVale LIKE '%привет 100[%]' AND memoName NOT LIKE 'f%' ORDER BY "
     "memoName",
     "größe;Strings"},
    {"SELECT memoName FROM tab_memo WHERE memoName IN ('FILES', 'nothing') OR memoName IS NULL", "Files"},
    {"SELECT COUNT(name) AS n FROM tab_todo GROUP BY done HAVING COUNT(name) > 2", "3"},
    {"SELECT name & '!' FROM tab_todo WHERE [todoID] = 1;", "todo 1!"},
};

// Each of these ends in a description, and changes nothing.
const Case refused[] = {
    {"SELECT * FROM tab_memo WHERE 1 <> 1   OR ( tab_memo.memoName LIKE '%O'Hara%' )", "Syntax error"},
    {"SELECT * FROM tab_memo WHERE memoName LIKE '%it's%'", "Syntax error"},
    {"SELECT * FROM tab_memo WHERE memoName LIKE '%[abc%'", "Invalid pattern"},
    {"UPDATE tab_todo SET dueDate = 'tomorrow'", "date"},
    {"UPDATE tab_todo SET dueDate = '2023-2-29'", "date"},
    {"UPDATE tab_todo SET priority = 'high'", "conversion"},
    {"UPDATE tab_todo SET priority = 40000", "Overflow"},
    {"UPDATE tab_todo SET priority = 1e999", "Overflow"},
    {"UPDATE tab_todo SET priority = 99999999999999999999", "Overflow"},
    {"UPDATE tab_todo SET nosuch = 1", "Unknown field"},
    {"UPDATE tab_todo SET tab_memo.name = 'x'", "tab_memo"},
    {"UPDATE tab_todo SET name = ", "value is missing"},
    {"UPDATE tab_todo SET categoryID = 77", "related record"},
    {"UPDATE tab_todo SET todoID = 5 WHERE todoID < 3", "duplicate"},
    {"SELECT * FROM tab_todo WHERE dueDate = '2024-3-7'", "mismatch"},
    {"SELECT * FROM tab_todo WHERE todoID IN ('1', '2')", "mismatch"},
    {"SELECT * FROM tab_todo WHERE name = 5", "mismatch"},
    {"SELECT nosuch FROM tab_memo", "nosuch"},
    {"SELECT * FROM nosuch", "nosuch"},
    {"INSERT INTO tab_option (code, options) VALUES ('x')", "not the same"},
    {"INSERT INTO tab_option (code) VALUES ('x', 'y')", "not the same"},
    {"INSERT INTO tab_option (code) VALUES ('x'), ('y')", "Syntax error"},
    {"INSERT INTO tab_option (code) SELECT name FROM tab_todo", "VALUES"},
    {"DROP TABLE tab_category", "refers to it"},
    {"", "Invalid SQL"},
    {"SELECT 1; DELETE * FROM tab_todo", "after end"},
    // Other files, settings and code.
    {"ATTACH DATABASE '/tmp/x' AS x", "Invalid SQL"},
    {"PRAGMA writable_schema = 1", "Invalid SQL"},
    {"VACUUM INTO '/tmp/x'", "Invalid SQL"},
    {"WITH x AS (SELECT 1) SELECT * FROM x", "Invalid SQL"},
    {"SELECT load_extension('/tmp/x') FROM tab_todo", "authorized"},
    {"SELECT writefile('/tmp/x', 'y') FROM tab_todo", "function"},
    {"SELECT fts3_tokenizer('x') FROM tab_todo", "authorized"},
    {"SELECT * FROM pragma_table_list", "authorized"},
    {"SELECT * FROM pragma_journal_mode", "authorized"},
    {"UPDATE sqlite_schema SET sql = ''", "sqlite_"},
    {"UPDATE tab_todo SET name = randomblob(9)", "authorized"},
    {"CREATE TABLE x (y LONG) AS SELECT 1", "Syntax error"},
    {"CREATE VIEW x AS SELECT 1", "TABLE"},
    {"CREATE TRIGGER x AFTER DELETE ON tab_todo BEGIN SELECT 1 END", "TABLE"},
};

} // namespace

void tst_Dialect::reads_data()
{
    QTest::addColumn<QString>("sql");
    QTest::addColumn<QString>("expected");
    for (const Case& row : readable)
        QTest::newRow(row.sql) << QString::fromUtf8(row.sql) << QString::fromUtf8(row.expected);
}

void tst_Dialect::reads()
{
    QFETCH(QString, sql);
    QFETCH(QString, expected);
    Filled filled;
    QCOMPARE(filled.rows(sql), expected);
}

void tst_Dialect::writes_data()
{
    QTest::addColumn<QString>("sql");
    QTest::addColumn<int>("changed");
    QTest::addColumn<QString>("query");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char* sql, int changed, const char* query, const char* expected) {
        QTest::newRow(sql) << QString::fromUtf8(sql) << changed << QString::fromUtf8(query)
                           << QString::fromUtf8(expected);
    };
    row("INSERT INTO tab_version (versionName, versionBuild, dateMod) VALUES ('3.0', 191, '2005-3-4 9:5:0')", 1,
        "SELECT versionID, versionName, versionBuild, dateMod FROM tab_version", "1|3.0|191|2005-03-04 09:05:00");
    row(" UPDATE tab_memoType SET  visible  = '0'  WHERE memoTypeID = 2 ", 1,
        "SELECT visible FROM tab_memoType WHERE memoTypeID = 2", "0");
    row("UPDATE tab_ToDo SET tab_todo.categoryID = 2 , tab_todo.name = 'O''Hara \"x\" #1' , tab_todo.startDate = Null "
        ",  tab_todo.dueDate = '2024-3-7' , tab_todo.alarmOn = 1 ,  tab_todo.alarmDate = '2024-3-7 9:5:0' , "
        "tab_todo.percentComplete = 50 , tab_todo.done = 1 ,  tab_ToDo.dateLastMod = '3/7/2024 9:05:00 PM'  WHERE "
        "(tab_ToDo.ToDoID = 5 ) ",
        1,
        "SELECT name, startDate, dueDate, alarmOn, alarmDate, percentComplete, done, dateLastMod FROM tab_todo WHERE "
        "todoID = 5",
        "O'Hara \"x\" #1|Null|2024-03-07 00:00:00|-1|2024-03-07 09:05:00|50|-1|2024-03-07 21:05:00");
    row("UPDATE tab_style SET tab_style.bold = '1' , tab_style.case = '1' , tab_style.fontName = null , "
        "tab_style.fontSize = '10' WHERE (tab_style.styleID = 1 ) ",
        1, "SELECT bold, case, fontName, fontSize FROM tab_style", "-1|1|Null|10");
    row("UPDATE tab_memo SET tab_memo.categoryID = 2  WHERE tab_memo.memoID IN ( 1, 3) ", 2,
        "SELECT memoID FROM tab_memo WHERE categoryID = 2", "1;3");
    row("DELETE * FROM tab_memo WHERE tab_memo.memoID IN ( 1, 3) ", 2, "SELECT memoID FROM tab_memo", "2");
    row("DELETE tab_todo.* FROM tab_todo WHERE done = true", 2, "SELECT todoID FROM tab_todo", "2;4;5");
    row("UPDATE tab_option SET tab_option.options = '(1);DROP TABLE tab_option--'  WHERE code ='MasterPwd' ", 1,
        "SELECT options FROM tab_option", "(1);DROP TABLE tab_option--");
    row("UPDATE tab_todo SET priority = todoID + 1, done = todoID - 4, name = 'n' & todoID, dueDate = dateIn WHERE "
        "todoID < 3",
        2, "SELECT priority, done, name, dueDate FROM tab_todo WHERE todoID < 3", "2|-1|n1|Null;3|-1|n2|Null");
    row("UPDATE tab_todo SET done = Null, priority = -1.5 WHERE todoID = 1", 1,
        "SELECT done, priority FROM tab_todo WHERE todoID = 1", "0|-2");
    row("UPDATE tab_note SET tab_note.noteDate = #12/31/2024 23:59:59#", 1, "SELECT noteDate FROM tab_note",
        "2024-12-31 23:59:59");
    row("UPDATE tab_password SET tab_password.passwordCategoryID = 0 WHERE tab_password.passwordCategoryID = 1", 1,
        "SELECT passwordCategoryID FROM tab_password", "0");
}

void tst_Dialect::writes()
{
    QFETCH(QString, sql);
    QFETCH(int, changed);
    QFETCH(QString, query);
    Filled filled;
    QCOMPARE(filled.connection.Execute(sql), changed);
    QTEST(filled.rows(query), "expected");
}

void tst_Dialect::refuses_data()
{
    QTest::addColumn<QString>("sql");
    QTest::addColumn<QString>("words");
    for (const Case& row : refused)
        QTest::newRow(row.sql) << QString::fromUtf8(row.sql) << QString::fromUtf8(row.expected);
}

void tst_Dialect::refuses()
{
    QFETCH(QString, sql);
    QFETCH(QString, words);
    static Filled filled; // none of the statements may change it
    const QString said = errorOf([&] {
        if (sql.startsWith(u"SELECT"_s))
            for (jet::Recordset set = filled.connection.OpenRecordset(sql); !set.eof();)
                set.moveNext();
        else
            filled.connection.Execute(sql);
    });
    QVERIFY2(said.contains(words), qPrintable(said));
    QCOMPARE(
        filled.rows(u"SELECT COUNT(todoID), MIN(categoryID), MIN(name), MAX(priority), MIN(dueDate) FROM tab_todo"_s),
        u"5|2|todo 1|Null|2024-03-05 09:05:00"_s);
    QCOMPARE(filled.connection.tables().size(), 11);
}

void tst_Dialect::cascades()
{
    Filled filled;
    filled.connection.Execute(u"UPDATE tab_category SET categoryID = 50 WHERE categoryID = 2"_s);
    QCOMPARE(filled.rows(u"SELECT COUNT(todoID) FROM tab_todo WHERE categoryID = 50"_s), u"5"_s);
    QCOMPARE(filled.connection.Execute(u"DELETE * FROM tab_category WHERE tab_category.categoryID IN (50,1) "_s), 2);
    QCOMPARE(filled.rows(u"SELECT COUNT(todoID) FROM tab_todo"_s), u"0"_s);
    QCOMPARE(filled.rows(u"SELECT COUNT(memoID) FROM tab_memo"_s), u"0"_s);
}

void tst_Dialect::definitions()
{
    JetFixture fixture;
    jet::Connection& c = fixture.connection;
    // The relation has made an index on its column. The program's own one takes its place.
    QCOMPARE(fixture.rows(u"SELECT name FROM sqlite_schema WHERE type = 'index' AND tbl_name = 'tab_todo'"_s),
             u"tab_todo.categoryID_IDX"_s);
    QCOMPARE(fixture.rows(u"SELECT name FROM sqlite_schema WHERE type = 'index' AND tbl_name = 'tab_memo'"_s),
             u"tab_memo.RfCategory_Memo"_s);
    QVERIFY(fixture.rows(u"SELECT sql FROM sqlite_schema WHERE name = 'tab_category'"_s).contains(u"AUTOINCREMENT"_s));

    c.Execute(
        u"CREATE TABLE [odd name] (id LONG NOT NULL PRIMARY KEY, t TEXT(5) UNIQUE, b YESNO DEFAULT TRUE, w TEXT(9) DEFAULT 'it''s', n BYTE DEFAULT 7)"_s);
    c.Execute(u"CREATE INDEX categoryID_IDX ON [ODD NAME] (n DESC, t)"_s); // a name of another table's index
    c.Execute(u"INSERT INTO [odd name] (id, t) VALUES (1, 'abcde')"_s);
    QCOMPARE(fixture.rows(u"SELECT b, w, n FROM [odd name]"_s), u"-1|it's|7"_s);
    QVERIFY(
        errorOf([&] { c.Execute(u"INSERT INTO [odd name] (id, t) VALUES (2, 'abcdef')"_s); }).contains(u"too small"_s));
    QVERIFY(errorOf([&] { c.Execute(u"INSERT INTO [odd name] (id, t) VALUES (1, 'x')"_s); }).contains(u"duplicate"_s));
    QVERIFY(errorOf([&] { c.Execute(u"INSERT INTO [odd name] (t) VALUES ('x')"_s); }).contains(u"required"_s));
    // A definition that fails halfway leaves nothing behind.
    QVERIFY(
        !errorOf([&] {
             c.Execute(
                 u"CREATE TABLE t2 (a LONG CONSTRAINT x REFERENCES tab_memo (memoID), b LONG CONSTRAINT x REFERENCES tab_memo (memoID))"_s);
         }).isEmpty());
    QVERIFY(!c.tables().contains(u"t2"_s));
    c.Execute(u"DROP INDEX categoryID_IDX ON [odd name]"_s);
    c.Execute(u"DROP TABLE [odd name]"_s);
    QVERIFY(!c.tables().contains(u"odd name"_s));
    for (const char* bad :
         {"CREATE TABLE x (a NOSUCH)", "CREATE TABLE x (a LONG", "CREATE TABLE x", "CREATE TABLE x (a TEXT(b))",
          "CREATE TABLE x (a LONG) x", "CREATE INDEX i ON tab_memo (nosuch)", "CREATE TABLE x (CONSTRAINT a b LONG)"})
        QVERIFY2(!errorOf([&] { c.Execute(QString::fromUtf8(bad)); }).isEmpty(), bad);
}

void tst_Dialect::columnNames()
{
    Filled filled;
    const jet::Recordset set = filled.connection.OpenRecordset(
        u"SELECT * FROM tab_category INNER JOIN tab_todo ON tab_category.categoryID = tab_todo.categoryID WHERE tab_todo.todoID = 1"_s);
    QCOMPARE(set.text(u"TAB_category.NAME"_s), u"ToDo"_s);
    QCOMPARE(set.text(u"tab_todo.name"_s), u"todo 1"_s);
    QCOMPARE(set.integer(u"ToDoID"_s), 1);
    QCOMPARE(set.integer(set.index(u"parentid"_s)), 0);
    QVERIFY(errorOf([&] { set.text(u"nosuch"_s); }).contains(u"nosuch"_s));
}

// A statement with two megabytes of code takes as long for each of them.
void tst_Dialect::longText()
{
    Filled filled;
    const QString code = u"it's; \"x\" #1 -- [a]\r\n"_s.repeated(100'000);
    QString quoted = code;
    quoted.replace(u'\'', u"''"_s);
    QElapsedTimer timer;
    timer.start();
    filled.connection.Execute(u"UPDATE tab_memo SET tab_memo.snipVale = '"_s + quoted +
                              u"' WHERE (tab_memo.memoID = 1 ) "_s);
    QVERIFY2(timer.elapsed() < 2000, qPrintable(QString::number(timer.elapsed())));
    QCOMPARE(filled.connection.OpenRecordset(u"SELECT snipVale FROM tab_memo WHERE memoID = 1"_s).text(0), code);
}

SNIPVALE_TEST(tst_Dialect)
#include "tst_Dialect.moc"
