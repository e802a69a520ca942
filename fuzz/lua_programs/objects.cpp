// SPDX-License-Identifier: LicenseRef-Proprietary
#include "fuzz/lua_programs/objects.h"

#include "app/context.h"
#include "binding/radio/types.h"
#include "binding/runtime/pointer_objects.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace
{

void *pointerTo(std::size_t type)
{
    static std::int64_t numbers[4];
    static RadioHooks hooks = {std::malloc, std::free};
    static char name[] = "name";
    static char *names[] = {name, nullptr};
    static std::FILE *const file = std::fopen("/dev/null", "w");
    switch (type) {
    case fileType:
        return file;
    case contextType:
        return appContext != nullptr ? static_cast<void *>(appContext) : numbers;
    case hooksType:
        return &hooks;
    case freeFunctionType:
        return reinterpret_cast<void *>(std::free);
    case mallocFunctionType:
        return reinterpret_cast<void *>(std::malloc);
    case textListType:
        return names;
    default:
        return numbers;
    }
}

int makePointer(lua_State *L)
{
    const auto type = static_cast<std::size_t>(lua_tointeger(L, 1) - 1);
    // Only what the collector may free is given to Lua to own: hooks are not among these.
    const int own = type != hooksType ? lua_toboolean(L, 2) : 0;
    SWIG_Lua_PushPointer(L, pointerTo(type), radioTypes[type], own);
    return 1;
}

// Of a type that no function takes: the bytes are no pointer.
int makePacked(lua_State *L)
{
    static const char bytes[32] = "packed";
    SWIG_Lua_NewPackedObj(L, bytes, sizeof bytes, radioTypes[bandType]);
    return 1;
}

} // namespace

int pushObjectMakers(lua_State *L)
{
    lua_pushcclosure(L, makePointer, 0);
    lua_pushcclosure(L, makePacked, 0);
    lua_newtable(L);
    for (int type = 0; type < static_cast<int>(typeCount); ++type) {
        lua_pushstring(L, radioTypes[type]->name);
        lua_rawseti(L, -2, type + 1);
    }
    return 3;
}
