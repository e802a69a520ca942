// SPDX-License-Identifier: LicenseRef-Proprietary
// The list of bindings that share a Lua state, kept through the Lua registry, and joining it.
#pragma once

#include "binding/runtime/records.h"

// The first binding that was registered in the Lua state, the head of the circular list; null when
// there is none. Bindings of the same runtime data version, 4, find each other here.
ModuleRecord *SWIG_Lua_GetModuleRecord(lua_State *L);

// Makes module the head of the list.
void SWIG_Lua_SetModuleRecord(lua_State *L, ModuleRecord *module);

// Joins the list of the Lua state, unless module is in it already. At module's first initialisation
// in the process, fills module->types: with the record of another binding where one has a type of
// that name, which then also accepts what ours accepts, else with our own; and links the casts.
// typeInitial and castInitial have module->size entries; module->types has room for one more.
void SWIG_InitTypes(lua_State *L, ModuleRecord *module, TypeRecord **typeInitial,
                    CastRecord **castInitial);

// Hands the client data of each type of module to the types in its cast list that have none. Does
// so once per process.
void SWIG_ShareClientData(ModuleRecord *module);
