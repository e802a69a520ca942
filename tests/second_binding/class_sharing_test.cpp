// SPDX-License-Identifier: LicenseRef-Proprietary
// Client data: whose class a shared type has, whose metatable its objects get, who frees them.
#include "binding/radio/hooks.h"
#include "tests/second_binding/two_bindings.h"

namespace
{

class ClassSharing : public TwoBindings
{
protected:
    void collect()
    {
        run("_OBJECT, h, new = nil collectgarbage() collectgarbage()");
    }

    // How many hooks the other binding's destructor has freed.
    std::string freedByTheOther()
    {
        return value("select(2, second.destroyed())");
    }

    std::string fieldsOfRadio()
    {
        run("_COUNT = 0 for _ in pairs(radio) do _COUNT = _COUNT + 1 end");
        return value("_COUNT");
    }
};

TEST_F(ClassSharing, givesOurClassToTheRecordOfAnOtherThatIsFirst)
{
    openSecond("_p_RadioHooks");
    EXPECT_EQ(secondRecord("_p_RadioHooks")->clientData, nullptr);
    openRadio();
    EXPECT_EQ(secondRecord("_p_RadioHooks")->clientData, &hooksClass);
    run("h = radio.RadioHooks()");
    EXPECT_EQ(typeOf("h"), secondRecord("_p_RadioHooks"));
    EXPECT_EQ(value("h.malloc"), "nil");
    EXPECT_EQ(value("second.accepts('_p_RadioHooks', h)"), "true");
    collect();
}

TEST_F(ClassSharing, replacesTheClassOfAnOtherThatIsFirst)
{
    openSecond("_p_RadioHooks:class");
    run("h = second.RadioHooks()");
    EXPECT_EQ(value("h.origin"), "second binding");
    openRadio();
    EXPECT_EQ(radioTypes[hooksType], secondRecord("_p_RadioHooks"));
    EXPECT_EQ(radioTypes[hooksType]->clientData, &hooksClass);

    run("new = second.RadioHooks()");
    EXPECT_EQ(value("new.origin"), "nil");
    EXPECT_EQ(value("new.malloc"), "nil");
    EXPECT_EQ(value("radio.RadioHooks().origin"), "nil");
    EXPECT_EQ(value("h.origin"), "second binding") << "older objects keep their metatable";
    collect();
    EXPECT_EQ(freedByTheOther(), "0") << "the class of the type at collection frees";
}

TEST_F(ClassSharing, isReplacedByTheClassOfAnOtherThatIsSecond)
{
    openRadio();
    run("h = radio.RadioHooks()");
    openSecond("_p_RadioHooks:class");
    EXPECT_NE(radioTypes[hooksType]->clientData, &hooksClass);

    run("new = radio.RadioHooks()");
    EXPECT_EQ(typeOf("new"), radioModule.typeInitial[hooksType]);
    EXPECT_EQ(value("new.origin"), "second binding");
    EXPECT_EQ(value("new.malloc"), "nil");
    EXPECT_EQ(value("swig_type(new)"), "struct RadioHooks *|RadioHooks *");
    EXPECT_EQ(value("h.origin"), "nil");
    run("h.malloc = second.mallocFunction()");
    EXPECT_EQ(value("swig_equals(h.malloc, second.mallocFunction())"), "true");

    collect();
    EXPECT_EQ(freedByTheOther(), "2") << "the older one too";
}

TEST_F(ClassSharing, isRegisteredOnceMoreByAnOtherThatIsSecondWithoutAClass)
{
    openRadio();
    openSecond("_p_RadioHooks");
    EXPECT_EQ(radioTypes[hooksType]->clientData, &hooksClass);
    run("h = second.RadioHooks()");
    EXPECT_EQ(typeOf("h"), radioTypes[hooksType]);
    EXPECT_EQ(value("h.malloc"), "nil");
    run("h.malloc = second.mallocFunction()");
    EXPECT_EQ(value("swig_equals(h.malloc, second.mallocFunction())"), "true");
    collect();
}

TEST_F(ClassSharing, givesOurModuleTheClassesOfTheRecordsThatWeUse)
{
    openSecond("_p_int:class");
    openRadio();
    EXPECT_EQ(fieldsOfRadio(), "164");
    EXPECT_EQ(value("type(radio.Int)"), "function");
    EXPECT_EQ(value("radio.Int(5).value"), "5");
    EXPECT_EQ(value("second.int(6).value"), "6");
    EXPECT_EQ(typeOf("radio.Int(5)"), radioTypes[intType]);
}

TEST_F(ClassSharing, keepsOurModuleAsItIsWhenTheOtherIsSecond)
{
    openRadio();
    openSecond("_p_int:class");
    EXPECT_EQ(fieldsOfRadio(), "163");
    EXPECT_EQ(value("radio.Int"), "nil");
    EXPECT_EQ(value("second.int(6).value"), "6");
}

TEST_F(ClassSharing, takesUpTheClassOfASecondOtherWhenWeAreOpenedAgain)
{
    openRadio();
    openSecond("_p_int:class");
    openRadio();
    EXPECT_EQ(fieldsOfRadio(), "164");
    EXPECT_EQ(value("radio.Int(5).value"), "5");
}

TEST_F(ClassSharing, handsOurClassToTypesThatTheOtherCastsToOurs)
{
    openSecond("_p_RadioHooks:casts");
    openRadio();
    EXPECT_EQ(secondRecord("_p_HooksView")->clientData, &hooksClass);
    run("h = radio.RadioHooks() h.malloc = second.mallocFunction() "
        "view = second.as(h, '_p_HooksView')");
    EXPECT_TRUE(weAccept(hooksType, "view"));
    EXPECT_EQ(value("swig_equals(view.malloc, h.malloc)"), "true");
    EXPECT_EQ(value("swig_type(view)"), "HooksView *");
}

TEST_F(ClassSharing, letsTheOthersViewsReadOurHooksWhenItIsSecond)
{
    openRadio();
    openSecond("_p_RadioHooks:casts");
    run("h = radio.RadioHooks() h.malloc = second.mallocFunction() "
        "view = second.as(h, '_p_HooksView')");
    EXPECT_TRUE(weAccept(hooksType, "view"));
    EXPECT_EQ(value("swig_equals(view.malloc, h.malloc)"), "true");
}

TEST_F(ClassSharing, keepsBothClassesInOneTable)
{
    openRadio();
    openSecond("_p_int:class");
    run("names = {} for name in pairs(debug.getregistry().SWIG) do names[#names + 1] = name end "
        "table.sort(names)");
    EXPECT_EQ(value("table.concat(names, ' ')"), "Gadget Int RadioHooks");
}

TEST_F(ClassSharing, freesEachObjectOfEitherBindingOnce)
{
    openRadio();
    openSecond(everySharedType);
    run("for _ = 1, 50 do radio.RadioHooks() second.RadioHooks() second.Gadget() end");
    run("collectgarbage() collectgarbage()");
    EXPECT_EQ(value("second.destroyed()"), "50");
    EXPECT_EQ(freedByTheOther(), "0");
}

TEST_F(ClassSharing, freesAllObjectsWhenTheStateIsClosed)
{
    openRadio();
    run("before = radio.RadioHooks()");
    openSecond("_p_RadioHooks:class _p_int:class");
    run("after = radio.RadioHooks() g = second.Gadget() i = second.int(5)");
    closeState();

    L = luaL_newstate(); // the numbers are those of the process
    luaL_openlibs(L);
    openSecond();
    EXPECT_EQ(value("second.destroyed()"), "1");
    EXPECT_EQ(freedByTheOther(), "2");
}

} // namespace
