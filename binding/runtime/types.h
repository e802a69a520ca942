// SPDX-License-Identifier: LicenseRef-Proprietary
// Type records: looking them up by name, their cast lists and their client data.
#pragma once

#include "binding/runtime/records.h"

// Looks a type up by its mangled name, in the modules from start along the list up to, but not
// including, end; start itself is always searched, so start == end searches every module once.
// Null when there is none.
TypeRecord *SWIG_FindMangledType(ModuleRecord *start, ModuleRecord *end, const char *name);

// As SWIG_FindMangledType, then by the name for people: the first type, in table order, one of
// whose alternatives is that name. Blanks do not count, but for one at the end of one side only.
TypeRecord *SWIG_FindType(ModuleRecord *start, ModuleRecord *end, const char *name);

// The cast in the list of expected that accepts objects of exactly the record given, moved to the
// front of the list so that the next search stops there. Null when there is none.
CastRecord *SWIG_FindCast(TypeRecord *expected, const TypeRecord *given);

// As SWIG_FindCast, for a type of that mangled name.
CastRecord *SWIG_FindCastByName(TypeRecord *expected, const char *name);

// Links a cast at the front of a type's list.
void SWIG_LinkCast(TypeRecord *type, CastRecord *cast);

// Sets a type's client data, and hands them on to every type of its cast list that is reached
// without a converter and has none yet.
void SWIG_SetClientData(TypeRecord *type, void *clientData);
