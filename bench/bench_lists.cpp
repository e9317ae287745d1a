// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Sorting the list of a category by name and by date, beside sorting the same texts as they are.
#include "BenchArchive.h"

#include "explorer/ui/ElementLists.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <random>

using namespace Qt::StringLiterals;

namespace {

// As a category of one archive, its names in no order.
std::vector<MemoRow> rowsOf(int memos)
{
    NoQuestions questions;
    const SystemClock clock;
    Archive archive(questions, clock);
    archive.setPath(archiveWith(memos));
    std::vector<MemoRow> rows = readMemoRows(archive, 1);
    std::shuffle(rows.begin(), rows.end(), std::mt19937(1));
    return rows;
}

void sortList(benchmark::State& state)
{
    MemoList model;
    model.setRows(rowsOf(int(state.range(0))));
    auto order = Qt::DescendingOrder;
    for (auto _ : state) {
        model.sort(int(state.range(1)), order);
        order = order == Qt::AscendingOrder ? Qt::DescendingOrder : Qt::AscendingOrder;
    }
}

void sortTexts(benchmark::State& state)
{
    std::vector<QString> texts;
    for (const MemoRow& row : rowsOf(int(state.range(0))))
        texts.push_back(state.range(1) == 0 ? row.name : shortMoment(row.dateIn));
    for (auto _ : state) {
        std::vector<QString> sorted = texts;
        std::sort(sorted.begin(), sorted.end());
        benchmark::DoNotOptimize(sorted.data());
    }
}

} // namespace

BENCHMARK(sortTexts)->ArgsProduct({{1000, 100000}, {0, 1}})->Unit(benchmark::kMillisecond);
BENCHMARK(sortList)->ArgsProduct({{1000, 100000}, {0, 1}})->Unit(benchmark::kMillisecond);
BENCHMARK_MAIN();
