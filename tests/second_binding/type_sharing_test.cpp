// SPDX-License-Identifier: LicenseRef-Proprietary
// Objects of one binding handed to the other, in both orders of loading.
#include "tests/binding/support/assertion_report.h"
#include "tests/second_binding/two_bindings.h"

namespace
{

class TypeSharing : public TwoBindings
{
protected:
    void openSecondFirst(const char *options)
    {
        openSecond(options);
        openRadio();
    }

    void openSecondLast(const char *options)
    {
        openRadio();
        openSecond(options);
    }

    void expectObjectsOfEverySharedTypeConvert()
    {
        EXPECT_EQ(ourValue("second.int(-42)"), -42);
        EXPECT_TRUE(weAccept(fileType, "second.file('stdout')"));
        EXPECT_TRUE(weAccept(textListType, "second.text()"));
        EXPECT_TRUE(weAccept(mallocFunctionType, "second.mallocFunction()"));
        EXPECT_TRUE(weAccept(freeFunctionType, "second.freeFunction()"));
        EXPECT_EQ(value("second.accepts('_p_RadioHooks', radio.RadioHooks())"), "true");

        // And back: a pointer object that our binding has made.
        int number = 7;
        SWIG_Lua_PushPointer(L, &number, radioTypes[intType], 0);
        name("ours");
        EXPECT_EQ(value("second.value(ours)"), "7");
    }

    void expectObjectsOfOtherTypesDoNot()
    {
        EXPECT_FALSE(weAccept(intType, "second.file('stdout')"));
        EXPECT_FALSE(weAccept(fileType, "second.int(5)"));
        EXPECT_FALSE(weAccept(hooksType, "second.Gadget()"));
        EXPECT_FALSE(weAccept(mallocFunctionType, "second.freeFunction()"));
        EXPECT_EQ(value("second.accepts('_p_Gadget', radio.RadioHooks())"), "false");
        EXPECT_EQ(value("second.accepts('_p_RadioHooks', second.Gadget())"), "false");
        EXPECT_EQ(value("second.value(second.text())"), "nil");
    }

    void expectFunctionPointersCanBeAssigned()
    {
        run("h = radio.RadioHooks() h.malloc = second.mallocFunction() "
            "h.free = second.freeFunction() h2 = radio.RadioHooks() h2.malloc = h.malloc");
        EXPECT_EQ(value("swig_equals(h2.malloc, second.mallocFunction())"), "true");
        EXPECT_EQ(value("swig_equals(h.free, second.freeFunction())"), "true");
        EXPECT_EQ(raised("h.malloc = second.freeFunction()"),
                  "Error in RadioHooks_malloc_set (arg 2), expected 'void *(*)(size_t)' got "
                  "'void (*)(void *)'");
    }

    void expectConverterIsUsed()
    {
        EXPECT_EQ(ourValue("second.pair(11, 22)"), 22);
        EXPECT_EQ(ourValue("second.int(33)"), 33);
        EXPECT_EQ(ourValue("second.pair(44, 55)"), 55);
        EXPECT_EQ(value("second.value(second.pair(1, 2))"), "2");
        EXPECT_INVARIANT(weAccept(intType, "second.copy(5)"), 1319, "SWIG_Lua_ConvertPtr",
                         "!newmemory");
    }
};

TEST_F(TypeSharing, convertsBothWaysWhenTheOtherIsFirst)
{
    openSecondFirst(everySharedType);
    expectObjectsOfEverySharedTypeConvert();
    expectObjectsOfOtherTypesDoNot();
}

TEST_F(TypeSharing, convertsBothWaysWhenTheOtherIsSecond)
{
    openSecondLast(everySharedType);
    expectObjectsOfEverySharedTypeConvert();
    expectObjectsOfOtherTypesDoNot();
}

TEST_F(TypeSharing, convertsBothWaysWhenTheOtherHasNoRecordsOfOurTypes)
{
    openSecondLast("");
    expectObjectsOfEverySharedTypeConvert();
    expectObjectsOfOtherTypesDoNot();
}

TEST_F(TypeSharing, letsFunctionPointersBeAssignedWhenTheOtherIsFirst)
{
    openSecondFirst(everySharedType);
    expectFunctionPointersCanBeAssigned();
}

TEST_F(TypeSharing, letsFunctionPointersBeAssignedWhenTheOtherIsSecond)
{
    openSecondLast(everySharedType);
    expectFunctionPointersCanBeAssigned();
}

TEST_F(TypeSharing, keepsTheCastsOfARecordThatWeUse)
{
    openSecondFirst("_p_int:casts");
    EXPECT_EQ(castNames(*radioTypes[intType]), (Names{"_p_int", "_p_IntCopy", "_p_IntPair"}))
        << "ours is found and moved to the front";
    expectConverterIsUsed();
}

TEST_F(TypeSharing, takesTheCastsThatTheOtherLinksToOurRecord)
{
    openSecondLast("_p_int:casts");
    EXPECT_EQ(castNames(*radioTypes[intType]), (Names{"_p_IntCopy", "_p_IntPair", "_p_int"}));
    expectConverterIsUsed();
}

TEST_F(TypeSharing, movesTheMatchedCastToTheFrontOfTheSharedList)
{
    openSecondLast("_p_int:casts");
    EXPECT_EQ(ourValue("second.pair(1, 2)"), 2);
    EXPECT_EQ(castNames(*radioTypes[intType]), (Names{"_p_IntPair", "_p_IntCopy", "_p_int"}));
    EXPECT_EQ(ourValue("second.int(3)"), 3);
    EXPECT_EQ(castNames(*radioTypes[intType]), (Names{"_p_int", "_p_IntPair", "_p_IntCopy"}));
    EXPECT_EQ(value("second.value(second.int(4))"), "4");
}

TEST_F(TypeSharing, doesNotConvertAgainstTheDirectionOfACast)
{
    openSecondLast("_p_int:casts");
    EXPECT_EQ(value("second.accepts('_p_IntPair', second.int(1))"), "false");
}

TEST_F(TypeSharing, comparesPointersAcrossTypesAndBindings)
{
    openSecondLast("_p_int");
    run("i = second.int(5) h = radio.RadioHooks()");
    EXPECT_EQ(value("swig_equals(i, second.as(i, '_p_IntPair'))"), "true");
    EXPECT_EQ(value("swig_equals(i, second.as(i, '_p_RadioHooks'))"), "true");
    EXPECT_EQ(value("swig_equals(h, second.as(h, '_p_Gadget'))"), "true");
    EXPECT_EQ(value("swig_equals(i, second.int(5))"), "false");
    EXPECT_EQ(value("swig_equals(i, h)"), "false");
}

TEST_F(TypeSharing, namesTheTypesOfTheOther)
{
    openSecondLast("");
    EXPECT_EQ(value("swig_type(second.Gadget())"), "struct Gadget *|Gadget *");
    EXPECT_EQ(value("swig_type(second.pair(1, 2))"), "IntPair *");
    EXPECT_EQ(value("swig_type(second.packet('bytes'))"), "Packet");
    EXPECT_EQ(value("swig_type(second.file('stdout'))"), "FILE *");
}

TEST_F(TypeSharing, takesPackedObjectsOfAnySizeForWhatTheyAre)
{
    openSecondLast("");
    for (const char *const bytes : {"", "1", "four", "four and eight", "many more than that"}) {
        run(std::string("p = second.packet('") + bytes + "')");
        EXPECT_EQ(value("swig_type(p)"), "Packet") << bytes;
        EXPECT_EQ(value("swig_equals(p, p)"), "true") << bytes;
        EXPECT_FALSE(weAccept(intType, "p")) << bytes;
    }
}

} // namespace
