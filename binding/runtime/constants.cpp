// SPDX-License-Identifier: LicenseRef-Proprietary
#include "binding/runtime/constants.h"

#include "binding/runtime/pointer_objects.h"

namespace
{

// Pushes the value of a constant; pushes nothing and says false for a kind that is none of ours.
bool pushConstant(lua_State *L, const ConstantEntry &constant)
{
    switch (constant.kind) {
    case integerConstant:
        lua_pushnumber(L, static_cast<lua_Number>(constant.integer));
        return true;
    case floatingConstant:
        lua_pushnumber(L, constant.floating);
        return true;
    case stringConstant:
        lua_pushstring(L, static_cast<const char *>(constant.pointer));
        return true;
    case pointerConstant:
        SWIG_Lua_PushPointer(L, constant.pointer, *constant.type, 0);
        return true;
    case binaryConstant:
        SWIG_Lua_NewPackedObj(L, constant.pointer, static_cast<std::size_t>(constant.integer),
                              *constant.type);
        return true;
    case characterConstant:
        // Formatted, so that a zero byte gives an empty string.
        lua_pushfstring(L, "%c", static_cast<unsigned char>(constant.integer));
        return true;
    default:
        return false;
    }
}

} // namespace

void SWIG_Lua_AddConstants(lua_State *L, const ConstantEntry *constants)
{
    for (const ConstantEntry *constant = constants; constant->kind != endOfConstants; ++constant) {
        lua_pushstring(L, constant->name);
        if (pushConstant(L, *constant)) {
            lua_rawset(L, -3);
        } else {
            lua_pop(L, 1);
        }
    }
}
