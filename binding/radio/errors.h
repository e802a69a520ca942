// SPDX-License-Identifier: LicenseRef-Proprietary
// The one place that words and raises the module's errors. An error is the bare message, without a
// position. Raising is a longjmp: no object with a destructor may be alive in the callers.
#pragma once

#include <lua.hpp>

inline constexpr char negativeNumber[] = "number must not be negative";

// Raises a fixed message.
[[noreturn, gnu::cold]] void raiseMessage(lua_State *L, const char *message);

// Raises the error of a function that needs a context while none is open.
[[noreturn, gnu::cold]] void raiseNoContext(lua_State *L);

// Raises "Error in NAME expected COUNT..COUNT args, got GIVEN".
[[noreturn, gnu::cold]] void raiseArgumentCount(lua_State *L, const char *name, int count,
                                                int given);

// Raises "Error in NAME (arg POSITION), expected 'EXPECTED' got 'TYPE'" with the type name of the
// value at index, which may be absent.
[[noreturn, gnu::cold]] void raiseArgumentType(lua_State *L, const char *name, int position,
                                               const char *expected, int index);

// Raises the count message unless exactly count arguments are on the stack.
inline void checkArgumentCount(lua_State *L, const char *name, int count)
{
    const int given = lua_gettop(L);
    if (given != count) [[unlikely]] {
        raiseArgumentCount(L, name, count, given);
    }
}
