// SPDX-License-Identifier: LicenseRef-Proprietary
// Raw access to fields of tables. All tables of the runtime are read and written raw, so that no
// metamethod of a script's comes in between.
#pragma once

#include <lua.hpp>

// Pushes the field of that name of the table at index.
inline void pushField(lua_State *L, int index, const char *name)
{
    const bool relative = index < 0 && index > LUA_REGISTRYINDEX;
    lua_pushstring(L, name);
    lua_rawget(L, relative ? index - 1 : index);
}

// Pushes the field whose key is at keyIndex of the table at index.
inline void pushFieldAt(lua_State *L, int index, int keyIndex)
{
    const bool relative = index < 0 && index > LUA_REGISTRYINDEX;
    lua_pushvalue(L, keyIndex);
    lua_rawget(L, relative ? index - 1 : index);
}

// Sets a field of the table on top of the stack to a text.
inline void setStringField(lua_State *L, const char *name, const char *value)
{
    lua_pushstring(L, name);
    lua_pushstring(L, value);
    lua_rawset(L, -3);
}

// Sets a field of the table on top of the stack to a new empty table.
inline void setTableField(lua_State *L, const char *name)
{
    lua_pushstring(L, name);
    lua_newtable(L);
    lua_rawset(L, -3);
}
