// SPDX-License-Identifier: LicenseRef-Proprietary
// The one door to the binding.
#pragma once

struct lua_State;

// Makes the global table `radio` with every driver function, the RadioHooks class and every driver
// constant, and the globals `swig_type` and `swig_equals`. Call it directly, not through lua_call,
// with the standard libraries open; it leaves the stack as it was. Always returns 1. May raise
// Lua's memory error.
int radioModuleOpen(lua_State *L);
