// SPDX-License-Identifier: LicenseRef-Proprietary
#include "tests/app/fake_openers.h"

lua_CFunction socketCore = coreThatGivesNothing;
std::string argumentsOfBit;
std::string argumentsOfCore;

namespace
{

std::string joinedArguments(lua_State *L)
{
    std::string joined;
    for (int i = 1; i <= lua_gettop(L); ++i) {
        joined += i > 1 ? " " : "";
        joined += luaL_checkstring(L, i);
    }
    return joined;
}

template <const char *text>
int returnText(lua_State *L)
{
    lua_pushstring(L, text);
    return 1;
}

constexpr char tcp[] = "tcp";
constexpr char tcp4[] = "tcp4";
constexpr char tcp6[] = "tcp6";
constexpr char udp[] = "udp";
constexpr char udp4[] = "udp4";

const luaL_Reg functionsOf2[] = {
    {tcp, returnText<tcp>},
    {udp, returnText<udp>},
    {nullptr, nullptr},
};

const luaL_Reg functionsOf3[] = {
    {tcp, returnText<tcp>}, {tcp4, returnText<tcp4>}, {tcp6, returnText<tcp6>},
    {udp, returnText<udp>}, {udp4, returnText<udp4>}, {nullptr, nullptr},
};

void setVersion(lua_State *L, const char *version)
{
    lua_pushstring(L, version);
    lua_setfield(L, -2, "_VERSION");
}

} // namespace

int coreThatSetsTheGlobal(lua_State *L)
{
    luaL_register(L, "socket", functionsOf2);
    setVersion(L, "LuaSocket 2.0.2");
    return 1;
}

int coreThatReturnsItsTable(lua_State *L)
{
    lua_newtable(L);
    luaL_register(L, nullptr, functionsOf3);
    setVersion(L, "LuaSocket 3.0.0");
    return 1;
}

namespace
{

int returnArguments(lua_State *L)
{
    return lua_gettop(L);
}

} // namespace

int coreWithSockets(lua_State *L)
{
    for (const char *const className :
         {"tcp{master}", "tcp{client}", "tcp{server}", "udp{connected}", "udp{unconnected}"}) {
        luaL_newmetatable(L, className);
        lua_newtable(L);
        lua_pushcclosure(L, returnArguments, 0);
        lua_setfield(L, -2, "getsockname");
        lua_setfield(L, -2, "__index");
    }
    return coreThatReturnsItsTable(L);
}

int coreThatGivesNothing(lua_State *)
{
    return 0;
}

extern "C" int luaopen_bit(lua_State *L);
extern "C" int luaopen_socket_core(lua_State *L);

int luaopen_bit(lua_State *L)
{
    argumentsOfBit = joinedArguments(L);
    lua_newtable(L);
    lua_setglobal(L, "bit");
    return 0;
}

int luaopen_socket_core(lua_State *L)
{
    argumentsOfCore = joinedArguments(L);
    return socketCore(L);
}
