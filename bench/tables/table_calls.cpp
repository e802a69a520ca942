// SPDX-License-Identifier: LicenseRef-Proprietary
// table_calls SETTER KIND SIZE TIMES: calls it so many times with a table of that size, with a call
// of tableCallMark() before and after each, so that the instructions in between can be counted.
#include "bench/tables/cases.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

extern "C" [[gnu::noinline]] void tableCallMark();

void tableCallMark()
{
    asm volatile(""); // so that there is something to call
}

namespace
{

template <class Row>
const Row &named(const Row *rows, int count, const char *name)
{
    for (const Row *row = rows; row != rows + count; ++row) {
        if (std::strcmp(row->name, name) == 0) {
            return *row;
        }
    }
    std::fprintf(stderr, "table_calls: there is no \"%s\"\n", name);
    std::exit(EXIT_FAILURE);
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 5) {
        std::fputs("usage: table_calls SETTER KIND SIZE TIMES\n", stderr);
        return EXIT_FAILURE;
    }
    lua_State *const L =
        openTableCase(named(tableSetters, tableSetterCount, argv[1]),
                      named(tableKinds, tableKindCount, argv[2]), std::atoi(argv[3]));
    tableCallMark();
    for (int times = std::atoi(argv[4]); times > 0; --times) {
        callTableCase(L);
        tableCallMark();
    }
    lua_close(L);
}
