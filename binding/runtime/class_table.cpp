// SPDX-License-Identifier: LicenseRef-Proprietary
#include "binding/runtime/class_table.h"

#include "binding/runtime/fields.h"
#include "binding/runtime/invariant.h"
#include "binding/runtime/module_table.h"
#include "binding/runtime/pointer_objects.h"
#include "binding/runtime/registry.h"
#include "binding/runtime/types.h"

namespace
{

constexpr char classRegistryKey[] = "SWIG";

// Pushes a table of the class metatable on top of the stack.
void pushDetailTable(lua_State *L, const char *field, unsigned line, const char *function)
{
    pushField(L, -1, field);
    checkInvariant(lua_istable(L, -1), topIsTable, line, function);
}

void addAttribute(lua_State *L, const AttributeEntry &attribute)
{
    constexpr char function[] = "SWIG_Lua_add_class_variable";
    checkInvariant(lua_istable(L, -1), topIsTable, 1150, function);
    pushDetailTable(L, ".get", 1152, function);
    SWIG_Lua_AddFunction(L, attribute.name, attribute.getter);
    lua_pop(L, 1);
    if (attribute.setter != nullptr) {
        pushDetailTable(L, ".set", 1158, function);
        SWIG_Lua_AddFunction(L, attribute.name, attribute.setter);
        lua_pop(L, 1);
    }
}

bool isMetamethod(const char *name)
{
    return name[0] == '_' && name[1] == '_';
}

// Pushes the metatable of the object at index 1; line and function are those of the report when it
// has none.
void pushObjectMetatable(lua_State *L, unsigned line, const char *function)
{
    checkInvariant(lua_getmetatable(L, 1) != 0, topIsTable, line, function);
}

} // namespace

void SWIG_Lua_ClassRegistry(lua_State *L)
{
    pushField(L, LUA_REGISTRYINDEX, classRegistryKey);
    if (!lua_istable(L, -1)) {
        lua_pop(L, 1);
        lua_newtable(L);
        lua_pushstring(L, classRegistryKey);
        lua_pushvalue(L, -2);
        lua_rawset(L, LUA_REGISTRYINDEX);
    }
}

void SWIG_Lua_ClassMetatable(lua_State *L, const char *className)
{
    SWIG_Lua_ClassRegistry(L);
    pushField(L, -1, className);
    lua_remove(L, -2);
}

bool SWIG_Lua_IsClassMetatable(lua_State *L, int index)
{
    const int top = lua_gettop(L);
    lua_pushvalue(L, index);
    SWIG_Lua_ClassRegistry(L);
    pushField(L, -2, ".type");
    lua_rawget(L, -2);
    const bool found = lua_istable(L, -1) && lua_rawequal(L, -1, -3);
    lua_settop(L, top);
    return found;
}

void SWIG_Lua_AttachClassMetatable(lua_State *L, const ClassRecord *classRecord)
{
    if (classRecord == nullptr) {
        return;
    }
    SWIG_Lua_ClassMetatable(L, classRecord->name);
    if (lua_istable(L, -1)) {
        lua_setmetatable(L, -2);
    } else {
        lua_pop(L, 1);
    }
}

void SWIG_Lua_ResolveBases(lua_State *L, ClassRecord *classRecord)
{
    ModuleRecord *const head = SWIG_Lua_GetModuleRecord(L);
    for (std::size_t i = 0; classRecord->baseNames[i] != nullptr; ++i) {
        if (classRecord->bases[i] != nullptr) {
            continue;
        }
        if (const TypeRecord *const type = SWIG_FindType(head, head, classRecord->baseNames[i])) {
            classRecord->bases[i] = static_cast<ClassRecord *>(type->clientData);
        }
    }
}

void SWIG_Lua_RegisterClass(lua_State *L, ClassRecord *classRecord)
{
    if (classRecord->constructor != nullptr) {
        SWIG_Lua_AddFunction(L, classRecord->name, classRecord->constructor);
    }

    SWIG_Lua_ClassRegistry(L);
    lua_pushstring(L, classRecord->name);
    lua_createtable(L, 0, 7); // without metamethods of the class's own
    setStringField(L, ".type", classRecord->name);
    setTableField(L, ".get");
    setTableField(L, ".set");
    setTableField(L, ".fn");
    SWIG_Lua_AddFunction(L, "__index", SWIG_Lua_class_get);
    SWIG_Lua_AddFunction(L, "__newindex", SWIG_Lua_class_set);
    SWIG_Lua_AddFunction(L, "__gc", SWIG_Lua_class_destruct);
    lua_rawset(L, -3);
    lua_pop(L, 1);

    SWIG_Lua_ClassMetatable(L, classRecord->name);
    SWIG_Lua_add_class_details(L, classRecord);
    lua_pop(L, 1);
}

void SWIG_Lua_add_class_details(lua_State *L, const ClassRecord *classRecord)
{
    for (std::size_t i = 0; classRecord->baseNames[i] != nullptr; ++i) {
        if (classRecord->bases[i] != nullptr) { // one that is not known is left out
            SWIG_Lua_add_class_details(L, classRecord->bases[i]);
        }
    }
    for (std::size_t i = 0; classRecord->attributes[i].name != nullptr; ++i) {
        addAttribute(L, classRecord->attributes[i]);
    }
    pushDetailTable(L, ".fn", 1179, "SWIG_Lua_add_class_details");
    for (std::size_t i = 0; classRecord->methods[i].name != nullptr; ++i) {
        SWIG_Lua_AddFunction(L, classRecord->methods[i].name, classRecord->methods[i].method);
    }
    lua_pop(L, 1);
    for (std::size_t i = 0; classRecord->methods[i].name != nullptr; ++i) {
        if (isMetamethod(classRecord->methods[i].name)) {
            SWIG_Lua_AddFunction(L, classRecord->methods[i].name, classRecord->methods[i].method);
        }
    }
}

int SWIG_Lua_class_get(lua_State *L)
{
    constexpr char function[] = "SWIG_Lua_class_get";
    lua_settop(L, 2);
    checkInvariant(lua_isuserdata(L, 1), "lua_isuserdata(L,-2)", 1009, function);
    pushObjectMetatable(L, 1011, function);
    pushDetailTable(L, ".get", 1013, function);
    if (pushFieldAt(L, -1, 2); lua_iscfunction(L, -1)) {
        lua_pushvalue(L, 1);
        lua_call(L, 1, 1);
        return 1;
    }
    lua_pop(L, 2);

    pushDetailTable(L, ".fn", 1028, function);
    if (pushFieldAt(L, -1, 2); lua_isfunction(L, -1)) {
        return 1;
    }
    lua_pop(L, 2);

    if (pushField(L, -1, "__getitem"); lua_iscfunction(L, -1)) {
        lua_pushvalue(L, 1);
        lua_pushvalue(L, 2);
        lua_call(L, 2, 1);
        return 1;
    }
    return 0;
}

int SWIG_Lua_class_set(lua_State *L)
{
    constexpr char function[] = "SWIG_Lua_class_set";
    lua_settop(L, 3);
    checkInvariant(lua_isuserdata(L, 1), "lua_isuserdata(L,1)", 1064, function);
    pushObjectMetatable(L, 1066, function);
    if (pushField(L, -1, ".set"); lua_istable(L, -1)) {
        if (pushFieldAt(L, -1, 2); lua_iscfunction(L, -1)) {
            lua_pushvalue(L, 1);
            lua_pushvalue(L, 3);
            lua_call(L, 2, 0);
            return 0;
        }
        lua_pop(L, 1);
    }
    lua_pop(L, 1);

    if (pushField(L, -1, "__setitem"); lua_iscfunction(L, -1)) {
        lua_pushvalue(L, 1);
        lua_pushvalue(L, 2);
        lua_pushvalue(L, 3);
        lua_call(L, 3, 0);
    }
    return 0;
}

int SWIG_Lua_class_destruct(lua_State *L)
{
    const int top = lua_gettop(L);
    checkInvariant(top > 0 && lua_isuserdata(L, top), "lua_isuserdata(L,-1)", 1106,
                   "SWIG_Lua_class_destruct");
    PointerObject *const object = SWIG_Lua_ToPointerObject(L, top);
    if (object == nullptr || object->own == 0) {
        return 0;
    }
    const auto *const classRecord = static_cast<const ClassRecord *>(object->type->clientData);
    if (classRecord == nullptr || classRecord->destructor == nullptr) {
        return 0;
    }
    // A script can call this function by hand, and use or collect the object afterwards.
    void *const native = object->ptr;
    object->own = 0;
    object->ptr = nullptr;
    classRecord->destructor(native);
    return 0;
}
