// SPDX-License-Identifier: LicenseRef-Proprietary
// The least that a program can do that starts as the shell does: the same libraries and fields,
// made with Lua's own interface alone. Runs the text that is its last argument.
#include "binding/radio/catalogue.h"
#include "binding/radio/constants.h"

#include <lua.hpp>
#include <sorel.h>

extern "C" int luaopen_bit(lua_State *L);
extern "C" int luaopen_socket_core(lua_State *L);

namespace
{

void registerRadio(lua_State *L)
{
    lua_createtable(L, 0, 163);
    for (const CommandEntry *entry = radioCommands; entry->name != nullptr; ++entry) {
        lua_pushcclosure(L, entry->function, 0);
        lua_setfield(L, -2, entry->name);
    }
    lua_pushcclosure(L, radioCommands[0].function, 0);
    lua_setfield(L, -2, "RadioHooks");
    for (const ConstantEntry *entry = radioConstants; entry->kind != endOfConstants; ++entry) {
        lua_pushnumber(L, static_cast<lua_Number>(entry->integer));
        lua_setfield(L, -2, entry->name);
    }
    lua_setfield(L, LUA_GLOBALSINDEX, "radio");
}

void copyRadioToGlobals(lua_State *L)
{
    lua_getfield(L, LUA_GLOBALSINDEX, "radio");
    lua_pushnil(L);
    while (lua_next(L, -2) != 0) {
        lua_pushvalue(L, -2);
        lua_insert(L, -2);
        lua_rawset(L, LUA_GLOBALSINDEX);
    }
    lua_pop(L, 1);
}

void open(lua_State *L, lua_CFunction opener, const char *name)
{
    lua_pushcclosure(L, opener, 0);
    lua_pushstring(L, name);
    lua_call(L, 1, 0);
}

} // namespace

int main(int argc, char **argv)
{
    RadioContext *const context = radioOpen();
    lua_State *const L = luaL_newstate();
    lua_gc(L, LUA_GCSTOP, 0);
    lua_createtable(L, 0, 256);
    lua_replace(L, LUA_GLOBALSINDEX);
    luaL_openlibs(L);
    registerRadio(L);
    copyRadioToGlobals(L);
    open(L, luaopen_bit, "bit");
    open(L, luaopen_socket_core, "luasocket");
    lua_gc(L, LUA_GCRESTART, 0);
    const bool failed = luaL_loadstring(L, argv[argc - 1]) != 0 || lua_pcall(L, 0, 0, 0) != 0;
    radioClose(context);
    lua_close(L);
    return failed ? 1 : 0;
}
