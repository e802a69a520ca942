// SPDX-License-Identifier: LicenseRef-Proprietary
#include "app/guards.h"

#include <algorithm>
#include <climits>
#include <lua.hpp>

namespace
{

// The library's own function is the upvalue of its guard. It is called in the guard's place, so
// that its errors name the same function as ever.
int callGuarded(lua_State *L)
{
    return lua_tocfunction(L, lua_upvalueindex(1))(L);
}

// not-a-number stays what it is.
lua_Number capped(lua_Number number, lua_Number cap)
{
    return std::min(number, cap);
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
        replaceArgument(L, 1, count >= 0 ? capped(count, given) : 0); // not-a-number too
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

// socket.select(receiving, sending, timeout): asks each object of the lists for its descriptor, and
// writes outside its set of descriptors for a number that no int holds. It is given stand-ins for
// the lists, which hand out stand-ins for the objects. A stand-in has the object as its element 1.

// __index of a list's stand-in: the upvalues are the list and the metatable of objects' stand-ins.
int standInAtIndex(lua_State *L)
{
    lua_settop(L, 2);
    lua_gettable(L, lua_upvalueindex(1));
    if (!lua_isnil(L, -1)) {
        lua_createtable(L, 1, 0);
        lua_insert(L, -2);
        lua_rawseti(L, -2, 1);
        lua_pushvalue(L, lua_upvalueindex(2));
        lua_setmetatable(L, -2);
    }
    return 1;
}

// What the method of that name gives of the object; nil where there is none.
void callMethod(lua_State *L, const char *name)
{
    lua_settop(L, 1);
    lua_rawgeti(L, 1, 1);
    lua_getfield(L, -1, name);
    if (!lua_isnil(L, -1)) {
        lua_insert(L, -2);
        lua_call(L, 1, 1);
    }
}

int descriptorOfStandIn(lua_State *L)
{
    callMethod(L, "getfd");
    if (lua_isnumber(L, -1)) {
        lua_pushnumber(L, capped(lua_tonumber(L, -1), INT_MAX)); // more than a set has room for
    }
    return 1;
}

int dirtinessOfStandIn(lua_State *L)
{
    callMethod(L, "dirty");
    return 1;
}

void replaceListByStandIn(lua_State *L, int index)
{
    lua_createtable(L, 0, 0);
    lua_createtable(L, 0, 1);
    lua_pushvalue(L, index);
    lua_pushvalue(L, lua_upvalueindex(2));
    lua_pushcclosure(L, standInAtIndex, 2);
    lua_setfield(L, -2, "__index");
    lua_setmetatable(L, -2);
    lua_replace(L, index);
}

// Of a result: objects by number, and their numbers by the objects.
void replaceStandInsByObjects(lua_State *L, int result)
{
    for (int i = 1; lua_rawgeti(L, result, i), !lua_isnil(L, -1); ++i) {
        lua_rawgeti(L, -1, 1); // the object
        lua_pushvalue(L, -1);
        lua_rawseti(L, result, i);
        lua_pushinteger(L, i);
        lua_rawset(L, result);
        lua_pushnil(L);
        lua_rawset(L, result);
    }
    lua_pop(L, 1);
}

int select(lua_State *L)
{
    lua_settop(L, 3);
    for (int index = 1; index <= 2; ++index) {
        if (lua_istable(L, index)) {
            replaceListByStandIn(L, index);
        }
    }
    const int count = callGuarded(L);
    const int last = lua_gettop(L);
    for (int result = last - count + 1; result <= last; ++result) {
        if (lua_istable(L, result)) {
            replaceStandInsByObjects(L, result);
        }
    }
    return count;
}

// Puts a guard before the function of that name in the table below the top of the stack; on top is
// what else the guard needs, its second upvalue, which is popped.
void guard(lua_State *L, const char *name, lua_CFunction guarding)
{
    lua_getfield(L, -2, name);
    if (!lua_iscfunction(L, -1)) {
        lua_pop(L, 2);
        return;
    }
    lua_insert(L, -2);
    lua_pushcclosure(L, guarding, 2);
    lua_setfield(L, -2, name);
}

void pushMetatableOfObjectsStandIns(lua_State *L)
{
    lua_createtable(L, 0, 1);
    lua_createtable(L, 0, 2);
    lua_pushcfunction(L, descriptorOfStandIn);
    lua_setfield(L, -2, "getfd");
    lua_pushcfunction(L, dirtinessOfStandIn);
    lua_setfield(L, -2, "dirty");
    lua_setfield(L, -2, "__index");
}

} // namespace

void guardBitFunctions(lua_State *L)
{
    lua_getfield(L, -1, "tobit");
    guard(L, "tohex", toHex);
}

void guardSocketFunctions(lua_State *L)
{
    lua_pushnil(L);
    guard(L, "skip", skip);
    lua_pushnil(L);
    guard(L, "sleep", sleep);
    pushMetatableOfObjectsStandIns(L);
    guard(L, "select", select);
}
