// SPDX-License-Identifier: LicenseRef-Proprietary
// Native pointers as typed userdata: pushing, converting back, and naming the types of values.
// Every index may be relative.
//
// A userdata that this runtime did not make is never read beyond its size, and its first word is
// followed as a type record only where that is known to be safe. A light userdata is read as if it
// pointed at a PointerObject: nothing in the shell passes one, and whoever does answers for it.
#pragma once

#include "binding/runtime/records.h"

// Pushes one value: nil for a null ptr; else a new PointerObject with the metatable of the class
// bound to type, if there is one. own: 1 lets Lua free the native object at collection.
void SWIG_Lua_PushPointer(lua_State *L, void *ptr, TypeRecord *type, int own);

// Pushes a new PointerObject that holds nothing yet, with the metatable of the class bound to type.
// For an object that is to own what is allocated next: then nothing is lost where Lua has no memory
// for the object.
PointerObject *SWIG_Lua_NewPointerObj(lua_State *L, TypeRecord *type);

// Pushes a new PackedObject with a copy of size bytes from ptr, which must not be null.
void SWIG_Lua_NewPackedObj(lua_State *L, const void *ptr, std::size_t size, TypeRecord *type);

// Stores the native pointer of the value at index through ptr and returns 0, if the value is nil
// (a null pointer) or a pointer object that the expected type accepts; without an expected type,
// any pointer object. Otherwise returns -1. Never changes who owns the object.
int SWIG_Lua_ConvertPtr(lua_State *L, int index, void **ptr, TypeRecord *type);

// The pointer object at index; null where there is none that can be read as one.
PointerObject *SWIG_Lua_ToPointerObject(lua_State *L, int index);

// The type name of the value at index, as messages print it: Lua's own, or for a pointer object the
// whole text of its type. Valid as long as the type.
const char *SWIG_Lua_TypeName(lua_State *L, int index);

// Non-zero for a string, a number or nil.
int SWIG_Lua_IsStringOrNil(lua_State *L, int index);

// Lua: swig_type(value) returns the type name of value.
int SWIG_Lua_type(lua_State *L);

// Lua: swig_equals(a, b) says whether two userdata hold the same pointer; returns nothing unless
// both are userdata.
int SWIG_Lua_equal(lua_State *L);
