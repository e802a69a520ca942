// SPDX-License-Identifier: LicenseRef-Proprietary
// What it takes to hand a register table to a driver that does nothing, for each kind of table and
// several sizes, by the shell's function and by one that takes every element through its text.
#include "bench/tables/cases.h"

#include <benchmark/benchmark.h>

#include <string>

namespace
{

// The table's size, and which setter and kind it is.
void measure(benchmark::State &state)
{
    lua_State *const L = openTableCase(tableSetters[state.range(1)], tableKinds[state.range(2)],
                                       static_cast<int>(state.range(0)));
    for ([[maybe_unused]] auto _ : state) {
        callTableCase(L);
    }
    lua_close(L);
}

void add(int setter, int kind)
{
    const std::string name = std::string(tableSetters[setter].name) + "/" + tableKinds[kind].name;
    benchmark::internal::Benchmark *const added =
        benchmark::RegisterBenchmark(name.c_str(), measure);
    for (int size = 10; size <= 1'000'000; size *= 10) {
        added->Args({size, setter, kind});
    }
}

} // namespace

int main(int argc, char **argv)
{
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return EXIT_FAILURE;
    }
    for (int kind = 0; kind < tableKindCount; ++kind) {
        for (int setter = 0; setter < tableSetterCount; ++setter) {
            add(setter, kind);
        }
    }
    benchmark::RunSpecifiedBenchmarks();
}
