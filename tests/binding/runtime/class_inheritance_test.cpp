// SPDX-License-Identifier: LicenseRef-Proprietary
// Classes with bases: finding them, and what a class inherits.
#include "binding/runtime/registry.h"
#include "tests/binding/support/gadget_class.h"
#include "tests/binding/support/lua_test.h"

namespace
{

int pushBase(lua_State *L)
{
    lua_pushstring(L, "base");
    return 1;
}

int pushOther(lua_State *L)
{
    lua_pushstring(L, "other");
    return 1;
}

int pushDerived(lua_State *L)
{
    lua_pushstring(L, "derived");
    return 1;
}

int dropValue(lua_State *)
{
    return 0;
}

// Derived has two bases, Base and Other.
class Inheritance : public LuaTest
{
protected:
    Inheritance()
    {
        baseType.clientData = &base;
        otherType.clientData = &other;
        derivedType.clientData = &derived;
        base.attributes = baseAttributes;
        base.methods = baseMethods;
        other.attributes = otherAttributes;
        derived.name = "Derived";
        derived.attributes = derivedAttributes;
        derived.methods = derivedMethods;
        derived.bases = bases;
        derived.baseNames = baseNames;
        SWIG_Lua_SetModuleRecord(L, &module.record);
    }

    // Resolves the bases of the derived class, registers it, and makes the global object d.
    void makeDerived()
    {
        SWIG_Lua_ResolveBases(L, &derived);
        EXPECT_EQ(lua_gettop(L), 0);
        lua_newtable(L);
        SWIG_Lua_RegisterClass(L, &derived);
        lua_pop(L, 1);
        SWIG_Lua_PushPointer(L, this, &derivedType, 0);
        name("d");
    }

    TypeRecord baseType = makeType("_p_Base", "struct Base *|Base *");
    TypeRecord derivedType = makeType("_p_Derived", "Derived *");
    TypeRecord otherType = makeType("_p_Other", "Other *");
    TypeRecord plainType = makeType("_p_Plain", "Plain *");
    Module module{&baseType, &derivedType, &otherType, &plainType};

    AttributeEntry baseAttributes[4] = {
        {"inherited", pushBase, nullptr},
        {"replaced", pushBase, dropValue},
        {"common", pushBase, nullptr},
        {nullptr, nullptr, nullptr},
    };
    AttributeEntry otherAttributes[3] = {
        {"fromOther", pushOther, nullptr},
        {"common", pushOther, nullptr},
        {nullptr, nullptr, nullptr},
    };
    AttributeEntry derivedAttributes[3] = {
        {"replaced", pushDerived, nullptr},
        {"own", pushDerived, nullptr},
        {nullptr, nullptr, nullptr},
    };
    MethodEntry baseMethods[4] = {
        {"method", pushBase},
        {"replacedMethod", pushBase},
        {"__tostring", pushBase},
        {nullptr, nullptr},
    };
    MethodEntry derivedMethods[2] = {
        {"replacedMethod", pushDerived},
        {nullptr, nullptr},
    };
    ClassRecord base = gadget::plainClass();
    ClassRecord other = gadget::plainClass();
    ClassRecord derived = gadget::plainClass();
    ClassRecord *bases[3] = {nullptr, nullptr, nullptr};
    const char *baseNames[3] = {"_p_Base", "Other *", nullptr};
};

TEST_F(Inheritance, findsBasesByEitherName)
{
    SWIG_Lua_ResolveBases(L, &derived);
    EXPECT_EQ(bases[0], &base);
    EXPECT_EQ(bases[1], &other);
    EXPECT_EQ(bases[2], nullptr);
}

TEST_F(Inheritance, findsBasesInEveryModule)
{
    Module first{};
    Module second{&baseType};
    Module third{&otherType};
    Module::link({&first, &second, &third});
    SWIG_Lua_SetModuleRecord(L, &first.record);
    SWIG_Lua_ResolveBases(L, &derived);
    EXPECT_EQ(bases[0], &base);
    EXPECT_EQ(bases[1], &other);
}

TEST_F(Inheritance, keepsABaseThatWasFoundBefore)
{
    bases[0] = &other;
    SWIG_Lua_ResolveBases(L, &derived);
    EXPECT_EQ(bases[0], &other);
    EXPECT_EQ(bases[1], &other);
}

TEST_F(Inheritance, leavesAnUnknownBaseForLater)
{
    baseNames[1] = "Later *";
    SWIG_Lua_ResolveBases(L, &derived);
    EXPECT_EQ(bases[0], &base);
    EXPECT_EQ(bases[1], nullptr);
    otherType.str = "Later *";
    SWIG_Lua_ResolveBases(L, &derived);
    EXPECT_EQ(bases[1], &other);
}

TEST_F(Inheritance, takesATypeWithoutAClassForNoBase)
{
    baseNames[1] = "Plain *";
    SWIG_Lua_ResolveBases(L, &derived);
    EXPECT_EQ(bases[1], nullptr);
}

TEST_F(Inheritance, givesAttributesAndMethodsOfTheBases)
{
    makeDerived();
    EXPECT_EQ(value("d.inherited"), "base");
    EXPECT_EQ(value("d.fromOther"), "other");
    EXPECT_EQ(value("d:method()"), "base");
    EXPECT_EQ(value("d.own"), "derived");
}

TEST_F(Inheritance, givesMetamethodsOfTheBases)
{
    makeDerived();
    EXPECT_EQ(value("d"), "base");
}

TEST_F(Inheritance, replacesInheritedEntriesByTheClassesOwn)
{
    makeDerived();
    EXPECT_EQ(value("d.replaced"), "derived");
    EXPECT_EQ(value("d:replacedMethod()"), "derived");
}

TEST_F(Inheritance, replacesTheEntriesOfAnEarlierBaseByThoseOfALater)
{
    makeDerived();
    EXPECT_EQ(value("d.common"), "other");
}

TEST_F(Inheritance, reachesTheBasesOfABase)
{
    ClassRecord *basesOfOther[] = {&base, nullptr};
    const char *namesOfOther[] = {"_p_Base", nullptr};
    other.bases = basesOfOther;
    other.baseNames = namesOfOther;
    bases[0] = &other;
    baseNames[0] = "Other *";
    baseNames[1] = nullptr;
    makeDerived();
    EXPECT_EQ(value("d.inherited"), "base");
    EXPECT_EQ(value("d.common"), "other");
}

TEST_F(Inheritance, doesNotStopAtABaseThatIsUnknown)
{
    baseNames[0] = "Unknown *";
    makeDerived();
    EXPECT_EQ(bases[0], nullptr);
    EXPECT_EQ(value("d.fromOther"), "other");
}

TEST_F(Inheritance, doesNotAddTheConstructorOrTheNameOfABase)
{
    base.constructor = pushBase;
    SWIG_Lua_ResolveBases(L, &derived);
    lua_newtable(L);
    SWIG_Lua_RegisterClass(L, &derived);
    name("m");
    EXPECT_EQ(value("next(m)"), "nil");
    SWIG_Lua_ClassMetatable(L, "Derived");
    name("mt");
    EXPECT_EQ(value("mt['.type']"), "Derived");
}

} // namespace
