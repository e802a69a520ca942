// SPDX-License-Identifier: LicenseRef-Proprietary
#include "binding/runtime/module_table.h"

#include "binding/runtime/fields.h"
#include "binding/runtime/invariant.h"

#include <cstdio>

namespace
{

// Pushes the accessor of the variable that the key at index 2 names, from that field of the
// metatable of the module at index 1. Says whether there is one.
bool pushAccessor(lua_State *L, const char *field)
{
    if (pushField(L, -1, field); !lua_istable(L, -1)) {
        return false;
    }
    pushFieldAt(L, -1, 2);
    return lua_iscfunction(L, -1);
}

void checkModule(lua_State *L, unsigned line, const char *function)
{
    checkInvariant(lua_istable(L, 1), "(lua_type(L, (1)) == 5)", line, function);
    checkInvariant(lua_getmetatable(L, 1) != 0, topIsTable, line + 2, function);
}

} // namespace

void SWIG_Lua_AddFunction(lua_State *L, const char *name, lua_CFunction function)
{
    lua_pushstring(L, name);
    lua_pushcclosure(L, function, 0);
    lua_rawset(L, -3);
}

void SWIG_Lua_module_begin(lua_State *L, const char *name, int fields)
{
    checkInvariant(lua_istable(L, -1), topIsTable, 948, "SWIG_Lua_module_begin");
    lua_pushstring(L, name);
    lua_createtable(L, 0, fields);

    lua_createtable(L, 0, 4);
    setTableField(L, ".get");
    setTableField(L, ".set");
    SWIG_Lua_AddFunction(L, "__index", SWIG_Lua_module_get);
    SWIG_Lua_AddFunction(L, "__newindex", SWIG_Lua_module_set);
    lua_setmetatable(L, -2);

    lua_rawset(L, -3);
    pushField(L, -1, name);
}

void SWIG_Lua_AddCommands(lua_State *L, const CommandEntry *commands)
{
    for (const CommandEntry *entry = commands; entry->name != nullptr; ++entry) {
        SWIG_Lua_AddFunction(L, entry->name, entry->function);
    }
}

void SWIG_Lua_AddVariables(lua_State *L, const AttributeEntry *variables)
{
    for (const AttributeEntry *entry = variables; entry->name != nullptr; ++entry) {
        lua_getmetatable(L, -1);
        pushField(L, -1, ".get");
        SWIG_Lua_AddFunction(L, entry->name, entry->getter);
        lua_pop(L, 1);
        if (entry->setter != nullptr) {
            pushField(L, -1, ".set");
            SWIG_Lua_AddFunction(L, entry->name, entry->setter);
            lua_pop(L, 1);
        }
        lua_pop(L, 1);
    }
}

void SWIG_Lua_RunModuleCode(lua_State *L, const char *code)
{
    if (code == nullptr || *code == '\0') {
        return;
    }
    const int top = lua_gettop(L);
    if (luaL_loadstring(L, code) != 0 || lua_pcall(L, 0, LUA_MULTRET, 0) != 0) {
        std::fprintf(stderr, "%s\n", lua_tostring(L, -1));
    }
    lua_settop(L, top);
}

int SWIG_Lua_module_get(lua_State *L)
{
    lua_settop(L, 2);
    checkModule(L, 889, "SWIG_Lua_module_get");
    if (pushAccessor(L, ".get")) {
        lua_call(L, 0, 1);
        return 1;
    }
    lua_pushnil(L);
    return 1;
}

int SWIG_Lua_module_set(lua_State *L)
{
    lua_settop(L, 3);
    checkModule(L, 921, "SWIG_Lua_module_set");
    if (pushAccessor(L, ".set")) {
        lua_pushvalue(L, 3);
        lua_call(L, 1, 0);
        return 0;
    }
    lua_settop(L, 3);
    lua_rawset(L, 1);
    return 0;
}
