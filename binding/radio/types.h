// SPDX-License-Identifier: LicenseRef-Proprietary
// The native pointer types that the radio module knows.
#pragma once

#include "binding/runtime/records.h"

// Positions in the module's type table, which is sorted by mangled name.
enum TypePosition : std::size_t {
    fileType,
    bandType,
    confType,
    contextType,
    cpriRateType,
    debugType,
    hooksType,
    interfaceModeType,
    loopbackType,
    modeType,
    platformSelectIndexType,
    returnType,
    rxAntennaType,
    rxGainModeType,
    selectIndexType,
    stateType,
    txAntennaType,
    freeFunctionType,   // void (*)(void *)
    mallocFunctionType, // void *(*)(size_t)
    intType,
    longLongType,
    textListType, // char **
    shortType,
    signedCharType,
    unsignedCharType,
    unsignedIntType,
    unsignedLongLongType,
    unsignedShortType,
    typeCount
};

// The radio module in the list of bindings that share a Lua state.
extern ModuleRecord radioModule;

// The records in use, by TypePosition: those of other bindings where they had them first. All null
// until initialiseRadioTypes().
extern TypeRecord *radioTypes[typeCount + 1];

// Joins the other bindings of the Lua state, and settles the records in use at the first call in
// the process.
void initialiseRadioTypes(lua_State *L);
