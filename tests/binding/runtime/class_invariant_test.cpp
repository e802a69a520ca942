// SPDX-License-Identifier: LicenseRef-Proprietary
// What ends the process when it does not hold of an object or a class metatable.
#include "tests/binding/runtime/class_table_fixture.h"
#include "tests/binding/support/assertion_report.h"

namespace
{

class ClassInvariant : public ClassTable
{
protected:
    ClassInvariant()
    {
        makeGadget();
        run("mt = getmetatable(g) get, set, gc = mt.__index, mt.__newindex, mt.__gc");
    }

    // Fills class details into the global table t.
    void addDetails()
    {
        lua_getglobal(L, "t");
        SWIG_Lua_add_class_details(L, &record);
    }

    static constexpr char getter[] = "SWIG_Lua_class_get";
    static constexpr char setter[] = "SWIG_Lua_class_set";
    static constexpr char adder[] = "SWIG_Lua_add_class_variable";
};

TEST_F(ClassInvariant, getterNeedsAUserdata)
{
    EXPECT_INVARIANT(run("get(5, 'size')"), 1009, getter, "lua_isuserdata(L,-2)");
}

TEST_F(ClassInvariant, getterNeedsAMetatable)
{
    EXPECT_INVARIANT(run("get(newproxy(), 'size')"), 1011, getter, topIsTableText);
}

TEST_F(ClassInvariant, getterNeedsTheTableOfGetters)
{
    run("mt['.get'] = nil");
    EXPECT_INVARIANT(run("get(g, 'size')"), 1013, getter, topIsTableText);
}

TEST_F(ClassInvariant, getterNeedsTheTableOfMethods)
{
    run("mt['.fn'] = 5");
    EXPECT_EQ(value("g.size"), "1") << "an attribute is found before";
    EXPECT_INVARIANT(run("get(g, 'grow')"), 1028, getter, topIsTableText);
}

TEST_F(ClassInvariant, setterNeedsAUserdata)
{
    EXPECT_INVARIANT(run("set({}, 'size', 1)"), 1064, setter, "lua_isuserdata(L,1)");
}

TEST_F(ClassInvariant, setterNeedsAMetatable)
{
    EXPECT_INVARIANT(run("set(newproxy(), 'size', 1)"), 1066, setter, topIsTableText);
}

TEST_F(ClassInvariant, destructorNeedsAUserdata)
{
    EXPECT_INVARIANT(run("gc(5)"), 1106, "SWIG_Lua_class_destruct", "lua_isuserdata(L,-1)");
}

TEST_F(ClassInvariant, destructorNeedsAnArgument)
{
    // What the call before has left behind the end of the stack is none.
    EXPECT_INVARIANT(run("gc(g) gc()"), 1106, "SWIG_Lua_class_destruct", "lua_isuserdata(L,-1)");
}

TEST_F(ClassInvariant, attributesNeedATable)
{
    run("t = 5");
    EXPECT_INVARIANT(addDetails(), 1150, adder, topIsTableText);
}

TEST_F(ClassInvariant, attributesNeedTheTableOfGetters)
{
    run("t = {['.set'] = {}, ['.fn'] = {}}");
    EXPECT_INVARIANT(addDetails(), 1152, adder, topIsTableText);
}

TEST_F(ClassInvariant, attributesNeedTheTableOfSetters)
{
    run("t = {['.get'] = {}, ['.fn'] = {}}");
    EXPECT_INVARIANT(addDetails(), 1158, adder, topIsTableText);
}

TEST_F(ClassInvariant, readOnlyAttributesDoNotNeedTheTableOfSetters)
{
    record.attributes = gadget::attributes + 1;
    run("t = {['.get'] = {}, ['.fn'] = {}}");
    addDetails();
    EXPECT_EQ(value("type(t['.get'].kind)"), "function");
}

TEST_F(ClassInvariant, methodsNeedTheirTable)
{
    run("t = {['.get'] = {}, ['.set'] = {}}");
    EXPECT_INVARIANT(addDetails(), 1179, "SWIG_Lua_add_class_details", topIsTableText);
}

} // namespace
