// SPDX-License-Identifier: LicenseRef-Proprietary
#include "binding/radio/block_guard.h"

#include <cstdlib>

namespace
{

// Lua does not see how large the blocks are, and would let many pile up before it collects their
// guards.
constexpr std::size_t mostBytes = 1 << 20;

std::size_t bytesGuarded = 0;

int collect(lua_State *L)
{
    releaseBlock(static_cast<BlockGuard *>(lua_touserdata(L, 1)));
    return 0;
}

// Pushes the metatable of all guards, which the registry keeps under an address that nothing else
// has.
void pushGuardMetatable(lua_State *L)
{
    static char key;
    lua_pushlightuserdata(L, &key);
    lua_rawget(L, LUA_REGISTRYINDEX);
    if (lua_istable(L, -1)) {
        return;
    }
    lua_pop(L, 1);
    lua_createtable(L, 0, 1);
    lua_pushcclosure(L, collect, 0);
    lua_setfield(L, -2, "__gc");
    // Only once it is complete: any step before may raise.
    lua_pushlightuserdata(L, &key);
    lua_pushvalue(L, -2);
    lua_rawset(L, LUA_REGISTRYINDEX);
}

} // namespace

BlockGuard *pushBlockGuard(lua_State *L)
{
    if (bytesGuarded > mostBytes) {
        lua_gc(L, LUA_GCCOLLECT, 0);
    }
    auto *const guard = static_cast<BlockGuard *>(lua_newuserdata(L, sizeof(BlockGuard)));
    guard->block = nullptr;
    guard->size = 0;
    pushGuardMetatable(L);
    lua_setmetatable(L, -2);
    return guard;
}

void guardBlock(BlockGuard *guard, void *block, std::size_t size)
{
    guard->block = block;
    guard->size = size;
    bytesGuarded += size;
}

void releaseBlock(BlockGuard *guard)
{
    std::free(guard->block);
    bytesGuarded -= guard->size;
    guard->block = nullptr;
    guard->size = 0;
}
