// SPDX-License-Identifier: LicenseRef-Proprietary
// The one Lua state of the process.
#pragma once

struct lua_State;

// Made at start-up and closed at the exit; null before.
extern lua_State *appLuaState;

// Readies a new state for opening libraries, which is quicker so: the collector rests, since
// nothing that they make is garbage yet, and the table of globals has room for all that start-up
// puts there. Call it before any library is opened: what is opened keeps the table of globals that
// it finds.
void beginOpening(lua_State *L);

// Sets the collector to work once start-up is done, as after opening any library.
void endOpening(lua_State *L);
