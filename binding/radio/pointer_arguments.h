// SPDX-License-Identifier: LicenseRef-Proprietary
// Arguments that are native pointers.
#pragma once

#include "binding/radio/errors.h"
#include "binding/radio/types.h"
#include "binding/runtime/pointer_objects.h"

// The type test of native pointers.
inline bool isUserdataOrNil(lua_State *L, int index)
{
    const int type = lua_type(L, index);
    return type == LUA_TNIL || type == LUA_TUSERDATA || type == LUA_TLIGHTUSERDATA;
}

// Raises the type error, which quotes expected, unless the value at index is a userdata or nil.
inline void checkUserdataOrNil(lua_State *L, const char *name, int index, const char *expected)
{
    if (!isUserdataOrNil(L, index)) [[unlikely]] {
        raiseArgumentType(L, name, index, expected, index);
    }
}

// The native pointer of the value at index; null for nil. Raises the type error for one that is no
// pointer object of that type. Where the message counts the driver function's parameters instead of
// the Lua arguments, position differs from index, and the type that it names is that of the value
// at position.
inline void *toNativePointer(lua_State *L, const char *name, int index, int position,
                             TypePosition type)
{
    void *pointer = nullptr;
    TypeRecord *const expected = radioTypes[type];
    if (SWIG_Lua_ConvertPtr(L, index, &pointer, expected) != 0) [[unlikely]] {
        const char *const display = expected->str != nullptr ? expected->str : "void*";
        raiseArgumentType(L, name, position, display, position);
    }
    return pointer;
}
