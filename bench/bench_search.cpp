// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
// A text looked for in name, code and notes of 100,000 memos, as the search pane does it, beside the same rows and
// columns read with plain SQLite and its own LIKE, and beside the sqlite3 shell.
#include "BenchArchive.h"

#include "explorer/Search.h"

#include <QFile>
#include <QProcess>
#include <benchmark/benchmark.h>
#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int memos = 100'000;

struct Word {
    const char* label;
    const char16_t* text;
    qint64 hits; // exact only where SQLite's LIKE knows the letters
};

constexpr Word words[] = {{"frequent", u"values", memos}, {"frequent, other case", u"VALUES", memos},
                          {"rare", u"number 4711", 11},   {"absent", u"nowhere to be found", 0},
                          {"Cyrillic", u"заметка", 100},  {"Cyrillic, other case", u"ЗАМЕТКА", 100}};

// The archive of the other benchmarks, with a Cyrillic word in the notes of each thousandth memo.
const QString& searchedArchive()
{
    static QString path;
    if (!path.isEmpty())
        return path;
    const QString plain = archiveWith(memos);
    path = plain + u".search"_s;
    if (!QFile::copy(plain, path))
        qFatal("the archive cannot be copied");
    NoQuestions questions;
    const SystemClock clock;
    Archive archive(questions, clock);
    archive.setPath(path);
    ArchiveUnit unit(archive);
    jet::Connection::Transaction transaction(unit.connection());
    for (int id = 1000; id <= memos; id += 1000)
        unit.Execute(u"UPDATE tab_memo SET memoNotes = 'Это заметка' WHERE memoID = "_s + QString::number(id));
    transaction.commit();
    return path;
}

void search(benchmark::State& state)
{
    const Word& word = words[state.range(0)];
    NoQuestions questions;
    const SystemClock clock;
    Archive archive(questions, clock);
    archive.setPath(searchedArchive());
    state.SetLabel(word.label);
    for (auto _ : state) {
        const std::vector<SearchHit> hits =
            searchElements(archive, ElementKind::Memo, QStringView(word.text).toString(), {}, [] { return true; });
        if (qint64(hits.size()) != word.hits)
            state.SkipWithError("wrong number of hits");
    }
}

QByteArray plainStatement(const Word& word)
{
    return u"SELECT memoID, categoryID, memoName, memoTypeID FROM tab_memo WHERE memoName LIKE '%%1%' OR snipVale "
           "LIKE '%%1%' OR memoNotes LIKE '%%1%'"_s.replace(u"%1"_s, QStringView(word.text).toString())
               .toUtf8();
}

void searchRaw(benchmark::State& state)
{
    struct Row {
        qint64 id, category, type;
        std::string name;
    };
    const Word& word = words[state.range(0)];
    const QByteArray path = searchedArchive().toUtf8(), sql = plainStatement(word);
    state.SetLabel(word.label);
    for (auto _ : state) {
        sqlite3* database = nullptr;
        sqlite3_stmt* row = nullptr;
        sqlite3_open_v2(path.constData(), &database, SQLITE_OPEN_READONLY, nullptr);
        if (sqlite3_prepare_v2(database, sql.constData(), -1, &row, nullptr) != SQLITE_OK)
            qFatal("%s", sqlite3_errmsg(database));
        std::vector<Row> rows;
        while (sqlite3_step(row) == SQLITE_ROW)
            rows.push_back({sqlite3_column_int64(row, 0), sqlite3_column_int64(row, 1), sqlite3_column_int64(row, 3),
                            reinterpret_cast<const char*>(sqlite3_column_text(row, 2))});
        benchmark::DoNotOptimize(rows.data());
        sqlite3_finalize(row);
        sqlite3_close(database);
    }
}

void searchShell(benchmark::State& state)
{
    const Word& word = words[state.range(0)];
    const QString sql = QString::fromUtf8(plainStatement(word));
    state.SetLabel(word.label);
    for (auto _ : state) {
        QProcess shell;
        shell.setStandardOutputFile(QProcess::nullDevice());
        shell.start(u"sqlite3"_s, {u"-readonly"_s, searchedArchive(), sql});
        if (!shell.waitForFinished() || shell.exitCode() != 0)
            state.SkipWithError("the shell did not run");
    }
}

} // namespace

BENCHMARK(searchRaw)->DenseRange(0, std::size(words) - 1)->Unit(benchmark::kMillisecond);
BENCHMARK(search)->DenseRange(0, std::size(words) - 1)->Unit(benchmark::kMillisecond);
BENCHMARK(searchShell)->DenseRange(0, std::size(words) - 1)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_MAIN();
