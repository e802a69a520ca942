// SPDX-License-Identifier: LicenseRef-Proprietary
// Openers in place of those of Lua BitOp and of LuaSocket's core.
#pragma once

#include <lua.hpp>
#include <string>

// What the opener of the socket core does; each test chooses one.
extern lua_CFunction socketCore;

// As LuaSocket 2.0.2's: registers its table as the global `socket`, and returns it.
int coreThatSetsTheGlobal(lua_State *L);

// As LuaSocket 3's: only returns its table, which has tcp4 and udp4 besides tcp and udp.
int coreThatReturnsItsTable(lua_State *L);

// As coreThatReturnsItsTable, with all classes of sockets, whose getsockname() returns its
// arguments.
int coreWithSockets(lua_State *L);

// Returns no table and sets no global.
int coreThatGivesNothing(lua_State *L);

// The arguments that the openers were called with, joined by blanks.
extern std::string argumentsOfBit;
extern std::string argumentsOfCore;
