/* SPDX-License-Identifier: LicenseRef-Proprietary */
/* By hand: the platform, its start and its debug messages. */
#include "frame.h"
#include "yardstick.h"

static int selectPlatform(lua_State *L)
{
    static const char name[] = "radioSelectPlatform";
    checkCount(L, name, 1);
    checkNumber(L, name, 1, "enum RadioPlatformSelectIndex");
    const RadioPlatformSelectIndex platform = toSigned32(L, 1);
    requireSuccess(L, name, radioSelectPlatform(platform));
    return 0;
}

static int selectPaths(lua_State *L)
{
    static const char name[] = "radioSelect";
    RadioContext *const context = appContext;
    checkCount(L, name, 1);
    checkNumber(L, name, 1, "enum RadioSelectIndex");
    const RadioSelectIndex paths = toSigned32(L, 1);
    requireContext(L, context);
    requireSuccess(L, name, radioSelect(context, paths));
    return 0;
}

static int init(lua_State *L)
{
    static const char name[] = "radioInit";
    RadioContext *const context = appContext;
    checkCount(L, name, 3);
    checkNumber(L, name, 1, "RadioConf");
    checkNumber(L, name, 2, "RadioMode");
    checkNumber(L, name, 3, "RadioBand");
    const RadioConf configuration = toSigned32(L, 1);
    const RadioMode mode = toSigned32(L, 2);
    const RadioBand band = toSigned32(L, 3);
    requireContext(L, context);
    requireSuccess(L, name, radioInit(context, configuration, mode, band));
    return 0;
}

static int initByScript(lua_State *L)
{
    static const char name[] = "radioInitByScript";
    RadioContext *const context = appContext;
    checkCount(L, name, 4);
    checkNumber(L, name, 1, "RadioConf");
    checkNumber(L, name, 2, "RadioMode");
    checkNumber(L, name, 3, "RadioBand");
    checkText(L, name, 4);
    const RadioConf configuration = toSigned32(L, 1);
    const RadioMode mode = toSigned32(L, 2);
    const RadioBand band = toSigned32(L, 3);
    const char *const script = lua_tostring(L, 4);
    requireContext(L, context);
    requireSuccess(L, name, radioInitByScript(context, configuration, mode, band, script));
    return 0;
}

static int cpriInit(lua_State *L)
{
    static const char name[] = "radioCpriInit";
    RadioContext *const context = appContext;
    checkCount(L, name, 1);
    checkNumber(L, name, 1, "RadioCpriRate");
    const RadioCpriRate rate = toSigned32(L, 1);
    requireContext(L, context);
    requireSuccess(L, name, radioCpriInit(context, rate));
    return 0;
}

static int reset(lua_State *L)
{
    static const char name[] = "radioReset";
    RadioContext *const context = appContext;
    checkCount(L, name, 0);
    requireContext(L, context);
    requireSuccess(L, name, radioReset(context));
    return 0;
}

static int loadCalibrationFile(lua_State *L)
{
    static const char name[] = "radioLoadCalibrationFile";
    RadioContext *const context = appContext;
    checkCount(L, name, 1);
    checkText(L, name, 1);
    const char *const path = lua_tostring(L, 1);
    requireContext(L, context);
    requireSuccess(L, name, radioLoadCalibrationFile(context, path));
    return 0;
}

static int getPlatformChipCount(lua_State *L)
{
    static const char name[] = "radioGetPlatformChipCount";
    RadioContext *const context = appContext;
    checkCount(L, name, 0);
    requireContext(L, context);
    lua_pushnumber(L, radioGetPlatformChipCount(context));
    return 1;
}

static int getPlatformName(lua_State *L)
{
    static const char name[] = "radioGetPlatformName";
    RadioContext *const context = appContext;
    checkCount(L, name, 0);
    requireContext(L, context);
    lua_pushstring(L, radioGetPlatformName(context));
    return 1;
}

static int version(lua_State *L)
{
    static const char name[] = "radioVersion";
    RadioContext *const context = appContext;
    checkCount(L, name, 0);
    requireContext(L, context);
    lua_pushstring(L, radioVersion(context));
    return 1;
}

static int getDebugLevel(lua_State *L)
{
    static const char name[] = "radioGetDebugLevel";
    RadioContext *const context = appContext;
    checkCount(L, name, 0);
    requireContext(L, context);
    lua_pushnumber(L, radioGetDebugLevel(context));
    return 1;
}

static int setDebugLevel(lua_State *L)
{
    static const char name[] = "radioSetDebugLevel";
    RadioContext *const context = appContext;
    checkCount(L, name, 1);
    checkNumber(L, name, 1, "RadioDebug");
    const RadioDebug level = toSigned32(L, 1);
    requireContext(L, context);
    (void)radioSetDebugLevel(context, level);
    return 0;
}

const luaL_Reg platformByHand[] = {
    {"radioSelectPlatform", selectPlatform},
    {"radioSelect", selectPaths},
    {"radioInit", init},
    {"radioInitByScript", initByScript},
    {"radioCpriInit", cpriInit},
    {"radioReset", reset},
    {"radioLoadCalibrationFile", loadCalibrationFile},
    {"radioGetPlatformChipCount", getPlatformChipCount},
    {"radioGetPlatformName", getPlatformName},
    {"radioVersion", version},
    {"radioGetDebugLevel", getDebugLevel},
    {"radioSetDebugLevel", setDebugLevel},
    {NULL, NULL},
};
