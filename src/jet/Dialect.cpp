// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "jet/Dialect.h"

#include "jet/Dates.h"
#include "jet/Query.h"
#include "jet/Tokenizer.h"

#include <array>

namespace jet {
namespace {

// Words that are never a column or a table. CASE is not among them: the dialect has no CASE expression.
constexpr std::array<std::string_view, 35> keywords{
    "SELECT",  "DISTINCT", "DISTINCTROW", "FROM", "WHERE",  "AND",   "OR",   "NOT",   "IN",
    "BETWEEN", "LIKE",     "ALIKE",       "IS",   "NULL",   "ORDER", "BY",   "GROUP", "HAVING",
    "ASC",     "DESC",     "INNER",       "LEFT", "RIGHT",  "OUTER", "JOIN", "ON",    "AS",
    "TRUE",    "FALSE",    "UPDATE",      "SET",  "DELETE", "UNION", "ALL",  "EXISTS"};

bool isKeyword(const Token& token)
{
    return token.kind == Token::Word && std::find(keywords.begin(), keywords.end(), token.key) != keywords.end();
}

bool isName(const Token& token)
{
    return token.kind == Token::Name || (token.kind == Token::Word && !isKeyword(token));
}

bool isLiteral(const Token& token)
{
    return token.kind == Token::Text || token.kind == Token::Date || token.kind == Token::Number;
}

std::string_view keywordOfSqlite(const Token& token)
{
    if (token.is("TRUE"))
        return "-1";
    if (token.is("FALSE"))
        return "0";
    if (token.is("ALIKE"))
        return "LIKE";
    return token.is("DISTINCTROW") ? std::string_view("DISTINCT") : std::string_view(token.key);
}

class Translator {
public:
    Translator(TokenCursor cursor, sqlite3* database) : m_cursor(std::move(cursor)), m_database(database) { }

    Statement run()
    {
        findTables();
        m_out.kind = m_cursor.peek().is("SELECT") ? Statement::Query : Statement::Change;
        if (m_cursor.next("INSERT")) {
            insert();
            return std::move(m_out);
        }
        if (m_cursor.next("DELETE")) { // DELETE * FROM t, DELETE t.* FROM t
            put("DELETE");
            m_cursor.goTo(m_cursor.find({"FROM"}));
        } else if (m_cursor.next("UPDATE")) {
            update();
        }
        copyUntil(m_cursor.end());
        return std::move(m_out);
    }

private:
    struct Table {
        std::string usedName; // in upper case
        std::string table;
    };
    // What a literal would be compared with at this place of a condition.
    struct Criteria {
        std::optional<ColumnType> left;
        bool between = false, like = false, list = false;
    };

    void put(std::string_view text)
    {
        if (!m_out.sql.empty())
            m_out.sql += ' ';
        m_out.sql += text;
    }
    void bind(Cell value)
    {
        put("?");
        m_out.binds.push_back(std::move(value));
    }

    void findTables()
    {
        bool expected = false;
        for (size_t i = 0; i < m_cursor.end(); ++i) {
            const Token& token = m_cursor.at(i);
            if (token.is("FROM") || token.is("UPDATE") || token.is("JOIN") || token.is("INTO")) {
                expected = true;
            } else if (isKeyword(token) || token.is("VALUES")) {
                expected = expected && token.is("INNER");
            } else if (expected && isName(token)) {
                const size_t as = m_cursor.at(i + 1).is("AS") ? 1 : 0;
                const bool alias = isName(m_cursor.at(i + 1 + as));
                m_tables.push_back({upper(m_cursor.at(alias ? i + 1 + as : i).text), token.text});
                i += alias ? 1 + as : 0;
            }
        }
    }
    std::optional<ColumnType> typeOf(const std::string& table, const std::string& column) const
    {
        const std::string wanted = upper(table);
        for (const Table& t : m_tables)
            if (wanted.empty() || t.usedName == wanted)
                if (const auto type = columnType(m_database, t.table, column))
                    return type;
        return std::nullopt;
    }

    // Nothing is converted in a comparison: text against a number or a date finds nothing by accident.
    static void checkCompared(const Criteria& criteria, Token::Kind literal)
    {
        if (!criteria.left || criteria.like || criteria.left->type == Type::Unknown)
            return;
        if ((literal == Token::Text) != criteria.left->isText() ||
            (literal == Token::Date) != (criteria.left->type == Type::DateTime))
            fail("Data type mismatch in criteria expression.");
    }

    // Copies the tokens: names quoted, literals bound, the dialect's words replaced.
    void copyUntil(size_t end)
    {
        Criteria criteria;
        while (m_cursor.place() < end) {
            const Token& token = m_cursor.peek();
            if (isLiteral(token))
                copyLiteral(criteria);
            else if (token.kind == Token::Symbol)
                copySymbol(criteria);
            else if (isKeyword(token))
                copyKeyword(criteria);
            else if (token.kind == Token::Word && m_cursor.peek(1).is("("))
                copyFunction();
            else
                copyName(criteria);
        }
    }
    void copyFunction()
    {
        const bool countsKey = m_tables.size() == 1 && m_cursor.peek().is("COUNT") && isName(m_cursor.peek(2)) &&
            m_cursor.peek(3).is(")") && isCounterKey(m_database, m_tables.front().table, m_cursor.peek(2).text);
        put(m_cursor.take().text);
        if (!countsKey)
            return;
        // A key is never Null, so this is the number of rows, which SQLite knows without visiting each.
        put("( * )");
        m_cursor.goTo(m_cursor.place() + 3);
    }
    void copyLiteral(const Criteria& criteria)
    {
        const Token& token = m_cursor.take();
        checkCompared(criteria, token.kind);
        if (token.kind == Token::Text)
            bind(token.text);
        else if (token.kind == Token::Date)
            bind(parseDate(token.text, DateOrder::MonthFirst));
        else
            put(token.text); // ORDER BY 1 stays an ordinal
    }
    void copySymbol(Criteria& criteria)
    {
        const bool afterIn = m_cursor.place() && m_cursor.at(m_cursor.place() - 1).is("IN");
        const Token& token = m_cursor.take();
        put(token.is("&") ? std::string_view("||") : std::string_view(token.text));
        if (token.is("("))
            criteria.list = criteria.list || afterIn;
        else if (token.is(")") || token.is("&") || (token.is(",") && !criteria.list))
            criteria = {};
    }
    void copyKeyword(Criteria& criteria)
    {
        const Token& token = m_cursor.take();
        put(keywordOfSqlite(token));
        criteria.like = token.is("LIKE") || token.is("ALIKE");
        const bool stays = token.is("AND") ? criteria.between
                                           : criteria.like || token.is("NOT") || token.is("IN") || token.is("BETWEEN");
        if (!stays)
            criteria.left.reset();
        criteria.between = token.is("BETWEEN");
    }
    void copyName(Criteria& criteria)
    {
        std::string table, column = m_cursor.take().text;
        if (m_cursor.next(".")) {
            table = std::move(column);
            column = m_cursor.next("*") ? "*" : m_cursor.name();
            put(quotedName(table) + "." + (column == "*" ? column : quotedName(column)));
        } else {
            put(quotedName(column));
        }
        if (const auto type = typeOf(table, column))
            criteria.left = type;
    }

    // The right side of an assignment. A literal is converted here and now, by the function that AddNew uses
    // too; anything else is computed by SQLite and converted there by jet_store().
    void assign(const std::string& column, ColumnType type, size_t end)
    {
        if (m_cursor.place() == end)
            fail("Syntax error: a value is missing" + m_cursor.here());
        const size_t sign = m_cursor.peek().is("-") ? 1 : 0;
        const Token& token = m_cursor.peek(sign);
        const bool alone = end == m_cursor.place() + sign + 1;
        if (alone && (token.kind == Token::Number || (!sign && !isName(token)))) {
            auto value = literalValue(token, sign == 1);
            if (!value)
                fail("Syntax error in the value" + m_cursor.here());
            bind(coerce(std::move(*value), type, column));
            m_cursor.goTo(end);
            return;
        }
        put("jet_store(" + std::to_string(int(type.type)) + "," + std::to_string(type.size) + ",");
        bind(column);
        put(",");
        copyUntil(end);
        put(")");
    }
    // A column that is written to, with or without its table in front. SQLite wants it without.
    std::string target(const std::string& table)
    {
        std::string column = m_cursor.name();
        if (!m_cursor.next("."))
            return column;
        if (upper(column) != upper(table))
            fail("Only columns of the table '" + table + "' can be written here, none of '" + column + "'.");
        return m_cursor.name();
    }
    ColumnType targetType(const std::string& table, const std::string& column) const
    {
        const auto type = columnType(m_database, table, column);
        if (!type)
            fail("Unknown field name: '" + table + "." + column + "'.");
        return *type;
    }

    void update()
    {
        const std::string table = m_cursor.name();
        put("UPDATE " + quotedName(table) + " SET");
        m_cursor.need("SET");
        for (;;) {
            const std::string column = target(table);
            m_cursor.need("=");
            put(quotedName(column) + " =");
            assign(column, targetType(table, column), m_cursor.find({",", "WHERE"}));
            if (!m_cursor.next(","))
                break;
            put(",");
        }
    }
    void insert()
    {
        m_cursor.need("INTO");
        const std::string table = m_cursor.name();
        std::vector<std::string> columns;
        std::string list;
        m_cursor.need("(");
        do {
            columns.push_back(target(table));
            list += (list.empty() ? "" : ", ") + quotedName(columns.back());
        } while (m_cursor.next(","));
        m_cursor.need(")");
        m_cursor.need("VALUES");
        m_cursor.need("(");
        put("INSERT INTO " + quotedName(table) + " (" + list + ") VALUES (");
        size_t count = 0;
        do {
            if (count == columns.size())
                failUnequal();
            if (count)
                put(",");
            assign(columns[count], targetType(table, columns[count]), m_cursor.find({",", ")"}));
            ++count;
        } while (m_cursor.next(","));
        m_cursor.need(")");
        put(")");
        if (count != columns.size())
            failUnequal();
        if (m_cursor.place() != m_cursor.end())
            fail("Syntax error in INSERT INTO statement" + m_cursor.here());
    }
    [[noreturn]] static void failUnequal() { fail("Number of query values and destination fields are not the same."); }

    TokenCursor m_cursor;
    sqlite3* m_database;
    Statement m_out;
    std::vector<Table> m_tables;
};

} // namespace

std::optional<Cell> literalValue(const Token& token, bool negative)
{
    if (token.kind == Token::Number)
        return numberCell(token.text, negative);
    if (token.kind == Token::Text)
        return token.text;
    if (token.kind == Token::Date)
        return parseDate(token.text, DateOrder::MonthFirst);
    if (token.is("TRUE") || token.is("FALSE"))
        return std::int64_t(token.is("TRUE") ? -1 : 0);
    return token.is("NULL") ? std::optional<Cell>(Cell()) : std::nullopt;
}

std::string quotedName(std::string_view name)
{
    std::string result = "\"";
    for (const char c : name)
        result.append(c == '"' ? 2 : 1, c);
    return result + '"';
}

Statement translate(std::string_view sql, sqlite3* database)
{
    TokenCursor cursor{Tokens(sql)};
    const Token& first = cursor.peek();
    if (first.is("CREATE") || first.is("DROP"))
        return translateDefinition(std::move(cursor), database);
    if (!first.is("SELECT") && !first.is("INSERT") && !first.is("UPDATE") && !first.is("DELETE"))
        fail("Invalid SQL statement; expected 'DELETE', 'INSERT', 'SELECT' or 'UPDATE'.");
    return Translator(std::move(cursor), database).run();
}

} // namespace jet
