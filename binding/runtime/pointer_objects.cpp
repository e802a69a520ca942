// SPDX-License-Identifier: LicenseRef-Proprietary
#include "binding/runtime/pointer_objects.h"

#include "binding/runtime/class_table.h"
#include "binding/runtime/invariant.h"
#include "binding/runtime/registry.h"
#include "binding/runtime/types.h"

#include <cstring>

namespace
{

constexpr char unknownUserdata[] = "userdata (unknown type)";

// The block of the userdata at index, if it has at least size bytes. The size of the block behind a
// light userdata is not known.
void *blockOfSize(lua_State *L, int index, std::size_t size)
{
    if (lua_type(L, index) == LUA_TUSERDATA && lua_objlen(L, index) < size) {
        return nullptr;
    }
    return lua_touserdata(L, index);
}

bool isTypeOfModule(const ModuleRecord *module, const TypeRecord *type)
{
    for (std::size_t i = 0; i < module->size; ++i) {
        if (module->types[i] == type) {
            return true;
        }
    }
    return false;
}

bool isSharedType(lua_State *L, const TypeRecord *type)
{
    const ModuleRecord *const head = SWIG_Lua_GetModuleRecord(L);
    const ModuleRecord *module = head;
    while (module != nullptr) {
        if (isTypeOfModule(module, type)) {
            return true;
        }
        module = module->next != head ? module->next : nullptr;
    }
    return false;
}

// The type record that the userdata at index begins with; null when there is none.
// The files and sockets of other libraries begin with words that are no type records. They can be
// told by their metatables: a pointer object has that of its class, or none.
TypeRecord *typeOfUserdata(lua_State *L, int index)
{
    auto *const block = static_cast<TypeRecord **>(blockOfSize(L, index, sizeof(void *)));
    if (block == nullptr || *block == nullptr) {
        return nullptr;
    }
    if (lua_islightuserdata(L, index) || !lua_getmetatable(L, index)) {
        return *block;
    }
    const bool ofClass = SWIG_Lua_IsClassMetatable(L, -1);
    lua_pop(L, 1);
    return ofClass || isSharedType(L, *block) ? *block : nullptr;
}

// The native pointer in the userdata at index, whatever made that; false when it has no room for
// one.
bool pointerOfUserdata(lua_State *L, int index, void **ptr)
{
    const auto *const object =
        static_cast<PointerObject *>(blockOfSize(L, index, sizeof(PointerObject)));
    if (object == nullptr) {
        return false;
    }
    *ptr = object->ptr;
    return true;
}

} // namespace

PointerObject *SWIG_Lua_NewPointerObj(lua_State *L, TypeRecord *type)
{
    auto *const object = static_cast<PointerObject *>(lua_newuserdata(L, sizeof(PointerObject)));
    object->type = type;
    object->own = 0;
    object->ptr = nullptr;
    if (type != nullptr) {
        SWIG_Lua_AttachClassMetatable(L, static_cast<const ClassRecord *>(type->clientData));
    }
    return object;
}

void SWIG_Lua_PushPointer(lua_State *L, void *ptr, TypeRecord *type, int own)
{
    if (ptr == nullptr) {
        lua_pushnil(L);
        return;
    }
    PointerObject *const object = SWIG_Lua_NewPointerObj(L, type);
    object->own = own;
    object->ptr = ptr;
}

void SWIG_Lua_NewPackedObj(lua_State *L, const void *ptr, std::size_t size, TypeRecord *type)
{
    checkInvariant(ptr != nullptr, "ptr", 1341, "SWIG_Lua_NewPackedObj");
    auto *const object =
        static_cast<PackedObject *>(lua_newuserdata(L, offsetof(PackedObject, data) + size));
    object->type = type;
    object->own = 0;
    std::memcpy(object->data, ptr, size);
    if (type != nullptr) {
        SWIG_Lua_AttachClassMetatable(L, static_cast<const ClassRecord *>(type->clientData));
    }
}

int SWIG_Lua_ConvertPtr(lua_State *L, int index, void **ptr, TypeRecord *type)
{
    if (lua_isnil(L, index)) {
        *ptr = nullptr;
        return 0;
    }
    const auto *const object =
        static_cast<PointerObject *>(blockOfSize(L, index, sizeof(PointerObject)));
    if (object == nullptr) {
        return -1;
    }
    if (type == nullptr) {
        *ptr = object->ptr;
        return 0;
    }
    const CastRecord *const cast = SWIG_FindCast(type, object->type);
    if (cast == nullptr) {
        return -1;
    }
    if (cast->converter == nullptr) {
        *ptr = object->ptr;
        return 0;
    }
    int newMemory = 0;
    *ptr = cast->converter(object->ptr, &newMemory);
    checkInvariant(newMemory == 0, "!newmemory", 1319, "SWIG_Lua_ConvertPtr");
    return 0;
}

PointerObject *SWIG_Lua_ToPointerObject(lua_State *L, int index)
{
    void *const block = blockOfSize(L, index, sizeof(PointerObject));
    return block != nullptr && typeOfUserdata(L, index) != nullptr
               ? static_cast<PointerObject *>(block)
               : nullptr;
}

const char *SWIG_Lua_TypeName(lua_State *L, int index)
{
    if (!lua_isuserdata(L, index)) {
        return lua_typename(L, lua_type(L, index));
    }
    const TypeRecord *const type = typeOfUserdata(L, index);
    return type != nullptr && type->str != nullptr ? type->str : unknownUserdata;
}

int SWIG_Lua_IsStringOrNil(lua_State *L, int index)
{
    return lua_isstring(L, index) || lua_isnil(L, index);
}

int SWIG_Lua_type(lua_State *L)
{
    lua_pushstring(L, SWIG_Lua_TypeName(L, 1));
    return 1;
}

int SWIG_Lua_equal(lua_State *L)
{
    if (!lua_isuserdata(L, 1) || !lua_isuserdata(L, 2)) {
        return 0;
    }
    void *left = nullptr;
    void *right = nullptr;
    const bool hold = pointerOfUserdata(L, 1, &left) && pointerOfUserdata(L, 2, &right);
    lua_pushboolean(L, hold ? left == right : lua_rawequal(L, 1, 2));
    return 1;
}
