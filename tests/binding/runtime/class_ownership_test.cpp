// SPDX-License-Identifier: LicenseRef-Proprietary
// Who frees the native object behind a Lua object, and how often.
#include "tests/binding/support/gadget_class.h"
#include "tests/binding/support/lua_test.h"

namespace
{

class Ownership : public LuaTest
{
protected:
    Ownership()
    {
        gadget::destroyed.clear();
        gadget::type.clientData = &record;
        run("m = {}");
        lua_getglobal(L, "m");
        SWIG_Lua_RegisterClass(L, &record);
        lua_settop(L, 0);
    }

    ~Ownership() override
    {
        if (L != nullptr) {
            closeState();
        }
        gadget::type.clientData = nullptr;
    }

    void push(Gadget *native, int own)
    {
        SWIG_Lua_PushPointer(L, native, &gadget::type, own);
        name("g");
    }

    void collect()
    {
        run("g = nil collectgarbage() collectgarbage()");
    }

    ClassRecord record = gadget::gadgetClass();
};

TEST_F(Ownership, ofAnOwnedObjectFreesItExactlyOnceAtCollection)
{
    auto *const native = new Gadget;
    push(native, 1);
    EXPECT_TRUE(gadget::destroyed.empty());
    collect();
    EXPECT_EQ(gadget::destroyed, std::vector<void *>{native});
    closeState();
    EXPECT_EQ(gadget::destroyed.size(), 1U);
}

TEST_F(Ownership, ofAConstructedObjectIsLuas)
{
    run("g = m.Gadget()");
    collect();
    EXPECT_EQ(gadget::destroyed.size(), 1U);
}

TEST_F(Ownership, ofAnOwnedObjectFreesItWhenTheStateIsClosed)
{
    auto *const native = new Gadget;
    push(native, 1);
    closeState();
    EXPECT_EQ(gadget::destroyed, std::vector<void *>{native});
}

TEST_F(Ownership, ofAnObjectThatIsNotOwnedNeverFreesIt)
{
    Gadget native;
    push(&native, 0);
    collect();
    push(&native, 0);
    run("getmetatable(g).__gc(g)");
    closeState();
    EXPECT_TRUE(gadget::destroyed.empty());
}

TEST_F(Ownership, ofAnObjectOutlivesItsConversion)
{
    push(new Gadget, 1);
    lua_getglobal(L, "g");
    void *out = nullptr;
    EXPECT_EQ(SWIG_Lua_ConvertPtr(L, -1, &out, nullptr), 0);
    lua_pop(L, 1);
    EXPECT_TRUE(gadget::destroyed.empty());
    collect();
    EXPECT_EQ(gadget::destroyed, std::vector<void *>{out});
}

TEST_F(Ownership, endsWithTheFirstExplicitCallOfTheDestructor)
{
    auto *const native = new Gadget;
    push(native, 1);
    run("gc = getmetatable(g).__gc gc(g)");
    EXPECT_EQ(gadget::destroyed, std::vector<void *>{native});
    run("gc(g)");
    collect();
    closeState();
    EXPECT_EQ(gadget::destroyed.size(), 1U);
}

TEST_F(Ownership, endsWithTheObjectPointingNowhere)
{
    push(new Gadget, 1);
    run("getmetatable(g).__gc(g)");
    lua_getglobal(L, "g");
    void *out = this;
    EXPECT_EQ(SWIG_Lua_ConvertPtr(L, -1, &out, nullptr), 0);
    EXPECT_EQ(out, nullptr);
}

TEST_F(Ownership, giveNoResultOfTheDestructor)
{
    push(new Gadget, 1);
    EXPECT_EQ(value("select('#', getmetatable(g).__gc(g))"), "0");
    EXPECT_EQ(value("select('#', getmetatable(g).__gc(g))"), "0");
}

TEST_F(Ownership, withoutADestructorFreesNothing)
{
    Gadget native;
    record.destructor = nullptr;
    push(&native, 1);
    collect();
    EXPECT_TRUE(gadget::destroyed.empty());
}

TEST_F(Ownership, withoutAClassAnyMoreFreesNothing)
{
    Gadget native;
    push(&native, 1);
    gadget::type.clientData = nullptr;
    collect();
    EXPECT_TRUE(gadget::destroyed.empty());
}

TEST_F(Ownership, goesByTheClassThatTheTypeHasAtCollection)
{
    static int others;
    others = 0;
    ClassRecord other = record;
    other.destructor = [](void *native) {
        ++others;
        delete static_cast<Gadget *>(native);
    };
    push(new Gadget, 1);
    gadget::type.clientData = &other;
    collect();
    EXPECT_TRUE(gadget::destroyed.empty());
    EXPECT_EQ(others, 1);
}

TEST_F(Ownership, ofManyObjectsFreesEachOnce)
{
    run("for i = 1, 100 do g = m.Gadget() end");
    closeState();
    std::sort(gadget::destroyed.begin(), gadget::destroyed.end());
    EXPECT_EQ(gadget::destroyed.size(), 100U);
}

} // namespace
