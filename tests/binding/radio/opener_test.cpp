// SPDX-License-Identifier: LicenseRef-Proprietary
// What opening the module makes. ctest gives each test a process of its own, so that each finds the
// process-wide records as they are at start-up.
#include "binding/radio/types.h"
#include "binding/radio_wrap.h"
#include "binding/runtime/registry.h"
#include "tests/binding/support/lua_test.h"
#include "tests/binding/support/type_table.h"

#include <cstdlib>
#include <fstream>

namespace
{

// The sorted names that expression, a table, has as keys.
constexpr char keysFunction[] =
    "function keys(t) local k = {} for n in pairs(t) do k[#k + 1] = tostring(n) end "
    "table.sort(k) return table.concat(k, ' ') end "
    "function count(t) local n = 0 for _ in pairs(t) do n = n + 1 end return n end";

class Opener : public LuaTest
{
protected:
    Opener()
    {
        run(keysFunction);
    }
};

TEST_F(Opener, returnsOneAndLeavesTheStackAlone)
{
    lua_pushstring(L, "bottom");
    EXPECT_EQ(radioModuleOpen(L), 1);
    EXPECT_EQ(lua_gettop(L), 1);
    EXPECT_STREQ(lua_tostring(L, 1), "bottom");
}

TEST_F(Opener, addsThreeGlobals)
{
    run("before = {before = true} for name in pairs(_G) do before[name] = true end");
    radioModuleOpen(L);
    run("added = {} for name in pairs(_G) do if not before[name] then added[name] = true end end");
    EXPECT_EQ(value("keys(added)"), "added radio swig_equals swig_type");
}

TEST_F(Opener, gives163Fields)
{
    radioModuleOpen(L);
    run("types = {} for _, v in pairs(radio) do types[type(v)] = (types[type(v)] or 0) + 1 end");
    EXPECT_EQ(value("count(radio)"), "163");
    EXPECT_EQ(value("keys(types)"), "function number");
    EXPECT_EQ(value("types.number"), "118");
    EXPECT_EQ(value("types['function']"), "45"); // 44 and the constructor
}

TEST_F(Opener, givesFunctionsConstantsAndTheConstructor)
{
    radioModuleOpen(L);
    EXPECT_EQ(value("type(radio.radioSpiRead)"), "function");
    EXPECT_EQ(value("type(radio.RadioHooks)"), "function");
    EXPECT_EQ(value("radio.RADIO_BAND_7"), "7");
    EXPECT_EQ(value("radio.RADIO_MODE_NULL"), "-1");
    EXPECT_EQ(value("radio.RADIO_BAND_COUNT .. radio.RADIO_BAND_INVALID .. radio.RADIO_BAND_NULL"),
              "256256-1");
    EXPECT_EQ(value("radio.RADIO_TX_ANTENNA_1"), "0");
}

TEST_F(Opener, keepsTheUtilityFunctionsOutOfTheModule)
{
    radioModuleOpen(L);
    EXPECT_EQ(value("type(swig_type) .. type(swig_equals)"), "functionfunction");
    EXPECT_EQ(value("radio.swig_type"), "nil");
    EXPECT_EQ(value("radio.swig_equals"), "nil");
}

TEST_F(Opener, givesTheModuleEmptyAccessorTables)
{
    radioModuleOpen(L);
    EXPECT_EQ(value("keys(getmetatable(radio))"), ".get .set __index __newindex");
    EXPECT_EQ(value("next(getmetatable(radio)['.get'])"), "nil");
    EXPECT_EQ(value("next(getmetatable(radio)['.set'])"), "nil");
}

TEST_F(Opener, letsScriptsAddFieldsToTheModule)
{
    radioModuleOpen(L);
    EXPECT_EQ(value("radio.unknown"), "nil");
    run("radio.unknown = 5");
    EXPECT_EQ(value("radio.unknown"), "5");
}

TEST_F(Opener, registersTheModuleAndItsOnlyClass)
{
    radioModuleOpen(L);
    EXPECT_EQ(SWIG_Lua_GetModuleRecord(L), &radioModule);
    EXPECT_EQ(radioModule.next, &radioModule);
    EXPECT_EQ(value("keys(debug.getregistry().SWIG)"), "RadioHooks");
    run("hooks = debug.getregistry().SWIG.RadioHooks");
    EXPECT_EQ(value("hooks['.type']"), "RadioHooks");
    EXPECT_EQ(value("keys(hooks)"), ".fn .get .set .type __gc __index __newindex");
    EXPECT_EQ(value("keys(hooks['.get'])"), "free malloc");
    EXPECT_EQ(value("keys(hooks['.set'])"), "free malloc");
    EXPECT_EQ(value("next(hooks['.fn'])"), "nil");
}

TEST_F(Opener, makesHooksOfTheirTypeThatLuaOwns)
{
    radioModuleOpen(L);
    run("h = radio.RadioHooks()");
    EXPECT_EQ(value("swig_type(h)"), "struct RadioHooks *|RadioHooks *");
    EXPECT_EQ(value("swig_equals(h, h)"), "true");
    EXPECT_EQ(value("swig_equals(h, radio.RadioHooks())"), "false");
    lua_getglobal(L, "h");
    const auto *const object = static_cast<PointerObject *>(lua_touserdata(L, -1));
    EXPECT_EQ(object->type, radioTypes[hooksType]);
    EXPECT_EQ(object->own, 1);
}

TEST_F(Opener, replacesAGlobalOfTheModulesName)
{
    run("radio = 5");
    radioModuleOpen(L);
    EXPECT_EQ(value("count(radio)"), "163");
}

TEST_F(Opener, rebuildsTheModuleWhenCalledAgainInTheSameState)
{
    radioModuleOpen(L);
    run("first, h = radio, radio.RadioHooks() radio.unknown = 5");
    run("metatable = debug.getregistry().SWIG.RadioHooks");
    EXPECT_EQ(radioModuleOpen(L), 1);
    EXPECT_EQ(lua_gettop(L), 0);
    EXPECT_EQ(value("radio == first"), "false");
    EXPECT_EQ(value("count(radio)"), "163");
    EXPECT_EQ(value("debug.getregistry().SWIG.RadioHooks == metatable"), "false");
    EXPECT_EQ(radioModule.next, &radioModule);
    for (std::size_t i = 0; i < typeCount; ++i) {
        EXPECT_EQ(castNames(*radioTypes[i]), Names{radioTypes[i]->name});
    }
}

TEST_F(Opener, keepsOlderObjectsWorkingWhenCalledAgain)
{
    radioModuleOpen(L);
    run("h = radio.RadioHooks()");
    radioModuleOpen(L);
    EXPECT_EQ(value("swig_type(h)"), "struct RadioHooks *|RadioHooks *");
    EXPECT_EQ(value("h.malloc"), "nil");
    run("h = nil collectgarbage()");
}

TEST_F(Opener, opensTheModuleInASecondStateOfTheProcess)
{
    radioModuleOpen(L);
    TypeRecord *const hooksRecord = radioTypes[hooksType];
    lua_State *const other = luaL_newstate();
    luaL_openlibs(other);
    EXPECT_EQ(radioModuleOpen(other), 1);
    EXPECT_EQ(SWIG_Lua_GetModuleRecord(other), &radioModule);
    EXPECT_EQ(radioModule.next, &radioModule);
    EXPECT_EQ(radioTypes[hooksType], hooksRecord);
    EXPECT_EQ(castNames(*hooksRecord), Names{"_p_RadioHooks"});
    EXPECT_EQ(luaL_dostring(other, "local h = radio.RadioHooks() h.malloc = h.malloc "
                                   "assert(swig_type(h):find('RadioHooks', 1, true)) "
                                   "assert(radio.RADIO_BAND_7 == 7)"),
              0)
        << lua_tostring(other, -1);
    lua_close(other);
    EXPECT_EQ(value("swig_type(radio.RadioHooks())"), "struct RadioHooks *|RadioHooks *");
}

TEST_F(Opener, opensTheModuleAfterTheFirstStateWasClosed)
{
    radioModuleOpen(L);
    closeState();
    L = luaL_newstate();
    luaL_openlibs(L);
    radioModuleOpen(L);
    run(keysFunction);
    EXPECT_EQ(value("count(radio)"), "163");
    EXPECT_EQ(value("radio.RadioHooks().free"), "nil");
}

TEST_F(Opener, doesNotCallTheDriver)
{
    const std::string log = testing::TempDir() + "opener_test_calls.log";
    std::remove(log.c_str());
    setenv("RECORDING_DRIVER_LOG", log.c_str(), 1);
    radioModuleOpen(L);
    EXPECT_FALSE(std::ifstream(log)) << "the driver was called";
    run("pcall(radio.radioSelectPlatform, 0)");
    EXPECT_TRUE(std::ifstream(log)) << "this must not stand on another driver";
    std::remove(log.c_str());
}

} // namespace
