// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later

// makearchive FOLDER FILE: builds the empty archive FILE from the recipe in FOLDER (see its README.md).
// Any doubtful line of the recipe ends it with "file:line: what is wrong" and the exit code 1; FILE is then as
// it was before. The same recipe always gives the same bytes.

#include "jet/Connection.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QHash>
#include <QSet>
#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

// A fault of the recipe and where it stands; line 0 means the file as a whole.
class RecipeError : public std::runtime_error {
public:
    RecipeError(const QString& file, qsizetype line, const QString& what)
        : std::runtime_error(QString(file + (line > 0 ? u":%1: "_s.arg(line) : u": "_s) + what).toStdString())
    {
    }
};

QStringList linesOf(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw RecipeError(path, 0, file.errorString());
    const QString text = QString::fromUtf8(file.readAll());
    if (text.contains(QChar::ReplacementCharacter) || text.contains(u'\r'))
        throw RecipeError(path, 0, u"must be UTF-8 with line feeds alone"_s);
    if (!text.isEmpty() && !text.endsWith(u'\n'))
        throw RecipeError(path, text.count(u'\n') + 1, u"the last line is not ended"_s);
    QStringList lines = text.split(u'\n');
    lines.removeLast();
    return lines;
}

// A table of the recipe: fields between tabs, "#" starts a comment line, empty lines count for nothing.
class Table {
public:
    struct Row {
        qsizetype line;
        QStringList fields;
    };

    Table(const QString& path, int columns) : m_path(path)
    {
        const QStringList lines = linesOf(path);
        for (qsizetype i = 0; i < lines.size(); ++i) {
            if (lines[i].isEmpty() || lines[i].startsWith(u'#'))
                continue;
            const Row row{i + 1, lines[i].split(u'\t')};
            if (row.fields.size() != columns)
                fail(row, u"%1 fields, expected %2"_s.arg(row.fields.size()).arg(columns));
            for (const QString& field : row.fields)
                if (field.isEmpty() || field != field.trimmed())
                    fail(row, u"a field is empty or has blanks around it"_s);
            m_rows.append(row);
        }
    }

    [[noreturn]] void fail(const Row& row, const QString& what) const { throw RecipeError(m_path, row.line, what); }

    int number(const Row& row, int field, int most) const
    {
        bool ok = false;
        const int value = row.fields[field].toInt(&ok);
        if (!ok || value < 0 || value > most || QString::number(value) != row.fields[field])
            fail(row, u"'%1' is no number from 0 to %2"_s.arg(row.fields[field]).arg(most));
        return value;
    }

    const QList<Row>& rows() const { return m_rows; }

private:
    QString m_path;
    QList<Row> m_rows;
};

struct Look {
    qint64 fore = 0; // 0x00BBGGRR
    qint64 back = 0;
    bool bold = false, italic = false, underline = false;
};

struct Style {
    qint64 number = 0;
    QString description;
    Look look;
};

struct Language {
    qint64 id = 0;
    bool enabled = false, visible = false;
    QString lexerCode, family, name, description, keywords;
};

struct Recipe {
    QList<Language> languages;
    QHash<QString, QList<Style>> families;
};

const QString commonFamily = u"common"_s;
const QString noFamily = u"-"_s;

qint64 colour(const Table& table, const Table::Row& row, int field)
{
    const QString text = row.fields[field];
    bool ok = false;
    const uint rgb = QStringView(text).mid(1).toUInt(&ok, 16);
    if (!ok || text.size() != 7 || text[0] != u'#')
        table.fail(row, u"'%1' is no colour #RRGGBB"_s.arg(text));
    return qint64(rgb & 0xFF) << 16 | (rgb & 0xFF00) | rgb >> 16;
}

QHash<QString, Look> readPalette(const QString& folder)
{
    const Table table(folder + u"/palette.tsv"_s, 4);
    QHash<QString, Look> palette;
    for (const Table::Row& row : table.rows()) {
        Look look{colour(table, row, 1), colour(table, row, 2)};
        const QStringList words = row.fields[3] == u"-"_s ? QStringList() : row.fields[3].split(u' ');
        for (const QString& word : words) {
            bool* const flag = word == u"bold"_s ? &look.bold
                : word == u"italic"_s            ? &look.italic
                : word == u"underline"_s         ? &look.underline
                                                 : nullptr;
            if (!flag || *flag)
                table.fail(row, u"'%1' is none of bold, italic, underline, or stands twice"_s.arg(word));
            *flag = true;
        }
        if (palette.contains(row.fields[0]))
            table.fail(row, u"the role '%1' stands twice"_s.arg(row.fields[0]));
        palette.insert(row.fields[0], look);
    }
    return palette;
}

QHash<QString, QList<Style>> readStyles(const QString& folder, const QHash<QString, Look>& palette)
{
    const Table table(folder + u"/styles.tsv"_s, 4);
    QHash<QString, QList<Style>> families;
    QSet<QString> roles;
    for (const Table::Row& row : table.rows()) {
        const int number = table.number(row, 1, 255);
        const auto look = palette.constFind(row.fields[3]);
        if (look == palette.constEnd())
            table.fail(row, u"palette.tsv has no role '%1'"_s.arg(row.fields[3]));
        if ((number >= 32 && number <= 39) != (row.fields[0] == commonFamily))
            table.fail(row, u"the numbers 32 to 39 are those of the family '%1'"_s.arg(commonFamily));
        QList<Style>& styles = families[row.fields[0]];
        if (std::any_of(styles.begin(), styles.end(), [=](const Style& s) { return s.number == number; }))
            table.fail(row, u"the style %1 stands twice"_s.arg(number));
        styles.append({number, row.fields[2], *look});
        roles.insert(row.fields[3]);
    }
    for (auto role = palette.keyBegin(); role != palette.keyEnd(); ++role)
        if (!roles.contains(*role))
            throw RecipeError(folder + u"/palette.tsv"_s, 0, u"no style has the role '%1'"_s.arg(*role));
    return families;
}

// The words of one list as they are stored, blanks between them. A language without a file has none.
QString readKeywords(const QString& path)
{
    if (!QFile::exists(path))
        return {};
    QStringList words;
    QSet<QString> seen;
    const QStringList lines = linesOf(path);
    for (qsizetype i = 0; i < lines.size(); ++i) {
        const QStringList here = lines[i].split(u' ');
        for (const QString& word : here) {
            if (word.isEmpty() || word.contains(u'\t'))
                throw RecipeError(path, i + 1, u"words stand with one blank between them"_s);
            if (seen.contains(word))
                throw RecipeError(path, i + 1, u"'%1' stands twice"_s.arg(word));
            seen.insert(word);
        }
        words += here;
    }
    return words.join(u' ');
}

void checkLanguage(const Table& table, const Table::Row& row, const Language& language, const QList<Language>& others)
{
    for (const Language& other : others) {
        if (other.id == language.id || other.name == language.name)
            table.fail(row, u"the number or the name stands twice"_s);
        if (other.lexerCode == language.lexerCode && other.family != language.family)
            table.fail(row, u"'%1' has styles of another family above"_s.arg(language.lexerCode));
    }
}

// A file of keywords or a family of styles that no language uses is a slip of the pen.
void checkAllUsed(const QString& folder, const Recipe& recipe)
{
    QSet<QString> codes, families{commonFamily};
    for (const Language& language : recipe.languages) {
        codes.insert(language.lexerCode);
        families.insert(language.family);
    }
    const QDir keywords(folder + u"/keywords"_s);
    for (const QString& file : keywords.entryList(QDir::Files))
        if (!file.endsWith(u".txt"_s) || !codes.contains(file.chopped(4)))
            throw RecipeError(keywords.filePath(file), 0, u"no language has this lexerCode"_s);
    for (auto family = recipe.families.keyBegin(); family != recipe.families.keyEnd(); ++family)
        if (!families.contains(*family))
            throw RecipeError(folder + u"/styles.tsv"_s, 0, u"no language uses the family '%1'"_s.arg(*family));
}

Recipe readRecipe(const QString& folder)
{
    Recipe recipe;
    recipe.families = readStyles(folder, readPalette(folder));
    const Table table(folder + u"/languages.tsv"_s, 7);
    for (const Table::Row& row : table.rows()) {
        Language language;
        language.id = table.number(row, 0, 1'000'000);
        language.enabled = table.number(row, 1, 1) != 0;
        language.visible = table.number(row, 2, 1) != 0;
        language.lexerCode = row.fields[3];
        language.family = row.fields[4];
        language.name = row.fields[5];
        language.description = row.fields[6];
        if (language.family != noFamily && !recipe.families.contains(language.family))
            table.fail(row, u"styles.tsv has no family '%1'"_s.arg(language.family));
        checkLanguage(table, row, language, recipe.languages);
        language.keywords = readKeywords(folder + u"/keywords/%1.txt"_s.arg(language.lexerCode));
        recipe.languages.append(language);
    }
    checkAllUsed(folder, recipe);
    return recipe;
}

void runSchema(jet::Connection& connection, const QString& path)
{
    const QStringList lines = linesOf(path);
    QString statement;
    qsizetype start = 0;
    for (qsizetype i = 0; i < lines.size(); ++i) {
        if (lines[i].startsWith(u"--"_s) || (statement.isEmpty() && lines[i].trimmed().isEmpty()))
            continue;
        if (lines[i] != u";"_s) {
            if (statement.isEmpty())
                start = i + 1;
            statement += lines[i] + u'\n';
            continue;
        }
        if (statement.isEmpty())
            throw RecipeError(path, i + 1, u"no statement before the ';'"_s);
        try {
            connection.Execute(statement);
        } catch (const jet::Error& error) {
            throw RecipeError(path, start, QString::fromUtf8(error.what()));
        }
        statement.clear();
    }
    if (!statement.isEmpty())
        throw RecipeError(path, start, u"no ';' ends the statement"_s);
}

void addLanguages(jet::Connection& connection, const QList<Language>& languages)
{
    jet::Recordset rows = connection.OpenRecordset(u"SELECT * FROM tab_memoType WHERE 1=2"_s);
    for (const Language& language : languages) {
        rows.AddNew(
            {u"memoTypeID"_s, u"name"_s, u"description"_s, u"lexerCode"_s, u"keywords"_s, u"enabled"_s, u"visible"_s},
            {language.id, language.name, language.description, language.lexerCode, language.keywords, language.enabled,
             language.visible});
        rows.Update();
    }
}

// Fonts and sizes stay Null: the editor's own.
void addStyle(jet::Recordset& rows, const QString& lexerCode, const Style& style)
{
    rows.AddNew({u"lexerCode"_s, u"styleNumber"_s, u"styleDescription"_s, u"foreColor"_s, u"backColor"_s, u"bold"_s,
                 u"italic"_s, u"underline"_s, u"invisible"_s, u"case"_s, u"enable"_s},
                {lexerCode, style.number, style.description, style.look.fore, style.look.back, style.look.bold,
                 style.look.italic, style.look.underline, false, qint64(0), true});
    rows.Update();
}

void addStyles(jet::Connection& connection, const Recipe& recipe)
{
    jet::Recordset rows = connection.OpenRecordset(u"SELECT * FROM tab_style WHERE 1=2"_s);
    QSet<QString> done;
    for (const Language& language : recipe.languages) {
        if (language.family == noFamily || done.contains(language.lexerCode))
            continue;
        done.insert(language.lexerCode);
        QList<Style> styles = recipe.families[commonFamily];
        if (language.family != commonFamily)
            styles += recipe.families[language.family];
        std::sort(styles.begin(), styles.end(), [](const Style& a, const Style& b) { return a.number < b.number; });
        for (const Style& style : std::as_const(styles))
            addStyle(rows, language.lexerCode, style);
    }
}

void build(const QString& folder, const QString& output)
{
    const Recipe recipe = readRecipe(folder);
    const QString temporary = output + u".new"_s;
    QFile::remove(temporary);
    QFile::remove(temporary + u"-journal"_s);
    jet::Connection connection;
    connection.Create(temporary);
    {
        jet::Connection::Transaction all(connection);
        runSchema(connection, folder + u"/schema.sql"_s);
        addLanguages(connection, recipe.languages);
        addStyles(connection, recipe);
        all.commit();
    }
    connection.Close();
    std::filesystem::rename(temporary.toStdU16String(), output.toStdU16String());
}

} // namespace

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 3) {
        std::fputs("usage: makearchive RECIPE-FOLDER ARCHIVE-FILE\n", stderr);
        return 2;
    }
    try {
        build(arguments[1], arguments[2]);
        return 0;
    } catch (const std::exception& error) {
        QFile::remove(arguments[2] + u".new"_s);
        QFile::remove(arguments[2] + u".new-journal"_s);
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
}
