// SPDX-License-Identifier: LicenseRef-Proprietary
// The memory of the Lua state, and that of the shell itself.
#pragma once

#include <cstddef>
#include <unordered_set>

// The memory of a state, with a limit that a script cannot exceed. It is released with the object,
// whatever became of the state.
class Blocks
{
public:
    Blocks() = default;
    ~Blocks();
    Blocks(const Blocks &) = delete;
    Blocks &operator=(const Blocks &) = delete;

    void *change(void *block, std::size_t oldSize, std::size_t newSize);

private:
    std::unordered_set<void *> blocks_;
    std::size_t used_ = 0;
};

// For lua_newstate(), with a Blocks.
void *allocateBlock(void *blocks, void *block, std::size_t oldSize, std::size_t newSize);

// Releases what the shell and the binding have allocated and not released: the line that is read
// when an assertion ends the process.
void releaseShellBlocks();

// Leaves them to whoever looks for leaks.
void forgetShellBlocks();
