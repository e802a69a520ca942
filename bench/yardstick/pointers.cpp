// SPDX-License-Identifier: LicenseRef-Proprietary
// By hand: what takes native pointers or returns them. Plain C but for the language that the types
// of pointer objects are declared in.
#include "binding/radio/types.h"
#include "binding/runtime/pointer_objects.h"
#include "frame.h"
#include "yardstick.h"

const char *typeNameOf(lua_State *L, int index)
{
    return SWIG_Lua_TypeName(L, index);
}

static void checkUserdataOrNil(lua_State *L, const char *name, int position, const char *expected)
{
    if (!lua_isuserdata(L, position) && !lua_isnil(L, position)) {
        raiseType(L, name, position, expected);
    }
}

// The message counts the driver function's parameters, of which the context is the first.
static void *toPointer(lua_State *L, const char *name, int index, TypePosition type)
{
    void *pointer = NULL;
    if (SWIG_Lua_ConvertPtr(L, index, &pointer, radioTypes[type]) != 0) {
        raiseType(L, name, index + 1, radioTypes[type]->str);
    }
    return pointer;
}

static int getIntegerFromCalibration(lua_State *L)
{
    static const char name[] = "radioGetIntegerFromCalibration";
    RadioContext *const context = appContext;
    checkCount(L, name, 2);
    checkText(L, name, 1);
    checkUserdataOrNil(L, name, 2, "int32_t *const");
    const char *const key = lua_tostring(L, 1);
    int32_t *const value = (int32_t *)toPointer(L, name, 2, intType);
    requireContext(L, context);
    requireSuccess(L, name, radioGetIntegerFromCalibration(context, key, value));
    return 0;
}

static int getStringFromCalibration(lua_State *L)
{
    static const char name[] = "radioGetStringFromCalibration";
    RadioContext *const context = appContext;
    checkCount(L, name, 2);
    checkText(L, name, 1);
    checkUserdataOrNil(L, name, 2, "char const **");
    const char *const key = lua_tostring(L, 1);
    const char **const value = (const char **)toPointer(L, name, 2, textListType);
    requireContext(L, context);
    requireSuccess(L, name, radioGetStringFromCalibration(context, key, value));
    return 0;
}

static int getDriverNames(lua_State *L)
{
    static const char name[] = "radioGetDriverNames";
    RadioContext *const context = appContext;
    checkCount(L, name, 0);
    requireContext(L, context);
    SWIG_Lua_PushPointer(L, radioGetDriverNames(context), radioTypes[textListType], 0);
    return 1;
}

static int setDebugFile(lua_State *L)
{
    static const char name[] = "radioSetDebugFile";
    RadioContext *const context = appContext;
    checkCount(L, name, 1);
    checkUserdataOrNil(L, name, 1, "FILE *");
    FILE *const file = (FILE *)toPointer(L, name, 1, fileType);
    requireContext(L, context);
    (void)radioSetDebugFile(context, file);
    return 0;
}

const luaL_Reg pointersByHand[] = {
    {"radioGetIntegerFromCalibration", getIntegerFromCalibration},
    {"radioGetStringFromCalibration", getStringFromCalibration},
    {"radioGetDriverNames", getDriverNames},
    {"radioSetDebugFile", setDebugFile},
    {NULL, NULL},
};
