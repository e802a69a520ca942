// SPDX-License-Identifier: LicenseRef-Proprietary
// The one Lua state of the process.
#pragma once

struct lua_State;

// Made at start-up and closed at the exit; null before.
extern lua_State *appLuaState;
