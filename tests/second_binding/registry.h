/* SPDX-License-Identifier: LicenseRef-Proprietary */
/* Joining the bindings of a Lua state, and finding their types. */
#ifndef SECOND_BINDING_REGISTRY_H
#define SECOND_BINDING_REGISTRY_H

#include "records.h"

/* Puts the module into the list of the Lua state, and at the first time in the process settles its
 * types: another binding's where one has a type of that name. typeInitial and castInitial are set,
 * next is null before the first time. */
void joinModules(lua_State *L, struct ModuleRecord *module);

/* The type of that mangled name, of any binding of the Lua state. Raises an error when none has it.
 */
struct TypeRecord *findType(lua_State *L, const char *name);

#endif
