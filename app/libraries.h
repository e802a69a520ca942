// SPDX-License-Identifier: LicenseRef-Proprietary
// The Lua libraries that the shell offers besides the standard ones.
#pragma once

struct lua_State;

// Makes the global table `bit`, Lua BitOp.
void openBitLibrary(lua_State *L);

// Makes the global table `socket`, LuaSocket's core with the interface of LuaSocket 2.0.2,
// whichever core is linked.
void openSocketLibrary(lua_State *L);

// Keeps every library that scripts have loaded in memory until the process ends. Call it before
// lua_close, which unloads them in an order that does not look at who still needs them: an object
// older than a library may be of a type whose record, or class, lies in that library.
void keepLoadedLibraries(lua_State *L);
