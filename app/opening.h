// SPDX-License-Identifier: LicenseRef-Proprietary
// What start-up puts into the Lua state besides Lua's own libraries.
#pragma once

struct lua_State;

// Opens, in the order that scripts can see, the module `radio` with its copies in the globals, Lua
// BitOp and LuaSocket's core. Returns whether the module could be made; where it could not, nothing
// more is opened. Raises an error where Lua lacks memory.
bool openShellLibraries(lua_State *L);
