// SPDX-License-Identifier: LicenseRef-Proprietary
// Which names a type's names for people match.
#include "tests/binding/support/type_table.h"

#include <gtest/gtest.h>

namespace
{

bool matches(const char *str, const char *name)
{
    TypeRecord type = makeType("_p_type", str);
    Module module{&type};
    return SWIG_FindType(&module.record, &module.record, name) == &type;
}

TEST(TypeNameMatch, findsEachAlternative)
{
    const char *const str = "struct RadioHooks *|RadioHooks *|Hooks";
    EXPECT_TRUE(matches(str, "struct RadioHooks *"));
    EXPECT_TRUE(matches(str, "RadioHooks *"));
    EXPECT_TRUE(matches(str, "Hooks"));
}

TEST(TypeNameMatch, findsAnOnlyAlternative)
{
    EXPECT_TRUE(matches("char **", "char **"));
    EXPECT_FALSE(matches("char **", "char *"));
    EXPECT_FALSE(matches("char **", "char ***"));
}

TEST(TypeNameMatch, takesOnlyWholeAlternatives)
{
    EXPECT_FALSE(matches("struct RadioHooks *", "RadioHooks *"));
    EXPECT_FALSE(matches("RadioHooks *", "struct RadioHooks *"));
    EXPECT_FALSE(matches("RadioHooks *", "Radio"));
    EXPECT_FALSE(matches("int *|long *", "int *|long *"));
}

TEST(TypeNameMatch, isCaseSensitive)
{
    EXPECT_FALSE(matches("RadioHooks *", "radiohooks *"));
}

TEST(TypeNameMatch, ignoresTheBlankBeforeTheStar)
{
    EXPECT_TRUE(matches("struct RadioHooks *|RadioHooks *", "RadioHooks*"));
    EXPECT_TRUE(matches("RadioHooks*", "RadioHooks *"));
}

TEST(TypeNameMatch, ignoresAnyNumberOfBlanksBeforeACharacterOnEitherSide)
{
    EXPECT_TRUE(matches("RadioHooks *", "   RadioHooks     *"));
    EXPECT_TRUE(matches("   RadioHooks     *", "RadioHooks*"));
    EXPECT_TRUE(matches("void *(*)(size_t)", "void*( * )( size_t)"));
}

TEST(TypeNameMatch, ignoresBlanksBetweenWords)
{
    EXPECT_TRUE(matches("unsigned int *", "unsignedint*"));
    EXPECT_TRUE(matches("un signed int *", "unsigned int *"));
}

TEST(TypeNameMatch, takesOnlyTheSpaceCharacterForABlank)
{
    EXPECT_FALSE(matches("RadioHooks *", "RadioHooks\t*"));
    EXPECT_FALSE(matches("RadioHooks\n*", "RadioHooks*"));
}

TEST(TypeNameMatch, isPreventedByATrailingBlankOnOneSideOnly)
{
    EXPECT_FALSE(matches("RadioHooks *", "RadioHooks * "));
    EXPECT_FALSE(matches("RadioHooks * ", "RadioHooks *"));
    EXPECT_FALSE(matches("RadioHooks * |Hooks *", "RadioHooks *"));
}

TEST(TypeNameMatch, isNotPreventedByTrailingBlanksOnBothSides)
{
    EXPECT_TRUE(matches("RadioHooks * ", "RadioHooks * "));
    EXPECT_TRUE(matches("RadioHooks * ", "RadioHooks *   "));
    EXPECT_TRUE(matches("RadioHooks * |Hooks *", "RadioHooks *  "));
}

TEST(TypeNameMatch, comparesBlanksAloneWithoutLeavingTheAlternative)
{
    EXPECT_FALSE(matches("  |int *", "int * "));
    EXPECT_TRUE(matches("   |int *", " "));
    EXPECT_FALSE(matches("a |b", "ab"));
    EXPECT_FALSE(matches("a b", "a "));
    EXPECT_FALSE(matches("a ", "a b"));
}

TEST(TypeNameMatch, neverFindsAnythingInAnEmptyText)
{
    EXPECT_FALSE(matches("", ""));
    EXPECT_FALSE(matches("", "int *"));
    EXPECT_FALSE(matches("", " "));
}

TEST(TypeNameMatch, doesNotFindAnEmptyNameInAText)
{
    EXPECT_FALSE(matches("int *", ""));
    EXPECT_FALSE(matches("int *|long *", ""));
}

} // namespace
