// SPDX-License-Identifier: LicenseRef-Proprietary
// Userdata that are no pointer objects of any binding: never read beyond their size, never taken
// for what they are not, and never a reason to crash. An address sanitizer sees every overrun.
#include "binding/runtime/class_table.h"
#include "binding/runtime/pointer_objects.h"
#include "binding/runtime/registry.h"
#include "tests/binding/support/lua_test.h"
#include "tests/binding/support/type_table.h"

extern "C" int luaopen_socket_core(lua_State *L);

namespace
{

class ForeignUserdata : public LuaTest
{
protected:
    ForeignUserdata()
    {
        SWIG_LinkCast(&type, &itself);
        name("swig_type", SWIG_Lua_type);
        name("swig_equals", SWIG_Lua_equal);
        name("destruct", SWIG_Lua_class_destruct);
        SWIG_Lua_PushPointer(L, &number, &type, 0);
        name("object");
    }

    // Nothing that this runtime does with a userdata works with the value of that expression.
    void expectForeign(const std::string &expression)
    {
        run("foreign = " + expression);
        EXPECT_EQ(value("type(foreign)"), "userdata");
        EXPECT_EQ(value("swig_type(foreign)"), "userdata (unknown type)");
        EXPECT_EQ(value("swig_equals(foreign, foreign)"), "true");
        EXPECT_EQ(value("swig_equals(foreign, object)"), "false");
        EXPECT_EQ(value("swig_equals(object, foreign)"), "false");
        run("destruct(foreign)");

        lua_getglobal(L, "foreign");
        void *out = this;
        EXPECT_EQ(SWIG_Lua_ConvertPtr(L, -1, &out, &type), -1);
        EXPECT_EQ(out, this);
        lua_pop(L, 1);
    }

    // A userdata of that many bytes, without a metatable, that begins with the type.
    void pushBlock(std::size_t size)
    {
        auto *const block = static_cast<TypeRecord **>(lua_newuserdata(L, size));
        std::memset(static_cast<void *>(block), 0, size);
        *block = &type;
    }

    int number = 5;
    TypeRecord type = makeType("_p_int", "int *");
    CastRecord itself = makeCast(&type);
};

TEST_F(ForeignUserdata, mayBeEmpty)
{
    expectForeign("newproxy()");
    expectForeign("newproxy(true)");
    EXPECT_EQ(value("swig_equals(newproxy(), newproxy())"), "false");
}

TEST_F(ForeignUserdata, mayBeAnOpenFile)
{
    expectForeign("io.stdout");
    EXPECT_EQ(value("swig_equals(io.stdout, io.stderr)"), "false");
}

TEST_F(ForeignUserdata, mayBeAClosedFile)
{
    run("file = io.tmpfile() file:close()");
    expectForeign("file");
}

TEST_F(ForeignUserdata, mayBeASocket)
{
    lua_pushcclosure(L, luaopen_socket_core, 0);
    lua_call(L, 0, 1);
    name("core");
    expectForeign("core.tcp()");
    expectForeign("core.udp()");
}

TEST_F(ForeignUserdata, doesNotConvertEvenWithoutAnExpectedTypeWhenThereIsNoRoom)
{
    run("foreign = newproxy()");
    lua_getglobal(L, "foreign");
    void *out = this;
    EXPECT_EQ(SWIG_Lua_ConvertPtr(L, -1, &out, nullptr), -1);
    EXPECT_EQ(out, this);
}

TEST_F(ForeignUserdata, thatHoldsOneWordIsNamedByItButHasNoPointer)
{
    pushBlock(sizeof(void *));
    void *out = this;
    EXPECT_STREQ(SWIG_Lua_TypeName(L, -1), "int *");
    EXPECT_EQ(SWIG_Lua_ConvertPtr(L, -1, &out, &type), -1);
    EXPECT_EQ(SWIG_Lua_ConvertPtr(L, -1, &out, nullptr), -1);
    name("word");
    EXPECT_EQ(value("swig_equals(word, word)"), "true");
    EXPECT_EQ(value("swig_equals(word, object)"), "false");
}

TEST_F(ForeignUserdata, thatIsOneByteShortHasNoPointer)
{
    void *out = this;
    pushBlock(sizeof(PointerObject) - 1);
    EXPECT_EQ(SWIG_Lua_ConvertPtr(L, -1, &out, &type), -1);
    EXPECT_EQ(out, this);
    pushBlock(sizeof(PointerObject));
    EXPECT_EQ(SWIG_Lua_ConvertPtr(L, -1, &out, &type), 0);
    EXPECT_EQ(out, nullptr);
}

TEST_F(ForeignUserdata, thatBeginsWithANullWordIsOfUnknownType)
{
    std::memset(lua_newuserdata(L, 64), 0, 64);
    EXPECT_STREQ(SWIG_Lua_TypeName(L, -1), "userdata (unknown type)");
    lua_newtable(L);
    lua_setmetatable(L, -2);
    EXPECT_STREQ(SWIG_Lua_TypeName(L, -1), "userdata (unknown type)");
}

TEST_F(ForeignUserdata, withoutAMetatableIsNamedByItsFirstWord)
{
    pushBlock(64);
    EXPECT_STREQ(SWIG_Lua_TypeName(L, -1), "int *");
}

// The object of a binding that does not keep its metatables with the others.
TEST_F(ForeignUserdata, withAMetatableOfItsOwnIsNamedByATypeThatIsShared)
{
    Module module{&type};
    SWIG_Lua_SetModuleRecord(L, &module.record);
    pushBlock(sizeof(PointerObject));
    lua_newtable(L);
    lua_setmetatable(L, -2);
    EXPECT_STREQ(SWIG_Lua_TypeName(L, -1), "int *");
    void *out = this;
    EXPECT_EQ(SWIG_Lua_ConvertPtr(L, -1, &out, &type), 0);
}

// Whichever of the bindings has that type, and only if one has it.
TEST_F(ForeignUserdata, withAMetatableOfItsOwnIsLookedForInAllBindings)
{
    TypeRecord other = makeType("_p_short", "short *");
    TypeRecord unknown = makeType("_p_char", "char *");
    Module first{&other};
    Module second{&other, &type};
    Module::link({&first, &second});
    SWIG_Lua_SetModuleRecord(L, &first.record);
    pushBlock(sizeof(PointerObject));
    lua_newtable(L);
    lua_setmetatable(L, -2);
    EXPECT_STREQ(SWIG_Lua_TypeName(L, -1), "int *");
    *static_cast<TypeRecord **>(lua_touserdata(L, -1)) = &unknown;
    EXPECT_STREQ(SWIG_Lua_TypeName(L, -1), "userdata (unknown type)");
}

} // namespace
