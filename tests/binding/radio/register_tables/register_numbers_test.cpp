// SPDX-License-Identifier: LicenseRef-Proprietary
// The words that numbers arrive as are those of their texts, for millions of numbers that are hard
// to tell; and a rule that were only slightly wrong would be found out by them.
#include "app/context.h"
#include "bench/yardstick/register_tables.h"
#include "binding/radio/register_tables.h"
#include "tests/binding/radio/register_tables/captured_words.h"
#include "tests/binding/radio/register_tables/hard_numbers.h"
#include "tests/binding/support/lua_test.h"

#include <cmath>

namespace
{

// A rule that takes printing only where these limits do not decide, with those of the shell.
struct Rule {
    double highestFraction = 0.9999;
    double leastMagnitude = 0.0001;
    double leastTooLarge = 4294967296.0;
    double highestPlain = 99999999999999.0;
    std::uint32_t tooLarge = UINT32_MAX;
    bool wraps = true;
    bool saturatesNegative = true;
} rule;

std::uint32_t wordByRule(lua_State *L, double value)
{
    const double magnitude = std::fabs(value);
    const double whole = std::floor(magnitude);
    if (whole <= 4294967295.0 && whole < rule.leastTooLarge) {
        const auto word = static_cast<std::uint32_t>(whole);
        const double fraction = magnitude - whole;
        if (fraction == 0 ||
            (fraction <= rule.highestFraction && magnitude >= rule.leastMagnitude)) {
            return value < 0 && rule.wraps ? 0U - word : word;
        }
    } else if (magnitude >= rule.leastTooLarge && magnitude <= rule.highestPlain) {
        return value < 0 && !rule.saturatesNegative ? 0U - rule.tooLarge : rule.tooLarge;
    }
    lua_newtable(L);
    lua_pushnumber(L, value);
    lua_rawseti(L, -2, 1);
    lua_pushcfunction(L, yardstickSetRxGainRegisters);
    lua_insert(L, -2);
    lua_call(L, 1, 0);
    const std::uint32_t word = registerCalls.back().words[0];
    registerCalls.pop_back();
    return word;
}

int setRegistersByRule(lua_State *L)
{
    std::vector<std::uint32_t> words;
    for (int i = 1; i <= static_cast<int>(lua_objlen(L, 1)); ++i) {
        lua_rawgeti(L, 1, i);
        words.push_back(wordByRule(L, lua_tonumber(L, -1)));
        lua_pop(L, 1);
    }
    registerCalls.push_back({"rule", appContext, words});
    return 0;
}

class RegisterNumbers : public LuaTest
{
protected:
    RegisterNumbers()
    {
        appContext = reinterpret_cast<RadioContext *>(this);
    }

    ~RegisterNumbers() override
    {
        appContext = nullptr;
        rule = {};
    }

    std::vector<std::uint32_t> wordsOf(lua_CFunction setter, const std::vector<double> &numbers)
    {
        lua_pushcfunction(L, setter);
        lua_createtable(L, static_cast<int>(numbers.size()), 0);
        int key = 0;
        for (const double number : numbers) {
            lua_pushnumber(L, number);
            lua_rawseti(L, -2, ++key);
        }
        registerCalls.clear();
        EXPECT_EQ(lua_pcall(L, 1, 0, 0), 0) << lua_tostring(L, -1);
        return registerCalls.at(0).words;
    }

    // Hands so many numbers to both. The first with other words, as "NUMBER: WORD, WORD".
    std::string firstDifference(lua_CFunction setter, lua_CFunction other, int count)
    {
        HardNumbers hard;
        std::vector<double> numbers(1000);
        for (int given = 0; given < count; given += static_cast<int>(numbers.size())) {
            for (double &number : numbers) {
                number = hard.next();
            }
            const std::vector<std::uint32_t> words = wordsOf(setter, numbers);
            const std::vector<std::uint32_t> others = wordsOf(other, numbers);
            EXPECT_EQ(words.size(), numbers.size());
            EXPECT_EQ(others.size(), numbers.size());
            for (std::size_t i = 0; i < numbers.size(); ++i) {
                if (words[i] != others[i]) {
                    char text[32];
                    std::snprintf(text, sizeof text, "%.17g", numbers[i]);
                    return text + (": " + std::to_string(words[i])) + ", " +
                           std::to_string(others[i]);
                }
            }
        }
        return "none";
    }

    std::string firstDifferenceByRule()
    {
        return firstDifference(setRegistersByRule, yardstickSetRxGainRegisters, 200'000);
    }
};

TEST_F(RegisterNumbers, arriveAsTheWordsOfTheirTexts)
{
    EXPECT_EQ(firstDifference(radioSetRxGainRegistersWrapper, yardstickSetRxGainRegisters,
                              HARD_NUMBERS_COUNT),
              "none");
}

TEST_F(RegisterNumbers, arriveTheSameAtTheOtherFunction)
{
    EXPECT_EQ(firstDifference(radioSetTxPowerRegistersWrapper, yardstickSetTxPowerRegisters,
                              HARD_NUMBERS_COUNT / 50),
              "none");
}

TEST_F(RegisterNumbers, showThatNoLimitIsOffAsTheyAre)
{
    EXPECT_EQ(firstDifferenceByRule(), "none");
}

TEST_F(RegisterNumbers, showTheFractionThatIsCarried)
{
    rule.highestFraction = 0.99996;
    EXPECT_NE(firstDifferenceByRule(), "none");
}

TEST_F(RegisterNumbers, showTheFractionWithAnExponent)
{
    rule.leastMagnitude = 0.00009;
    EXPECT_NE(firstDifferenceByRule(), "none");
}

TEST_F(RegisterNumbers, showTheNumberThatIsRoundedToAnExponent)
{
    rule.highestPlain = 99999999999999.5;
    EXPECT_NE(firstDifferenceByRule(), "none");
}

TEST_F(RegisterNumbers, showTheExponent)
{
    rule.highestPlain = 1e14;
    EXPECT_NE(firstDifferenceByRule(), "none");
}

TEST_F(RegisterNumbers, showTheHighestWord)
{
    rule.leastTooLarge = 4294967295.0;
    rule.tooLarge = UINT32_MAX - 1;
    EXPECT_NE(firstDifferenceByRule(), "none");
}

TEST_F(RegisterNumbers, showADroppedSign)
{
    rule.wraps = false;
    EXPECT_NE(firstDifferenceByRule(), "none");
}

TEST_F(RegisterNumbers, showANegativeNumberThatWrapsInPlaceOfSaturating)
{
    rule.saturatesNegative = false;
    EXPECT_NE(firstDifferenceByRule(), "none");
}

} // namespace
