// SPDX-License-Identifier: LicenseRef-Proprietary
// The module table: plain fields, and variables through accessors.
#include "binding/runtime/module_table.h"
#include "tests/binding/support/assertion_report.h"
#include "tests/binding/support/lua_test.h"

namespace
{

double level = 0;
int argumentsOfGetter = -1;
int argumentsOfSetter = -1;

int getLevel(lua_State *L)
{
    argumentsOfGetter = lua_gettop(L);
    lua_pushstring(L, "not the result");
    lua_pushnumber(L, level);
    return 1;
}

int setLevel(lua_State *L)
{
    argumentsOfSetter = lua_gettop(L);
    level = lua_tonumber(L, 1);
    lua_pushstring(L, "dropped");
    return 1;
}

int getVersion(lua_State *L)
{
    lua_pushstring(L, "1.1");
    return 1;
}

int answer(lua_State *L)
{
    lua_pushnumber(L, 42);
    return 1;
}

const AttributeEntry variables[] = {
    {"level", getLevel, setLevel},
    {"version", getVersion, nullptr},
    {nullptr, nullptr, nullptr},
};

const CommandEntry commands[] = {
    {"answer", answer},
    {"second", answer},
    {nullptr, nullptr},
};

class ModuleTable : public LuaTest
{
protected:
    ModuleTable()
    {
        level = 1;
        lua_pushvalue(L, LUA_GLOBALSINDEX);
        SWIG_Lua_module_begin(L, "m");
        EXPECT_EQ(lua_gettop(L), 2);
        lua_getglobal(L, "m");
        EXPECT_TRUE(lua_rawequal(L, -1, 2)) << "the module is left on top of its parent";
        lua_pop(L, 1);
    }

    void addVariables()
    {
        SWIG_Lua_AddVariables(L, variables);
        EXPECT_EQ(lua_gettop(L), 2);
    }
};

TEST_F(ModuleTable, beginsEmptyWithItsMetatable)
{
    EXPECT_EQ(value("next(m)"), "nil");
    run("mt = getmetatable(m)");
    EXPECT_EQ(value("type(mt['.get']) .. type(mt['.set'])"), "tabletable");
    EXPECT_EQ(value("next(mt['.get'])"), "nil");
    EXPECT_EQ(value("next(mt['.set'])"), "nil");
    EXPECT_EQ(value("mt['.get'] == mt['.set']"), "false");
    run("count = 0 for _ in pairs(mt) do count = count + 1 end");
    EXPECT_EQ(value("count"), "4");
    lua_getmetatable(L, -1);
    lua_getfield(L, -1, "__index");
    EXPECT_EQ(lua_tocfunction(L, -1), SWIG_Lua_module_get);
    lua_getfield(L, -2, "__newindex");
    EXPECT_EQ(lua_tocfunction(L, -1), SWIG_Lua_module_set);
}

TEST_F(ModuleTable, beginsWithRoomForItsFields)
{
    constexpr int fields = 1000;
    static char keys[fields];
    lua_gc(L, LUA_GCSTOP, 0);
    SWIG_Lua_module_begin(L, "roomy", fields);
    const int before = lua_gc(L, LUA_GCCOUNT, 0) * 1024 + lua_gc(L, LUA_GCCOUNTB, 0);
    for (char &key : keys) {
        lua_pushlightuserdata(L, &key);
        lua_pushboolean(L, 1);
        lua_rawset(L, -3);
    }
    EXPECT_EQ(lua_gc(L, LUA_GCCOUNT, 0) * 1024 + lua_gc(L, LUA_GCCOUNTB, 0), before);
}

TEST_F(ModuleTable, isStoredRawIntoItsParent)
{
    run("parent = setmetatable({}, {__newindex = error, __index = error})");
    lua_getglobal(L, "parent");
    SWIG_Lua_module_begin(L, "inner");
    lua_settop(L, 0);
    EXPECT_EQ(value("type(rawget(parent, 'inner'))"), "table");
}

TEST_F(ModuleTable, replacesAnEarlierOneOfTheName)
{
    run("old = m");
    lua_pushvalue(L, LUA_GLOBALSINDEX);
    SWIG_Lua_module_begin(L, "m");
    EXPECT_EQ(value("m == old"), "false");
}

TEST_F(ModuleTable, holdsFunctionsAsPlainFields)
{
    SWIG_Lua_AddCommands(L, commands);
    EXPECT_EQ(lua_gettop(L), 2);
    EXPECT_EQ(value("rawget(m, 'answer')()"), "42");
    EXPECT_EQ(value("rawget(m, 'second')()"), "42");
    lua_getfield(L, 2, "answer");
    EXPECT_EQ(lua_tocfunction(L, -1), answer);
    EXPECT_EQ(lua_getupvalue(L, -1, 1), nullptr);
}

TEST_F(ModuleTable, readsAnUnknownNameAsNil)
{
    EXPECT_EQ(value("m.unknown"), "nil");
    EXPECT_EQ(value("m[1]"), "nil");
    EXPECT_EQ(value("m[m]"), "nil");
}

TEST_F(ModuleTable, keepsWhatIsAssignedToAnUnknownName)
{
    run("m.unknown = 5 m[1] = 'one'");
    EXPECT_EQ(value("m.unknown"), "5");
    EXPECT_EQ(value("rawget(m, 'unknown')"), "5");
    EXPECT_EQ(value("m[1]"), "one");
}

TEST_F(ModuleTable, readsAVariableThroughItsGetter)
{
    addVariables();
    EXPECT_EQ(value("m.level"), "1");
    EXPECT_EQ(argumentsOfGetter, 0);
    level = 2;
    EXPECT_EQ(value("m.level"), "2");
    EXPECT_EQ(value("rawget(m, 'level')"), "nil");
}

TEST_F(ModuleTable, writesAVariableThroughItsSetter)
{
    addVariables();
    run("m.level = 7");
    EXPECT_EQ(level, 7);
    EXPECT_EQ(argumentsOfSetter, 1);
    EXPECT_EQ(value("rawget(m, 'level')"), "nil");
    EXPECT_EQ(value("m.level"), "7");
}

TEST_F(ModuleTable, callsTheSetterForNilToo)
{
    addVariables();
    run("m.level = nil");
    EXPECT_EQ(level, 0);
    EXPECT_EQ(argumentsOfSetter, 1);
}

TEST_F(ModuleTable, givesOneResultForAReadAndNoneForAWrite)
{
    addVariables();
    run("mt = getmetatable(m)");
    EXPECT_EQ(value("select('#', mt.__index(m, 'level'))"), "1");
    EXPECT_EQ(value("select('#', mt.__index(m, 'unknown'))"), "1");
    EXPECT_EQ(value("select('#', mt.__newindex(m, 'level', 1))"), "0");
    EXPECT_EQ(value("select('#', mt.__newindex(m, 'unknown', 1))"), "0");
}

TEST_F(ModuleTable, shadowsAVariableWithoutASetterAtTheFirstAssignment)
{
    addVariables();
    EXPECT_EQ(value("m.version"), "1.1");
    run("m.version = '2.0'");
    EXPECT_EQ(value("m.version"), "2.0");
    EXPECT_EQ(value("rawget(m, 'version')"), "2.0");
    run("m.version = nil");
    EXPECT_EQ(value("m.version"), "1.1") << "the getter is still there";
}

TEST_F(ModuleTable, registersVariablesByTheirNames)
{
    addVariables();
    run("mt = getmetatable(m)");
    EXPECT_EQ(value("type(mt['.get'].level)"), "function");
    EXPECT_EQ(value("type(mt['.set'].level)"), "function");
    EXPECT_EQ(value("type(mt['.get'].version)"), "function");
    EXPECT_EQ(value("mt['.set'].version"), "nil");
}

TEST_F(ModuleTable, callsOnlyNativeAccessors)
{
    run("mt = getmetatable(m) mt['.get'].x = function() return 1 end");
    run("mt['.set'].x = function() error('called') end");
    EXPECT_EQ(value("m.x"), "nil");
    run("m.x = 3");
    EXPECT_EQ(value("m.x"), "3");
}

TEST_F(ModuleTable, worksWithoutAccessorTables)
{
    run("mt = getmetatable(m) mt['.get'] = 5 mt['.set'] = nil");
    EXPECT_EQ(value("m.x"), "nil");
    run("m.x = 3");
    EXPECT_EQ(value("m.x"), "3");
}

TEST_F(ModuleTable, mustBeginInATable)
{
    lua_pushnumber(L, 5);
    EXPECT_INVARIANT(SWIG_Lua_module_begin(L, "m"), 948, "SWIG_Lua_module_begin", topIsTableText);
}

TEST_F(ModuleTable, getterMustBeCalledWithATable)
{
    EXPECT_INVARIANT(run("getmetatable(m).__index(5, 'x')"), 889, "SWIG_Lua_module_get",
                     "(lua_type(L, (1)) == 5)");
}

TEST_F(ModuleTable, getterMustBeCalledWithATableThatHasAMetatable)
{
    EXPECT_INVARIANT(run("getmetatable(m).__index({}, 'x')"), 891, "SWIG_Lua_module_get",
                     topIsTableText);
}

TEST_F(ModuleTable, setterMustBeCalledWithATable)
{
    EXPECT_INVARIANT(run("getmetatable(m).__newindex('m', 'x', 1)"), 921, "SWIG_Lua_module_set",
                     "(lua_type(L, (1)) == 5)");
}

TEST_F(ModuleTable, setterMustBeCalledWithATableThatHasAMetatable)
{
    EXPECT_INVARIANT(run("getmetatable(m).__newindex({}, 'x', 1)"), 923, "SWIG_Lua_module_set",
                     topIsTableText);
}

} // namespace
