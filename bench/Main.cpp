// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "Measuring.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <string_view>

/// First the goals, each measured against its yardstick in the same run, then the figures of Google Benchmark. With
/// --goals the former alone. Ends with 1 when a goal was missed.
int main(int argc, char** argv) {
    using namespace zamber::bench;
    if (argc == 4 && std::string_view(argv[1]) == "--memory") {
        return tellMemory(argv[2], argv[3]);
    }
    const bool goalsAlone = argc == 2 && std::string_view(argv[1]) == "--goals";
    benchmark::Initialize(&argc, argv);
    measureHistoryFile();
    measureHistoryReaders();
    measureScripts();
    measureHistoryStore();
    std::fflush(stdout);
    if (!goalsAlone) {
        benchmark::RunSpecifiedBenchmarks();
    }
    return missedGoals() == 0 ? 0 : 1;
}
