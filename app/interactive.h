// SPDX-License-Identifier: LicenseRef-Proprietary
// The prompt.
#pragma once

struct lua_State;

// Shows the prompt and reads a line from standard input, up to and including its newline, or up to
// a zero byte. Returns a block of 200 bytes that the caller frees with cmdFreeLine; null when there
// is no memory for it, which is reported on standard output. A line that does not fit, and the end
// of the input, end the process with an assertion.
char *cmdGetLine();

// Frees a line; null is ignored.
void cmdFreeLine(char *line);

// Reads lines and runs each as a Lua chunk, until an exit word.
void runInteractive(lua_State *L);
