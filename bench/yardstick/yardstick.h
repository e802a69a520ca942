/* SPDX-License-Identifier: LicenseRef-Proprietary */
/* The functions of the radio module as one would write them by hand in plain C, without the
 * templates and the shortcuts of binding/radio. They do the same, to the letter of each error: what
 * that costs is what the wrappers of the shell are measured by. */
#ifndef YARDSTICK_H
#define YARDSTICK_H

#include <lauxlib.h>
#include <lua.h>
#include <sorel.h>

/* The shell's context. */
#ifdef __cplusplus
#include "app/context.h"
extern "C" {
#else
extern RadioContext *appContext;
#endif

extern const luaL_Reg platformByHand[];
extern const luaL_Reg transmitByHand[];
extern const luaL_Reg receiveByHand[];
extern const luaL_Reg chipByHand[];
extern const luaL_Reg pointersByHand[];

/* Adds all of them to the table on top of the stack. */
void addYardstick(lua_State *L);

#ifdef __cplusplus
}
#endif

#endif
