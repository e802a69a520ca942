// SPDX-License-Identifier: LicenseRef-Proprietary
// The shell's main() where the radio module cannot be opened, which the real one never says.
#include "app/context.h"
#include "app/lua_state.h"
#include "binding/radio_wrap.h"

#include <gtest/gtest.h>
#include <lua.hpp>

int shellMain(int argc, char **argv); // main() of app/sorelapp.cpp

int radioModuleOpen(lua_State *)
{
    return 0;
}

namespace
{

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

} // namespace
