/* SPDX-License-Identifier: LicenseRef-Proprietary */
/* The types that this binding has records of, and what it was told to have beyond its own. */
#ifndef SECOND_BINDING_TYPES_H
#define SECOND_BINDING_TYPES_H

#include "records.h"

extern struct ModuleRecord secondModule;

/* Settles which records the binding has, before it is opened for the first time. options are words
 * with blanks between, each:
 *   TYPE              a record of its own of one of the shared types
 *   TYPE:class        with client data, a class of this binding (_p_RadioHooks, _p_int)
 *   TYPE:casts        with casts from types of this binding (_p_RadioHooks, _p_int)
 * The shared types are _p_FILE, _p_RadioHooks, _p_f_p_void__void, _p_f_size_t__p_void, _p_int and
 * _p_p_char. Raises an error for any other word. */
void chooseTypes(lua_State *L, const char *options);

#endif
