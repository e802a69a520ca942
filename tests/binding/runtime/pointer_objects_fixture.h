// SPDX-License-Identifier: LicenseRef-Proprietary
// Two types, each of which accepts itself, and numbers to point at.
#pragma once

#include "binding/runtime/pointer_objects.h"
#include "tests/binding/support/lua_test.h"
#include "tests/binding/support/type_table.h"

class PointerObjects : public LuaTest
{
protected:
    PointerObjects()
    {
        SWIG_LinkCast(&other, &otherItself);
        SWIG_LinkCast(&type, &itself);
    }

    // Converts the value on top of the stack, and pops it.
    int convertTop(TypeRecord *expected)
    {
        const int result = SWIG_Lua_ConvertPtr(L, -1, &out, expected);
        lua_pop(L, 1);
        return result;
    }

    int numbers[2] = {11, 22};
    void *out = this; // neither null nor what a conversion gives
    TypeRecord type = makeType("_p_int", "int *|int32_t *");
    TypeRecord other = makeType("_p_short", "short *");
    CastRecord itself = makeCast(&type);
    CastRecord otherItself = makeCast(&other);
};
