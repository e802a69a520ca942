// SPDX-License-Identifier: LicenseRef-Proprietary
#include "app/guards.h"

#include <algorithm>
#include <lua.hpp>

namespace
{

// The library's own function is the upvalue of its guard. It is called in the guard's place, so
// that its errors name the same function as ever.
int callGuarded(lua_State *L)
{
    return lua_tocfunction(L, lua_upvalueindex(1))(L);
}

void replaceArgument(lua_State *L, int index, lua_Number number)
{
    lua_pushnumber(L, number);
    lua_replace(L, index);
}

// bit.tohex(x, n): n digits, in capitals where n is negative. 8 digits are all there are, but the
// least number of 32 bits has no opposite, and would be taken for a length. Which n mean that
// number, only bit.tobit() knows, the second upvalue.
int toHex(lua_State *L)
{
    constexpr lua_Number leastNumber = -2147483648.0;
    constexpr lua_Number mostDigits = 8;
    if (lua_isnumber(L, 2)) {
        lua_pushvalue(L, lua_upvalueindex(2));
        lua_pushvalue(L, 2);
        lua_call(L, 1, 1);
        const bool least = lua_tonumber(L, -1) == leastNumber;
        lua_pop(L, 1);
        if (least) {
            replaceArgument(L, 2, -mostDigits);
        }
    }
    return callGuarded(L);
}

// socket.skip(n, ...): all but the first n values. A negative n would give values from behind the
// arguments.
int skip(lua_State *L)
{
    if (lua_isnumber(L, 1)) {
        const lua_Number count = lua_tonumber(L, 1);
        const auto given = static_cast<lua_Number>(lua_gettop(L));
        replaceArgument(L, 1, count >= 0 ? std::min(count, given) : 0); // not-a-number too
    }
    return callGuarded(L);
}

// socket.sleep(seconds): for not-a-number it would never return.
int sleep(lua_State *L)
{
    if (lua_isnumber(L, 1) && lua_tonumber(L, 1) != lua_tonumber(L, 1)) {
        replaceArgument(L, 1, 0);
    }
    return callGuarded(L);
}

// Puts a guard before the function of that name, with what else the guard needs as its second
// upvalue.
void guard(lua_State *L, const char *name, lua_CFunction guarding, const char *needed = nullptr)
{
    lua_getfield(L, -1, name);
    if (!lua_iscfunction(L, -1)) {
        lua_pop(L, 1);
        return;
    }
    if (needed != nullptr) {
        lua_getfield(L, -2, needed);
    }
    lua_pushcclosure(L, guarding, needed != nullptr ? 2 : 1);
    lua_setfield(L, -2, name);
}

} // namespace

void guardBitFunctions(lua_State *L)
{
    guard(L, "tohex", toHex, "tobit");
}

void guardSocketFunctions(lua_State *L)
{
    guard(L, "skip", skip);
    guard(L, "sleep", sleep);
}
