// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "jet/Dialect.h"

#include "jet/Query.h"
#include "jet/Tokenizer.h"

#include <map>

namespace jet {
namespace {

// SQLite's name of an index: it belongs to the file there, to its table here.
std::string indexName(const std::string& table, const std::string& name)
{
    return quotedName(table + "." + name);
}

std::string sqlLiteral(const Cell& value)
{
    if (const auto* integer = std::get_if<std::int64_t>(&value))
        return std::to_string(*integer);
    if (const auto* real = std::get_if<double>(&value))
        return std::to_string(*real);
    const auto* text = std::get_if<std::string>(&value);
    if (!text)
        return "NULL";
    std::string result = "'";
    for (const char c : *text)
        result.append(c == '\'' ? 2 : 1, c);
    return result + '\'';
}

class DefinitionTranslator {
public:
    DefinitionTranslator(TokenCursor cursor, sqlite3* database) : m_cursor(std::move(cursor)), m_database(database)
    {
        m_out.kind = Statement::Definition;
    }

    Statement run()
    {
        const bool create = m_cursor.take().is("CREATE");
        const bool unique = create && m_cursor.next("UNIQUE");
        if (m_cursor.next("INDEX")) {
            create ? createIndex(unique) : dropIndex();
        } else {
            m_cursor.need("TABLE");
            m_table = m_cursor.name();
            create ? createTable() : dropTable();
        }
        if (m_cursor.place() != m_cursor.end())
            fail("Syntax error in definition" + m_cursor.here());
        return std::move(m_out);
    }

private:
    void createIndex(bool unique)
    {
        const std::string index = m_cursor.name();
        m_cursor.need("ON");
        m_table = m_cursor.name();
        const std::string columns = columnList(true);
        m_out.sql = (unique ? "CREATE UNIQUE INDEX " : "CREATE INDEX ") + indexName(m_table, index) + " ON " +
            quotedName(m_table) + " (" + columns + ")";
        // A relation has made itself an index on its column. A second one would only cost writes.
        Query relation(m_database,
                       "SELECT name FROM sqlite_schema WHERE type = 'index' AND lower(tbl_name) = lower(?1) "
                       "AND sql = 'CREATE INDEX ' || '\"' || name || '\"' || ' ON ' || ?2 || ' (' || ?3 || ')'");
        relation.bind(1, m_table);
        relation.bind(2, quotedName(m_table));
        relation.bind(3, columns);
        while (relation.step())
            if (relation.text(0) != m_table + "." + index)
                m_out.then.push_back("DROP INDEX " + quotedName(relation.text(0)));
    }
    void dropIndex()
    {
        const std::string index = m_cursor.name();
        m_cursor.need("ON");
        m_out.sql = "DROP INDEX " + indexName(m_cursor.name(), index);
    }
    // SQLite would empty the table first and with it, by cascade, the tables that refer to it.
    void dropTable()
    {
        Query relation(m_database,
                       "SELECT s.name FROM sqlite_schema AS s, pragma_foreign_key_list(s.name) AS k "
                       "WHERE s.type = 'table' AND lower(k.\"table\") = lower(?1) AND lower(s.name) <> lower(?1)");
        relation.bind(1, m_table);
        if (relation.step())
            fail("Cannot delete the table '" + m_table + "': the table '" + std::string(relation.text(0)) +
                 "' refers to it.");
        m_out.sql = "DROP TABLE " + quotedName(m_table);
    }
    void createTable()
    {
        std::string items;
        m_cursor.need("(");
        do {
            items += (items.empty() ? "\n  " : ",\n  ") + tableItem();
        } while (m_cursor.next(","));
        m_cursor.need(")");
        m_out.sql = "CREATE TABLE " + quotedName(m_table) + " (" + items + m_constraints + "\n)";
    }
    std::string tableItem()
    {
        std::string constraint, prefix;
        if (m_cursor.next("CONSTRAINT")) {
            constraint = m_cursor.name();
            prefix = "CONSTRAINT " + quotedName(constraint) + " ";
        }
        if (m_cursor.peek().is("PRIMARY") && m_cursor.peek(1).is("KEY")) {
            m_cursor.goTo(m_cursor.place() + 2);
            return prefix + primaryKey(columnList(false));
        }
        if (m_cursor.peek().is("UNIQUE") && m_cursor.peek(1).is("("))
            return m_cursor.take(), prefix + "UNIQUE (" + columnList(false) + ")";
        if (m_cursor.peek().is("FOREIGN") && m_cursor.peek(1).is("KEY")) {
            m_cursor.goTo(m_cursor.place() + 2);
            const std::string columns = columnList(false);
            m_cursor.need("REFERENCES");
            return prefix + "FOREIGN KEY (" + columns + ")" +
                references(constraint.empty() ? "FK" : constraint, columns);
        }
        if (!constraint.empty())
            fail("Syntax error in CONSTRAINT clause" + m_cursor.here());
        return column();
    }
    // The columns in brackets. Text goes by its bytes: the order of letter cases is this program's own, and an
    // index in that order would be broken for every other program that writes the file.
    std::string columnList(bool exists)
    {
        std::string list;
        m_cursor.need("(");
        do {
            list += (list.empty() ? "" : ", ") + keyColumn(m_cursor.name(), exists);
            if (m_cursor.next("DESC"))
                list += " DESC";
            else
                m_cursor.next("ASC");
        } while (m_cursor.next(","));
        m_cursor.need(")");
        return list;
    }
    std::string keyColumn(const std::string& name, bool exists) const
    {
        std::optional<ColumnType> type;
        if (exists)
            type = columnType(m_database, m_table, name);
        else if (const auto known = m_types.find(upper(name)); known != m_types.end())
            type = known->second;
        if (!type)
            fail("Unknown field name: '" + m_table + "." + name + "'.");
        return quotedName(name) + (type->isText() ? " COLLATE BINARY" : "");
    }
    std::string primaryKey(const std::string& columns) const
    {
        return "PRIMARY KEY (" + columns + (columns == m_counter ? " AUTOINCREMENT)" : ")");
    }
    std::string references(const std::string& constraint, const std::string& columns)
    {
        std::string sql = " REFERENCES " + quotedName(m_cursor.name());
        if (m_cursor.next("(")) {
            sql += " (" + quotedName(m_cursor.name());
            while (m_cursor.next(","))
                sql += ", " + quotedName(m_cursor.name());
            m_cursor.need(")");
            sql += ")";
        }
        while (m_cursor.next("ON")) {
            const bool isUpdate = m_cursor.next("UPDATE");
            if (!isUpdate)
                m_cursor.need("DELETE");
            sql += isUpdate ? " ON UPDATE" : " ON DELETE";
            if (m_cursor.next("CASCADE")) {
                sql += " CASCADE";
            } else {
                m_cursor.need("SET");
                m_cursor.need("NULL");
                sql += " SET NULL";
            }
        }
        // SQLite keeps no index for a relation, and a cascade would read the whole table.
        m_out.then.push_back("CREATE INDEX " + indexName(m_table, constraint) + " ON " + quotedName(m_table) + " (" +
                             columns + ")");
        return sql;
    }
    std::string declaredType()
    {
        std::string type = upper(m_cursor.name());
        if (m_cursor.next("(")) {
            if (m_cursor.peek().kind != Token::Number)
                fail("Syntax error in field definition" + m_cursor.here());
            type += "(" + m_cursor.take().text + ")";
            m_cursor.need(")");
        }
        return type;
    }
    // The declared type keeps the dialect's own word: it is read back from the file, and a person sees it in the
    // shell. The CHECKs use built-in functions only: any SQLite can write the file, none can spoil it.
    std::string column()
    {
        const std::string name = m_cursor.name(), q = quotedName(name), declared = declaredType();
        const ColumnType type = typeFromName(declared);
        m_types[upper(name)] = type;
        std::string sql = q + " " + declared;
        switch (type.type) {
        case Type::Unknown:
            fail("Syntax error in field definition: unknown type '" + declared + "'.");
        case Type::Counter:
            m_counter = q;
            sql = q + " INTEGER"; // the one word that makes it the row's own key
            break;
        case Type::YesNo:
            sql = q + " YESNO NOT NULL" + defaultValue(name, type, " DEFAULT 0") + " CHECK (" + q + " IN (0, -1))";
            break;
        case Type::DateTime:
            sql += " CHECK (" + q + " IS datetime(" + q + ", '+0 days'))";
            break;
        case Type::Text: {
            const std::string size = std::to_string(type.size);
            sql = q + " TEXT(" + size + ") COLLATE NOCASE CHECK (length(" + q + ") <= " + size + ")";
            break;
        }
        case Type::LongText:
            sql = q + " LONGTEXT COLLATE NOCASE";
            break;
        case Type::Long:
        case Type::Short:
        case Type::Byte:
            sql += " CHECK (typeof(" + q + ") IN ('integer', 'null'))";
            break;
        default:
            break;
        }
        return sql + columnConstraints(name, type);
    }
    std::string defaultValue(const std::string& name, ColumnType type, const std::string& otherwise)
    {
        if (!m_cursor.next("DEFAULT"))
            return otherwise;
        const bool negative = m_cursor.next("-");
        const Token& token = m_cursor.take();
        auto value = literalValue(token, negative);
        if (!value)
            fail("Syntax error in field definition at '" + token.text + "'.");
        return " DEFAULT " + sqlLiteral(coerce(std::move(*value), type, name));
    }
    std::string columnConstraints(const std::string& name, ColumnType type)
    {
        std::string sql, constraint = name + "_FK";
        while (!m_cursor.peek().is(",") && !m_cursor.peek().is(")")) {
            if (m_cursor.peek().is("DEFAULT")) {
                sql += defaultValue(name, type, {});
            } else if (m_cursor.next("CONSTRAINT")) {
                constraint = m_cursor.name();
                if (m_cursor.peek().is("REFERENCES"))
                    sql += " CONSTRAINT " + quotedName(constraint);
            } else if (m_cursor.next("NOT")) {
                m_cursor.need("NULL");
                sql += type.type == Type::YesNo ? "" : " NOT NULL";
            } else if (m_cursor.next("PRIMARY")) {
                m_cursor.need("KEY");
                m_constraints += ",\n  " + primaryKey(keyColumn(name, false));
            } else if (m_cursor.next("UNIQUE")) {
                m_constraints += ",\n  UNIQUE (" + keyColumn(name, false) + ")";
            } else {
                m_cursor.need("REFERENCES");
                sql += references(constraint, keyColumn(name, false));
            }
        }
        return sql;
    }

    TokenCursor m_cursor;
    sqlite3* m_database;
    Statement m_out;
    std::string m_table;
    std::string m_counter; // the quoted name of the COUNTER column
    std::string m_constraints; // of columns, moved behind them all
    std::map<std::string, ColumnType> m_types;
};

} // namespace

Statement translateDefinition(TokenCursor cursor, sqlite3* database)
{
    return DefinitionTranslator(std::move(cursor), database).run();
}

} // namespace jet
