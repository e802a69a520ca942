// SPDX-License-Identifier: LicenseRef-Proprietary
// Start-up with another radio module: the shell's main() where it cannot be opened, which the real
// one never says, and the order of its steps.
#include "app/context.h"
#include "app/lua_state.h"
#include "app/opening.h"
#include "binding/radio_wrap.h"

#include <gtest/gtest.h>
#include <lua.hpp>

int shellMain(int argc, char **argv); // main() of app/sorelapp.cpp

namespace
{

bool canBeOpened = false;

} // namespace

// With fields that are called as other globals of the shell are.
int radioModuleOpen(lua_State *L)
{
    if (!canBeOpened) {
        return 0;
    }
    lua_newtable(L);
    for (const char *const name : {"radioClose", "bit"}) {
        lua_newtable(L);
        lua_setfield(L, -2, name);
    }
    lua_setglobal(L, "radio");
    return 1;
}

namespace
{

bool isTrue(lua_State *L, const char *condition)
{
    EXPECT_EQ(luaL_dostring(L, (std::string("return ") + condition).c_str()), 0);
    const bool is = lua_toboolean(L, -1) != 0;
    lua_pop(L, 1);
    return is;
}

TEST(StartUp, endsWithoutTheRadioModuleAndLeavesWhatIsOpen)
{
    char name[] = "sorelapp";
    char option[] = "-c";
    char command[] = "print('not reached')";
    char *arguments[] = {name, option, command, nullptr};
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    EXPECT_EQ(shellMain(3, arguments), 1);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "failed to initialise lua (radio module)\n");
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    EXPECT_NE(appContext, nullptr);
    appRadioClose();
    ASSERT_NE(appLuaState, nullptr);
    lua_close(appLuaState);
}

TEST(StartUp, opensOtherLibrariesOnlyAfterTheFieldsOfRadioAreGlobals)
{
    canBeOpened = true;
    lua_State *const L = luaL_newstate();
    luaL_openlibs(L);
    EXPECT_TRUE(openShellLibraries(L));
    EXPECT_TRUE(isTrue(L, "type(radioClose) == 'function'"));
    EXPECT_TRUE(isTrue(L, "type(bit.band) == 'function'"));
    lua_close(L);
    canBeOpened = false;
}

} // namespace
