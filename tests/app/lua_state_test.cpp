// SPDX-License-Identifier: LicenseRef-Proprietary
// What a state is readied with for the opening of libraries; a script does not see it.
#include "app/lua_state.h"

#include <gtest/gtest.h>
#include <lua.hpp>

namespace
{

// As many as start-up makes, and some of a script's.
constexpr int globals = 256;

class LuaState : public testing::Test
{
protected:
    ~LuaState() override
    {
        lua_close(L);
    }

    int bytes()
    {
        return lua_gc(L, LUA_GCCOUNT, 0) * 1024 + lua_gc(L, LUA_GCCOUNTB, 0);
    }

    // Leaves megabytes of garbage behind, one small piece after the other. Says whether the
    // collector took some of it meanwhile.
    bool collectsGarbage()
    {
        constexpr int pieces = 10'000;
        constexpr int size = 1000;
        const int before = bytes();
        for (int i = 0; i < pieces; ++i) {
            lua_newuserdata(L, size);
            lua_pop(L, 1);
        }
        return bytes() - before < pieces * size;
    }

    lua_State *L = luaL_newstate();
};

TEST_F(LuaState, hasRoomForTheGlobals)
{
    static char keys[globals];
    beginOpening(L);
    const int before = bytes();
    for (char &key : keys) {
        lua_pushlightuserdata(L, &key);
        lua_pushboolean(L, 1);
        lua_rawset(L, LUA_GLOBALSINDEX);
    }
    EXPECT_EQ(bytes(), before);
    lua_pushboolean(L, 1);
    lua_setglobal(L, "one more");
    EXPECT_GT(bytes(), before + globals * static_cast<int>(2 * sizeof(void *))) << "to spare";
}

TEST_F(LuaState, restsItsCollectorWhileItIsOpened)
{
    EXPECT_TRUE(collectsGarbage());
    beginOpening(L);
    EXPECT_FALSE(collectsGarbage());
    endOpening(L);
    EXPECT_TRUE(collectsGarbage());
}

} // namespace
