// SPDX-License-Identifier: LicenseRef-Proprietary
// The wrappers that take native pointers from Lua or return them: out-parameters, the driver names
// and the debug file.
#pragma once

#include <lua.hpp>

int radioGetIntegerFromCalibrationWrapper(lua_State *L);
int radioGetStringFromCalibrationWrapper(lua_State *L);
int radioGetDriverNamesWrapper(lua_State *L);
int radioSetDebugFileWrapper(lua_State *L);
