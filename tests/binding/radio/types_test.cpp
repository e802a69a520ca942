// SPDX-License-Identifier: LicenseRef-Proprietary
#include "binding/radio/hooks.h"
#include "binding/radio/types.h"
#include "tests/binding/support/lua_test.h"
#include "tests/binding/support/type_table.h"

#include <iterator>

namespace
{

struct Expected {
    const char *name;
    const char *str;
};

// clang-format off
constexpr Expected expected[] = {
    {"_p_FILE", "FILE *"},
    {"_p_RadioBand", "enum RadioBand *|RadioBand *"},
    {"_p_RadioConf", "enum RadioConf *|RadioConf *"},
    {"_p_RadioContext", "struct RadioContext *|RadioContext *"},
    {"_p_RadioCpriRate", "enum RadioCpriRate *|RadioCpriRate *"},
    {"_p_RadioDebug", "enum RadioDebug *|RadioDebug *"},
    {"_p_RadioHooks", "struct RadioHooks *|RadioHooks *"},
    {"_p_RadioInterfaceMode", "enum RadioInterfaceMode *|RadioInterfaceMode *"},
    {"_p_RadioLoopback", "enum RadioLoopback *|RadioLoopback *"},
    {"_p_RadioMode", "enum RadioMode *|RadioMode *"},
    {"_p_RadioPlatformSelectIndex", "enum RadioPlatformSelectIndex *|RadioPlatformSelectIndex *"},
    {"_p_RadioReturn", "enum RadioReturn *|RadioReturn *"},
    {"_p_RadioRxAntenna", "enum RadioRxAntenna *|RadioRxAntenna *"},
    {"_p_RadioRxGainMode", "enum RadioRxGainMode *|RadioRxGainMode *"},
    {"_p_RadioSelectIndex", "enum RadioSelectIndex *|RadioSelectIndex *"},
    {"_p_RadioState", "enum RadioState *|RadioState *"},
    {"_p_RadioTxAntenna", "enum RadioTxAntenna *|RadioTxAntenna *"},
    {"_p_f_p_void__void", "void (*)(void *)"},
    {"_p_f_size_t__p_void", "void *(*)(size_t)"},
    {"_p_int", "intptr_t *|int *|int_least32_t *|int_fast32_t *|int32_t *|int_fast16_t *"},
    {"_p_long_long", "int_least64_t *|int_fast64_t *|int64_t *|long long *|intmax_t *"},
    {"_p_p_char", "char **"},
    {"_p_short", "short *|int_least16_t *|int16_t *"},
    {"_p_signed_char", "signed char *|int_least8_t *|int_fast8_t *|int8_t *"},
    {"_p_unsigned_char", "unsigned char *|uint_least8_t *|uint_fast8_t *|uint8_t *"},
    {"_p_unsigned_int", "uintptr_t *|uint_least32_t *|uint_fast32_t *|uint32_t *|unsigned int *|uint_fast16_t *"},
    {"_p_unsigned_long_long", "uint_least64_t *|uint_fast64_t *|uint64_t *|unsigned long long *|uintmax_t *"},
    {"_p_unsigned_short", "unsigned short *|uint_least16_t *|uint16_t *"},
};
// clang-format on

class RadioTypes : public LuaTest
{
protected:
    RadioTypes()
    {
        initialiseRadioTypes(L);
    }
};

// ctest gives each test a process, so nothing has initialised them here.
TEST(RadioTypesBefore, areNotInUse)
{
    EXPECT_EQ(radioModule.next, nullptr) << "another test has run in this process before";
    for (const TypeRecord *const type : radioTypes) {
        EXPECT_EQ(type, nullptr);
    }
}

TEST_F(RadioTypes, haveTheirNamesAndTextsInOrder)
{
    ASSERT_EQ(std::size(expected), 28U);
    ASSERT_EQ(typeCount, 28U);
    for (std::size_t i = 0; i < typeCount; ++i) {
        EXPECT_STREQ(radioTypes[i]->name, expected[i].name);
        EXPECT_STREQ(radioTypes[i]->str, expected[i].str);
    }
    EXPECT_EQ(radioTypes[typeCount], nullptr);
}

TEST_F(RadioTypes, areSortedByTheBytesOfTheirNames)
{
    for (std::size_t i = 1; i < typeCount; ++i) {
        EXPECT_LT(std::strcmp(radioTypes[i - 1]->name, radioTypes[i]->name), 0) << i;
    }
}

TEST_F(RadioTypes, areTheModulesTypes)
{
    EXPECT_EQ(radioModule.types, radioTypes);
    EXPECT_EQ(radioModule.size, 28U);
    EXPECT_EQ(radioModule.clientData, nullptr);
    for (std::size_t i = 0; i < typeCount; ++i) {
        EXPECT_EQ(radioModule.typeInitial[i], radioTypes[i]);
    }
}

TEST_F(RadioTypes, acceptThemselvesUnchangedAndNothingElse)
{
    for (std::size_t i = 0; i < typeCount; ++i) {
        const TypeRecord &type = *radioTypes[i];
        ASSERT_EQ(castNames(type), Names{type.name});
        EXPECT_EQ(type.cast, radioModule.castInitial[i]);
        EXPECT_EQ(type.cast->type, &type);
        EXPECT_EQ(type.cast->converter, nullptr);
        EXPECT_EQ(radioModule.castInitial[i][1].type, nullptr);
    }
}

TEST_F(RadioTypes, haveAClassForTheHooksAlone)
{
    for (std::size_t i = 0; i < typeCount; ++i) {
        EXPECT_EQ(radioTypes[i]->clientData, i == 6 ? &hooksClass : nullptr) << i;
    }
}

TEST_F(RadioTypes, haveNoDynamicCastAndNoOwnData)
{
    for (std::size_t i = 0; i < typeCount; ++i) {
        EXPECT_EQ(radioTypes[i]->dcast, nullptr);
        EXPECT_EQ(radioTypes[i]->ownData, 0);
    }
}

TEST_F(RadioTypes, areUsedAtTheirPositions)
{
    EXPECT_STREQ(radioTypes[fileType]->name, "_p_FILE");
    EXPECT_STREQ(radioTypes[hooksType]->name, "_p_RadioHooks");
    EXPECT_STREQ(radioTypes[freeFunctionType]->name, "_p_f_p_void__void");
    EXPECT_STREQ(radioTypes[mallocFunctionType]->name, "_p_f_size_t__p_void");
    EXPECT_STREQ(radioTypes[intType]->name, "_p_int");
    EXPECT_STREQ(radioTypes[textListType]->name, "_p_p_char");
    EXPECT_EQ(hooksType, 6U);
    EXPECT_EQ(textListType, 21U);
}

TEST_F(RadioTypes, areFoundByEitherName)
{
    for (std::size_t i = 0; i < typeCount; ++i) {
        EXPECT_EQ(SWIG_FindMangledType(&radioModule, &radioModule, expected[i].name),
                  radioTypes[i]);
    }
    EXPECT_EQ(SWIG_FindType(&radioModule, &radioModule, "RadioHooks*"), radioTypes[6]);
    EXPECT_EQ(SWIG_FindType(&radioModule, &radioModule, "int32_t *"), radioTypes[19]);
}

} // namespace
