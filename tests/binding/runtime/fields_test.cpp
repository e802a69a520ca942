// SPDX-License-Identifier: LicenseRef-Proprietary
// Raw access to fields, by every kind of index.
#include "binding/runtime/fields.h"
#include "tests/binding/support/lua_test.h"

namespace
{

class Fields : public LuaTest
{
protected:
    Fields()
    {
        run("function guard() error('a metamethod ran') end "
            "t = setmetatable({field = 'value'}, {__index = guard, __newindex = guard})");
        lua_getglobal(L, "t");
        lua_pushstring(L, "field");
        // The table is at 1 and -2, the key at 2 and -1.
    }

    // The text on top of the stack, with nothing but that pushed.
    std::string pushed()
    {
        EXPECT_EQ(lua_gettop(L), 3);
        return popText();
    }
};

TEST_F(Fields, areReadByNameFromATableAtAnyIndex)
{
    pushField(L, 1, "field");
    EXPECT_EQ(pushed(), "value");
    pushField(L, -2, "field");
    EXPECT_EQ(pushed(), "value");
    pushField(L, -2, "missing");
    EXPECT_EQ(pushed(), "(no text)");
}

TEST_F(Fields, areReadByNameFromTheTablesBeyondTheStack)
{
    lua_pushstring(L, "in the registry");
    lua_setfield(L, LUA_REGISTRYINDEX, "place");
    lua_pushstring(L, "in the globals");
    lua_setglobal(L, "place");
    pushField(L, LUA_REGISTRYINDEX, "place");
    EXPECT_EQ(pushed(), "in the registry");
    pushField(L, LUA_GLOBALSINDEX, "place");
    EXPECT_EQ(pushed(), "in the globals");
}

TEST_F(Fields, areReadByAKeyFromATableAtAnyIndex)
{
    pushFieldAt(L, 1, 2);
    EXPECT_EQ(pushed(), "value");
    pushFieldAt(L, -2, 2);
    EXPECT_EQ(pushed(), "value");
    pushFieldAt(L, -2, -1);
    EXPECT_EQ(pushed(), "value");
}

TEST_F(Fields, areReadByAKeyFromTheTablesBeyondTheStack)
{
    lua_pushstring(L, "in the registry");
    lua_setfield(L, LUA_REGISTRYINDEX, "field");
    pushFieldAt(L, LUA_REGISTRYINDEX, 2);
    EXPECT_EQ(pushed(), "in the registry");
    lua_pushstring(L, "in the globals");
    lua_setglobal(L, "field");
    pushFieldAt(L, LUA_GLOBALSINDEX, 2);
    EXPECT_EQ(pushed(), "in the globals");
}

TEST_F(Fields, areSetInTheTableOnTopWithoutItsMetamethods)
{
    lua_settop(L, 1);
    setStringField(L, "text", "new");
    setTableField(L, "table");
    EXPECT_EQ(lua_gettop(L), 1);
    EXPECT_EQ(value("rawget(t, 'text')"), "new");
    EXPECT_EQ(value("type(rawget(t, 'table'))"), "table");
    EXPECT_EQ(value("next(rawget(t, 'table'))"), "nil");
}

} // namespace
