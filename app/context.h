// SPDX-License-Identifier: LicenseRef-Proprietary
// The one driver context of the process, and the Lua functions that open and close it.
#pragma once

#include <sorel.h>

struct lua_State;

// The error of a function that needs a context while none is open.
inline constexpr char noRadioContext[] = "No radio context, call radioOpen() first";

// The open context; null while none is open. Only appRadioOpen and appRadioClose write it.
extern RadioContext *appContext;

// Opens a context unless one is open. A failure is reported on standard error, and leaves none.
void appRadioOpen();

// Closes the context if one is open, whatever the driver answers.
void appRadioClose();

// Makes the global table `radioNative`: radioOpen() gives a fresh context, closing the open one
// first; radioClose() raises an error when none is open.
void registerRadioNative(lua_State *L);

// Makes the empty global table `radioInternal`, reserved for the shell.
void registerRadioInternal(lua_State *L);
