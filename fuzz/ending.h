// SPDX-License-Identifier: LicenseRef-Proprietary
// Runs code that may end the process, and goes on all the same.
#pragma once

#include <functional>
#include <string>

struct Ending {
    enum Way { returned, exited, asserted, abandoned } way = returned;
    int status = 0;        // of exit()
    std::string assertion; // "FILE:LINE: FUNCTION: EXPRESSION"
};

// What run has allocated and not released is leaked where it did not return.
Ending runToItsEnd(const std::function<void()> &run);

// Leaves the run from inside.
[[noreturn]] void abandonRun();

// Releases what has been allocated from its making to its end: what a run that ended early has
// left. Only with sanitizers, which tell of allocations; without, not so many inputs are run that
// it matters. One at a time.
class Leftovers
{
public:
    Leftovers();
    ~Leftovers();
    Leftovers(const Leftovers &) = delete;
    Leftovers &operator=(const Leftovers &) = delete;
};

// Ends the target: what the program did is not what it has to do.
[[noreturn]] void failTarget(const std::string &what);
