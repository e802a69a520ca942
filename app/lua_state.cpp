// SPDX-License-Identifier: LicenseRef-Proprietary
#include "app/lua_state.h"

lua_State *appLuaState = nullptr;
