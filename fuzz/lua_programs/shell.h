// SPDX-License-Identifier: LicenseRef-Proprietary
// A Lua state as the shell's start-up leaves it, but with bounds: so much memory, so many
// instructions. Whatever would end the process in a way that the shell promises, or goes beyond a
// bound, ends the program that runs, and no more.
#pragma once

#include <lua.hpp>
#include <string>

// How a program ends.
enum class End { finished = 0, assertion, exit, budget };

// Opens the radio and a state, in the order of the shell's main().
lua_State *startShell();

// Does to both what the shell does at its end, after a program that ended so. What the state's
// finalisers do is part of the program.
void endShell(lua_State *L, End end);

// Calls work, and says how that ended.
End runProgram(lua_State *L, void (*work)(lua_State *L, void *argument), void *argument);

// Whether a program runs, and not the target itself.
bool programRuns();

// Whether its state is being closed.
bool stateCloses();

// Ends the program that runs.
[[noreturn]] void endProgram(End end);

// Compiles a file of this folder; what it is called as in Lua is given.
std::string compileFile(lua_State *L, const char *name);
std::string compileText(lua_State *L, const std::string &text, const char *name);

// Pushes the function that was compiled.
void pushCompiled(lua_State *L, const std::string &code);
