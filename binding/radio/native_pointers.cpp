// SPDX-License-Identifier: LicenseRef-Proprietary
#include "binding/radio/native_pointers.h"

#include "binding/radio/pointer_arguments.h"
#include "binding/radio/wrapper.h"

#include <cstdio>

namespace
{

// Raises what is wrong with the arguments of a calibration getter.
template <FixedString name>
[[noreturn, gnu::cold, gnu::noinline]] void raiseWrongArguments(lua_State *L, const char *outName)
{
    checkArgumentCount(L, name.text, 2);
    if (!TextArgument::accepts(L, 1)) {
        raiseArgumentType(L, name.text, 1, TextArgument::typeName, 1);
    }
    raiseArgumentType(L, name.text, 2, outName, 2);
}

// A calibration getter. outName is the out-parameter's type as the first message quotes it.
template <FixedString name, auto *function, class Value>
int getFromCalibration(lua_State *L, const char *outName, TypePosition outType)
{
    RadioContext *const context = appContext;
    const char *key = nullptr;
    // The text comes last: taking it can have effects, and may only when nothing is wrong.
    if (lua_gettop(L) != 2 || !isUserdataOrNil(L, 2) || !TextArgument::convertQuickly(L, 1, key))
        [[unlikely]] {
        raiseWrongArguments<name>(L, outName);
    }
    // Counts the driver function's parameters, of which the context is the first.
    void *const out = toNativePointer(L, name.text, 2, 3, outType);
    checkStatus<name>(L, function(checkContext(L, context), key, static_cast<Value *>(out)));
    return 0;
}

} // namespace

int radioGetIntegerFromCalibrationWrapper(lua_State *L)
{
    return getFromCalibration<"radioGetIntegerFromCalibration", radioGetIntegerFromCalibration,
                              std::int32_t>(L, "int32_t *const", intType);
}

int radioGetStringFromCalibrationWrapper(lua_State *L)
{
    return getFromCalibration<"radioGetStringFromCalibration", radioGetStringFromCalibration,
                              const char *>(L, "char const **", textListType);
}

int radioGetDriverNamesWrapper(lua_State *L)
{
    RadioContext *const context = appContext;
    checkArgumentCount(L, "radioGetDriverNames", 0);
    char **const names = radioGetDriverNames(checkContext(L, context));
    SWIG_Lua_PushPointer(L, names, radioTypes[textListType], 0);
    return 1;
}

int radioSetDebugFileWrapper(lua_State *L)
{
    constexpr char name[] = "radioSetDebugFile";
    RadioContext *const context = appContext;
    checkArgumentCount(L, name, 1);
    checkUserdataOrNil(L, name, 1, "FILE *");
    void *const file = toNativePointer(L, name, 1, 2, fileType);
    static_cast<void>(radioSetDebugFile(checkContext(L, context), static_cast<std::FILE *>(file)));
    return 0;
}
