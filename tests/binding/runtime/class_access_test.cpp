// SPDX-License-Identifier: LicenseRef-Proprietary
// Reading and writing fields of objects: attributes, methods and items.
#include "tests/binding/runtime/class_table_fixture.h"

namespace
{

using ClassAccess = ClassTable;

TEST_F(ClassAccess, readsAnAttributeThroughItsGetterWithTheObjectAlone)
{
    makeGadget();
    EXPECT_EQ(value("g.size"), "1");
    EXPECT_EQ(value("g.kind"), "gadget");
    EXPECT_EQ(gadget::argumentCounts, (std::vector<int>{1, 1}));
}

TEST_F(ClassAccess, writesAnAttributeThroughItsSetterWithObjectAndValue)
{
    makeGadget();
    run("g.size = 7");
    EXPECT_EQ(gadget::argumentCounts, (std::vector<int>{2}));
    EXPECT_EQ(value("g.size"), "7");
}

TEST_F(ClassAccess, finishesAMethodCall)
{
    makeGadget();
    run("g:grow(4)");
    EXPECT_EQ(value("g.size"), "5");
    EXPECT_EQ(value("g.grow == g.grow"), "true");
}

TEST_F(ClassAccess, offersMetamethodsToLua)
{
    makeGadget();
    EXPECT_EQ(value("g"), "a gadget of 1");
}

TEST_F(ClassAccess, findsMethodsWrittenInLuaButOnlyNativeGetters)
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

TEST_F(ClassAccess, readsAnUnknownFieldAsNoValue)
{
    makeGadget();
    EXPECT_EQ(value("g.unknown"), "nil");
    EXPECT_EQ(value("g[1]"), "nil");
    EXPECT_EQ(value("select('#', getmetatable(g).__index(g, 'unknown'))"), "0");
    EXPECT_EQ(value("select('#', getmetatable(g).__index(g, 'size'))"), "1");
}

TEST_F(ClassAccess, dropsAnAssignmentToAnUnknownField)
{
    makeGadget();
    run("g.unknown = 1 g[1] = 2");
    EXPECT_EQ(value("g.unknown"), "nil");
    EXPECT_EQ(value("g[1]"), "nil");
    EXPECT_TRUE(gadget::argumentCounts.empty());
}

TEST_F(ClassAccess, dropsAnAssignmentToAReadOnlyAttribute)
{
    makeGadget();
    run("g.kind = 'other'");
    EXPECT_EQ(value("g.kind"), "gadget");
}

TEST_F(ClassAccess, handsUnknownFieldsToItsItemFunctions)
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

TEST_F(ClassAccess, callsOnlyNativeItemFunctions)
{
    makeGadget();
    run("mt = getmetatable(g) mt.__getitem = function() return 1 end "
        "mt.__setitem = function() error('called') end");
    EXPECT_EQ(value("g[1]"), "nil");
    run("g[1] = 2");
}

TEST_F(ClassAccess, writesWithoutATableOfSetters)
{
    makeGadget();
    run("getmetatable(g)['.set'] = nil g.size = 5");
    EXPECT_EQ(value("g.size"), "1");
}

} // namespace
