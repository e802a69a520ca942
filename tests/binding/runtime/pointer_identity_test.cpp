// SPDX-License-Identifier: LicenseRef-Proprietary
// What type a value is said to have, and when two objects are equal.
#include "tests/binding/runtime/pointer_objects_fixture.h"

namespace
{

class TypeNames : public PointerObjects
{
protected:
    TypeNames()
    {
        name("swig_type", SWIG_Lua_type);
    }
};

TEST_F(TypeNames, areLuasOwnForPlainValues)
{
    EXPECT_EQ(value("swig_type(nil)"), "nil");
    EXPECT_EQ(value("swig_type(1)"), "number");
    EXPECT_EQ(value("swig_type('1')"), "string");
    EXPECT_EQ(value("swig_type(true)"), "boolean");
    EXPECT_EQ(value("swig_type({})"), "table");
    EXPECT_EQ(value("swig_type(print)"), "function");
    EXPECT_EQ(value("swig_type(coroutine.create(function() end))"), "thread");
}

TEST_F(TypeNames, ofAnAbsentValueIsNoValue)
{
    EXPECT_EQ(value("swig_type()"), "no value");
    EXPECT_STREQ(SWIG_Lua_TypeName(L, 7), "no value");
}

TEST_F(TypeNames, areOneStringOfTheFirstArgument)
{
    EXPECT_EQ(value("select('#', swig_type(1, nil))"), "1");
    EXPECT_EQ(value("swig_type(1, nil)"), "number");
}

TEST_F(TypeNames, ofPointerObjectsAreTheWholeTextWithAllAlternatives)
{
    SWIG_Lua_PushPointer(L, numbers, &type, 0);
    EXPECT_STREQ(SWIG_Lua_TypeName(L, -1), "int *|int32_t *");
    name("p");
    EXPECT_EQ(value("swig_type(p)"), "int *|int32_t *");
}

TEST_F(TypeNames, ofPackedObjectsAreTheWholeTextToo)
{
    SWIG_Lua_NewPackedObj(L, numbers, sizeof numbers, &type);
    EXPECT_STREQ(SWIG_Lua_TypeName(L, -1), "int *|int32_t *");
}

TEST_F(TypeNames, areUnknownWithoutATypeOrItsText)
{
    TypeRecord nameless = makeType("_p_x", nullptr);
    SWIG_Lua_PushPointer(L, numbers, nullptr, 0);
    SWIG_Lua_PushPointer(L, numbers, &nameless, 0);
    EXPECT_STREQ(SWIG_Lua_TypeName(L, 1), "userdata (unknown type)");
    EXPECT_STREQ(SWIG_Lua_TypeName(L, 2), "userdata (unknown type)");
}

TEST_F(TypeNames, ofALightUserdataAreReadThroughIt)
{
    PointerObject object{&type, 0, numbers};
    lua_pushlightuserdata(L, &object);
    lua_pushlightuserdata(L, nullptr);
    EXPECT_STREQ(SWIG_Lua_TypeName(L, 1), "int *|int32_t *");
    EXPECT_STREQ(SWIG_Lua_TypeName(L, 2), "userdata (unknown type)");
    EXPECT_EQ(SWIG_Lua_ConvertPtr(L, 1, &out, &type), 0);
    EXPECT_EQ(out, numbers);
    EXPECT_EQ(SWIG_Lua_ConvertPtr(L, 2, &out, &type), -1);
}

TEST_F(TypeNames, leaveTheStackAlone)
{
    SWIG_Lua_PushPointer(L, numbers, &type, 0);
    SWIG_Lua_TypeName(L, 1);
    SWIG_Lua_TypeName(L, -1);
    SWIG_Lua_TypeName(L, 2);
    EXPECT_EQ(lua_gettop(L), 1);
}

TEST_F(TypeNames, areNotWhatTellsStringsAndNil)
{
    lua_pushnil(L);
    lua_pushstring(L, "text");
    lua_pushnumber(L, 5);
    lua_pushboolean(L, 1);
    SWIG_Lua_PushPointer(L, numbers, &type, 0);
    for (const int index : {1, 2, 3}) {
        EXPECT_NE(SWIG_Lua_IsStringOrNil(L, index), 0) << index;
    }
    for (const int index : {4, 5, 6}) { // the last is absent
        EXPECT_EQ(SWIG_Lua_IsStringOrNil(L, index), 0) << index;
    }
}

class Equality : public PointerObjects
{
protected:
    Equality()
    {
        name("swig_equals", SWIG_Lua_equal);
        push("first", numbers, &type);
        push("again", numbers, &type);
        push("as_other", numbers, &other);
        push("second", numbers + 1, &type);
    }

    void push(const char *global, void *pointer, TypeRecord *ofType)
    {
        SWIG_Lua_PushPointer(L, pointer, ofType, 0);
        name(global);
    }
};

TEST_F(Equality, isThatOfThePointers)
{
    EXPECT_EQ(value("swig_equals(first, first)"), "true");
    EXPECT_EQ(value("swig_equals(first, again)"), "true");
    EXPECT_EQ(value("swig_equals(first, second)"), "false");
}

TEST_F(Equality, doesNotLookAtTheTypes)
{
    EXPECT_EQ(value("swig_equals(first, as_other)"), "true");
}

TEST_F(Equality, hasNoResultUnlessBothAreUserdata)
{
    for (const char *const arguments :
         {"first, 5", "5, first", "5, 5", "first, nil", "nil, nil", "first", ""}) {
        const std::string call = std::string("swig_equals(") + arguments + ")";
        EXPECT_EQ(value("select('#', " + call + ")"), "0") << call;
    }
}

} // namespace
