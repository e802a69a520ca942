/* SPDX-License-Identifier: LicenseRef-Proprietary */
#include "yardstick.h"

void addYardstick(lua_State *L)
{
    luaL_register(L, NULL, platformByHand);
    luaL_register(L, NULL, transmitByHand);
    luaL_register(L, NULL, receiveByHand);
    luaL_register(L, NULL, chipByHand);
    luaL_register(L, NULL, pointersByHand);
}
