// SPDX-License-Identifier: LicenseRef-Proprietary
// What becomes a global, in tables that the real ones never are.
#include "app/scripts.h"
#include "tests/binding/support/lua_test.h"

namespace
{

using Scripts = LuaTest;

TEST_F(Scripts, findTheShellsOwnFunctionWhereTheRadioHasOneOfTheName)
{
    run("radio = {first = 1, shared = 'the radio'} "
        "radioNative = {second = 2, shared = 'the shell'}");
    copyRadioToGlobals(L);
    EXPECT_EQ(value("first"), "1");
    EXPECT_EQ(value("second"), "2");
    EXPECT_EQ(value("shared"), "the shell");
    EXPECT_EQ(lua_gettop(L), 0);
}

TEST_F(Scripts, findFieldsOfAnyNameAndValue)
{
    run("key = {} radio = {[1] = 'number', [key] = 'table', [true] = false, print = 'another'} "
        "radioNative = {}");
    copyRadioToGlobals(L);
    EXPECT_EQ(value("_G[1] .. ' ' .. _G[key]"), "number table");
    EXPECT_EQ(value("_G[true]"), "false");
    EXPECT_EQ(value("print"), "another");
}

} // namespace
