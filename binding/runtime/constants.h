// SPDX-License-Identifier: LicenseRef-Proprietary
// Constants of a module.
#pragma once

#include "binding/runtime/records.h"

// What a constant is; any other kind is skipped.
enum ConstantKind : int {
    endOfConstants = 0,
    integerConstant = 1,   // integer, as a Lua number
    floatingConstant = 2,  // floating, as a Lua number
    stringConstant = 3,    // pointer, a zero-terminated text
    pointerConstant = 4,   // pointer of that type, not owned
    binaryConstant = 5,    // integer bytes at pointer, a packed object of that type
    characterConstant = 6, // the low byte of integer, as a string
};

// One constant; the kind says which of the fields count.
struct ConstantEntry {
    int kind;
    const char *name;
    long integer;
    double floating;
    void *pointer;
    TypeRecord **type; // the slot of ModuleRecord::types
};

// Sets a field of the table on top of the stack for each entry, up to one of kind endOfConstants.
void SWIG_Lua_AddConstants(lua_State *L, const ConstantEntry *constants);
