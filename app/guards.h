// SPDX-License-Identifier: LicenseRef-Proprietary
// Guards before functions of BitOp and LuaSocket that have no answer to some arguments, and end the
// process or never return. Those arguments become the nearest ones that have an answer; all else is
// handed on as it is.
#pragma once

struct lua_State;

// Guards the functions of the table on top of the stack, where it has them.
void guardBitFunctions(lua_State *L);
void guardSocketFunctions(lua_State *L);
