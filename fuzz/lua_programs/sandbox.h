// SPDX-License-Identifier: LicenseRef-Proprietary
// What programs reach outside the process. The functions of the C library that Lua and LuaSocket
// call are defined here once more and come before its own; while no program runs they only hand on.
#pragma once

#include <dlfcn.h>
#include <string>

// The C library's own function of that name.
#define LIBRARY_FUNCTION(name) reinterpret_cast<decltype(&::name)>(dlsym(RTLD_NEXT, #name))

// Gives the process empty input, and names the folder that a program has its files in.
void prepareSandbox();

// Before and after a program: where its output goes, and its files, which are removed.
void enterSandbox();
void leaveSandbox();

// Closes those that a program has left open, of which Lua must know no more.
void closeFiles();

// What programs have opened themselves, such as sockets; they can close no other descriptor.
void ownDescriptor(int descriptor);
bool disownDescriptor(int descriptor);
bool ownsDescriptor(int descriptor);
void closeDescriptors();
