/* SPDX-License-Identifier: LicenseRef-Proprietary */
/* By hand: the transmit path. */
#include "frame.h"
#include "yardstick.h"

static int setTxFrequency(lua_State *L)
{
    static const char name[] = "radioSetTxFrequency";
    RadioContext *const context = appContext;
    checkCount(L, name, 1);
    checkNumber(L, name, 1, "uint32_t");
    const uint32_t frequency = toUnsigned32(L, 1);
    requireContext(L, context);
    requireSuccess(L, name, radioSetTxFrequency(context, frequency));
    return 0;
}

static int setTxChannel(lua_State *L)
{
    static const char name[] = "radioSetTxChannel";
    RadioContext *const context = appContext;
    checkCount(L, name, 1);
    checkNumber(L, name, 1, "uint16_t");
    const uint16_t channel = toUnsigned16(L, 1);
    requireContext(L, context);
    requireSuccess(L, name, radioSetTxChannel(context, channel));
    return 0;
}

static int setTxState(lua_State *L)
{
    static const char name[] = "radioSetTxState";
    RadioContext *const context = appContext;
    checkCount(L, name, 1);
    checkNumber(L, name, 1, "RadioState");
    const RadioState state = toSigned32(L, 1);
    requireContext(L, context);
    requireSuccess(L, name, radioSetTxState(context, state));
    return 0;
}

static int setTxStateOfAntenna(lua_State *L)
{
    static const char name[] = "radioSetTxStateOfAntenna";
    RadioContext *const context = appContext;
    checkCount(L, name, 2);
    checkNumber(L, name, 1, "RadioTxAntenna");
    checkNumber(L, name, 2, "RadioState");
    const RadioTxAntenna antenna = toSigned32(L, 1);
    const RadioState state = toSigned32(L, 2);
    requireContext(L, context);
    requireSuccess(L, name, radioSetTxStateOfAntenna(context, antenna, state));
    return 0;
}

static int setTxMaxPower(lua_State *L)
{
    static const char name[] = "radioSetTxMaxPower";
    RadioContext *const context = appContext;
    checkCount(L, name, 1);
    checkNumber(L, name, 1, "int16_t");
    const int16_t power = toSigned16(L, 1);
    requireContext(L, context);
    requireSuccess(L, name, radioSetTxMaxPower(context, power));
    return 0;
}

static int setTxMaxPowerOfAntenna(lua_State *L)
{
    static const char name[] = "radioSetTxMaxPowerOfAntenna";
    RadioContext *const context = appContext;
    checkCount(L, name, 2);
    checkNumber(L, name, 1, "RadioTxAntenna");
    checkNumber(L, name, 2, "int16_t");
    const RadioTxAntenna antenna = toSigned32(L, 1);
    const int16_t power = toSigned16(L, 2);
    requireContext(L, context);
    requireSuccess(L, name, radioSetTxMaxPowerOfAntenna(context, antenna, power));
    return 0;
}

static int setTxDcOffset(lua_State *L)
{
    static const char name[] = "radioSetTxDcOffset";
    RadioContext *const context = appContext;
    checkCount(L, name, 3);
    checkNumber(L, name, 1, "RadioTxAntenna");
    checkNumber(L, name, 2, "int16_t");
    checkNumber(L, name, 3, "int16_t");
    const RadioTxAntenna antenna = toSigned32(L, 1);
    const int16_t inPhase = toSigned16(L, 2);
    const int16_t quadrature = toSigned16(L, 3);
    requireContext(L, context);
    requireSuccess(L, name, radioSetTxDcOffset(context, antenna, inPhase, quadrature));
    return 0;
}

const luaL_Reg transmitByHand[] = {
    {"radioSetTxFrequency", setTxFrequency},
    {"radioSetTxChannel", setTxChannel},
    {"radioSetTxState", setTxState},
    {"radioSetTxStateOfAntenna", setTxStateOfAntenna},
    {"radioSetTxMaxPower", setTxMaxPower},
    {"radioSetTxMaxPowerOfAntenna", setTxMaxPowerOfAntenna},
    {"radioSetTxDcOffset", setTxDcOffset},
    {NULL, NULL},
};
