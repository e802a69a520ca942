// SPDX-License-Identifier: LicenseRef-Proprietary
// The class RadioHooks with real function pointers, which no script can make.
#include "binding/radio/hooks.h"
#include "binding/radio/types.h"
#include "binding/radio_wrap.h"
#include "binding/runtime/pointer_objects.h"
#include "tests/binding/support/lua_test.h"

#include <sorel.h>

namespace
{

void *allocate(std::size_t)
{
    return nullptr;
}

void release(void *)
{
}

class Hooks : public LuaTest
{
protected:
    Hooks()
    {
        radioModuleOpen(L);
        run("h = radio.RadioHooks()");
        lua_getglobal(L, "h");
        record =
            static_cast<RadioHooks *>(static_cast<PointerObject *>(lua_touserdata(L, -1))->ptr);
        lua_pop(L, 1);
        push(reinterpret_cast<void *>(allocate), mallocFunctionType, "allocate");
        push(reinterpret_cast<void *>(release), freeFunctionType, "release");
    }

    void push(void *pointer, TypePosition type, const char *global)
    {
        SWIG_Lua_PushPointer(L, pointer, radioTypes[type], 0);
        name(global);
    }

    RadioHooks *record;
};

TEST_F(Hooks, startNull)
{
    EXPECT_EQ(record->malloc, nullptr);
    EXPECT_EQ(record->free, nullptr);
    EXPECT_EQ(value("h.malloc"), "nil");
    EXPECT_EQ(value("h.free"), "nil");
}

TEST_F(Hooks, takeFunctionPointersOfTheirTypes)
{
    run("h.malloc = allocate h.free = release");
    EXPECT_EQ(record->malloc, allocate);
    EXPECT_EQ(record->free, release);
}

TEST_F(Hooks, giveTheirFunctionPointersAsObjectsThatLuaDoesNotOwn)
{
    record->malloc = allocate;
    record->free = release;
    EXPECT_EQ(value("swig_type(h.malloc)"), "void *(*)(size_t)");
    EXPECT_EQ(value("swig_type(h.free)"), "void (*)(void *)");
    EXPECT_EQ(value("swig_equals(h.malloc, allocate)"), "true");
    EXPECT_EQ(value("swig_equals(h.free, release)"), "true");
    run("f = h.free");
    lua_getglobal(L, "f");
    EXPECT_EQ(static_cast<PointerObject *>(lua_touserdata(L, -1))->own, 0);
}

TEST_F(Hooks, areClearedByNil)
{
    run("h.malloc = allocate h.free = release h.free = nil");
    EXPECT_EQ(record->malloc, allocate);
    EXPECT_EQ(record->free, nullptr);
}

TEST_F(Hooks, areCopiedBetweenRecords)
{
    run("h1 = radio.RadioHooks() h1.malloc = allocate h.malloc = h1.malloc");
    EXPECT_EQ(record->malloc, allocate);
}

TEST_F(Hooks, refuseAFunctionPointerOfTheOtherType)
{
    run("h.malloc = allocate h.free = release");
    EXPECT_EQ(raised("h.malloc = h.free"), "Error in RadioHooks_malloc_set (arg 2), expected "
                                           "'void *(*)(size_t)' got 'void (*)(void *)'");
    EXPECT_EQ(raised("h.free = h.malloc"), "Error in RadioHooks_free_set (arg 2), expected "
                                           "'void (*)(void *)' got 'void *(*)(size_t)'");
    EXPECT_EQ(record->malloc, allocate);
    EXPECT_EQ(record->free, release);
}

TEST_F(Hooks, areDescribedByTheirClass)
{
    EXPECT_STREQ(hooksClass.name, "RadioHooks");
    EXPECT_EQ(hooksClass.type, &radioTypes[hooksType]);
    EXPECT_NE(hooksClass.constructor, nullptr);
    EXPECT_NE(hooksClass.destructor, nullptr);
    EXPECT_EQ(hooksClass.methods[0].name, nullptr);
    EXPECT_STREQ(hooksClass.attributes[0].name, "malloc");
    EXPECT_STREQ(hooksClass.attributes[1].name, "free");
    EXPECT_EQ(hooksClass.attributes[2].name, nullptr);
    EXPECT_EQ(hooksClass.bases[0], nullptr);
    EXPECT_EQ(hooksClass.baseNames[0], nullptr);
}

class AccessorsByHand : public Hooks
{
protected:
    AccessorsByHand()
    {
        run("local mt = getmetatable(h) get, set = mt['.get'], mt['.set']");
    }
};

TEST_F(AccessorsByHand, readNilFromANullRecord)
{
    EXPECT_EQ(value("get.malloc(nil)"), "nil");
}

TEST_F(AccessorsByHand, assignNothingToANullRecord)
{
    run("set.malloc(nil, allocate) set.free(nil, nil)");
    EXPECT_EQ(value("select('#', set.malloc(nil, allocate))"), "0");
}

TEST_F(AccessorsByHand, nameTheAttributeForAWrongCount)
{
    EXPECT_EQ(raised("get.malloc()"), "Error in malloc expected 1..1 args, got 0");
    EXPECT_EQ(raised("get.free(h, h)"), "Error in free expected 1..1 args, got 2");
    EXPECT_EQ(raised("set.malloc(h)"), "Error in malloc expected 2..2 args, got 1");
    EXPECT_EQ(raised("set.free(h, nil, nil)"), "Error in free expected 2..2 args, got 3");
}

TEST_F(AccessorsByHand, nameTheAttributeForAValueThatIsNoUserdata)
{
    EXPECT_EQ(raised("get.malloc(5)"),
              "Error in malloc (arg 1), expected 'RadioHooks *' got 'number'");
    EXPECT_EQ(raised("set.free('x', nil)"),
              "Error in free (arg 1), expected 'RadioHooks *' got 'string'");
    EXPECT_EQ(raised("set.malloc('x', 5)"),
              "Error in malloc (arg 1), expected 'RadioHooks *' got 'string'");
    EXPECT_EQ(raised("set.free(h, true)"),
              "Error in free (arg 2), expected 'void (*)(void *)' got 'boolean'");
}

TEST_F(AccessorsByHand, nameTheAccessorForAUserdataOfAnotherType)
{
    EXPECT_EQ(raised("get.malloc(allocate)"),
              "Error in RadioHooks_malloc_get (arg 1), expected "
              "'struct RadioHooks *|RadioHooks *' got 'void *(*)(size_t)'");
    EXPECT_EQ(raised("get.free(newproxy())"),
              "Error in RadioHooks_free_get (arg 1), expected "
              "'struct RadioHooks *|RadioHooks *' got 'userdata (unknown type)'");
    EXPECT_EQ(raised("set.malloc(allocate, h)"),
              "Error in RadioHooks_malloc_set (arg 1), expected "
              "'struct RadioHooks *|RadioHooks *' got 'void *(*)(size_t)'");
    EXPECT_EQ(raised("set.malloc(h, h)"),
              "Error in RadioHooks_malloc_set (arg 2), expected "
              "'void *(*)(size_t)' got 'struct RadioHooks *|RadioHooks *'");
}

} // namespace
