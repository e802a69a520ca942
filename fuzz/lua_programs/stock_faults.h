// SPDX-License-Identifier: LicenseRef-Proprietary
// The faults that Lua 5.1 itself has and a script can reach: fuzz/stock_lua_faults shows each.
// Programs are kept from exactly those.
#pragma once

struct lua_State;

// Puts functions that raise an error for what is left out in the place of those of the state.
void excludeStockFaults(lua_State *L);
