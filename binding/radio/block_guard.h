// SPDX-License-Identifier: LicenseRef-Proprietary
// Native memory in use while Lua code runs, which may raise and so not come back to the function
// that allocated it.
#pragma once

#include <cstddef>
#include <lua.hpp>

// Knows of one block from malloc(), or of none.
struct BlockGuard {
    void *block;
    std::size_t size; // bytes; 0 without a block
};

// Pushes a guard without a block; the collector frees the block that it has at that time. Raises
// where Lua has no memory for it, and may run finalisers.
BlockGuard *pushBlockGuard(lua_State *L);

// Hands the guard a block, or null, of that many bytes.
void guardBlock(BlockGuard *guard, void *block, std::size_t size);

// Frees the guard's block now.
void releaseBlock(BlockGuard *guard);
