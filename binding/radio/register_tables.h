// SPDX-License-Identifier: LicenseRef-Proprietary
// The wrappers that hand a Lua table to the driver as an array of registers.
#pragma once

#include <lua.hpp>

int radioSetRxGainRegistersWrapper(lua_State *L);
int radioSetTxPowerRegistersWrapper(lua_State *L);
