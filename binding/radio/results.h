// SPDX-License-Identifier: LicenseRef-Proprietary
// What a driver function's result becomes in Lua: an error or nothing, if it is a status; else one
// value.
#pragma once

#include "binding/radio/errors.h"
#include "binding/radio/fixed_string.h"

#include <cstdint>
#include <sorel.h>
#include <type_traits>

// Raises "NAME() did not return success". Out of line, as then only failures need the message's
// place.
template <FixedString name>
[[noreturn, gnu::cold, gnu::noinline]] void raiseFailure(lua_State *L)
{
    static constexpr auto message = name + FixedString("() did not return success");
    raiseMessage(L, message.text);
}

template <FixedString name>
void checkStatus(lua_State *L, RadioReturn status)
{
    if (status != RADIO_ESUCCESS) [[unlikely]] {
        raiseFailure<name>(L);
    }
}

// Pushes a driver function's result and returns the number of Lua results.
template <FixedString name, class Result>
int pushResult(lua_State *L, Result result)
{
    if constexpr (std::is_same_v<Result, RadioReturn>) {
        checkStatus<name>(L, result);
        return 0;
    } else if constexpr (std::is_enum_v<Result>) {
        // A driver header that does not fix the type of an enumeration leaves its sign open.
        lua_pushnumber(L, static_cast<std::int32_t>(result));
        return 1;
    } else if constexpr (std::is_same_v<Result, const char *>) {
        lua_pushstring(L, result);
        return 1;
    } else {
        lua_pushnumber(L, static_cast<lua_Number>(result));
        return 1;
    }
}
