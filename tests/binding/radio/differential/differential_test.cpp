// SPDX-License-Identifier: LicenseRef-Proprietary
// Every function of the shell beside the same one written by hand (bench/yardstick): the driver is
// called with the same bits, and the script gets the same results and errors.
#include "binding/radio/catalogue.h"
#include "tests/binding/radio/differential/differential.h"

#include <cmath>
#include <cstring>
#include <set>

namespace
{

constexpr Function functions[] = {
    {"radioSelect", "n"},
    {"radioSelectPlatform", "n"},
    {"radioReset", ""},
    {"radioLoadCalibrationFile", "t"},
    {"radioGetIntegerFromCalibration", "tp"},
    {"radioGetStringFromCalibration", "tp"},
    {"radioSetDebugFile", "p"},
    {"radioSetDebugLevel", "n"},
    {"radioGetDebugLevel", ""},
    {"radioVersion", ""},
    {"radioGetPlatformName", ""},
    {"radioGetPlatformChipCount", ""},
    {"radioGetDriverNames", ""},
    {"radioInit", "nnn"},
    {"radioInitByScript", "nnnt"},
    {"radioCpriInit", "n"},
    {"radioSetTxState", "n"},
    {"radioSetTxStateOfAntenna", "nn"},
    {"radioSetRxState", "n"},
    {"radioSetRxStateOfAntenna", "nn"},
    {"radioSetTxMaxPower", "n"},
    {"radioSetTxMaxPowerOfAntenna", "nn"},
    {"radioSetRxChannel", "n"},
    {"radioSetRxFrequency", "n"},
    {"radioSetTxChannel", "n"},
    {"radioSetTxFrequency", "n"},
    {"radioSetRxGainMode", "n"},
    {"radioSetRxGain", "n"},
    {"radioGetRxGainIndB", ""},
    {"radioGetRxGainOfAntennaIndB", "n"},
    {"radioSetTxDcOffset", "nnn"},
    {"radioGetRxRtwp", ""},
    {"radioGetRxRtwpIndBm", ""},
    {"radioGetRxRtwpOfAntenna", "n"},
    {"radioGetRxRtwpOfAntennaIndBm", "n"},
    {"radioGetTemperature", ""},
    {"radioGetOscillatorDacWidth", ""},
    {"radioGetOscillatorDacValue", ""},
    {"radioSetOscillatorDacValue", "n"},
    {"radioSetLoopback", "n"},
    {"radioSpiWrite", "nn"},
    {"radioSpiRead", "n"},
};

constexpr int callsOfEach = 24'000;
static_assert(std::size(functions) * callsOfEach > 1'000'000);

class EveryFunction : public Differential, public testing::WithParamInterface<Function>
{
};

TEST_P(EveryFunction, doesAsTheOneByHand)
{
    const Function function = GetParam();
    const auto seed = static_cast<unsigned>(&GetParam() - functions);
    ASSERT_NE(byHand(function.name), nullptr);
    EXPECT_EQ(
        differences(function, inShell(function.name), byHand(function.name), callsOfEach, seed), 0)
        << first.str();

    // There was something to compare: successes, and an error for most of what can be wrong.
    EXPECT_GT(seen["success"], callsOfEach / 100);
    EXPECT_GT(seen.size(), 3 + std::strlen(function.kinds));
}

INSTANTIATE_TEST_SUITE_P(Differential, EveryFunction, testing::ValuesIn(functions),
                         [](const auto &tested) { return tested.param.name; });

TEST(DifferentialFunctions, areAllThatTakeNoTable)
{
    const std::set<std::string> tables = {"radioSetTxPowerRegisters", "radioSetRxGainRegisters"};
    std::set<std::string> compared = tables;
    for (const Function &function : functions) {
        compared.insert(function.name);
    }
    std::set<std::string> all;
    for (const CommandEntry *entry = radioCommands; entry->name != nullptr; ++entry) {
        all.insert(entry->name);
    }
    EXPECT_EQ(compared, all);
}

// ---- Makes that are wrong, which have to be told from that by hand ----

// Gives the first argument another value, then does as the one by hand.
int callWith(lua_State *L, lua_CFunction function, lua_Number first)
{
    lua_pushnumber(L, first);
    lua_replace(L, 1);
    return function(L);
}

int refusesZero(lua_State *L)
{
    const bool zero = lua_gettop(L) == 1 && lua_isnumber(L, 1) && lua_tonumber(L, 1) == 0;
    return callWith(L, byHand("radioSetTxFrequency"), zero ? -1 : lua_tonumber(L, 1));
}

int takesAllForNumbers(lua_State *L)
{
    return lua_gettop(L) == 1 ? callWith(L, byHand("radioSetTxFrequency"), lua_tonumber(L, 1))
                              : byHand("radioSetTxFrequency")(L);
}

int rounds(lua_State *L)
{
    return lua_type(L, 1) == LUA_TNUMBER && lua_gettop(L) == 1
               ? callWith(L, byHand("radioSetTxFrequency"), std::nearbyint(lua_tonumber(L, 1)))
               : byHand("radioSetTxFrequency")(L);
}

struct Wrong {
    const char *name;
    lua_CFunction make;
};

class WrongMake : public Differential, public testing::WithParamInterface<Wrong>
{
};

TEST_P(WrongMake, isFoundOut)
{
    const Function function = {"radioSetTxFrequency", "n"};
    EXPECT_GT(differences(function, GetParam().make, byHand(function.name), callsOfEach, 1), 0);
    EXPECT_NE(first.str(), "");
}

constexpr Wrong wrongMakes[] = {
    {"refusesZero", refusesZero},
    {"takesAllForNumbers", takesAllForNumbers},
    {"rounds", rounds},
};

INSTANTIATE_TEST_SUITE_P(Differential, WrongMake, testing::ValuesIn(wrongMakes),
                         [](const auto &tested) { return tested.param.name; });

} // namespace
