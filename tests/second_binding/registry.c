/* SPDX-License-Identifier: LicenseRef-Proprietary */
#include "registry.h"

#include <lauxlib.h>
#include <string.h>

static const char key[] = "swig_runtime_data_type_pointer4";

static struct ModuleRecord *head(lua_State *L)
{
    lua_getfield(L, LUA_REGISTRYINDEX, key);
    struct ModuleRecord *module = lua_islightuserdata(L, -1) ? lua_touserdata(L, -1) : NULL;
    lua_pop(L, 1);
    return module;
}

static int isInList(const struct ModuleRecord *first, const struct ModuleRecord *wanted)
{
    const struct ModuleRecord *module = first;
    do {
        if (module == wanted) {
            return 1;
        }
        module = module->next;
    } while (module != first);
    return 0;
}

/* Searches from start up to, but not including, end. */
static struct TypeRecord *find(const struct ModuleRecord *start, const struct ModuleRecord *end,
                               const char *name)
{
    const struct ModuleRecord *module = start;
    do {
        for (size_t i = 0; i < module->size; ++i) {
            if (module->types[i] != NULL && strcmp(module->types[i]->name, name) == 0) {
                return module->types[i];
            }
        }
        module = module->next;
    } while (module != end);
    return NULL;
}

static struct TypeRecord *findInOthers(const struct ModuleRecord *module, const char *name)
{
    return module->next == module ? NULL : find(module->next, module, name);
}

static int hasCast(const struct TypeRecord *type, const char *name)
{
    for (const struct CastRecord *cast = type->cast; cast != NULL; cast = cast->next) {
        if (strcmp(cast->type->name, name) == 0) {
            return 1;
        }
    }
    return 0;
}

static void linkCast(struct TypeRecord *type, struct CastRecord *cast)
{
    cast->prev = NULL;
    cast->next = type->cast;
    if (type->cast != NULL) {
        type->cast->prev = cast;
    }
    type->cast = cast;
}

static struct TypeRecord *settleType(const struct ModuleRecord *module, size_t i)
{
    struct TypeRecord *own = module->typeInitial[i];
    struct TypeRecord *others = findInOthers(module, own->name);
    struct TypeRecord *chosen = others != NULL ? others : own;
    if (others != NULL && own->clientData != NULL) {
        others->clientData = own->clientData;
    }
    for (struct CastRecord *cast = module->castInitial[i]; cast->type != NULL; ++cast) {
        struct TypeRecord *found = findInOthers(module, cast->type->name);
        if (found != NULL && chosen == own) {
            cast->type = found;
        }
        if (found == NULL || chosen == own || !hasCast(chosen, found->name)) {
            linkCast(chosen, cast);
        }
    }
    return chosen;
}

static void handOnClientData(struct TypeRecord *type)
{
    for (struct CastRecord *cast = type->cast; cast != NULL; cast = cast->next) {
        if (cast->converter == NULL && cast->type->clientData == NULL) {
            cast->type->clientData = type->clientData;
            handOnClientData(cast->type);
        }
    }
}

void joinModules(lua_State *L, struct ModuleRecord *module)
{
    const int first = module->next == NULL;
    struct ModuleRecord *others = head(L);
    if (first) {
        module->next = module;
    }
    if (others == NULL) {
        lua_pushlightuserdata(L, module);
        lua_setfield(L, LUA_REGISTRYINDEX, key);
    } else if (!isInList(others, module)) {
        module->next = others->next;
        others->next = module;
    }
    if (!first) {
        return;
    }
    for (size_t i = 0; i < module->size; ++i) {
        module->types[i] = settleType(module, i);
    }
    module->types[module->size] = NULL;
    for (size_t i = 0; i < module->size; ++i) {
        if (module->types[i]->clientData != NULL) {
            handOnClientData(module->types[i]);
        }
    }
}

struct TypeRecord *findType(lua_State *L, const char *name)
{
    const struct ModuleRecord *first = head(L);
    struct TypeRecord *type = find(first, first, name);
    if (type == NULL) {
        luaL_error(L, "no binding has the type %s", name);
    }
    return type;
}
