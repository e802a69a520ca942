// SPDX-License-Identifier: LicenseRef-Proprietary
// sorel.h as a C++ program sees it. Nothing is included before it: it must stand alone.
#include <sorel.h>

#include <dlfcn.h>
#include <gtest/gtest.h>
#include <type_traits>

namespace
{

#define ENUMERATION(type)                                                                          \
    static_assert(std::is_enum_v<type>, #type);                                                    \
    static_assert(std::is_same_v<std::underlying_type_t<type>, std::int32_t>, #type);
#include "enumerations.inc"
#undef ENUMERATION

#define MEMBER(enumeration, member, value)                                                         \
    static_assert(std::is_same_v<decltype(member), enumeration>, #member);                         \
    static_assert(member == (value), #member);
#include "members.inc"
#undef MEMBER

#define FUNCTION(result, name, parameters)                                                         \
    static_assert(std::is_same_v<decltype(&name), result(*) parameters>, #name);
#include "functions.inc"
#undef FUNCTION

static_assert(std::is_same_v<decltype(RadioHooks::malloc), void *(*)(std::size_t)>);
static_assert(std::is_same_v<decltype(RadioHooks::free), void (*)(void *)>);
static_assert(std::is_standard_layout_v<RadioHooks>);
static_assert(offsetof(RadioHooks, malloc) == 0);
static_assert(offsetof(RadioHooks, free) == sizeof(void *));
static_assert(sizeof(RadioHooks) == 2 * sizeof(void *));

// What the C++ compiler calls the function is what a C library calls it.
template <class Function>
void expectCLinkage(Function *function, const char *name)
{
    EXPECT_EQ(reinterpret_cast<void *>(function), dlsym(RTLD_DEFAULT, name)) << name;
}

TEST(SorelHeader, givesEveryFunctionCLinkage)
{
#define FUNCTION(result, name, parameters) expectCLinkage(&name, #name);
#include "functions.inc"
#undef FUNCTION
}

template <class Enumeration>
void expectNegativeValuesSurvive(const char *type)
{
    const volatile auto value = static_cast<Enumeration>(-1);
    EXPECT_LT(static_cast<double>(value), 0) << type;
    EXPECT_EQ(static_cast<std::int64_t>(value), -1) << type;
}

TEST(SorelHeader, keepsNegativeValuesOfEveryEnumerationInConversions)
{
#define ENUMERATION(type) expectNegativeValuesSurvive<type>(#type);
#include "enumerations.inc"
#undef ENUMERATION
}

} // namespace
