// SPDX-License-Identifier: LicenseRef-Proprietary
// Lua text that is run outside the prompt. A batch file or command that does not load or run raises
// its error outside any protected call: Lua's panic handler prints it and the process ends with
// status 1.
#pragma once

struct lua_State;

// Copies every field of the global tables `radio`, then `radioNative`, into the globals.
void copyRadioToGlobals(lua_State *L);

void runBatchFile(lua_State *L, const char *path);

void runCommand(lua_State *L, const char *command);
