/* SPDX-License-Identifier: LicenseRef-Proprietary */
/* The classes of this binding. */
#ifndef SECOND_BINDING_CLASSES_H
#define SECOND_BINDING_CLASSES_H

#include "records.h"

/* Gadget, with a method and an attribute. */
extern struct ClassRecord gadgetClass;

/* A class of its own under the name RadioHooks. It has an attribute "origin", and frees what it is
 * handed. */
extern struct ClassRecord otherHooksClass;

/* Int, bound to _p_int: the number as an attribute "value". It has a constructor. */
extern struct ClassRecord intClass;

/* How often the destructors of Gadget and of the other RadioHooks have run. */
extern int gadgetsDestroyed;
extern int hooksDestroyed;

/* Pushes a pointer object that is not owned, to an int that lives as long as the Lua state. */
int newInt(lua_State *L);

/* A block that lives as long as the Lua state. */
void *allocate(lua_State *L, size_t size);

#endif
