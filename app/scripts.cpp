// SPDX-License-Identifier: LicenseRef-Proprietary
#include "app/scripts.h"

#include <cstring>
#include <lua.hpp>

namespace
{

// Copies every field of the table of the name at index 1 into the globals.
int copyFields(lua_State *L)
{
    lua_getglobal(L, static_cast<const char *>(lua_touserdata(L, 1)));
    lua_pushnil(L);
    while (lua_next(L, -2) != 0) {
        lua_pushvalue(L, -2);
        lua_insert(L, -2);
        lua_rawset(L, LUA_GLOBALSINDEX);
    }
    return 0;
}

// A failure is ignored.
void copyToGlobals(lua_State *L, const char *table)
{
    lua_cpcall(L, copyFields, const_cast<char *>(table));
}

// Runs the chunk on top of the stack. Where loading it failed, the error is there instead, and
// raised.
void runLoaded(lua_State *L, int loadStatus)
{
    if (loadStatus != 0 || lua_pcall(L, 0, 0, 0) != 0) {
        lua_error(L);
    }
}

} // namespace

void copyRadioToGlobals(lua_State *L)
{
    // What "for k,v in pairs(radio) do _G[k] = v end" does, without compiling it at every start.
    copyToGlobals(L, "radio");
    copyToGlobals(L, "radioNative");
}

void runBatchFile(lua_State *L, const char *path)
{
    runLoaded(L, luaL_loadfile(L, path));
}

void runCommand(lua_State *L, const char *command)
{
    runLoaded(L, luaL_loadbuffer(L, command, std::strlen(command), "cmdline"));
}
