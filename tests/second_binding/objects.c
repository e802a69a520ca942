/* SPDX-License-Identifier: LicenseRef-Proprietary */
#include "objects.h"

#include <lauxlib.h>
#include <string.h>

/* Pushes the table of class metatables, made on first use. */
static void pushClasses(lua_State *L)
{
    lua_getfield(L, LUA_REGISTRYINDEX, "SWIG");
    if (!lua_istable(L, -1)) {
        lua_pop(L, 1);
        lua_newtable(L);
        lua_pushvalue(L, -1);
        lua_setfield(L, LUA_REGISTRYINDEX, "SWIG");
    }
}

/* Gives the value on top of the stack the metatable of the type's class. */
static void attachClass(lua_State *L, const struct TypeRecord *type)
{
    const struct ClassRecord *classRecord = type->clientData;
    if (classRecord == NULL) {
        return;
    }
    pushClasses(L);
    lua_getfield(L, -1, classRecord->name);
    lua_remove(L, -2);
    if (lua_istable(L, -1)) {
        lua_setmetatable(L, -2);
    } else {
        lua_pop(L, 1);
    }
}

void pushPointer(lua_State *L, void *pointer, struct TypeRecord *type, int own)
{
    struct PointerObject *object = lua_newuserdata(L, sizeof *object);
    object->type = type;
    object->own = own;
    object->ptr = pointer;
    attachClass(L, type);
}

void pushPacked(lua_State *L, const void *bytes, size_t size, struct TypeRecord *type)
{
    struct PackedObject *object = lua_newuserdata(L, offsetof(struct PackedObject, data) + size);
    object->type = type;
    object->own = 0;
    memcpy(object->data, bytes, size);
    attachClass(L, type);
}

int toPointer(lua_State *L, int index, struct TypeRecord *type, void **pointer)
{
    const struct PointerObject *object = lua_touserdata(L, index);
    if (object == NULL || lua_objlen(L, index) < sizeof *object) {
        return 0;
    }
    for (const struct CastRecord *cast = type->cast; cast != NULL; cast = cast->next) {
        if (cast->type == object->type) {
            int newMemory = 0;
            *pointer =
                cast->converter != NULL ? cast->converter(object->ptr, &newMemory) : object->ptr;
            return 1;
        }
    }
    return 0;
}

/* Pushes what the metatable of the object at index 1 has in that field under the key at index 2. */
static int pushDetail(lua_State *L, const char *field)
{
    lua_getmetatable(L, 1);
    lua_getfield(L, -1, field);
    lua_pushvalue(L, 2);
    lua_rawget(L, -2);
    return lua_isfunction(L, -1);
}

static int classGet(lua_State *L)
{
    if (pushDetail(L, ".get")) {
        lua_pushvalue(L, 1);
        lua_call(L, 1, 1);
        return 1;
    }
    return pushDetail(L, ".fn") ? 1 : 0;
}

static int classSet(lua_State *L)
{
    if (pushDetail(L, ".set")) {
        lua_pushvalue(L, 1);
        lua_pushvalue(L, 3);
        lua_call(L, 2, 0);
    }
    return 0;
}

static int classDestruct(lua_State *L)
{
    struct PointerObject *object = lua_touserdata(L, 1);
    const struct ClassRecord *classRecord = object->type->clientData;
    if (object->own != 0 && classRecord != NULL && classRecord->destructor != NULL) {
        object->own = 0;
        classRecord->destructor(object->ptr);
    }
    return 0;
}

static void setFunction(lua_State *L, const char *name, lua_CFunction function)
{
    lua_pushcclosure(L, function, 0);
    lua_setfield(L, -2, name);
}

void registerClass(lua_State *L, const struct ClassRecord *classRecord)
{
    if (classRecord->constructor != NULL) {
        setFunction(L, classRecord->name, classRecord->constructor);
    }
    pushClasses(L);
    lua_newtable(L);
    lua_pushstring(L, classRecord->name);
    lua_setfield(L, -2, ".type");

    lua_newtable(L);
    lua_newtable(L);
    for (const struct AttributeEntry *entry = classRecord->attributes; entry->name; ++entry) {
        lua_pushcclosure(L, entry->getter, 0);
        lua_setfield(L, -3, entry->name);
        if (entry->setter != NULL) {
            setFunction(L, entry->name, entry->setter);
        }
    }
    lua_setfield(L, -3, ".set");
    lua_setfield(L, -2, ".get");

    lua_newtable(L);
    for (const struct MethodEntry *entry = classRecord->methods; entry->name; ++entry) {
        setFunction(L, entry->name, entry->method);
    }
    lua_setfield(L, -2, ".fn");

    setFunction(L, "__index", classGet);
    setFunction(L, "__newindex", classSet);
    setFunction(L, "__gc", classDestruct);
    lua_setfield(L, -2, classRecord->name);
    lua_pop(L, 1);
}
