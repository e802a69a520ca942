// SPDX-License-Identifier: LicenseRef-Proprietary
#include "app/libraries.h"

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

// Lets `require "socket"` extend this table where LuaSocket's Lua part is installed, in place of
// loading a core of its own. A core that registered itself under the name of the Lua part would
// keep it from being loaded.
void shareWithRequire(lua_State *L, int core)
{
    lua_getglobal(L, "package");
    lua_getfield(L, -1, "loaded");
    lua_pushvalue(L, core);
    lua_setfield(L, -2, "socket.core");
    lua_pushnil(L);
    lua_setfield(L, -2, "socket");
    lua_pop(L, 2);
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
    lua_pushcclosure(L, luaopen_socket_core, 0);
    lua_pushliteral(L, "luasocket");
    lua_call(L, 1, 1);
    lua_getglobal(L, "socket");
    if (lua_isnil(L, -1)) {
        lua_pop(L, 1);
    }
    const int core = lua_gettop(L);
    offerSocket202(L, core);
    shareWithRequire(L, core);
    lua_pop(L, 1);
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
