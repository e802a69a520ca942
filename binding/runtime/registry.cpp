// SPDX-License-Identifier: LicenseRef-Proprietary
#include "binding/runtime/registry.h"

#include "binding/runtime/types.h"

namespace
{

constexpr char moduleListKey[] = "swig_runtime_data_type_pointer4";

bool clientDataShared = false;

bool isInList(const ModuleRecord *head, const ModuleRecord *wanted)
{
    const ModuleRecord *module = head;
    do {
        if (module == wanted) {
            return true;
        }
        module = module->next;
    } while (module != head);
    return false;
}

bool hasOthers(const ModuleRecord *module)
{
    return module->next != module;
}

TypeRecord *findInOthers(ModuleRecord *module, const char *name)
{
    return hasOthers(module) ? SWIG_FindMangledType(module->next, module, name) : nullptr;
}

// The record that stands for one of the binding's own types: another binding's, where it has one.
TypeRecord *chooseType(ModuleRecord *module, TypeRecord *own)
{
    TypeRecord *const others = findInOthers(module, own->name);
    if (others == nullptr) {
        return own;
    }
    if (own->clientData != nullptr) {
        others->clientData = own->clientData;
    }
    return others;
}

void linkInitialCast(ModuleRecord *module, TypeRecord *chosen, const TypeRecord *own,
                     CastRecord *cast)
{
    if (TypeRecord *const others = findInOthers(module, cast->type->name)) {
        if (chosen == own) {
            cast->type = others;
        } else if (SWIG_FindCastByName(chosen, others->name) != nullptr) {
            return;
        }
    }
    SWIG_LinkCast(chosen, cast);
}

} // namespace

ModuleRecord *SWIG_Lua_GetModuleRecord(lua_State *L)
{
    lua_pushstring(L, moduleListKey);
    lua_rawget(L, LUA_REGISTRYINDEX);
    void *const module = lua_islightuserdata(L, -1) ? lua_touserdata(L, -1) : nullptr;
    lua_pop(L, 1);
    return static_cast<ModuleRecord *>(module);
}

void SWIG_Lua_SetModuleRecord(lua_State *L, ModuleRecord *module)
{
    lua_pushstring(L, moduleListKey);
    lua_pushlightuserdata(L, module);
    lua_rawset(L, LUA_REGISTRYINDEX);
}

void SWIG_InitTypes(lua_State *L, ModuleRecord *module, TypeRecord **typeInitial,
                    CastRecord **castInitial)
{
    // What can raise for want of memory comes before anything is changed that outlives the state.
    ModuleRecord *const head = SWIG_Lua_GetModuleRecord(L);
    if (head == nullptr) {
        SWIG_Lua_SetModuleRecord(L, module);
    }

    const bool first = module->next == nullptr;
    if (first) {
        module->typeInitial = typeInitial;
        module->castInitial = castInitial;
        module->next = module;
    }

    if (head != nullptr) {
        if (isInList(head, module)) {
            return;
        }
        module->next = head->next;
        head->next = module;
    }

    if (!first) {
        return;
    }
    for (std::size_t i = 0; i < module->size; ++i) {
        TypeRecord *const own = typeInitial[i];
        TypeRecord *const chosen = chooseType(module, own);
        for (CastRecord *cast = castInitial[i]; cast->type != nullptr; ++cast) {
            linkInitialCast(module, chosen, own, cast);
        }
        module->types[i] = chosen;
    }
    module->types[module->size] = nullptr;
}

void SWIG_ShareClientData(ModuleRecord *module)
{
    if (clientDataShared) {
        return;
    }
    clientDataShared = true;
    for (std::size_t i = 0; i < module->size; ++i) {
        TypeRecord *const type = module->types[i];
        if (type->clientData != nullptr) {
            // Again to the type itself, which hands them on.
            SWIG_SetClientData(type, type->clientData);
        }
    }
}
