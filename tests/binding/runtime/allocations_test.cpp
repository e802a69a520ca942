// SPDX-License-Identifier: LicenseRef-Proprietary
// What the module of the radio does not use of the runtime, with each of its allocations failing:
// classes with bases, methods and items, variables, packed objects and constants of every kind.
#include "binding/runtime/constants.h"
#include "binding/runtime/module_table.h"
#include "binding/runtime/registry.h"
#include "tests/binding/support/gadget_class.h"
#include "tests/failing_memory/failing_memory.h"

#include <cstdlib>
#include <gtest/gtest.h>

namespace
{

int live = 0; // native gadgets

// The object first, so that no gadget is without one.
int construct(lua_State *L)
{
    PointerObject *const object = SWIG_Lua_NewPointerObj(L, &gadget::type);
    object->ptr = new Gadget;
    object->own = 1;
    ++live;
    return 1;
}

void destroy(void *native)
{
    delete static_cast<Gadget *>(native);
    --live;
}

int getVariable(lua_State *L)
{
    lua_pushliteral(L, "a variable");
    return 1;
}

int setVariable(lua_State *)
{
    return 0;
}

const AttributeEntry variables[] = {
    {"variable", getVariable, setVariable},
    {"constant", getVariable, nullptr},
    {nullptr, nullptr, nullptr},
};

char text[] = "a text";

const ConstantEntry constants[] = {
    {integerConstant, "integer", 7, 0, nullptr, nullptr},
    {floatingConstant, "floating", 0, 0.5, nullptr, nullptr},
    {stringConstant, "text", 0, 0, text, nullptr},
    {pointerConstant, "pointer", 0, 0, text, &gadget::slot},
    {binaryConstant, "bytes", 4, 0, text, &gadget::slot},
    {characterConstant, "character", 'x', 0, nullptr, nullptr},
    {endOfConstants, nullptr, 0, 0, nullptr, nullptr},
};

int openModule(lua_State *L)
{
    static ClassRecord base = gadget::gadgetClass();
    base.methods = gadget::methodsWithItems;
    static ClassRecord *bases[] = {&base, nullptr};
    static const char *baseNames[] = {"Gadget *", nullptr};
    static ClassRecord derived = gadget::gadgetClass();
    derived.name = "Derived";
    derived.constructor = construct;
    derived.destructor = destroy;
    derived.bases = bases;
    derived.baseNames = baseNames;
    gadget::type.clientData = &derived;

    lua_pushvalue(L, LUA_GLOBALSINDEX);
    SWIG_Lua_module_begin(L, "gadgets", 4);
    SWIG_Lua_AddVariables(L, variables);
    SWIG_Lua_RegisterClass(L, &base);
    SWIG_Lua_RegisterClass(L, &derived);
    SWIG_Lua_AddConstants(L, constants);
    SWIG_Lua_RunModuleCode(L, "gadgets.code = 'run'");
    lua_settop(L, 0);
    return 0;
}

// Calls use for 1, 2, ... in a new state each, until it makes fewer allocations.
template <class Use>
void forEachAllocation(Use use)
{
    long number = 0;
    Allocation failed = Allocation::none;
    do {
        SCOPED_TRACE("allocation " + std::to_string(++number));
        resetMemory();
        live = 0;
        lua_State *const L = newStateOfFailingMemory();
        failed = use(L, number);
        lua_close(L);
        EXPECT_EQ(bytesOfLua(), 0U);
        EXPECT_EQ(live, 0);
    } while (failed != Allocation::none);
    EXPECT_GT(number, 10);
}

TEST(RuntimeAllocations, aModuleIsOpenedOrTheWantOfMemoryRaised)
{
    testing::internal::CaptureStderr(); // of the text that is run once the module is complete
    forEachAllocation([](lua_State *L, long number) {
        failAllocation(number);
        const int status = lua_cpcall(L, openModule, nullptr);
        const Allocation failed = stopFailing();
        if (failed == Allocation::none) {
            EXPECT_EQ(status, 0);
            EXPECT_EQ(luaL_dostring(L, "return gadgets.code"), 0);
            EXPECT_STREQ(lua_tostring(L, -1), "run");
        } else if (status != 0) {
            EXPECT_EQ(status, LUA_ERRMEM);
            EXPECT_STREQ(lua_tostring(L, -1), "not enough memory");
        }
        return failed;
    });
    const std::string reported = testing::internal::GetCapturedStderr();
    EXPECT_NE(reported.find("not enough memory\n"), std::string::npos);
}

TEST(RuntimeAllocations, objectsAreUsedOrTheWantOfMemoryRaised)
{
    forEachAllocation([](lua_State *L, long number) {
        EXPECT_EQ(lua_cpcall(L, openModule, nullptr), 0);
        EXPECT_EQ(luaL_loadstring(L, "local g = gadgets.Derived() g.size = 5 g:grow(2) "
                                     "g[1] = 'x' g.unknown = g[2] gadgets.variable = 1 "
                                     "return gadgets.Derived().kind .. g.size .. g[3] .. "
                                     "gadgets.variable"),
                  0);
        failAllocation(number);
        const int status = lua_pcall(L, 0, 1, 0);
        const Allocation failed = stopFailing();
        EXPECT_EQ(status, failed == Allocation::none ? 0 : LUA_ERRMEM);
        EXPECT_STREQ(lua_tostring(L, -1),
                     failed == Allocation::none ? "gadget7item 3a variable" : "not enough memory");
        return failed;
    });
}

} // namespace
