// SPDX-License-Identifier: LicenseRef-Proprietary
#include "app/libraries.h"

#include "app/guards.h"

#include <lua.hpp>

// Lua BitOp's header lacks C linkage for C++.
extern "C" int luaopen_bit(lua_State *L);

void openBitLibrary(lua_State *L)
{
    lua_pushcclosure(L, luaopen_bit, 0);
    lua_pushliteral(L, "bit");
    lua_call(L, 1, 0);
    lua_getglobal(L, "bit");
    guardBitFunctions(L);
    lua_pop(L, 1);
}

void keepLoadedLibraries(lua_State *L)
{
    lua_settop(L, 0); // the error values of the prompt may leave no room on the stack
    // The metatable of the handles that Lua keeps of loaded libraries; collecting one unloads it.
    luaL_getmetatable(L, "_LOADLIB");
    if (lua_istable(L, -1)) {
        lua_pushnil(L);
        lua_setfield(L, -2, "__gc");
    }
    lua_pop(L, 1);
}
