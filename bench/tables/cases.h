// SPDX-License-Identifier: LicenseRef-Proprietary
// Register tables to measure with: what is in them, and the functions that take them.
#pragma once

#include <lua.hpp>

struct TableKind {
    const char *name;
    void (*push)(lua_State *L, int index); // the element at an index
    bool hasMetatable;
};

extern const TableKind tableKinds[];
extern const int tableKindCount;

struct TableSetter {
    const char *name;
    lua_CFunction function;
};

extern const TableSetter tableSetters[];
extern const int tableSetterCount;

// A state with an open driver context, and on its stack the function and a table of that size for
// it.
lua_State *openTableCase(const TableSetter &setter, const TableKind &kind, int size);

// Calls the function with the table.
void callTableCase(lua_State *L);
