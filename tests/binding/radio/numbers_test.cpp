// SPDX-License-Identifier: LicenseRef-Proprietary
// Lua numbers and texts to integers, at every boundary. The assertions at compile time also show
// that no conversion is undefined: one that were would not be a constant.
#include "binding/radio/numbers.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <random>
#include <string>

namespace
{

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double greatest = std::numeric_limits<double>::max();
constexpr double tiny = std::numeric_limits<double>::denorm_min();

TEST(ToSigned32, truncatesTowardZero)
{
    static_assert(toSigned32(0) == 0);
    static_assert(toSigned32(-0.0) == 0);
    static_assert(toSigned32(7.9) == 7);
    static_assert(toSigned32(-3.7) == -3);
    static_assert(toSigned32(0.999999) == 0);
    static_assert(toSigned32(-0.999999) == 0);
    static_assert(toSigned32(tiny) == 0);
    static_assert(toSigned32(-tiny) == 0);
    EXPECT_EQ(toSigned32(-3.7), -3);
}

TEST(ToSigned32, keepsEveryIntegerThatFits)
{
    static_assert(toSigned32(2147483647.0) == INT32_MAX);
    static_assert(toSigned32(2147483646.0) == INT32_MAX - 1);
    static_assert(toSigned32(-2147483648.0) == INT32_MIN);
    static_assert(toSigned32(-2147483647.0) == INT32_MIN + 1);
    EXPECT_EQ(toSigned32(-2147483648.0), INT32_MIN);
}

TEST(ToSigned32, truncatesFractionsNextToTheLimits)
{
    static_assert(toSigned32(2147483647.999) == INT32_MAX);
    static_assert(toSigned32(2147483646.999) == INT32_MAX - 1);
    static_assert(toSigned32(-2147483647.999) == INT32_MIN + 1);
    EXPECT_EQ(toSigned32(std::nextafter(2147483648.0, 0)), INT32_MAX);
    EXPECT_EQ(toSigned32(std::nextafter(-2147483648.0, 0)), INT32_MIN + 1);
}

TEST(ToSigned32, saturatesAtBothEnds)
{
    static_assert(toSigned32(2147483648.0) == INT32_MAX);
    static_assert(toSigned32(4294967295.0) == INT32_MAX);
    static_assert(toSigned32(1e10) == INT32_MAX);
    static_assert(toSigned32(greatest) == INT32_MAX);
    static_assert(toSigned32(infinity) == INT32_MAX);
    static_assert(toSigned32(-2147483648.5) == INT32_MIN);
    static_assert(toSigned32(-2147483649.0) == INT32_MIN);
    static_assert(toSigned32(-greatest) == INT32_MIN);
    static_assert(toSigned32(-infinity) == INT32_MIN);
    EXPECT_EQ(toSigned32(std::nextafter(-2147483648.0, -infinity)), INT32_MIN);
}

TEST(ToNegativeSigned32, truncatesAndSaturates)
{
    static_assert(toNegativeSigned32(-0.9) == 0);
    static_assert(toNegativeSigned32(-3.7) == -3);
    static_assert(toNegativeSigned32(-2147483647.999) == INT32_MIN + 1);
    static_assert(toNegativeSigned32(-2147483648.0) == INT32_MIN);
    static_assert(toNegativeSigned32(-2147483649.0) == INT32_MIN);
    static_assert(toNegativeSigned32(-greatest) == INT32_MIN);
    static_assert(toNegativeSigned32(-infinity) == INT32_MIN);
    EXPECT_EQ(toNegativeSigned32(-2147483647.0), INT32_MIN + 1);
    EXPECT_EQ(toNegativeSigned32(-1e10), INT32_MIN);
}

TEST(ToSigned32, takesNotANumberForZero)
{
    static_assert(toSigned32(notANumber) == 0);
    EXPECT_EQ(toSigned32(notANumber), 0);
    EXPECT_EQ(toSigned32(-notANumber), 0);
}

TEST(ToUnsigned32, truncatesTowardZero)
{
    static_assert(toUnsigned32(0) == 0);
    static_assert(toUnsigned32(-0.0) == 0);
    static_assert(toUnsigned32(tiny) == 0);
    static_assert(toUnsigned32(7.9) == 7);
    static_assert(toUnsigned32(2147483648.0) == 2147483648U);
    EXPECT_EQ(toUnsigned32(7.9), 7U);
}

TEST(ToUnsigned32, keepsTheHighestValue)
{
    static_assert(toUnsigned32(4294967294.0) == UINT32_MAX - 1);
    static_assert(toUnsigned32(4294967295.0) == UINT32_MAX);
    static_assert(toUnsigned32(4294967295.999) == UINT32_MAX);
    static_assert(toUnsigned32(4294967294.999) == UINT32_MAX - 1);
    EXPECT_EQ(toUnsigned32(std::nextafter(4294967296.0, 0)), UINT32_MAX);
}

TEST(ToUnsigned32, saturates)
{
    static_assert(toUnsigned32(4294967296.0) == UINT32_MAX);
    static_assert(toUnsigned32(1e10) == UINT32_MAX);
    static_assert(toUnsigned32(greatest) == UINT32_MAX);
    static_assert(toUnsigned32(infinity) == UINT32_MAX);
    EXPECT_EQ(toUnsigned32(infinity), UINT32_MAX);
}

TEST(ParseUnsigned32, readsDigits)
{
    EXPECT_EQ(parseUnsigned32("0"), 0U);
    EXPECT_EQ(parseUnsigned32("17"), 17U);
    EXPECT_EQ(parseUnsigned32("0000000000000000000000000017"), 17U);
    EXPECT_EQ(parseUnsigned32("2147483648"), 2147483648U);
}

TEST(ParseUnsigned32, saturatesBeyondTheHighestValue)
{
    EXPECT_EQ(parseUnsigned32("4294967294"), 4294967294U);
    EXPECT_EQ(parseUnsigned32("4294967295"), 4294967295U);
    EXPECT_EQ(parseUnsigned32("4294967296"), 4294967295U);
    EXPECT_EQ(parseUnsigned32("18446744073709551615"), 4294967295U);
    EXPECT_EQ(parseUnsigned32("18446744073709551616"), 4294967295U);
    EXPECT_EQ(parseUnsigned32("99999999999999999999999999999999"), 4294967295U);
}

TEST(ParseUnsigned32, wrapsANegativeNumberWhoseMagnitudeFits)
{
    EXPECT_EQ(parseUnsigned32("-0"), 0U);
    EXPECT_EQ(parseUnsigned32("-1"), 4294967295U);
    EXPECT_EQ(parseUnsigned32("-2"), 4294967294U);
    EXPECT_EQ(parseUnsigned32("-2147483648"), 2147483648U);
    EXPECT_EQ(parseUnsigned32("-4294967295"), 1U);
}

TEST(ParseUnsigned32, saturatesForANegativeNumberWhoseMagnitudeDoesNotFit)
{
    EXPECT_EQ(parseUnsigned32("-4294967296"), 4294967295U);
    EXPECT_EQ(parseUnsigned32("-4294967297"), 4294967295U);
    EXPECT_EQ(parseUnsigned32("-18446744073709551615"), 4294967295U);
    EXPECT_EQ(parseUnsigned32("-18446744073709551616"), 4294967295U);
}

TEST(ParseUnsigned32, stopsAtTheFirstOtherCharacter)
{
    EXPECT_EQ(parseUnsigned32("2.9"), 2U);
    EXPECT_EQ(parseUnsigned32("-2.9"), 4294967294U);
    EXPECT_EQ(parseUnsigned32("1e+15"), 1U);
    EXPECT_EQ(parseUnsigned32("1.5e+15"), 1U);
    EXPECT_EQ(parseUnsigned32("0x1F"), 0U);
    EXPECT_EQ(parseUnsigned32("0x1p4"), 0U);
    EXPECT_EQ(parseUnsigned32("12 34"), 12U);
    EXPECT_EQ(parseUnsigned32("12-34"), 12U);
}

TEST(ParseUnsigned32, readsNoDigitsAsZero)
{
    for (const char *const text :
         {"", " ", "-", "+", "--1", "+-1", "-+1", "- 1", "+ 1", "inf", "-inf", "nan", ".5", "e5"}) {
        EXPECT_EQ(parseUnsigned32(text), 0U) << text;
    }
}

TEST(ParseUnsigned32, skipsWhiteSpaceAndOneSignInFront)
{
    EXPECT_EQ(parseUnsigned32(" \t\n\v\f\r17"), 17U);
    EXPECT_EQ(parseUnsigned32("   +17"), 17U);
    EXPECT_EQ(parseUnsigned32("   -17"), 4294967279U);
    EXPECT_EQ(parseUnsigned32("\xa0"
                              "17"),
              0U);
}

// What a 32-bit strtoul gives, told from what a signed 64-bit parser gives: out of the range of the
// former in either direction is its highest value, a negative number wraps.
std::uint32_t oracle(const std::string &text)
{
    const long long value = std::strtoll(text.c_str(), nullptr, 10);
    if (value > 4294967295LL || value < -4294967295LL) {
        return UINT32_MAX;
    }
    return static_cast<std::uint32_t>(value);
}

TEST(ParseUnsigned32, agreesWithA64BitParserNextToEveryPowerOfTwoAndTen)
{
    for (const int base : {2, 10}) {
        for (std::uint64_t power = 1; power < UINT64_MAX / 20;
             power *= static_cast<unsigned>(base)) {
            for (const std::uint64_t magnitude : {power - 1, power, power + 1}) {
                for (const char *const sign : {"", "+", "-", " -", "\t+"}) {
                    for (const char *const rest : {"", ".5", "e+15", " ", "x"}) {
                        const std::string text = sign + std::to_string(magnitude) + rest;
                        ASSERT_EQ(parseUnsigned32(text.c_str()), oracle(text)) << text;
                    }
                }
            }
        }
    }
}

TEST(ParseUnsigned32, agreesWithA64BitParserOnTextsOfEveryShape)
{
    constexpr char characters[] = "0123456789001234567899 \t+--.eExX";
    std::mt19937 random(20240501); // always the same texts
    for (int i = 0; i < 200000; ++i) {
        std::string text;
        for (std::size_t length = random() % 24; length > 0; --length) {
            text += characters[random() % (sizeof characters - 1)];
        }
        ASSERT_EQ(parseUnsigned32(text.c_str()), oracle(text)) << '"' << text << '"';
    }
}

TEST(ParseUnsigned32, agreesWithA64BitParserOnWhatPrintfMakesOfNumbers)
{
    std::mt19937_64 random(20240501);
    char text[64];
    for (int i = 0; i < 200000; ++i) {
        const auto mantissa = static_cast<double>(random());
        const double number = std::ldexp(mantissa, static_cast<int>(random() % 80) - 64);
        std::snprintf(text, sizeof text, "%.14g", random() % 2 != 0 ? number : -number);
        ASSERT_EQ(parseUnsigned32(text), oracle(text)) << text;
    }
}

} // namespace
