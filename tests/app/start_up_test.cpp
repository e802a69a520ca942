// SPDX-License-Identifier: LicenseRef-Proprietary
// Start-up with another radio module: the shell's main() where it cannot be opened, which the real
// one never says, and the order in which libraries replace each other's globals.
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
    for (const char *const name : {"radioClose", "bit", "socket", "radioInternal"}) {
        lua_pushliteral(L, "of radio");
        lua_setfield(L, -2, name);
    }
    lua_setglobal(L, "radio");
    return 1;
}

namespace
{

std::string typeOfGlobal(lua_State *L, const char *name)
{
    lua_getglobal(L, name);
    std::string type = luaL_typename(L, -1);
    lua_pop(L, 1);
    return type;
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

TEST(StartUp, letsTheGlobalsOfLaterLibrariesReplaceThoseOfEarlierOnes)
{
    canBeOpened = true;
    lua_State *const L = luaL_newstate();
    luaL_openlibs(L);
    EXPECT_TRUE(openShellLibraries(L));
    EXPECT_EQ(typeOfGlobal(L, "radioClose"), "function");
    EXPECT_EQ(typeOfGlobal(L, "bit"), "table");
    EXPECT_EQ(typeOfGlobal(L, "socket"), "table");
    EXPECT_EQ(typeOfGlobal(L, "radioInternal"), "table");
    lua_close(L);
    canBeOpened = false;
}

} // namespace
