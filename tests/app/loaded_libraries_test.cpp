// SPDX-License-Identifier: LicenseRef-Proprietary
// What becomes of the libraries that scripts have loaded.
#include "app/libraries.h"
#include "tests/binding/support/lua_test.h"

#include <dlfcn.h>

namespace
{

class LoadedLibraries : public LuaTest
{
protected:
    static bool isLoaded()
    {
        void *const library = dlopen(LOADED_LIBRARY, RTLD_NOW | RTLD_NOLOAD);
        if (library == nullptr) {
            return false;
        }
        dlclose(library);
        return true;
    }

    std::string load()
    {
        return value("package.loadlib('" LOADED_LIBRARY "', 'luaopen_loaded_library')()");
    }
};

TEST_F(LoadedLibraries, areUnloadedByLuaWhenItsStateIsClosed)
{
    EXPECT_FALSE(isLoaded());
    EXPECT_EQ(load(), "loaded");
    EXPECT_TRUE(isLoaded());
    closeState();
    EXPECT_FALSE(isLoaded());
}

TEST_F(LoadedLibraries, stayLoadedOnceTheyAreKept)
{
    EXPECT_EQ(load(), "loaded");
    keepLoadedLibraries(L);
    EXPECT_EQ(lua_gettop(L), 0);
    closeState();
    EXPECT_TRUE(isLoaded());
}

TEST_F(LoadedLibraries, mayBeNone)
{
    keepLoadedLibraries(L);
    EXPECT_EQ(lua_gettop(L), 0);
    EXPECT_EQ(load(), "loaded") << "loading still works";
}

TEST_F(LoadedLibraries, mayBeImpossibleInAStateWithoutTheStandardLibraries)
{
    lua_State *const bare = luaL_newstate();
    keepLoadedLibraries(bare);
    EXPECT_EQ(lua_gettop(bare), 0);
    lua_close(bare);
}

} // namespace
