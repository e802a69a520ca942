// SPDX-License-Identifier: LicenseRef-Proprietary
// Lua text that a module runs once it is complete.
#include "binding/runtime/module_table.h"
#include "tests/binding/support/lua_test.h"

namespace
{

class ModuleCode : public LuaTest
{
protected:
    // Runs start-up code with a value on the stack; returns what it printed on standard error.
    std::string printedBy(const char *code)
    {
        lua_pushnumber(L, 5);
        testing::internal::CaptureStderr();
        SWIG_Lua_RunModuleCode(L, code);
        EXPECT_EQ(lua_gettop(L), 1);
        return testing::internal::GetCapturedStderr();
    }
};

TEST_F(ModuleCode, isRun)
{
    EXPECT_EQ(printedBy("ran = true return 1, 2, 3"), "");
    EXPECT_EQ(value("ran"), "true");
}

TEST_F(ModuleCode, mayBeNullOrEmpty)
{
    EXPECT_EQ(printedBy(nullptr), "");
    lua_settop(L, 0);
    EXPECT_EQ(printedBy(""), "");
}

TEST_F(ModuleCode, thatRaisesPrintsTheErrorAndANewline)
{
    EXPECT_EQ(printedBy("error('it failed', 0)"), "it failed\n");
}

TEST_F(ModuleCode, thatDoesNotLoadPrintsTheErrorAndANewline)
{
    const std::string printed = printedBy("+");
    EXPECT_EQ(printed.substr(0, 14), "[string \"+\"]:1");
    EXPECT_EQ(printed.back(), '\n');
}

} // namespace
