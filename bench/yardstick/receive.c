/* SPDX-License-Identifier: LicenseRef-Proprietary */
/* By hand: the receive path. */
#include "frame.h"
#include "yardstick.h"

static int setRxFrequency(lua_State *L)
{
    static const char name[] = "radioSetRxFrequency";
    RadioContext *const context = appContext;
    checkCount(L, name, 1);
    checkNumber(L, name, 1, "uint32_t");
    const uint32_t frequency = toUnsigned32(L, 1);
    requireContext(L, context);
    requireSuccess(L, name, radioSetRxFrequency(context, frequency));
    return 0;
}

static int setRxChannel(lua_State *L)
{
    static const char name[] = "radioSetRxChannel";
    RadioContext *const context = appContext;
    checkCount(L, name, 1);
    checkNumber(L, name, 1, "uint16_t");
    const uint16_t channel = toUnsigned16(L, 1);
    requireContext(L, context);
    requireSuccess(L, name, radioSetRxChannel(context, channel));
    return 0;
}

static int setRxState(lua_State *L)
{
    static const char name[] = "radioSetRxState";
    RadioContext *const context = appContext;
    checkCount(L, name, 1);
    checkNumber(L, name, 1, "RadioState");
    const RadioState state = toSigned32(L, 1);
    requireContext(L, context);
    requireSuccess(L, name, radioSetRxState(context, state));
    return 0;
}

static int setRxStateOfAntenna(lua_State *L)
{
    static const char name[] = "radioSetRxStateOfAntenna";
    RadioContext *const context = appContext;
    checkCount(L, name, 2);
    checkNumber(L, name, 1, "RadioRxAntenna");
    checkNumber(L, name, 2, "RadioState");
    const RadioRxAntenna antenna = toSigned32(L, 1);
    const RadioState state = toSigned32(L, 2);
    requireContext(L, context);
    requireSuccess(L, name, radioSetRxStateOfAntenna(context, antenna, state));
    return 0;
}

static int setRxGain(lua_State *L)
{
    static const char name[] = "radioSetRxGain";
    RadioContext *const context = appContext;
    checkCount(L, name, 1);
    checkNumber(L, name, 1, "int16_t");
    const int16_t gain = toSigned16(L, 1);
    requireContext(L, context);
    requireSuccess(L, name, radioSetRxGain(context, gain));
    return 0;
}

static int setRxGainMode(lua_State *L)
{
    static const char name[] = "radioSetRxGainMode";
    RadioContext *const context = appContext;
    checkCount(L, name, 1);
    checkNumber(L, name, 1, "RadioRxGainMode");
    const RadioRxGainMode mode = toSigned32(L, 1);
    requireContext(L, context);
    requireSuccess(L, name, radioSetRxGainMode(context, mode));
    return 0;
}

static int setLoopback(lua_State *L)
{
    static const char name[] = "radioSetLoopback";
    RadioContext *const context = appContext;
    checkCount(L, name, 1);
    checkNumber(L, name, 1, "RadioLoopback");
    const RadioLoopback loopback = toSigned32(L, 1);
    requireContext(L, context);
    requireSuccess(L, name, radioSetLoopback(context, loopback));
    return 0;
}

static int getRxRtwp(lua_State *L)
{
    static const char name[] = "radioGetRxRtwp";
    RadioContext *const context = appContext;
    checkCount(L, name, 0);
    requireContext(L, context);
    lua_pushnumber(L, radioGetRxRtwp(context));
    return 1;
}

static int getRxRtwpIndBm(lua_State *L)
{
    static const char name[] = "radioGetRxRtwpIndBm";
    RadioContext *const context = appContext;
    checkCount(L, name, 0);
    requireContext(L, context);
    lua_pushnumber(L, radioGetRxRtwpIndBm(context));
    return 1;
}

static int getRxRtwpOfAntenna(lua_State *L)
{
    static const char name[] = "radioGetRxRtwpOfAntenna";
    RadioContext *const context = appContext;
    checkCount(L, name, 1);
    checkNumber(L, name, 1, "RadioRxAntenna");
    const RadioRxAntenna antenna = toSigned32(L, 1);
    requireContext(L, context);
    lua_pushnumber(L, radioGetRxRtwpOfAntenna(context, antenna));
    return 1;
}

static int getRxRtwpOfAntennaIndBm(lua_State *L)
{
    static const char name[] = "radioGetRxRtwpOfAntennaIndBm";
    RadioContext *const context = appContext;
    checkCount(L, name, 1);
    checkNumber(L, name, 1, "RadioRxAntenna");
    const RadioRxAntenna antenna = toSigned32(L, 1);
    requireContext(L, context);
    lua_pushnumber(L, radioGetRxRtwpOfAntennaIndBm(context, antenna));
    return 1;
}

static int getRxGainIndB(lua_State *L)
{
    static const char name[] = "radioGetRxGainIndB";
    RadioContext *const context = appContext;
    checkCount(L, name, 0);
    requireContext(L, context);
    lua_pushnumber(L, radioGetRxGainIndB(context));
    return 1;
}

static int getRxGainOfAntennaIndB(lua_State *L)
{
    static const char name[] = "radioGetRxGainOfAntennaIndB";
    RadioContext *const context = appContext;
    checkCount(L, name, 1);
    checkNumber(L, name, 1, "RadioRxAntenna");
    const RadioRxAntenna antenna = toSigned32(L, 1);
    requireContext(L, context);
    lua_pushnumber(L, radioGetRxGainOfAntennaIndB(context, antenna));
    return 1;
}

const luaL_Reg receiveByHand[] = {
    {"radioSetRxFrequency", setRxFrequency},
    {"radioSetRxChannel", setRxChannel},
    {"radioSetRxState", setRxState},
    {"radioSetRxStateOfAntenna", setRxStateOfAntenna},
    {"radioSetRxGain", setRxGain},
    {"radioSetRxGainMode", setRxGainMode},
    {"radioSetLoopback", setLoopback},
    {"radioGetRxRtwp", getRxRtwp},
    {"radioGetRxRtwpIndBm", getRxRtwpIndBm},
    {"radioGetRxRtwpOfAntenna", getRxRtwpOfAntenna},
    {"radioGetRxRtwpOfAntennaIndBm", getRxRtwpOfAntennaIndBm},
    {"radioGetRxGainIndB", getRxGainIndB},
    {"radioGetRxGainOfAntennaIndB", getRxGainOfAntennaIndB},
    {NULL, NULL},
};
