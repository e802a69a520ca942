// SPDX-License-Identifier: LicenseRef-Proprietary
#include "bench/calls/both_makes.h"

#include "app/context.h"
#include "bench/yardstick/yardstick.h"
#include "binding/radio/types.h"
#include "binding/radio_wrap.h"
#include "binding/runtime/pointer_objects.h"

#include <cstdio>
#include <cstdlib>

namespace
{

int doNothing(lua_State *)
{
    return 0;
}

void require(lua_State *L, bool holds)
{
    if (!holds) {
        std::fprintf(stderr, "%s\n", lua_tostring(L, -1));
        std::exit(EXIT_FAILURE);
    }
}

} // namespace

lua_State *openBothMakes()
{
    lua_State *const L = luaL_newstate();
    luaL_openlibs(L);
    radioModuleOpen(L);
    require(L, luaL_dostring(L, "for name, field in pairs(radio) do _G[name] = field end") == 0);

    lua_newtable(L);
    addYardstick(L);
    lua_setglobal(L, "yardstick");

    constexpr luaL_Reg functions[] = {{"call", doNothing}, {nullptr, nullptr}};
    luaL_register(L, "empty", functions);
    lua_pop(L, 1);

    appRadioOpen();
    return L;
}

void pushLoop(lua_State *L, const char *table, const char *function, const char *text)
{
    static char *names[] = {nullptr};
    lua_pushfstring(L,
                    "local f, names = ... return function(rounds) "
                    "local f, names = f, names for i = 1, rounds do %s end end",
                    text);
    require(L, luaL_loadstring(L, lua_tostring(L, -1)) == 0);
    lua_remove(L, -2);
    lua_getglobal(L, table);
    lua_getfield(L, -1, function);
    lua_remove(L, -2);
    SWIG_Lua_PushPointer(L, static_cast<void *>(names), radioTypes[textListType], 0);
    require(L, lua_pcall(L, 2, 1, 0) == 0);
}

void runLoop(lua_State *L, int index, int rounds)
{
    lua_pushvalue(L, index);
    lua_pushinteger(L, rounds);
    require(L, lua_pcall(L, 1, 0, 0) == 0);
}
