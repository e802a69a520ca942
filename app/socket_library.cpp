// SPDX-License-Identifier: LicenseRef-Proprietary
// LuaSocket. Scripts are promised the interface of LuaSocket 2.0.2. A later core differs in what
// matters to them, and this file makes up for it:
// - It only returns its table, and does not set the global.
// - Its tcp() and udp() make sockets that exist, and have a family, only once they are bound or
//   connected, so that an option set before fails. Its tcp4() and udp4() are what tcp() and udp()
//   were.
// - Its protect() catches only what the functions of newtry() raise.
// - Its getsockname() returns the port as a string.
// - It names another version.
// What it has beyond 2.0.2 is left as it is.
#include "app/guards.h"
#include "app/libraries.h"

#include <cstring>
#include <lua.hpp>

// LuaSocket's header includes one that is not installed, and lacks C linkage for C++.
extern "C" int luaopen_socket_core(lua_State *L);

namespace
{

const char *const socketClasses[] = {
    "tcp{master}", "tcp{client}", "tcp{server}", "udp{connected}", "udp{unconnected}",
};

// What protect() returns: calls the function that is the upvalue. An error that is a table becomes
// the results nil and the first element; any other is raised again.
int callProtected(lua_State *L)
{
    lua_pushvalue(L, lua_upvalueindex(1));
    lua_insert(L, 1);
    if (lua_pcall(L, lua_gettop(L) - 1, LUA_MULTRET, 0) == 0) {
        return lua_gettop(L);
    }
    if (!lua_istable(L, -1)) {
        return lua_error(L);
    }
    lua_pushnil(L);
    lua_rawgeti(L, -2, 1);
    return 2;
}

int protect(lua_State *L)
{
    lua_settop(L, 1);
    lua_pushcclosure(L, callProtected, 1);
    return 1;
}

// Lets the field of the core have the value of another, where the core has that.
void replaceField(lua_State *L, int core, const char *field, const char *by)
{
    lua_getfield(L, core, by);
    if (lua_isnil(L, -1)) {
        lua_pop(L, 1);
    } else {
        lua_setfield(L, core, field);
    }
}

// getsockname() of a socket; the upvalue is the core's own.
int getSocketName(lua_State *L)
{
    lua_pushvalue(L, lua_upvalueindex(1));
    lua_insert(L, 1);
    lua_call(L, lua_gettop(L) - 1, LUA_MULTRET);
    if (lua_isstring(L, 1) && lua_isnumber(L, 2)) {
        lua_pushnumber(L, lua_tonumber(L, 2));
        lua_replace(L, 2);
    }
    return lua_gettop(L);
}

// Lets getsockname() of all sockets of a class return the port as a number.
void returnPortAsNumber(lua_State *L, const char *className)
{
    luaL_getmetatable(L, className);
    if (lua_istable(L, -1)) {
        lua_getfield(L, -1, "__index");
        lua_getfield(L, -1, "getsockname");
        lua_pushcclosure(L, getSocketName, 1);
        lua_setfield(L, -2, "getsockname");
        lua_pop(L, 1);
    }
    lua_pop(L, 1);
}

void offerVersion202(lua_State *L, int core)
{
    replaceField(L, core, "tcp", "tcp4");
    replaceField(L, core, "udp", "udp4");
    lua_pushcclosure(L, protect, 0);
    lua_setfield(L, core, "protect");
    for (const char *const className : socketClasses) {
        returnPortAsNumber(L, className);
    }
    lua_pushliteral(L, "LuaSocket 2.0.2");
    lua_setfield(L, core, "_VERSION");
    lua_pushvalue(L, core);
    lua_setglobal(L, "socket");
}

// A loader of modules, and what it finds; the upvalue of both is the core.
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
        offerVersion202(L, core);
        guardSocketFunctions(L);
        shareWithRequire(L, core);
    }
    lua_settop(L, top);
}
