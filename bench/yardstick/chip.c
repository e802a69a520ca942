/* SPDX-License-Identifier: LicenseRef-Proprietary */
/* By hand: the chip. */
#include "frame.h"
#include "yardstick.h"

static int getTemperature(lua_State *L)
{
    static const char name[] = "radioGetTemperature";
    RadioContext *const context = appContext;
    checkCount(L, name, 0);
    requireContext(L, context);
    lua_pushnumber(L, radioGetTemperature(context));
    return 1;
}

static int spiRead(lua_State *L)
{
    static const char name[] = "radioSpiRead";
    RadioContext *const context = appContext;
    checkCount(L, name, 1);
    checkNumber(L, name, 1, "uint32_t");
    const uint32_t address = toUnsigned32(L, 1);
    requireContext(L, context);
    lua_pushnumber(L, radioSpiRead(context, address));
    return 1;
}

static int spiWrite(lua_State *L)
{
    static const char name[] = "radioSpiWrite";
    RadioContext *const context = appContext;
    checkCount(L, name, 2);
    checkNumber(L, name, 1, "uint32_t");
    const uint32_t address = toUnsigned32(L, 1);
    const int32_t value = toSigned32(L, 2);
    requireContext(L, context);
    requireSuccess(L, name, radioSpiWrite(context, address, value));
    return 0;
}

static int setOscillatorDacValue(lua_State *L)
{
    static const char name[] = "radioSetOscillatorDacValue";
    RadioContext *const context = appContext;
    checkCount(L, name, 1);
    checkNumber(L, name, 1, "uint16_t");
    const uint16_t value = toUnsigned16(L, 1);
    requireContext(L, context);
    requireSuccess(L, name, radioSetOscillatorDacValue(context, value));
    return 0;
}

static int getOscillatorDacValue(lua_State *L)
{
    static const char name[] = "radioGetOscillatorDacValue";
    RadioContext *const context = appContext;
    checkCount(L, name, 0);
    requireContext(L, context);
    lua_pushnumber(L, radioGetOscillatorDacValue(context));
    return 1;
}

static int getOscillatorDacWidth(lua_State *L)
{
    static const char name[] = "radioGetOscillatorDacWidth";
    RadioContext *const context = appContext;
    checkCount(L, name, 0);
    requireContext(L, context);
    lua_pushnumber(L, radioGetOscillatorDacWidth(context));
    return 1;
}

const luaL_Reg chipByHand[] = {
    {"radioGetTemperature", getTemperature},
    {"radioSpiRead", spiRead},
    {"radioSpiWrite", spiWrite},
    {"radioSetOscillatorDacValue", setOscillatorDacValue},
    {"radioGetOscillatorDacValue", getOscillatorDacValue},
    {"radioGetOscillatorDacWidth", getOscillatorDacWidth},
    {NULL, NULL},
};
