// SPDX-License-Identifier: LicenseRef-Proprietary
#include "app/libraries.h"

#include <cstring>
#include <lua.hpp>

// The headers that come with the two libraries lack C linkage for C++; LuaSocket's also includes
// one that is not installed.
extern "C" int luaopen_bit(lua_State *L);
extern "C" int luaopen_socket_core(lua_State *L);

namespace
{

// Sets the field of the table at index to the value on top of the stack, unless that is nil. Pops
// it.
void replaceField(lua_State *L, int table, const char *field)
{
    if (lua_isnil(L, -1)) {
        lua_pop(L, 1);
    } else {
        lua_setfield(L, table, field);
    }
}

// Scripts are promised LuaSocket 2.0.2. A later core differs in what matters to them:
// - It only returns its table, and does not set the global.
// - Its tcp() and udp() make sockets that exist, and have a family, only once they are bound or
//   connected, so that an option set before has no effect but an error. Its tcp4() and udp4() are
//   what tcp() and udp() were.
// - It names another version.
// What it has beyond 2.0.2 is left as it is.
void offerSocket202(lua_State *L, int core)
{
    lua_getfield(L, core, "tcp4");
    replaceField(L, core, "tcp");
    lua_getfield(L, core, "udp4");
    replaceField(L, core, "udp");
    lua_pushliteral(L, "LuaSocket 2.0.2");
    lua_setfield(L, core, "_VERSION");
    lua_pushvalue(L, core);
    lua_setglobal(L, "socket");
}

// A loader of modules, and what it finds; the upvalue of both is LuaSocket's core.
int returnCore(lua_State *L)
{
    lua_pushvalue(L, lua_upvalueindex(1));
    return 1;
}

int searchCore(lua_State *L)
{
    if (std::strcmp(luaL_checkstring(L, 1), "socket") != 0) {
        return 0;
    }
    lua_pushvalue(L, lua_upvalueindex(1));
    lua_pushcclosure(L, returnCore, 1);
    return 1;
}

// Lets `require "socket"` give this table, extended by LuaSocket's Lua part where that is
// installed, in place of loading a second core.
void shareWithRequire(lua_State *L, int core)
{
    lua_getglobal(L, "package");
    lua_getfield(L, -1, "loaded");
    lua_pushvalue(L, core);
    lua_setfield(L, -2, "socket.core");
    // A core that has registered itself under the Lua part's name would keep it from being loaded.
    lua_pushnil(L);
    lua_setfield(L, -2, "socket");

    // The last resort, after all paths have been searched for the Lua part.
    lua_getfield(L, -2, "loaders");
    lua_pushvalue(L, core);
    lua_pushcclosure(L, searchCore, 1);
    lua_rawseti(L, -2, static_cast<int>(lua_objlen(L, -2)) + 1);
    lua_pop(L, 3);
}

} // namespace

void openBitLibrary(lua_State *L)
{
    lua_pushcclosure(L, luaopen_bit, 0);
    lua_pushliteral(L, "bit");
    lua_call(L, 1, 0);
}

void openSocketLibrary(lua_State *L)
{
    const int top = lua_gettop(L);
    lua_pushcclosure(L, luaopen_socket_core, 0);
    lua_pushliteral(L, "luasocket");
    lua_call(L, 1, 1);
    lua_getglobal(L, "socket");
    if (lua_isnil(L, -1)) {
        lua_pop(L, 1); // it has only returned its table
    }
    if (const int core = lua_gettop(L); lua_istable(L, core)) {
        offerSocket202(L, core);
        shareWithRequire(L, core);
    }
    lua_settop(L, top);
}

void keepLoadedLibraries(lua_State *L)
{
    // The metatable of the handles that Lua keeps of loaded libraries; collecting one unloads it.
    luaL_getmetatable(L, "_LOADLIB");
    if (lua_istable(L, -1)) {
        lua_pushnil(L);
        lua_setfield(L, -2, "__gc");
    }
    lua_pop(L, 1);
}
