// SPDX-License-Identifier: LicenseRef-Proprietary
// Writes Lua programs.
//
// A program finds the functions in F, the makers of values in V and the tables of the libraries in
// T; it has variables v1 to v4, and keeps in r what the last calls returned. met(function, kind...)
// notes what a call is about to be given.
#pragma once

#include "fuzz/lua_programs/choices.h"

#include <string>
#include <vector>

// What there is to choose from. Numbers of functions, kinds and tables begin with 1, as in Lua.
struct Supply {
    std::vector<std::string> functions; // as expressions
    std::vector<std::string> kinds;
    std::size_t tables;
    std::vector<std::size_t> selfKinds; // of each function: the kind it works on, or 0
    std::size_t nothing;                // the kind that stands for the end of the arguments
    std::size_t withheld;               // a kind that no call gets, or 0
};

// A program that the bytes choose.
std::string writeProgram(const Supply &supply, Choices choices);

// A program that calls a function with every kind of value, at the position given, from 0; the
// values at the others differ from call to call. Calls of that begin with that kind.
std::string writeSweep(const Supply &supply, std::size_t function, std::size_t position,
                       std::size_t firstKind);
