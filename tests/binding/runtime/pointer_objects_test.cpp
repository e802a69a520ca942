// SPDX-License-Identifier: LicenseRef-Proprietary
// Pushing native pointers and converting them back.
#include "tests/binding/runtime/pointer_objects_fixture.h"
#include "tests/binding/support/assertion_report.h"

namespace
{

int conversions = 0;

void *toSecond(void *pointer, int *newMemory)
{
    EXPECT_EQ(*newMemory, 0);
    ++conversions;
    return static_cast<int *>(pointer) + 1;
}

void *toNewMemory(void *pointer, int *newMemory)
{
    *newMemory = 1;
    return pointer;
}

TEST_F(PointerObjects, holdTypeOwnershipAndPointer)
{
    SWIG_Lua_PushPointer(L, numbers, &type, 1);
    ASSERT_EQ(lua_type(L, -1), LUA_TUSERDATA);
    EXPECT_EQ(lua_objlen(L, -1), sizeof(PointerObject));
    const auto *const object = static_cast<PointerObject *>(lua_touserdata(L, -1));
    EXPECT_EQ(object->type, &type);
    EXPECT_EQ(object->own, 1);
    EXPECT_EQ(object->ptr, numbers);
    EXPECT_EQ(lua_gettop(L), 1);
}

TEST_F(PointerObjects, areNilForANullPointerOwnedOrNot)
{
    for (const int own : {0, 1}) {
        SWIG_Lua_PushPointer(L, nullptr, &type, own);
        EXPECT_TRUE(lua_isnil(L, -1));
    }
    EXPECT_EQ(lua_gettop(L), 2);
}

TEST_F(PointerObjects, haveNoMetatableWithoutAClass)
{
    SWIG_Lua_PushPointer(L, numbers, &type, 0);
    EXPECT_EQ(lua_getmetatable(L, -1), 0);
}

TEST_F(PointerObjects, convertToTheirPointer)
{
    SWIG_Lua_PushPointer(L, numbers, &type, 1);
    EXPECT_EQ(SWIG_Lua_ConvertPtr(L, 1, &out, &type), 0);
    EXPECT_EQ(out, numbers);
    EXPECT_EQ(static_cast<PointerObject *>(lua_touserdata(L, 1))->own, 1) << "still owned";
    EXPECT_EQ(lua_gettop(L), 1);
}

TEST_F(PointerObjects, convertFromAnAbsoluteAndARelativeIndex)
{
    SWIG_Lua_PushPointer(L, numbers, &type, 0);
    lua_pushnumber(L, 5);
    EXPECT_EQ(SWIG_Lua_ConvertPtr(L, 1, &out, &type), 0);
    EXPECT_EQ(SWIG_Lua_ConvertPtr(L, -2, &out, &type), 0);
    EXPECT_EQ(SWIG_Lua_ConvertPtr(L, -1, &out, &type), -1);
}

TEST_F(PointerObjects, nilConvertsToANullPointer)
{
    lua_pushnil(L);
    EXPECT_EQ(convertTop(&type), 0);
    EXPECT_EQ(out, nullptr);
    out = this;
    lua_pushnil(L);
    EXPECT_EQ(convertTop(nullptr), 0);
    EXPECT_EQ(out, nullptr);
}

TEST_F(PointerObjects, anAbsentValueDoesNotConvert)
{
    EXPECT_EQ(SWIG_Lua_ConvertPtr(L, 1, &out, &type), -1);
    EXPECT_EQ(SWIG_Lua_ConvertPtr(L, 1, &out, nullptr), -1);
    EXPECT_EQ(out, this);
}

TEST_F(PointerObjects, valuesOfOtherLuaTypesDoNotConvert)
{
    const char *const texts[] = {"0", "5", "'5'", "''", "true", "false", "{}", "print", "newproxy"};
    for (const char *const text : texts) {
        for (TypeRecord *const expected : {&type, static_cast<TypeRecord *>(nullptr)}) {
            run(std::string("_V = ") + text);
            lua_getglobal(L, "_V");
            EXPECT_EQ(convertTop(expected), -1) << text;
        }
    }
    EXPECT_EQ(out, this);
}

TEST_F(PointerObjects, ofAnotherTypeDoNotConvert)
{
    SWIG_Lua_PushPointer(L, numbers, &other, 0);
    EXPECT_EQ(convertTop(&type), -1);
    EXPECT_EQ(out, this);
}

TEST_F(PointerObjects, ofARecordOfTheSameNameDoNotConvert)
{
    TypeRecord sameName = makeType("_p_int", "int *|int32_t *");
    SWIG_Lua_PushPointer(L, numbers, &sameName, 0);
    EXPECT_EQ(convertTop(&type), -1);
}

TEST_F(PointerObjects, convertWithoutAnExpectedTypeWhateverTheirs)
{
    SWIG_Lua_PushPointer(L, numbers, &other, 0);
    EXPECT_EQ(convertTop(nullptr), 0);
    EXPECT_EQ(out, numbers);
    SWIG_Lua_PushPointer(L, numbers + 1, nullptr, 0);
    EXPECT_EQ(convertTop(nullptr), 0);
    EXPECT_EQ(out, numbers + 1);
}

TEST_F(PointerObjects, ofAnAcceptedTypeConvertAndMoveItsCastToTheFront)
{
    CastRecord fromOther = makeCast(&other);
    SWIG_LinkCast(&type, &fromOther);
    ASSERT_EQ(castNames(type), (Names{"_p_short", "_p_int"}));
    SWIG_Lua_PushPointer(L, numbers, &type, 0);
    EXPECT_EQ(convertTop(&type), 0);
    EXPECT_EQ(castNames(type), (Names{"_p_int", "_p_short"}));
    SWIG_Lua_PushPointer(L, numbers, &other, 0);
    EXPECT_EQ(convertTop(&type), 0);
    EXPECT_EQ(out, numbers);
    EXPECT_EQ(castNames(type), (Names{"_p_short", "_p_int"}));
}

TEST_F(PointerObjects, convertOnlyInTheDirectionOfTheCast)
{
    CastRecord fromOther = makeCast(&other);
    SWIG_LinkCast(&type, &fromOther);
    SWIG_Lua_PushPointer(L, numbers, &type, 0);
    EXPECT_EQ(convertTop(&other), -1);
}

TEST_F(PointerObjects, goThroughTheConverterOfTheirCast)
{
    CastRecord fromOther = makeCast(&other, toSecond);
    SWIG_LinkCast(&type, &fromOther);
    conversions = 0;
    SWIG_Lua_PushPointer(L, numbers, &other, 0);
    EXPECT_EQ(convertTop(&type), 0);
    EXPECT_EQ(out, numbers + 1);
    SWIG_Lua_PushPointer(L, numbers, &type, 0);
    EXPECT_EQ(convertTop(&type), 0);
    EXPECT_EQ(out, numbers) << "the cast to itself has none";
    EXPECT_EQ(conversions, 1);
}

TEST_F(PointerObjects, abortWhenTheirConverterReportsNewMemory)
{
    CastRecord fromOther = makeCast(&other, toNewMemory);
    SWIG_LinkCast(&type, &fromOther);
    SWIG_Lua_PushPointer(L, numbers, &other, 0);
    EXPECT_INVARIANT(SWIG_Lua_ConvertPtr(L, -1, &out, &type), 1319, "SWIG_Lua_ConvertPtr",
                     "!newmemory");
}

TEST_F(PointerObjects, newOnesOwnNothingWhateverWasInTheirPlaceBefore)
{
    for (int i = 0; i < 100; ++i) {
        std::memset(lua_newuserdata(L, sizeof(PointerObject)), 0xff, sizeof(PointerObject));
        lua_pop(L, 1);
    }
    lua_gc(L, LUA_GCCOLLECT, 0);
    const PointerObject *const object = SWIG_Lua_NewPointerObj(L, &type);
    EXPECT_EQ(object, lua_touserdata(L, -1));
    EXPECT_EQ(object->type, &type);
    EXPECT_EQ(object->own, 0);
    EXPECT_EQ(object->ptr, nullptr);
}

TEST_F(PointerObjects, packedKeepACopyOfTheBytes)
{
    char bytes[] = "twelve bytes and more";
    SWIG_Lua_NewPackedObj(L, bytes, sizeof bytes, &type);
    bytes[0] = 'X';
    ASSERT_EQ(lua_type(L, -1), LUA_TUSERDATA);
    EXPECT_EQ(lua_objlen(L, -1), sizeof(void *) + sizeof(int) + sizeof bytes);
    const auto *const object = static_cast<PackedObject *>(lua_touserdata(L, -1));
    EXPECT_EQ(object->type, &type);
    EXPECT_EQ(object->own, 0);
    EXPECT_STREQ(object->data, "twelve bytes and more");
    EXPECT_EQ(lua_gettop(L), 1);
    EXPECT_EQ(lua_getmetatable(L, -1), 0);
}

TEST_F(PointerObjects, packedMayHaveNoType)
{
    SWIG_Lua_NewPackedObj(L, "bytes", sizeof "bytes", nullptr);
    EXPECT_EQ(static_cast<PackedObject *>(lua_touserdata(L, -1))->type, nullptr);
    EXPECT_STREQ(static_cast<PackedObject *>(lua_touserdata(L, -1))->data, "bytes");
    EXPECT_EQ(lua_getmetatable(L, -1), 0);
}

TEST_F(PointerObjects, packedMayBeEmpty)
{
    SWIG_Lua_NewPackedObj(L, "", 0, &type);
    EXPECT_EQ(lua_objlen(L, -1), sizeof(void *) + sizeof(int));
}

TEST_F(PointerObjects, packedAreNotMadeFromANullPointer)
{
    EXPECT_INVARIANT(SWIG_Lua_NewPackedObj(L, nullptr, 4, &type), 1341, "SWIG_Lua_NewPackedObj",
                     "ptr");
}

} // namespace
