// SPDX-License-Identifier: LicenseRef-Proprietary
// Classes: registration, attributes, methods, items and the destructor.
#include "tests/binding/support/assertion_report.h"
#include "tests/binding/support/gadget_class.h"
#include "tests/binding/support/lua_test.h"

namespace
{

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

TEST_F(ClassTable, isKeptInOneRegistryTable)
{
    SWIG_Lua_ClassRegistry(L);
    ASSERT_TRUE(lua_istable(L, -1));
    lua_getfield(L, LUA_REGISTRYINDEX, "SWIG");
    EXPECT_TRUE(lua_rawequal(L, -1, -2));
    SWIG_Lua_ClassRegistry(L);
    EXPECT_TRUE(lua_rawequal(L, -1, -2));
    EXPECT_EQ(lua_gettop(L), 3);
    name("SWIG");
    EXPECT_EQ(value("next(SWIG)"), "nil");
}

TEST_F(ClassTable, isFoundByTheClassName)
{
    SWIG_Lua_ClassMetatable(L, "Gadget");
    EXPECT_TRUE(lua_isnil(L, -1));
    registerClass(record);
    SWIG_Lua_ClassMetatable(L, "Gadget");
    EXPECT_TRUE(lua_istable(L, -1));
    EXPECT_EQ(lua_gettop(L), 2);
}

TEST_F(ClassTable, addsTheConstructorToTheModule)
{
    registerClass(record);
    lua_getglobal(L, "m");
    lua_getfield(L, -1, "Gadget");
    EXPECT_EQ(lua_tocfunction(L, -1), gadget::construct);
    run("n = 0 for _ in pairs(m) do n = n + 1 end");
    EXPECT_EQ(value("n"), "1");
}

TEST_F(ClassTable, addsNothingToTheModuleWithoutAConstructor)
{
    record.constructor = nullptr;
    registerClass(record);
    EXPECT_EQ(value("next(m)"), "nil");
}

TEST_F(ClassTable, hasTheFieldsOfAClass)
{
    registerClass(record);
    SWIG_Lua_ClassMetatable(L, "Gadget");
    lua_getfield(L, -1, "__index");
    EXPECT_EQ(lua_tocfunction(L, -1), SWIG_Lua_class_get);
    lua_getfield(L, 1, "__newindex");
    EXPECT_EQ(lua_tocfunction(L, -1), SWIG_Lua_class_set);
    lua_getfield(L, 1, "__gc");
    EXPECT_EQ(lua_tocfunction(L, -1), SWIG_Lua_class_destruct);
    lua_getfield(L, 1, "__tostring");
    EXPECT_EQ(lua_tocfunction(L, -1), gadget::toText);
    lua_settop(L, 1);
    name("mt");
    EXPECT_EQ(value("mt['.type']"), "Gadget");
    run("function keys(t) local k = {} for n in pairs(t) do k[#k + 1] = n end "
        "table.sort(k) return table.concat(k, ' ') end");
    EXPECT_EQ(value("keys(mt)"), ".fn .get .set .type __gc __index __newindex __tostring");
    EXPECT_EQ(value("keys(mt['.get'])"), "kind size");
    EXPECT_EQ(value("keys(mt['.set'])"), "size");
    EXPECT_EQ(value("keys(mt['.fn'])"), "__tostring grow");
}

TEST_F(ClassTable, registeredAgainReplacesTheFirst)
{
    registerClass(record);
    SWIG_Lua_ClassMetatable(L, "Gadget");
    registerClass(record);
    SWIG_Lua_ClassMetatable(L, "Gadget");
    EXPECT_FALSE(lua_rawequal(L, -1, -2));
}

TEST_F(ClassTable, isAttachedToTheObjectsOfItsType)
{
    makeGadget();
    EXPECT_EQ(value("getmetatable(g)['.type']"), "Gadget");
}

TEST_F(ClassTable, isAttachedToPackedObjectsOfItsType)
{
    registerClass(record);
    SWIG_Lua_NewPackedObj(L, "some bytes, and a few more", 24, &gadget::type);
    SWIG_Lua_ClassMetatable(L, "Gadget");
    ASSERT_NE(lua_getmetatable(L, 1), 0);
    EXPECT_TRUE(lua_rawequal(L, -1, -2));
}

TEST_F(ClassTable, isNotAttachedWithoutAClassRecordOrItsMetatable)
{
    Gadget native;
    lua_newuserdata(L, sizeof(PointerObject));
    SWIG_Lua_AttachClassMetatable(L, nullptr);
    EXPECT_EQ(lua_gettop(L), 1);
    SWIG_Lua_AttachClassMetatable(L, &record);
    EXPECT_EQ(lua_gettop(L), 1);
    EXPECT_EQ(lua_getmetatable(L, 1), 0);
    pushGadget(native, 0, "g");
    EXPECT_EQ(value("getmetatable(g)"), "nil");
}

TEST_F(ClassTable, readsAnAttributeThroughItsGetterWithTheObjectAlone)
{
    makeGadget();
    EXPECT_EQ(value("g.size"), "1");
    EXPECT_EQ(value("g.kind"), "gadget");
    EXPECT_EQ(gadget::argumentCounts, (std::vector<int>{1, 1}));
}

TEST_F(ClassTable, writesAnAttributeThroughItsSetterWithObjectAndValue)
{
    makeGadget();
    run("g.size = 7");
    EXPECT_EQ(gadget::argumentCounts, (std::vector<int>{2}));
    EXPECT_EQ(value("g.size"), "7");
}

TEST_F(ClassTable, finishesAMethodCall)
{
    makeGadget();
    run("g:grow(4)");
    EXPECT_EQ(value("g.size"), "5");
    EXPECT_EQ(value("g.grow == g.grow"), "true");
}

TEST_F(ClassTable, offersMetamethodsToLua)
{
    makeGadget();
    EXPECT_EQ(value("g"), "a gadget of 1");
}

TEST_F(ClassTable, findsMethodsWrittenInLuaButOnlyNativeGetters)
{
    makeGadget();
    run("mt = getmetatable(g) "
        "mt['.fn'].twice = function(self) return 2 * self.size end "
        "mt['.fn'].size = function() return 'not reached' end "
        "mt['.get'].color = function() return 'red' end "
        "mt['.set'].color = function() error('called') end");
    EXPECT_EQ(value("g:twice()"), "2");
    EXPECT_EQ(value("g.size"), "1");
    EXPECT_EQ(value("g.color"), "nil");
    run("g.color = 'blue'");
}

TEST_F(ClassTable, readsAnUnknownFieldAsNoValue)
{
    makeGadget();
    EXPECT_EQ(value("g.unknown"), "nil");
    EXPECT_EQ(value("g[1]"), "nil");
    EXPECT_EQ(value("select('#', getmetatable(g).__index(g, 'unknown'))"), "0");
    EXPECT_EQ(value("select('#', getmetatable(g).__index(g, 'size'))"), "1");
}

TEST_F(ClassTable, dropsAnAssignmentToAnUnknownField)
{
    makeGadget();
    run("g.unknown = 1 g[1] = 2");
    EXPECT_EQ(value("g.unknown"), "nil");
    EXPECT_EQ(value("g[1]"), "nil");
    EXPECT_TRUE(gadget::argumentCounts.empty());
}

TEST_F(ClassTable, dropsAnAssignmentToAReadOnlyAttribute)
{
    makeGadget();
    run("g.kind = 'other'");
    EXPECT_EQ(value("g.kind"), "gadget");
}

TEST_F(ClassTable, handsUnknownFieldsToItsItemFunctions)
{
    record.methods = gadget::methodsWithItems;
    makeGadget();
    EXPECT_EQ(value("g[3]"), "item 3");
    EXPECT_EQ(value("g.unknown"), "item unknown");
    EXPECT_EQ(value("g.size"), "1") << "attributes come first";
    EXPECT_EQ(value("type(g.grow)"), "function") << "and methods";
    run("g[3] = 'three'");
    EXPECT_EQ(gadget::lastItemSet, "3=three");
    run("g.kind = 'other'");
    EXPECT_EQ(gadget::lastItemSet, "kind=other") << "a read-only attribute";
    run("g.size = 2");
    EXPECT_EQ(gadget::lastItemSet, "kind=other");
    EXPECT_EQ(gadget::argumentCounts, (std::vector<int>{2, 2, 1, 3, 3, 2}));
    EXPECT_EQ(value("select('#', getmetatable(g).__index(g, 5))"), "1");
}

TEST_F(ClassTable, callsOnlyNativeItemFunctions)
{
    makeGadget();
    run("mt = getmetatable(g) mt.__getitem = function() return 1 end "
        "mt.__setitem = function() error('called') end");
    EXPECT_EQ(value("g[1]"), "nil");
    run("g[1] = 2");
}

TEST_F(ClassTable, writesWithoutATableOfSetters)
{
    makeGadget();
    run("getmetatable(g)['.set'] = nil g.size = 5");
    EXPECT_EQ(value("g.size"), "1");
}

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
