/* SPDX-License-Identifier: LicenseRef-Proprietary */
#include "classes.h"

#include "objects.h"
#include "registry.h"

#include <lauxlib.h>
#include <stdlib.h>

int gadgetsDestroyed;
int hooksDestroyed;

void *allocate(lua_State *L, size_t size)
{
    void *block = lua_newuserdata(L, size);
    luaL_ref(L, LUA_REGISTRYINDEX);
    return block;
}

static void *self(lua_State *L)
{
    return ((struct PointerObject *)lua_touserdata(L, 1))->ptr;
}

/* ---- Gadget -------------------------------------------------------------------------------- */

struct Gadget {
    double size;
};

static int makeGadget(lua_State *L)
{
    struct Gadget *gadget = calloc(1, sizeof *gadget);
    gadget->size = luaL_optnumber(L, 1, 1);
    pushPointer(L, gadget, findType(L, "_p_Gadget"), 1);
    return 1;
}

static void destroyGadget(void *gadget)
{
    ++gadgetsDestroyed;
    free(gadget);
}

static int getSize(lua_State *L)
{
    lua_pushnumber(L, ((struct Gadget *)self(L))->size);
    return 1;
}

static int setSize(lua_State *L)
{
    ((struct Gadget *)self(L))->size = luaL_checknumber(L, 2);
    return 0;
}

static int grow(lua_State *L)
{
    ((struct Gadget *)self(L))->size += luaL_checknumber(L, 2);
    return 0;
}

static struct MethodEntry gadgetMethods[] = {{"grow", grow}, {NULL, NULL}};
static struct AttributeEntry gadgetAttributes[] = {{"size", getSize, setSize}, {NULL, NULL, NULL}};

/* ---- RadioHooks ---------------------------------------------------------------------------- */

static int makeHooks(lua_State *L)
{
    pushPointer(L, calloc(2, sizeof(void (*)(void))), findType(L, "_p_RadioHooks"), 1);
    return 1;
}

static void destroyHooks(void *hooks)
{
    ++hooksDestroyed;
    free(hooks);
}

static int getOrigin(lua_State *L)
{
    lua_pushliteral(L, "second binding");
    return 1;
}

static struct AttributeEntry hooksAttributes[] = {{"origin", getOrigin, NULL}, {NULL, NULL, NULL}};

/* ---- Int ----------------------------------------------------------------------------------- */

int newInt(lua_State *L)
{
    int *number = allocate(L, sizeof *number);
    *number = (int)luaL_optinteger(L, 1, 0);
    pushPointer(L, number, findType(L, "_p_int"), 0);
    return 1;
}

static int getValue(lua_State *L)
{
    lua_pushinteger(L, *(int *)self(L));
    return 1;
}

static struct AttributeEntry intAttributes[] = {{"value", getValue, NULL}, {NULL, NULL, NULL}};

/* -------------------------------------------------------------------------------------------- */

static struct MethodEntry noMethods[] = {{NULL, NULL}};
static struct ClassRecord *noBases[] = {NULL};
static const char *noBaseNames[] = {NULL};

struct ClassRecord gadgetClass = {"Gadget",      NULL,          makeGadget,
                                  destroyGadget, gadgetMethods, gadgetAttributes,
                                  noBases,       noBaseNames};
struct ClassRecord otherHooksClass = {"RadioHooks",    NULL,    makeHooks,  destroyHooks, noMethods,
                                      hooksAttributes, noBases, noBaseNames};
struct ClassRecord intClass = {"Int",     NULL,          newInt,  NULL,
                               noMethods, intAttributes, noBases, noBaseNames};
