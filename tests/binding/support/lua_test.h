// SPDX-License-Identifier: LicenseRef-Proprietary
// A Lua state of its own, with the standard libraries, for each test.
#pragma once

#include <gtest/gtest.h>
#include <lua.hpp>
#include <string>

class LuaTest : public testing::Test
{
protected:
    LuaTest()
    {
        luaL_openlibs(L);
    }

    ~LuaTest() override
    {
        if (L != nullptr) {
            lua_close(L);
        }
    }

    LuaTest(const LuaTest &) = delete;
    LuaTest &operator=(const LuaTest &) = delete;

    // Closes the state before the test ends.
    void closeState()
    {
        lua_close(L);
        L = nullptr;
    }

    // Runs Lua text that must succeed.
    void run(const std::string &text)
    {
        if (luaL_loadstring(L, text.c_str()) != 0 || lua_pcall(L, 0, 0, 0) != 0) {
            ADD_FAILURE() << text << "\nraised: " << popText();
        }
    }

    // The error that Lua text raises.
    std::string raised(const std::string &text)
    {
        if (luaL_loadstring(L, text.c_str()) != 0 || lua_pcall(L, 0, 0, 0) != 0) {
            return popText();
        }
        ADD_FAILURE() << text << "\nraised nothing";
        return {};
    }

    // The value of a Lua expression, as tostring() writes it.
    std::string value(const std::string &expression)
    {
        run("_VALUE = tostring((" + expression + "))");
        lua_getglobal(L, "_VALUE");
        return popText();
    }

    // Gives the value on top of the stack a global name, and pops it.
    void name(const char *global)
    {
        lua_setglobal(L, global);
    }

    // Gives a native function a global name.
    void name(const char *global, lua_CFunction function)
    {
        lua_pushcclosure(L, function, 0);
        lua_setglobal(L, global);
    }

    std::string popText()
    {
        const char *const text = lua_tostring(L, -1);
        std::string copy = text != nullptr ? text : "(no text)";
        lua_pop(L, 1);
        return copy;
    }

    lua_State *L = luaL_newstate();
};
