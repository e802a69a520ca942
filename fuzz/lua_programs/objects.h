// SPDX-License-Identifier: LicenseRef-Proprietary
// Pointer objects of every type, for the file of values. What they point at is there, and of that
// type, so that whatever a script can do with them is allowed.
#pragma once

struct lua_State;

// Pushes three values: a function (position, own) that makes a pointer object of a type, a function
// that makes a packed object, and the list of the names of all types.
int pushObjectMakers(lua_State *L);
