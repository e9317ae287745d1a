// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Opening a memo, filling the list of a category and saving a memo, each beside the same work on raw SQLite.
#include "BenchArchive.h"

#include "explorer/ui/ElementLists.h"
#include "memo/cMemo.h"

#include <QDir>
#include <benchmark/benchmark.h>
#include <cstring>
#include <sqlite3.h>
#include <string>

using namespace Qt::StringLiterals;

namespace {

struct Ours {
    explicit Ours(int memos) { archive.setPath(archiveWith(memos)); }
    NoQuestions questions;
    SystemClock clock;
    Archive archive{questions, clock};
};

// What a connection needs anyway: the same durability and foreign keys as the program's.
class Raw {
public:
    explicit Raw(const QByteArray& path)
    {
        sqlite3_open_v2(path.constData(), &m_db, SQLITE_OPEN_READWRITE, nullptr);
        sqlite3_exec(m_db, "PRAGMA synchronous=EXTRA; PRAGMA foreign_keys=ON", nullptr, nullptr, nullptr);
    }
    ~Raw() { sqlite3_close(m_db); }
    Raw(const Raw&) = delete;
    Raw& operator=(const Raw&) = delete;
    sqlite3_stmt* prepare(const char* sql)
    {
        sqlite3_stmt* statement = nullptr;
        if (sqlite3_prepare_v2(m_db, sql, -1, &statement, nullptr) != SQLITE_OK)
            qFatal("%s", sqlite3_errmsg(m_db));
        return statement;
    }

private:
    sqlite3* m_db = nullptr;
};

std::string textOf(sqlite3_stmt* row, int column)
{
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(row, column));
    return text ? std::string(text, size_t(sqlite3_column_bytes(row, column))) : std::string();
}

void openMemo(benchmark::State& state)
{
    Ours ours(int(state.range(0)));
    cMemo memo(ours.archive);
    for (auto _ : state) {
        memo.MemoID = qint32(state.range(0) / 2);
        if (!memo.Load())
            state.SkipWithError("not loaded");
    }
}

void openMemoRaw(benchmark::State& state)
{
    const QByteArray path = archiveWith(int(state.range(0))).toUtf8();
    for (auto _ : state) {
        Raw raw(path);
        sqlite3_stmt* row = raw.prepare("SELECT * FROM tab_memo WHERE memoID = ?");
        sqlite3_bind_int64(row, 1, state.range(0) / 2);
        if (sqlite3_step(row) == SQLITE_ROW)
            for (int column = 0; column < sqlite3_column_count(row); ++column)
                benchmark::DoNotOptimize(textOf(row, column));
        sqlite3_finalize(row);
    }
}

void fillList(benchmark::State& state)
{
    Ours ours(int(state.range(0)));
    MemoList model;
    for (auto _ : state) {
        model.read(ours.archive, 1);
        if (model.rowCount() != state.range(0))
            state.SkipWithError("rows are missing");
    }
}

void fillListRaw(benchmark::State& state)
{
    struct Row {
        qint64 id;
        std::string name, in, mod;
    };
    const QByteArray path = archiveWith(int(state.range(0))).toUtf8();
    for (auto _ : state) {
        Raw raw(path);
        std::vector<Row> rows;
        sqlite3_stmt* row =
            raw.prepare("SELECT memoID, memoName, dateIn, dateLastMod FROM tab_memo WHERE categoryID = 1");
        while (sqlite3_step(row) == SQLITE_ROW)
            rows.push_back({sqlite3_column_int64(row, 0), textOf(row, 1), textOf(row, 2), textOf(row, 3)});
        sqlite3_finalize(row);
        benchmark::DoNotOptimize(rows.data());
    }
}

void saveMemo(benchmark::State& state)
{
    Ours ours(int(state.range(0)));
    cMemo memo(ours.archive);
    memo.MemoID = qint32(state.range(0) / 2);
    memo.Load();
    int turn = 0;
    for (auto _ : state) {
        memo.MemoDescription = QString::number(++turn); // an unchanged row would not be written
        if (!memo.Update())
            state.SkipWithError("not saved");
    }
}

void saveMemoRaw(benchmark::State& state)
{
    const QByteArray path = archiveWith(int(state.range(0))).toUtf8();
    const std::string code(1000, 'x');
    int turn = 0;
    for (auto _ : state) {
        Raw raw(path);
        sqlite3_stmt* row = raw.prepare(
            "UPDATE tab_memo SET categoryID = 1, memoTypeID = 3, memoName = 'n', memoDescription = ?, memoLink = '', "
            "snipVale = ?, memoNotes = '', dateLastMod = '2026-03-04 09:05:00', openingState = 0 WHERE memoID = ?");
        const std::string text = "raw" + std::to_string(++turn);
        sqlite3_bind_text(row, 1, text.c_str(), -1, SQLITE_TRANSIENT);
        sqlite3_bind_text(row, 2, code.c_str(), -1, SQLITE_STATIC);
        sqlite3_bind_int64(row, 3, state.range(0) / 2);
        if (sqlite3_step(row) != SQLITE_DONE)
            state.SkipWithError("not saved");
        sqlite3_finalize(row);
    }
}

} // namespace

BENCHMARK(openMemoRaw)->RangeMultiplier(10)->Range(1000, 100000)->Unit(benchmark::kMicrosecond);
BENCHMARK(openMemo)->RangeMultiplier(10)->Range(1000, 100000)->Unit(benchmark::kMicrosecond);
BENCHMARK(fillListRaw)->RangeMultiplier(10)->Range(1000, 100000)->Unit(benchmark::kMillisecond);
BENCHMARK(fillList)->RangeMultiplier(10)->Range(1000, 100000)->Unit(benchmark::kMillisecond);
BENCHMARK(saveMemoRaw)->RangeMultiplier(10)->Range(1000, 100000)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(saveMemo)->RangeMultiplier(10)->Range(1000, 100000)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_MAIN();
