/* SPDX-License-Identifier: LicenseRef-Proprietary */
/* Pointer objects, packed objects and classes in Lua. */
#ifndef SECOND_BINDING_OBJECTS_H
#define SECOND_BINDING_OBJECTS_H

#include "records.h"

/* Pushes a pointer object with the metatable of its type's class. */
void pushPointer(lua_State *L, void *pointer, struct TypeRecord *type, int own);

/* Pushes a packed object with a copy of the bytes. */
void pushPacked(lua_State *L, const void *bytes, size_t size, struct TypeRecord *type);

/* Stores the pointer of the object at index through pointer; 0 if the type does not accept it. */
int toPointer(lua_State *L, int index, struct TypeRecord *type, void **pointer);

/* Makes the class metatable, in place of one of that name, and adds the constructor to the table on
 * top of the stack. */
void registerClass(lua_State *L, const struct ClassRecord *classRecord);

#endif
