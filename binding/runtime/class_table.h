// SPDX-License-Identifier: LicenseRef-Proprietary
// Native structures as Lua classes: their metatables, which the registry table "SWIG" keeps by
// class name for all bindings of the Lua state, and the metamethods.
#pragma once

#include "binding/runtime/records.h"

// Pushes the registry table "SWIG", making it on first use.
void SWIG_Lua_ClassRegistry(lua_State *L);

// Pushes the metatable of the class of that name, or nil.
void SWIG_Lua_ClassMetatable(lua_State *L, const char *className);

// True when the value at index is the metatable of a registered class.
bool SWIG_Lua_IsClassMetatable(lua_State *L, int index);

// Gives the value on top of the stack the metatable of the class. Does nothing for a null record or
// a class that is not registered.
void SWIG_Lua_AttachClassMetatable(lua_State *L, const ClassRecord *classRecord);

// Fills the bases of the class that are known by now.
void SWIG_Lua_ResolveBases(lua_State *L, ClassRecord *classRecord);

// Adds the constructor to the module table on top of the stack, and makes the class metatable.
void SWIG_Lua_RegisterClass(lua_State *L, ClassRecord *classRecord);

// Adds the attributes and methods of the class to the class metatable on top of the stack, those of
// its bases first.
void SWIG_Lua_add_class_details(lua_State *L, const ClassRecord *classRecord);

// "__index" (object, key): an attribute's value, else a method, else what "__getitem" returns, else
// nothing.
int SWIG_Lua_class_get(lua_State *L);

// "__newindex" (object, key, value): sets an attribute, else calls "__setitem". An unknown field is
// dropped without an error.
int SWIG_Lua_class_set(lua_State *L);

// "__gc" (object): frees the native object if Lua owns it. The object is the last argument.
int SWIG_Lua_class_destruct(lua_State *L);
