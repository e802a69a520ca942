/* SPDX-License-Identifier: LicenseRef-Proprietary */
/* The steps that the wrappers written by hand are made of, each as the manual of Lua suggests it:
 * first all checks of types, then the conversions, then the context, the call and its status. */
#ifndef YARDSTICK_FRAME_H
#define YARDSTICK_FRAME_H

#include <lua.h>
#include <sorel.h>

#include <math.h>
#include <stdint.h>

#define NORETURN __attribute__((noreturn))

#ifdef __cplusplus
extern "C" {
#endif

NORETURN void raiseCount(lua_State *L, const char *name, int count, int given);
NORETURN void raiseType(lua_State *L, const char *name, int position, const char *expected);
NORETURN void raiseNegative(lua_State *L);
NORETURN void raiseNoContext(lua_State *L);
NORETURN void raiseStatus(lua_State *L, const char *name);

/* How the binding names the type of a value. */
const char *typeNameOf(lua_State *L, int index);

#ifdef __cplusplus
}
#endif

static inline void checkCount(lua_State *L, const char *name, int count)
{
    const int given = lua_gettop(L);
    if (given < count || given > count) {
        raiseCount(L, name, count, given);
    }
}

static inline void checkNumber(lua_State *L, const char *name, int position, const char *expected)
{
    if (!lua_isnumber(L, position)) {
        raiseType(L, name, position, expected);
    }
}

static inline void checkText(lua_State *L, const char *name, int position)
{
    if (!lua_isstring(L, position) && !lua_isnil(L, position)) {
        raiseType(L, name, position, "char const *");
    }
}

static inline void requireContext(lua_State *L, const RadioContext *context)
{
    if (context == NULL) {
        raiseNoContext(L);
    }
}

static inline void requireSuccess(lua_State *L, const char *name, RadioReturn status)
{
    if (status != RADIO_ESUCCESS) {
        raiseStatus(L, name);
    }
}

static inline uint32_t toUnsigned32(lua_State *L, int index)
{
    const lua_Number number = lua_tonumber(L, index);
    if (number < 0 || isnan(number)) {
        raiseNegative(L);
    }
    return number >= 4294967296.0 ? UINT32_MAX : (uint32_t)number;
}

static inline uint16_t toUnsigned16(lua_State *L, int index)
{
    return (uint16_t)toUnsigned32(L, index);
}

static inline int32_t toSigned32(lua_State *L, int index)
{
    const lua_Number number = lua_tonumber(L, index);
    if (number >= 2147483648.0) {
        return INT32_MAX;
    }
    if (number < -2147483648.0) {
        return INT32_MIN;
    }
    return number == number ? (int32_t)number : 0;
}

static inline int16_t toSigned16(lua_State *L, int index)
{
    return (int16_t)toSigned32(L, index);
}

#endif
