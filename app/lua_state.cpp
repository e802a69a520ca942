// SPDX-License-Identifier: LicenseRef-Proprietary
#include "app/lua_state.h"

#include <lua.hpp>

namespace
{

// Those of Lua, radio's fields and the shell's own, with room for some of the script's. Lua takes a
// power of two, and would come to the same one by and by.
constexpr int globals = 256;

} // namespace

lua_State *appLuaState = nullptr;

void beginOpening(lua_State *L)
{
    lua_gc(L, LUA_GCSTOP, 0);
    lua_createtable(L, 0, globals);
    lua_replace(L, LUA_GLOBALSINDEX);
}

void endOpening(lua_State *L)
{
    lua_gc(L, LUA_GCRESTART, 0);
}
