// SPDX-License-Identifier: LicenseRef-Proprietary
// The class of gadgets, bound to its type but not yet registered.
#pragma once

#include "tests/binding/support/gadget_class.h"
#include "tests/binding/support/lua_test.h"

class ClassTable : public LuaTest
{
protected:
    ClassTable()
    {
        gadget::destroyed.clear();
        gadget::argumentCounts.clear();
        gadget::type.clientData = &record;
        run("m = {}");
    }

    ~ClassTable() override
    {
        closeState();
        gadget::type.clientData = nullptr;
    }

    void registerClass(ClassRecord &classRecord)
    {
        const int top = lua_gettop(L);
        lua_getglobal(L, "m");
        SWIG_Lua_RegisterClass(L, &classRecord);
        EXPECT_EQ(lua_gettop(L), top + 1);
        lua_settop(L, top);
    }

    void pushGadget(Gadget &native, int own, const char *global)
    {
        SWIG_Lua_PushPointer(L, &native, &gadget::type, own);
        name(global);
    }

    // Registers the class and makes the global object g.
    void makeGadget()
    {
        registerClass(record);
        run("g = m.Gadget()");
    }

    ClassRecord record = gadget::gadgetClass();
};
