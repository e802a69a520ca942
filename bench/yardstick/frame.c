/* SPDX-License-Identifier: LicenseRef-Proprietary */
#include "frame.h"

#define RAISE(...) (lua_pushfstring(L, __VA_ARGS__), lua_error(L), __builtin_unreachable())

void raiseCount(lua_State *L, const char *name, int count, int given)
{
    RAISE("Error in %s expected %d..%d args, got %d", name, count, count, given);
}

void raiseType(lua_State *L, const char *name, int position, const char *expected)
{
    RAISE("Error in %s (arg %d), expected '%s' got '%s'", name, position, expected,
          typeNameOf(L, position));
}

void raiseNegative(lua_State *L)
{
    RAISE("number must not be negative");
}

void raiseNoContext(lua_State *L)
{
    RAISE("No radio context, call radioOpen() first");
}

void raiseStatus(lua_State *L, const char *name)
{
    RAISE("%s() did not return success", name);
}
