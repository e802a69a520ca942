// SPDX-License-Identifier: LicenseRef-Proprietary
// Registering classes and attaching their metatables.
#include "tests/binding/runtime/class_table_fixture.h"

namespace
{

TEST_F(ClassTable, isKeptInOneRegistryTable)
{
    SWIG_Lua_ClassRegistry(L);
    ASSERT_TRUE(lua_istable(L, -1));
    lua_getfield(L, LUA_REGISTRYINDEX, "SWIG");
    EXPECT_TRUE(lua_rawequal(L, -1, -2));
    SWIG_Lua_ClassRegistry(L);
    EXPECT_TRUE(lua_rawequal(L, -1, -2));
    EXPECT_EQ(lua_gettop(L), 3);
    name("SWIG");
    EXPECT_EQ(value("next(SWIG)"), "nil");
}

TEST_F(ClassTable, isFoundByTheClassName)
{
    SWIG_Lua_ClassMetatable(L, "Gadget");
    EXPECT_TRUE(lua_isnil(L, -1));
    registerClass(record);
    SWIG_Lua_ClassMetatable(L, "Gadget");
    EXPECT_TRUE(lua_istable(L, -1));
    EXPECT_EQ(lua_gettop(L), 2);
}

TEST_F(ClassTable, addsTheConstructorToTheModule)
{
    registerClass(record);
    lua_getglobal(L, "m");
    lua_getfield(L, -1, "Gadget");
    EXPECT_EQ(lua_tocfunction(L, -1), gadget::construct);
    run("n = 0 for _ in pairs(m) do n = n + 1 end");
    EXPECT_EQ(value("n"), "1");
}

TEST_F(ClassTable, addsNothingToTheModuleWithoutAConstructor)
{
    record.constructor = nullptr;
    registerClass(record);
    EXPECT_EQ(value("next(m)"), "nil");
}

TEST_F(ClassTable, hasTheFieldsOfAClass)
{
    registerClass(record);
    SWIG_Lua_ClassMetatable(L, "Gadget");
    lua_getfield(L, -1, "__index");
    EXPECT_EQ(lua_tocfunction(L, -1), SWIG_Lua_class_get);
    lua_getfield(L, 1, "__newindex");
    EXPECT_EQ(lua_tocfunction(L, -1), SWIG_Lua_class_set);
    lua_getfield(L, 1, "__gc");
    EXPECT_EQ(lua_tocfunction(L, -1), SWIG_Lua_class_destruct);
    lua_getfield(L, 1, "__tostring");
    EXPECT_EQ(lua_tocfunction(L, -1), gadget::toText);
    lua_settop(L, 1);
    name("mt");
    EXPECT_EQ(value("mt['.type']"), "Gadget");
    run("function keys(t) local k = {} for n in pairs(t) do k[#k + 1] = n end "
        "table.sort(k) return table.concat(k, ' ') end");
    EXPECT_EQ(value("keys(mt)"), ".fn .get .set .type __gc __index __newindex __tostring");
    EXPECT_EQ(value("keys(mt['.get'])"), "kind size");
    EXPECT_EQ(value("keys(mt['.set'])"), "size");
    EXPECT_EQ(value("keys(mt['.fn'])"), "__tostring grow");
}

TEST_F(ClassTable, takesOnlyWhatBeginsWithTwoUnderscoresForAMetamethod)
{
    MethodEntry methods[] = {{"_grow", gadget::grow}, {"g_row", gadget::grow},
                             {"__len", gadget::grow}, {"_", gadget::grow},
                             {"__", gadget::grow},    {nullptr, nullptr}};
    record.methods = methods;
    registerClass(record);
    SWIG_Lua_ClassMetatable(L, "Gadget");
    name("mt");
    EXPECT_EQ(value("mt._grow"), "nil");
    EXPECT_EQ(value("mt.g_row"), "nil");
    EXPECT_EQ(value("mt._"), "nil");
    EXPECT_EQ(value("type(mt.__) .. ' ' .. type(mt.__len)"), "function function");
    for (const char *const method : {"_grow", "g_row", "__len", "_", "__"}) {
        EXPECT_EQ(value(std::string("type(mt['.fn'].") + method + ")"), "function") << method;
    }
}

TEST_F(ClassTable, registeredAgainReplacesTheFirst)
{
    registerClass(record);
    SWIG_Lua_ClassMetatable(L, "Gadget");
    registerClass(record);
    SWIG_Lua_ClassMetatable(L, "Gadget");
    EXPECT_FALSE(lua_rawequal(L, -1, -2));
}

TEST_F(ClassTable, isAttachedToTheObjectsOfItsType)
{
    makeGadget();
    EXPECT_EQ(value("getmetatable(g)['.type']"), "Gadget");
}

TEST_F(ClassTable, isAttachedToPackedObjectsOfItsType)
{
    registerClass(record);
    SWIG_Lua_NewPackedObj(L, "some bytes, and a few more", 24, &gadget::type);
    SWIG_Lua_ClassMetatable(L, "Gadget");
    ASSERT_NE(lua_getmetatable(L, 1), 0);
    EXPECT_TRUE(lua_rawequal(L, -1, -2));
}

TEST_F(ClassTable, isNotAttachedWithoutAClassRecordOrItsMetatable)
{
    Gadget native;
    lua_newuserdata(L, sizeof(PointerObject));
    SWIG_Lua_AttachClassMetatable(L, nullptr);
    EXPECT_EQ(lua_gettop(L), 1);
    SWIG_Lua_AttachClassMetatable(L, &record);
    EXPECT_EQ(lua_gettop(L), 1);
    EXPECT_EQ(lua_getmetatable(L, 1), 0);
    pushGadget(native, 0, "g");
    EXPECT_EQ(value("getmetatable(g)"), "nil");
}

TEST_F(ClassTable, isNotPutInPlaceOfAnotherMetatableBeforeItIsRegistered)
{
    lua_newuserdata(L, sizeof(PointerObject));
    lua_newtable(L);
    lua_setmetatable(L, -2);
    SWIG_Lua_AttachClassMetatable(L, &record);
    EXPECT_EQ(lua_gettop(L), 1);
    EXPECT_NE(lua_getmetatable(L, 1), 0);
}

TEST_F(ClassTable, isToldFromOtherTablesAtAnyIndex)
{
    registerClass(record);
    SWIG_Lua_ClassMetatable(L, "Gadget");
    lua_newtable(L); // a table that only says so
    lua_pushstring(L, "Gadget");
    lua_setfield(L, -2, ".type");
    lua_newtable(L);
    lua_pushnil(L);
    EXPECT_TRUE(SWIG_Lua_IsClassMetatable(L, 1));
    EXPECT_FALSE(SWIG_Lua_IsClassMetatable(L, 2));
    EXPECT_FALSE(SWIG_Lua_IsClassMetatable(L, 3));
    EXPECT_TRUE(SWIG_Lua_IsClassMetatable(L, -4));
    EXPECT_FALSE(SWIG_Lua_IsClassMetatable(L, -2));
    EXPECT_EQ(lua_gettop(L), 4);
}

} // namespace
