// SPDX-License-Identifier: LicenseRef-Proprietary
// Which binding comes first, and how often each is opened: the list of modules, and whose records
// are used.
#include "tests/second_binding/two_bindings.h"

namespace
{

using Modules = std::vector<const ModuleRecord *>;

class LoadingOrder : public TwoBindings
{
protected:
    // What must hold whatever came first: both bindings work, and share what they both know.
    void expectBothWork()
    {
        EXPECT_EQ(modules().size(), 2U);
        run("assert(radio.RADIO_BAND_7 == 7)");
        run("local h = radio.RadioHooks() h.malloc = nil assert(h.free == nil)");
        run("local g = second.Gadget(3) g:grow(2) g.size = g.size + 1 assert(g.size == 6)");
        EXPECT_EQ(value("swig_type(radio.RadioHooks())"), "struct RadioHooks *|RadioHooks *");
        EXPECT_EQ(value("swig_type(second.Gadget())"), "struct Gadget *|Gadget *");
        EXPECT_EQ(ourValue("second.int(-42)"), -42);
        EXPECT_EQ(value("second.value(second.int(7))"), "7");
        EXPECT_EQ(typeOf("second.int(0)"), radioTypes[intType]);
        run("for _ = 1, 10 do second.Gadget() radio.RadioHooks() end collectgarbage()");
        EXPECT_GE(std::stoi(value("second.destroyed()")), 10);
    }

    // Every record that we use is in the list of our module, sorted, and accepts its own objects.
    void expectOurTypesInOrder()
    {
        for (std::size_t i = 0; i < typeCount; ++i) {
            if (i > 0) {
                EXPECT_LT(std::strcmp(radioTypes[i - 1]->name, radioTypes[i]->name), 0) << i;
            }
            EXPECT_NE(SWIG_FindCast(radioTypes[i], radioTypes[i]), nullptr) << radioTypes[i]->name;
            EXPECT_STREQ(radioTypes[i]->name, radioModule.typeInitial[i]->name);
        }
        EXPECT_EQ(radioTypes[typeCount], nullptr);
    }
};

TEST_F(LoadingOrder, otherFirstLeavesItTheHeadOfTheList)
{
    openSecond("_p_int");
    const ModuleRecord *const second = SWIG_Lua_GetModuleRecord(L);
    EXPECT_EQ(second->next, second);
    openRadio();
    EXPECT_EQ(modules(), (Modules{second, &radioModule}));
    expectOurTypesInOrder();
    expectBothWork();
}

TEST_F(LoadingOrder, otherFirstMakesUsUseItsRecords)
{
    openSecond(everySharedType);
    openRadio();
    for (const TypePosition type :
         {fileType, hooksType, freeFunctionType, mallocFunctionType, intType, textListType}) {
        const char *const name = radioTypes[type]->name;
        EXPECT_EQ(radioTypes[type], secondRecord(name)) << name;
        EXPECT_NE(radioTypes[type], radioModule.typeInitial[type]) << name;
        EXPECT_EQ(castNames(*radioTypes[type]), Names{name});
        EXPECT_EQ(radioModule.typeInitial[type]->cast, nullptr) << name;
    }
    EXPECT_EQ(radioTypes[bandType], radioModule.typeInitial[bandType]);
    expectOurTypesInOrder();
    expectBothWork();
}

TEST_F(LoadingOrder, otherFirstWithoutOurTypesLeavesUsOurRecords)
{
    openSecond();
    openRadio();
    for (std::size_t i = 0; i < typeCount; ++i) {
        EXPECT_EQ(radioTypes[i], radioModule.typeInitial[i]);
        EXPECT_EQ(castNames(*radioTypes[i]), Names{radioTypes[i]->name});
    }
    expectBothWork();
}

TEST_F(LoadingOrder, otherSecondLeavesUsTheHeadOfTheList)
{
    openRadio();
    openSecond("_p_int");
    EXPECT_EQ(modules(), (Modules{&radioModule, secondModule()}));
    expectOurTypesInOrder();
    expectBothWork();
}

TEST_F(LoadingOrder, otherSecondMakesItUseOurRecords)
{
    openRadio();
    openSecond(everySharedType);
    for (std::size_t i = 0; i < typeCount; ++i) {
        EXPECT_EQ(radioTypes[i], radioModule.typeInitial[i]);
        EXPECT_EQ(castNames(*radioTypes[i]), Names{radioTypes[i]->name});
    }
    EXPECT_EQ(typeOf("second.file('stdout')"), radioTypes[fileType]);
    EXPECT_NE(secondRecord("_p_FILE"), radioTypes[fileType]);
    expectBothWork();
}

TEST_F(LoadingOrder, otherTwiceBeforeUsIsInTheListOnce)
{
    openSecond("_p_int");
    openSecond("_p_int");
    openRadio();
    EXPECT_EQ(modules(), (Modules{secondModule(), &radioModule}));
    EXPECT_EQ(castNames(*radioTypes[intType]), Names{"_p_int"});
    expectBothWork();
}

TEST_F(LoadingOrder, otherTwiceAfterUsIsInTheListOnce)
{
    openRadio();
    openSecond("_p_int");
    openSecond("_p_int");
    EXPECT_EQ(modules(), (Modules{&radioModule, secondModule()}));
    EXPECT_EQ(castNames(*radioTypes[intType]), Names{"_p_int"});
    expectBothWork();
}

TEST_F(LoadingOrder, otherBeforeAndAfterUsIsInTheListOnce)
{
    openSecond("_p_int");
    openRadio();
    openSecond("_p_int");
    EXPECT_EQ(modules(), (Modules{secondModule(), &radioModule}));
    EXPECT_EQ(castNames(*radioTypes[intType]), Names{"_p_int"});
    expectBothWork();
}

TEST_F(LoadingOrder, usBeforeAndAfterTheOtherKeepsRecordsAndList)
{
    openRadio();
    openSecond(everySharedType);
    const std::vector<TypeRecord *> before(radioTypes, radioTypes + typeCount);
    openRadio();
    EXPECT_EQ(std::vector<TypeRecord *>(radioTypes, radioTypes + typeCount), before);
    EXPECT_EQ(modules(), (Modules{&radioModule, secondModule()}));
    for (std::size_t i = 0; i < typeCount; ++i) {
        EXPECT_EQ(castNames(*radioTypes[i]), Names{radioTypes[i]->name});
    }
    expectBothWork();
}

TEST_F(LoadingOrder, usTwiceAfterTheOtherKeepsRecordsAndList)
{
    openSecond(everySharedType);
    openRadio();
    const std::vector<TypeRecord *> before(radioTypes, radioTypes + typeCount);
    openRadio();
    EXPECT_EQ(std::vector<TypeRecord *>(radioTypes, radioTypes + typeCount), before);
    EXPECT_EQ(modules(), (Modules{secondModule(), &radioModule}));
    expectBothWork();
}

TEST_F(LoadingOrder, ofAFirstStateSettlesTheRecordsForLaterOnes)
{
    openRadio();
    closeState();
    L = luaL_newstate();
    luaL_openlibs(L);
    openSecond("_p_int");
    openRadio();
    EXPECT_EQ(modules(), (Modules{secondModule(), &radioModule}));
    EXPECT_EQ(radioTypes[intType], radioModule.typeInitial[intType]);
    EXPECT_EQ(typeOf("second.int(1)"), secondRecord("_p_int"));
    EXPECT_FALSE(weAccept(intType, "second.int(1)")) << "the records were settled before";
    run("local h = radio.RadioHooks() h.malloc = nil");
}

TEST_F(LoadingOrder, ofAFirstStateHoldsInASecondOne)
{
    openSecond("_p_int");
    openRadio();
    TypeRecord *const shared = radioTypes[intType];
    closeState();
    L = luaL_newstate();
    luaL_openlibs(L);
    openRadio();
    EXPECT_EQ(SWIG_Lua_GetModuleRecord(L), &radioModule);
    EXPECT_EQ(radioTypes[intType], shared);
    openSecond("_p_int");
    expectBothWork();
}

} // namespace
