// SPDX-License-Identifier: LicenseRef-Proprietary
#include "binding/radio/errors.h"

#include "app/context.h"
#include "binding/runtime/pointer_objects.h"

namespace
{

[[noreturn]] void raise(lua_State *L)
{
    lua_error(L);
    __builtin_unreachable(); // GCOVR_EXCL_LINE: lua_error() does not return
}

} // namespace

void raiseMessage(lua_State *L, const char *message)
{
    lua_pushstring(L, message);
    raise(L);
}

void raiseNoContext(lua_State *L)
{
    raiseMessage(L, noRadioContext);
}

void raiseArgumentCount(lua_State *L, const char *name, int count, int given)
{
    lua_pushfstring(L, "Error in %s expected %d..%d args, got %d", name, count, count, given);
    raise(L);
}

void raiseArgumentType(lua_State *L, const char *name, int position, const char *expected,
                       int index)
{
    lua_pushfstring(L, "Error in %s (arg %d), expected '%s' got '%s'", name, position, expected,
                    SWIG_Lua_TypeName(L, index));
    raise(L);
}
