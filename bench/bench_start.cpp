// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
// From exec to the first painted frame: the program on archives of growing size beside an empty window (menus, a tool
// bar, a tree, an editor, no data) that links the same libraries, and beside a bare one.
#include "BenchArchive.h"

#include <QFile>
#include <QFileInfo>
#include <benchmark/benchmark.h>
#include <spawn.h>
#include <sys/wait.h>

using namespace Qt::StringLiterals;

extern char** environ;

namespace {

bool startOnce(const QByteArray& argument)
{
    QByteArray program = START_ONCE;
    QByteArray parameter = argument;
    char* const arguments[] = {program.data(), parameter.data(), nullptr};
    pid_t child = 0;
    if (posix_spawn(&child, START_ONCE, nullptr, nullptr, arguments, environ) != 0)
        return false;
    int status = 0;
    return waitpid(child, &status, 0) == child && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

void emptyWindow(benchmark::State& state)
{
    for (auto _ : state)
        if (!startOnce("empty"))
            state.SkipWithError("did not start");
}

void bareWindow(benchmark::State& state)
{
    for (auto _ : state)
        if (!startOnce("bare"))
            state.SkipWithError("did not start");
}

void program(benchmark::State& state)
{
    const QString archive = archiveWith(int(state.range(0)));
    const QString home = QFileInfo(archive).absolutePath();
    QFile ini(home + u"/snipvale.ini"_s);
    if (!ini.open(QIODevice::WriteOnly))
        state.SkipWithError("no settings");
    ini.write("[setup]\ndbfullpath=" + archive.toUtf8() + "\n[preferences]\nxplook=1\n");
    ini.close();
    for (auto _ : state)
        if (!startOnce(home.toLocal8Bit()))
            state.SkipWithError("did not start");
}

} // namespace

BENCHMARK(bareWindow)->Unit(benchmark::kMillisecond)->UseRealTime()->MinTime(2);
BENCHMARK(emptyWindow)->Unit(benchmark::kMillisecond)->UseRealTime()->MinTime(2);
BENCHMARK(program)->RangeMultiplier(10)->Range(1000, 100000)->Unit(benchmark::kMillisecond)->UseRealTime()->MinTime(2);
BENCHMARK(emptyWindow)->Unit(benchmark::kMillisecond)->UseRealTime()->MinTime(2);
BENCHMARK_MAIN();
