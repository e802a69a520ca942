// SPDX-License-Identifier: LicenseRef-Proprietary
// One sequence of allocations: those of a Lua state with this memory, and those that the product
// makes by malloc() and calloc(). A test lets one of them fail.
#pragma once

#include <cstddef>
#include <lua.hpp>

enum class Allocation { none, ofLua, byMalloc, byCalloc };

// From now on the allocations are counted, and that of this number, from 1, fails; 0: none does.
void failAllocation(long number);

// No allocation fails or is counted any more. Returns which kind failed.
Allocation stopFailing();

// In between none fails or is counted.
void pauseFailing();
void resumeFailing();

// What has been taken since resetMemory() and not been given back: bytes of Lua states, and blocks
// of malloc() and calloc(). Freeing what is none of those while allocations are counted ends the
// process.
void resetMemory();
std::size_t bytesOfLua();
long blocksTaken();

// A new state with this memory; null where an allocation failed.
lua_State *newStateOfFailingMemory();
