// SPDX-License-Identifier: LicenseRef-Proprietary
// The module table: functions and constants as plain fields, variables through accessor functions.
#pragma once

#include "binding/runtime/records.h"

// A function of the module.
struct CommandEntry {
    const char *name; // null ends the list
    lua_CFunction function;
};

// Sets a field of the table on top of the stack to a native function.
void SWIG_Lua_AddFunction(lua_State *L, const char *name, lua_CFunction function);

// Makes the module table, with room for so many fields, and its metatable, stores it under name in
// the table on top of the stack, and leaves it on top of that table.
void SWIG_Lua_module_begin(lua_State *L, const char *name, int fields = 0);

// Adds a list of functions to the module table on top of the stack.
void SWIG_Lua_AddCommands(lua_State *L, const CommandEntry *commands);

// Adds a list of variables to the module table on top of the stack.
void SWIG_Lua_AddVariables(lua_State *L, const AttributeEntry *variables);

// Runs Lua text. A failure prints the error's text and a newline on standard error. Leaves the
// stack as it was. Null and empty texts do nothing.
void SWIG_Lua_RunModuleCode(lua_State *L, const char *code);

// "__index" (module, key): a variable's value, else nil.
int SWIG_Lua_module_get(lua_State *L);

// "__newindex" (module, key, value): sets a variable, else makes a plain field. So a variable
// without a setter is shadowed by the first assignment to its name.
int SWIG_Lua_module_set(lua_State *L);
