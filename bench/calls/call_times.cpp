// SPDX-License-Identifier: LicenseRef-Proprietary
// How long calls take in a Lua loop: of the functions of the shell (radio/...), of those written by
// hand (yardstick/...), and of one that does nothing (empty/...). One iteration is one round.
#include "bench/calls/both_makes.h"

#include <benchmark/benchmark.h>

#include <string>

namespace
{

constexpr int roundsAtOnce = 1000; // so that entering the loop does not count

struct Call {
    const char *function;
    const char *text;
};

constexpr Call calls[] = {
    {"radioSetTxFrequency", "f(2140000000)"}, {"radioSetTxState", "f(0)"},
    {"radioSetTxDcOffset", "f(1, 5, -5)"},    {"radioLoadCalibrationFile", "f('board.cal')"},
    {"radioGetTemperature", "local x = f()"}, {"radioSpiWrite", "f(16, 255)"},
};

void measure(benchmark::State &state, lua_State *L, int loop)
{
    while (state.KeepRunningBatch(roundsAtOnce)) {
        runLoop(L, loop, roundsAtOnce);
    }
}

void add(lua_State *L, const std::string &table, const Call &call, const char *function)
{
    pushLoop(L, table.c_str(), function, call.text);
    benchmark::RegisterBenchmark((table + "/" + call.function).c_str(), measure, L, lua_gettop(L));
}

} // namespace

int main(int argc, char **argv)
{
    lua_State *const L = openBothMakes();
    luaL_checkstack(L, 100, "too many calls");
    for (const Call &call : calls) {
        add(L, "radio", call, call.function);
        add(L, "yardstick", call, call.function);
        add(L, "empty", call, "call");
    }
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return EXIT_FAILURE;
    }
    benchmark::RunSpecifiedBenchmarks();
}
