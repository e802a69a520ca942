// SPDX-License-Identifier: LicenseRef-Proprietary
#include "app/scripts.h"

#include <cstring>
#include <lua.hpp>

namespace
{

// A failure is ignored.
void runQuietly(lua_State *L, const char *text)
{
    if (luaL_loadstring(L, text) == 0) {
        lua_pcall(L, 0, 0, 0);
    }
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
    runQuietly(L, "for k,v in pairs(radio) do _G[k] = v end");
    runQuietly(L, "for k,v in pairs(radioNative) do _G[k] = v end");
}

void runBatchFile(lua_State *L, const char *path)
{
    runLoaded(L, luaL_loadfile(L, path));
}

void runCommand(lua_State *L, const char *command)
{
    runLoaded(L, luaL_loadbuffer(L, command, std::strlen(command), "cmdline"));
}
