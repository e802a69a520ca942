// SPDX-License-Identifier: LicenseRef-Proprietary
// Which numbers of a register table take no printing. The assertions at compile time also show that
// no conversion is undefined: one that were would not be a constant. What all numbers give is
// compared in register_tables/.
#include "binding/radio/register_word.h"

#include <gtest/gtest.h>
#include <limits>

namespace
{

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

// The word, or -1 where it is not found.
constexpr std::int64_t found(lua_Number value)
{
    std::uint32_t word = 0;
    return findRegisterWord(value, &word) ? std::int64_t{word} : -1;
}

TEST(FindRegisterWord, findsThatOfEveryIntegerThatFits)
{
    static_assert(found(0) == 0);
    static_assert(found(-0.0) == 0);
    static_assert(found(1) == 1);
    static_assert(found(2147483648.0) == 2147483648);
    static_assert(found(4294967295.0) == 4294967295);
    EXPECT_EQ(found(4294967295.0), 4294967295);
}

TEST(FindRegisterWord, cutsOffFractionsOfThreeDecimals)
{
    static_assert(found(0.001) == 0);
    static_assert(found(0.999) == 0);
    static_assert(found(5.999) == 5);
    static_assert(found(4294967295.999) == 4294967295);
    for (int thousandths = 0; thousandths < 1'000'000; ++thousandths) {
        ASSERT_EQ(found(thousandths / 1000.0), thousandths / 1000) << thousandths;
    }
}

TEST(FindRegisterWord, leavesWhatMayPrintWithOtherDigits)
{
    static_assert(found(0.00009) == -1);
    static_assert(found(std::numeric_limits<double>::denorm_min()) == -1);
    static_assert(found(0.99995) == -1);
    static_assert(found(4294967294.99996) == -1);
}

TEST(FindRegisterWord, leavesWhatDoesNotFit)
{
    static_assert(found(4294967296.0) == -1);
    static_assert(found(-1) == -1);
    static_assert(found(-0.5) == -1);
    static_assert(found(1e300) == -1);
    static_assert(found(infinity) == -1);
    static_assert(found(-infinity) == -1);
    static_assert(found(notANumber) == -1);
}

TEST(RegisterWord, isThatOfAnyNumber)
{
    EXPECT_EQ(registerWord(2.9), 2U);
    EXPECT_EQ(registerWord(-2.9), 4294967294U);
    EXPECT_EQ(registerWord(-0.5), 0U);
    EXPECT_EQ(registerWord(4294967294.99996), 4294967295U);
    EXPECT_EQ(registerWord(4294967296.0), 4294967295U);
    EXPECT_EQ(registerWord(-4294967296.0), 4294967295U);
    EXPECT_EQ(registerWord(99999999999999.0), 4294967295U);
    EXPECT_EQ(registerWord(99999999999999.4), 4294967295U);
    EXPECT_EQ(registerWord(99999999999999.5), 1U);
    EXPECT_EQ(registerWord(1e14), 1U);
    EXPECT_EQ(registerWord(-1e14), 4294967295U);
    EXPECT_EQ(registerWord(0.00009), 9U);
    EXPECT_EQ(registerWord(infinity), 0U);
    EXPECT_EQ(registerWord(notANumber), 0U);
    EXPECT_EQ(registerWord(std::numeric_limits<double>::max()), 1U);
}

} // namespace
