// SPDX-License-Identifier: LicenseRef-Proprietary
// What libFuzzer calls first. With --cells, the program prints the tables of cells and ends.
#include "fuzz/cells.h"
#include "fuzz/target.h"

#include <cstdio>
#include <cstring>
#include <unistd.h>

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    prepareTarget();
    if (*argc == 2 && std::strcmp((*argv)[1], "--cells") == 0) {
        const bool full = printCells();
        std::fflush(stdout);
        _exit(full ? 0 : 1);
    }
    return 0;
}
