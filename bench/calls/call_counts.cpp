// SPDX-License-Identifier: LicenseRef-Proprietary
// call_counts SHORT LONG: makes a loop of each line of its input, TABLE FUNCTION TEXT (pushLoop()
// says what they mean), and runs each for so few and for so many rounds. measurementMark() is
// called before and after each run: whoever counts instructions from one call of it to the next can
// tell what a round takes. All are run once before, so that no first time counts, and then without
// the collector, so that every time is alike.
#include "bench/calls/both_makes.h"

#include <cstdio>
#include <cstdlib>

extern "C" [[gnu::noinline]] void measurementMark()
{
    asm volatile(""); // or calls of it would be left out
}

namespace
{

constexpr int lineSize = 400;
constexpr int mostLines = 1000;

// Pushes one function for each line.
int pushLines(lua_State *L)
{
    char line[lineSize];
    char table[lineSize];
    char function[lineSize];
    int text = 0;
    while (std::fgets(line, sizeof line, stdin) != nullptr) {
        if (std::sscanf(line, "%399s %399s %n", table, function, &text) != 2) {
            std::fprintf(stderr, "not a line: %s", line);
            std::exit(EXIT_FAILURE);
        }
        pushLoop(L, table, function, line + text);
    }
    return lua_gettop(L);
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 3) {
        return EXIT_FAILURE;
    }
    const int lengths[] = {std::atoi(argv[1]), std::atoi(argv[2])};
    lua_State *const L = openBothMakes();
    luaL_checkstack(L, mostLines, "too many lines");
    const int lines = pushLines(L);
    for (int i = 1; i <= lines; ++i) {
        runLoop(L, i, 1);
    }
    lua_gc(L, LUA_GCSTOP, 0);
    for (int i = 1; i <= lines; ++i) {
        for (const int rounds : lengths) {
            measurementMark();
            runLoop(L, i, rounds);
            measurementMark();
        }
    }
}
