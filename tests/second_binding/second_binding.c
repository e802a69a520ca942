/* SPDX-License-Identifier: LicenseRef-Proprietary */
/* A binding besides the radio module, for tests: a Lua module of its own that shares types through
 * the list of bindings of the Lua state. It knows nothing of the radio module.
 *
 *     second = package.loadlib(PATH, "luaopen_second_binding")("_p_int _p_RadioHooks:class")
 *
 * The argument says which shared types it has records of (types.h); it counts at the first call in
 * the process. Every object is of the record that the list of bindings gives for its type's name.
 */
#include "classes.h"
#include "objects.h"
#include "registry.h"
#include "types.h"

#include <lauxlib.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

static int push(lua_State *L, void *pointer, const char *type)
{
    pushPointer(L, pointer, findType(L, type), 0);
    return 1;
}

/* value(object): the number that an object points at, if _p_int accepts it; else nothing. */
static int value(lua_State *L)
{
    void *number = NULL;
    if (!toPointer(L, 1, findType(L, "_p_int"), &number)) {
        return 0;
    }
    lua_pushinteger(L, *(int *)number);
    return 1;
}

/* text(): an object of type _p_p_char, to a null text. */
static int newText(lua_State *L)
{
    char **slot = allocate(L, sizeof *slot);
    *slot = NULL;
    return push(L, slot, "_p_p_char");
}

/* textOf(object): the text that an object of type _p_p_char points at. */
static int textOf(lua_State *L)
{
    void *slot = NULL;
    if (!toPointer(L, 1, findType(L, "_p_p_char"), &slot)) {
        return 0;
    }
    lua_pushstring(L, *(char **)slot);
    return 1;
}

/* file("stdout" or "stderr"): an object of type _p_FILE. */
static int file(lua_State *L)
{
    return push(L, strcmp(luaL_checkstring(L, 1), "stdout") == 0 ? stdout : stderr, "_p_FILE");
}

/* A function pointer in an object; C99 has no cast for it. */
static int pushFunction(lua_State *L, void (*function)(void), const char *type)
{
    void *pointer;
    memcpy(&pointer, &function, sizeof pointer);
    return push(L, pointer, type);
}

static int mallocFunction(lua_State *L)
{
    return pushFunction(L, (void (*)(void))malloc, "_p_f_size_t__p_void");
}

static int freeFunction(lua_State *L)
{
    return pushFunction(L, (void (*)(void))free, "_p_f_p_void__void");
}

static int newInts(lua_State *L, const char *type)
{
    int *numbers = allocate(L, 2 * sizeof *numbers);
    numbers[0] = (int)luaL_optinteger(L, 1, 0);
    numbers[1] = (int)luaL_optinteger(L, 2, 0);
    return push(L, numbers, type);
}

/* pair(first, second): two numbers, of which _p_int:casts accepts the second. */
static int pair(lua_State *L)
{
    return newInts(L, "_p_IntPair");
}

/* copy(number): what _p_int:casts converts into new memory. */
static int copy(lua_State *L)
{
    return newInts(L, "_p_IntCopy");
}

/* packet(text): the text's bytes as a packed object. */
static int packet(lua_State *L)
{
    size_t size = 0;
    const char *bytes = luaL_checklstring(L, 1, &size);
    pushPacked(L, bytes, size, findType(L, "_p_Packet"));
    return 1;
}

/* as(object, type): the object's pointer in an object of that type that is not owned. */
static int as(lua_State *L)
{
    const struct PointerObject *object = lua_touserdata(L, 1);
    return push(L, object->ptr, luaL_checkstring(L, 2));
}

/* accepts(type, object): whether that type, as this binding converts, accepts the object. */
static int accepts(lua_State *L)
{
    void *pointer = NULL;
    lua_pushboolean(L, toPointer(L, 2, findType(L, luaL_checkstring(L, 1)), &pointer));
    return 1;
}

/* destroyed(): how many gadgets, and how many hooks of the class of this binding, were freed. */
static int destroyed(lua_State *L)
{
    lua_pushinteger(L, gadgetsDestroyed);
    lua_pushinteger(L, hooksDestroyed);
    return 2;
}

static const luaL_Reg functions[] = {
    {"int", newInt},
    {"value", value},
    {"text", newText},
    {"textOf", textOf},
    {"file", file},
    {"mallocFunction", mallocFunction},
    {"freeFunction", freeFunction},
    {"pair", pair},
    {"copy", copy},
    {"packet", packet},
    {"as", as},
    {"accepts", accepts},
    {"destroyed", destroyed},
    {NULL, NULL},
};

__attribute__((visibility("default"))) int luaopen_second_binding(lua_State *L);

int luaopen_second_binding(lua_State *L)
{
    if (secondModule.next == NULL) {
        chooseTypes(L, luaL_optstring(L, 1, ""));
    }
    joinModules(L, &secondModule);
    luaL_register(L, "second", functions);
    for (size_t i = 0; i < secondModule.size; ++i) {
        if (secondModule.types[i]->clientData != NULL) {
            registerClass(L, secondModule.types[i]->clientData);
        }
    }
    return 1;
}
