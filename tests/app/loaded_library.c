/* SPDX-License-Identifier: LicenseRef-Proprietary */
/* A library for package.loadlib. */
#include <lua.h>

int luaopen_loaded_library(lua_State *L);

int luaopen_loaded_library(lua_State *L)
{
    lua_pushliteral(L, "loaded");
    return 1;
}
