// SPDX-License-Identifier: LicenseRef-Proprietary
// Runs Lua text over and over, each time in a new state with the radio module, and each time with
// another allocation failing: first the first one, then the second, until a run makes fewer.
#pragma once

#include "tests/failing_memory/failing_memory.h"

#include <string>
#include <vector>

struct Attempt {
    Allocation failed;     // which kind
    std::string outcome;   // what the text returned, as tostring() writes it, or raised
    int driverCalls;       // how many the driver got
    std::string again;     // the outcome of the same text, once there was memory again
    long blocksLeft;       // of malloc() and calloc(), after the state was closed
    std::size_t bytesLeft; // of the Lua state
};

// The text finds `allocate` and `release`, function pointers for RadioHooks; and withoutRadio(),
// which takes the context away. What stands before it is run while there is memory.
std::vector<Attempt> runWithEachFailing(const std::string &text, const std::string &before = "");

// What the text comes to while there is memory.
std::string outcomeOf(const std::string &text, const std::string &before = "");

// Each attempt must end as the kind of its failed allocation says, and leave nothing behind:
// "not enough memory" for Lua's own, these for the others, and the outcome with all memory for
// none.
struct Expected {
    std::string withMemory;
    std::string withoutMalloc = "(there is none)";
    std::string withoutCalloc = "(there is none)";
};
void expectEachFailing(const std::string &text, const Expected &expected,
                       const std::string &before = "");
