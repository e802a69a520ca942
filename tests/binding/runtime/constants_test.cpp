// SPDX-License-Identifier: LicenseRef-Proprietary
// Constants of every kind.
#include "binding/runtime/class_table.h"
#include "binding/runtime/constants.h"
#include "tests/binding/support/lua_test.h"
#include "tests/binding/support/type_table.h"

#include <climits>

namespace
{

constexpr ConstantEntry end{endOfConstants, nullptr, 0, 0, nullptr, nullptr};

class Constants : public LuaTest
{
protected:
    // Adds one constant to the global table t.
    void add(const ConstantEntry &entry)
    {
        const ConstantEntry entries[] = {entry, end};
        addAll(entries);
    }

    void addAll(const ConstantEntry *entries)
    {
        run("t = {}");
        lua_getglobal(L, "t");
        SWIG_Lua_AddConstants(L, entries);
        EXPECT_EQ(lua_gettop(L), 1);
        lua_pop(L, 1);
    }

    static ConstantEntry integer(const char *name, long value)
    {
        return {1, name, value, 0, nullptr, nullptr};
    }

    static ConstantEntry character(long value)
    {
        return {6, "c", value, 0, nullptr, nullptr};
    }

    char text[6] = "bytes";
    TypeRecord type = makeType("_p_char", "char *");
    TypeRecord *slot = &type;
};

TEST_F(Constants, ofAnEmptyTableAddNothing)
{
    addAll(&end);
    EXPECT_EQ(value("next(t)"), "nil");
}

TEST_F(Constants, ofKindOneAreSignedIntegers)
{
    for (const long number : {0L, 1L, -1L, 256L, 2147483647L, -2147483647L - 1}) {
        add(integer("i", number));
        EXPECT_EQ(value("type(t.i)"), "number");
        EXPECT_EQ(value("('%d'):format(t.i)"), std::to_string(number));
    }
}

TEST_F(Constants, ofKindTwoAreFloatingPointNumbers)
{
    add({2, "f", 7, -0.5, nullptr, nullptr});
    EXPECT_EQ(value("type(t.f)"), "number");
    EXPECT_EQ(value("t.f"), "-0.5");
}

TEST_F(Constants, ofKindThreeAreTexts)
{
    add({3, "s", 2, 0, text, nullptr});
    EXPECT_EQ(value("type(t.s)"), "string");
    EXPECT_EQ(value("t.s"), "bytes");
}

TEST_F(Constants, ofKindFourArePointerObjectsThatLuaDoesNotOwn)
{
    add({4, "p", 2, 0, text, &slot});
    lua_getglobal(L, "t");
    lua_getfield(L, -1, "p");
    ASSERT_EQ(lua_type(L, -1), LUA_TUSERDATA);
    const auto *const object = static_cast<PointerObject *>(lua_touserdata(L, -1));
    EXPECT_EQ(object->type, &type);
    EXPECT_EQ(object->own, 0);
    EXPECT_EQ(object->ptr, text);
}

TEST_F(Constants, ofKindFourWithANullPointerAreNil)
{
    add({4, "p", 0, 0, nullptr, &slot});
    EXPECT_EQ(value("next(t)"), "nil");
}

TEST_F(Constants, ofKindFiveArePackedObjectsOfThatManyBytes)
{
    add({5, "b", 4, 0, text, &slot});
    lua_getglobal(L, "t");
    lua_getfield(L, -1, "b");
    ASSERT_EQ(lua_type(L, -1), LUA_TUSERDATA);
    ASSERT_EQ(lua_objlen(L, -1), sizeof(void *) + sizeof(int) + 4);
    const auto *const object = static_cast<PackedObject *>(lua_touserdata(L, -1));
    EXPECT_EQ(object->type, &type);
    EXPECT_EQ(object->own, 0);
    EXPECT_EQ(std::string(object->data, 4), "byte");
}

TEST_F(Constants, ofKindSixAreOneCharacter)
{
    add(character('A'));
    EXPECT_EQ(value("type(t.c)"), "string");
    EXPECT_EQ(value("t.c"), "A");
    add(character(0xe9));
    EXPECT_EQ(value("t.c"), "\xe9");
}

TEST_F(Constants, ofKindSixTakeTheLowByteOnly)
{
    add(character(0x100 + 'A'));
    EXPECT_EQ(value("t.c"), "A");
    add(character(-1));
    EXPECT_EQ(value("t.c"), "\xff");
}

TEST_F(Constants, ofAnyOtherKindAreSkippedAndTheWalkGoesOn)
{
    for (const int kind : {-1, 7, 8, 100, INT_MAX, INT_MIN}) {
        const ConstantEntry entries[] = {
            integer("before", 1), {kind, "unknown", 2, 2, text, &slot}, integer("after", 3), end};
        addAll(entries);
        EXPECT_EQ(value("t.before"), "1") << kind;
        EXPECT_EQ(value("t.unknown"), "nil") << kind;
        EXPECT_EQ(value("t.after"), "3") << kind;
    }
}

TEST_F(Constants, behindTheEndAreNotReached)
{
    const ConstantEntry entries[] = {integer("before", 1), end, integer("behind", 2), end};
    addAll(entries);
    EXPECT_EQ(value("t.before"), "1");
    EXPECT_EQ(value("t.behind"), "nil");
}

TEST_F(Constants, ofTheSameNameReplaceEachOther)
{
    const ConstantEntry entries[] = {integer("i", 1), integer("i", 2), end};
    addAll(entries);
    EXPECT_EQ(value("t.i"), "2");
}

TEST_F(Constants, areStoredRaw)
{
    const ConstantEntry entries[] = {integer("i", 1), end};
    run("t = setmetatable({}, {__newindex = function() error('a metamethod ran') end})");
    lua_getglobal(L, "t");
    SWIG_Lua_AddConstants(L, entries);
    lua_pop(L, 1);
    EXPECT_EQ(value("rawget(t, 'i')"), "1");
}

} // namespace
