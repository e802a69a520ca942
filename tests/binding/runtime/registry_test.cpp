// SPDX-License-Identifier: LicenseRef-Proprietary
// The list of modules in a Lua state, and how a module joins it.
#include "binding/runtime/registry.h"
#include "tests/binding/support/lua_test.h"
#include "tests/binding/support/type_table.h"

namespace
{

constexpr char registryKey[] = "swig_runtime_data_type_pointer4";

// A binding as it is before its first initialisation.
struct Binding {
    explicit Binding(std::vector<TypeRecord *> ofTypes) : types(std::move(ofTypes))
    {
        for (TypeRecord *const type : types) {
            casts.push_back({makeCast(type), makeCast(nullptr)});
        }
        for (std::vector<CastRecord> &list : casts) {
            castLists.push_back(list.data());
        }
        slots.assign(types.size() + 1, &unset);
        module.types = slots.data();
        module.size = types.size();
    }

    // Casts of the type at that position, in the order in which they are linked.
    void setCasts(std::size_t position, std::vector<CastRecord> list)
    {
        list.push_back(makeCast(nullptr));
        casts[position] = std::move(list);
        castLists[position] = casts[position].data();
    }

    void join(lua_State *L)
    {
        SWIG_InitTypes(L, &module, types.data(), castLists.data());
    }

    TypeRecord unset = makeType("(unset)");
    std::vector<TypeRecord *> types;
    std::deque<std::vector<CastRecord>> casts;
    std::vector<CastRecord *> castLists;
    std::vector<TypeRecord *> slots;
    ModuleRecord module{};
};

class Registry : public LuaTest
{
protected:
    TypeRecord mine = makeType("_p_int", "mine");
    TypeRecord theirs = makeType("_p_int", "theirs");
    TypeRecord onlyMine = makeType("_p_a");
    TypeRecord onlyTheirs = makeType("_p_z");
};

TEST_F(Registry, hasNoHeadInAFreshState)
{
    EXPECT_EQ(SWIG_Lua_GetModuleRecord(L), nullptr);
    EXPECT_EQ(lua_gettop(L), 0);
}

TEST_F(Registry, keepsTheHeadAsALightUserdataUnderTheSharedKey)
{
    ModuleRecord module{};
    SWIG_Lua_SetModuleRecord(L, &module);
    EXPECT_EQ(lua_gettop(L), 0);
    lua_getfield(L, LUA_REGISTRYINDEX, registryKey);
    EXPECT_TRUE(lua_islightuserdata(L, -1));
    EXPECT_EQ(lua_touserdata(L, -1), &module);
    lua_pop(L, 1);
    EXPECT_EQ(SWIG_Lua_GetModuleRecord(L), &module);
    EXPECT_EQ(lua_gettop(L), 0);
}

TEST_F(Registry, takesNothingButALightUserdataForTheHead)
{
    lua_newuserdata(L, sizeof(ModuleRecord));
    lua_setfield(L, LUA_REGISTRYINDEX, registryKey);
    EXPECT_EQ(SWIG_Lua_GetModuleRecord(L), nullptr);
    lua_pushstring(L, "text");
    lua_setfield(L, LUA_REGISTRYINDEX, registryKey);
    EXPECT_EQ(SWIG_Lua_GetModuleRecord(L), nullptr);
    EXPECT_EQ(lua_gettop(L), 0);
}

TEST_F(Registry, isReadAndWrittenWithoutMetamethods)
{
    run("local function fail() error('a metamethod ran') end "
        "setmetatable(debug.getregistry(), {__index = fail, __newindex = fail})");
    EXPECT_EQ(SWIG_Lua_GetModuleRecord(L), nullptr);
    ModuleRecord module{};
    SWIG_Lua_SetModuleRecord(L, &module);
    EXPECT_EQ(SWIG_Lua_GetModuleRecord(L), &module);
}

TEST_F(Registry, makesTheFirstModuleAListByItself)
{
    Binding my({&onlyMine, &mine});
    my.join(L);
    EXPECT_EQ(SWIG_Lua_GetModuleRecord(L), &my.module);
    EXPECT_EQ(my.module.next, &my.module);
    EXPECT_EQ(my.module.typeInitial, my.types.data());
    EXPECT_EQ(my.module.castInitial, my.castLists.data());
    EXPECT_EQ(my.module.types[0], &onlyMine);
    EXPECT_EQ(my.module.types[1], &mine);
    EXPECT_EQ(my.module.types[2], nullptr);
    EXPECT_EQ(castNames(onlyMine), Names{"_p_a"});
    EXPECT_EQ(mine.cast, &my.casts[1][0]);
    EXPECT_EQ(lua_gettop(L), 0);
}

TEST_F(Registry, insertsLaterModulesRightAfterTheHead)
{
    Binding first({&mine});
    Binding second({&onlyMine});
    Binding third({&onlyTheirs});
    first.join(L);
    second.join(L);
    third.join(L);
    EXPECT_EQ(SWIG_Lua_GetModuleRecord(L), &first.module);
    EXPECT_EQ(first.module.next, &third.module);
    EXPECT_EQ(third.module.next, &second.module);
    EXPECT_EQ(second.module.next, &first.module);
}

TEST_F(Registry, doesNotInsertAModuleTwice)
{
    Binding first({&mine});
    Binding second({&onlyMine});
    first.join(L);
    second.join(L);
    first.join(L);
    second.join(L);
    EXPECT_EQ(first.module.next, &second.module);
    EXPECT_EQ(second.module.next, &first.module);
    EXPECT_EQ(castNames(mine), Names{"_p_int"});
    EXPECT_EQ(castNames(onlyMine), Names{"_p_a"});
}

TEST_F(Registry, keepsTheTypesWhenAModuleMeetsASecondState)
{
    Binding my({&mine});
    my.join(L);
    lua_State *const other = luaL_newstate();
    my.join(other);
    EXPECT_EQ(SWIG_Lua_GetModuleRecord(other), &my.module);
    EXPECT_EQ(my.module.next, &my.module);
    EXPECT_EQ(my.module.types[0], &mine);
    EXPECT_EQ(castNames(mine), Names{"_p_int"});
    lua_close(other);
}

TEST_F(Registry, letsAModuleUseTheRecordThatAnotherHasOfAName)
{
    Binding their({&theirs, &onlyTheirs});
    Binding my({&onlyMine, &mine});
    their.join(L);
    my.join(L);
    EXPECT_EQ(my.module.types[0], &onlyMine);
    EXPECT_EQ(my.module.types[1], &theirs);
    EXPECT_EQ(my.module.types[2], nullptr);
    EXPECT_EQ(their.module.types[0], &theirs);
    EXPECT_EQ(castNames(theirs), Names{"_p_int"}) << "both have a cast of that name: one is linked";
    EXPECT_EQ(theirs.cast, &their.casts[0][0]);
    EXPECT_EQ(mine.cast, nullptr) << "the record that is not used stays unlinked";
}

TEST_F(Registry, findsRecordsInEveryOtherModule)
{
    Binding first({&onlyTheirs});
    Binding second({&theirs});
    Binding my({&mine});
    first.join(L);
    second.join(L);
    my.join(L);
    EXPECT_EQ(my.module.types[0], &theirs);
}

TEST_F(Registry, givesTheClientDataOfAModuleToTheRecordThatItUses)
{
    int myClass = 0;
    int theirClass = 0;
    mine.clientData = &myClass;
    theirs.clientData = &theirClass;
    Binding their({&theirs});
    Binding my({&mine});
    their.join(L);
    my.join(L);
    EXPECT_EQ(theirs.clientData, &myClass);
}

TEST_F(Registry, keepsTheClientDataOfTheRecordWhenTheModuleHasNone)
{
    int theirClass = 0;
    theirs.clientData = &theirClass;
    Binding their({&theirs});
    Binding my({&mine});
    their.join(L);
    my.join(L);
    EXPECT_EQ(theirs.clientData, &theirClass);
}

TEST_F(Registry, pointsTheCastsOfAnOwnTypeAtTheRecordsOfOthers)
{
    Binding their({&theirs});
    Binding my({&onlyMine, &mine});
    my.setCasts(0, {makeCast(&onlyMine), makeCast(&mine)});
    their.join(L);
    my.join(L);
    EXPECT_EQ(castNames(onlyMine), (Names{"_p_int", "_p_a"})) << "each is linked at the front";
    EXPECT_EQ(onlyMine.cast->type, &theirs);
    EXPECT_EQ(SWIG_FindCast(&onlyMine, &mine), nullptr);
}

TEST_F(Registry, linksCastsThatTheOthersRecordLacks)
{
    Binding their({&theirs});
    Binding my({&onlyMine, &mine});
    my.setCasts(1, {makeCast(&mine), makeCast(&onlyMine)});
    their.join(L);
    my.join(L);
    EXPECT_EQ(castNames(theirs), (Names{"_p_a", "_p_int"}));
    EXPECT_EQ(theirs.cast->type, &onlyMine);
}

TEST_F(Registry, linksACastThatIsFoundButNotInTheListOfTheOthersRecord)
{
    TypeRecord myZ = makeType("_p_z");
    Binding their({&theirs, &onlyTheirs});
    Binding my({&mine, &myZ});
    my.setCasts(0, {makeCast(&mine), makeCast(&myZ)});
    their.join(L);
    my.join(L);
    EXPECT_EQ(castNames(theirs), (Names{"_p_z", "_p_int"}));
}

TEST_F(Registry, movesACastThatTheOthersRecordHasToTheFront)
{
    Binding their({&theirs, &onlyTheirs});
    their.setCasts(0, {makeCast(&theirs), makeCast(&onlyTheirs)});
    their.join(L);
    ASSERT_EQ(castNames(theirs), (Names{"_p_z", "_p_int"}));
    Binding my({&mine});
    my.join(L);
    EXPECT_EQ(castNames(theirs), (Names{"_p_int", "_p_z"}));
    EXPECT_EQ(theirs.cast, &their.casts[0][0]);
}

// The sharing is done once per process; ctest gives each test a process.
TEST_F(Registry, sharesClientDataOncePerProcess)
{
    int data = 0;
    TypeRecord derived = makeType("_p_b");
    onlyMine.clientData = &data;
    Binding my({&onlyMine, &derived});
    my.setCasts(0, {makeCast(&onlyMine), makeCast(&derived)});
    my.join(L);
    EXPECT_EQ(derived.clientData, nullptr);
    SWIG_ShareClientData(&my.module);
    EXPECT_EQ(derived.clientData, &data);
    derived.clientData = nullptr;
    SWIG_ShareClientData(&my.module);
    EXPECT_EQ(derived.clientData, nullptr);
}

} // namespace
