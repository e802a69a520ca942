// SPDX-License-Identifier: LicenseRef-Proprietary
// A Lua state with the functions of the shell and, beside them, those written by hand.
#pragma once

#include <lua.hpp>

// Opens the driver and makes the state, with the standard libraries and the globals
//   radio      as the shell has it, and its fields
//   yardstick  the same functions written by hand
//   empty      with one function, call(), that does nothing
// Ends the process where that fails.
lua_State *openBothMakes();

// Pushes a loop of Lua text in which f is a function of that table, and names a pointer object that
// radioGetStringFromCalibration() takes. Ends the process where the text is wrong.
void pushLoop(lua_State *L, const char *table, const char *function, const char *text);

// Runs the loop at that index so many times, and leaves it there. Ends the process where it fails.
void runLoop(lua_State *L, int index, int rounds);
