// SPDX-License-Identifier: LicenseRef-Proprietary
#include "bench/tables/cases.h"

#include "app/context.h"
#include "bench/yardstick/register_tables.h"
#include "binding/radio/register_tables.h"

#include <cstdlib>
#include <iterator>

namespace
{

// Spread over what fits into a register, and all with ten digits.
void pushTenDigits(lua_State *L, int index)
{
    lua_pushnumber(L, 1e9 + index % 1009 * 3'262'601.0);
}

void pushThreeDecimals(lua_State *L, int index)
{
    lua_pushnumber(L, index % 1009 + index % 1000 / 1000.0);
}

// So near to the next whole number that only printing them tells whether they are rounded to it.
void pushNearlyWhole(lua_State *L, int index)
{
    lua_pushnumber(L, index % 1009 + 0.99995);
}

void pushByte(lua_State *L, int index)
{
    lua_pushnumber(L, index % 256);
}

void pushString(lua_State *L, int index)
{
    pushTenDigits(L, index);
    lua_tostring(L, -1);
}

} // namespace

const TableKind tableKinds[] = {
    {"ten-digit integers", pushTenDigits, false},
    {"three-decimal fractions", pushThreeDecimals, false},
    {"integers below 256", pushByte, false},
    {"fractions that are printed", pushNearlyWhole, false},
    {"strings of ten digits", pushString, false},
    {"with a metatable", pushTenDigits, true},
};
const int tableKindCount = std::size(tableKinds);

const TableSetter tableSetters[] = {
    {"ours", radioSetRxGainRegistersWrapper},
    {"through text", yardstickSetRxGainRegisters},
};
const int tableSetterCount = std::size(tableSetters);

lua_State *openTableCase(const TableSetter &setter, const TableKind &kind, int size)
{
    appRadioOpen();
    lua_State *const L = luaL_newstate();
    if (L == nullptr || appContext == nullptr) {
        std::abort();
    }
    lua_pushcfunction(L, setter.function);
    lua_createtable(L, size, 0);
    for (int index = 1; index <= size; ++index) {
        kind.push(L, index);
        lua_rawseti(L, 2, index);
    }
    if (kind.hasMetatable) {
        lua_newtable(L);
        lua_setmetatable(L, 2);
    }
    return L;
}

void callTableCase(lua_State *L)
{
    lua_pushvalue(L, 1);
    lua_pushvalue(L, 2);
    lua_call(L, 1, 0);
}
