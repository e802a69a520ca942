// SPDX-License-Identifier: LicenseRef-Proprietary
#include "binding/radio/catalogue.h"

#include <gtest/gtest.h>
#include <iterator>
#include <set>

namespace
{

constexpr const char *names[] = {
    "radioSelect",
    "radioSelectPlatform",
    "radioReset",
    "radioLoadCalibrationFile",
    "radioGetIntegerFromCalibration",
    "radioGetStringFromCalibration",
    "radioSetDebugFile",
    "radioSetDebugLevel",
    "radioGetDebugLevel",
    "radioVersion",
    "radioGetPlatformName",
    "radioGetPlatformChipCount",
    "radioGetDriverNames",
    "radioInit",
    "radioInitByScript",
    "radioCpriInit",
    "radioSetTxState",
    "radioSetTxStateOfAntenna",
    "radioSetRxState",
    "radioSetRxStateOfAntenna",
    "radioSetTxMaxPower",
    "radioSetTxMaxPowerOfAntenna",
    "radioSetRxChannel",
    "radioSetRxFrequency",
    "radioSetTxChannel",
    "radioSetTxFrequency",
    "radioSetRxGainMode",
    "radioSetRxGain",
    "radioGetRxGainIndB",
    "radioGetRxGainOfAntennaIndB",
    "radioSetTxDcOffset",
    "radioGetRxRtwp",
    "radioGetRxRtwpIndBm",
    "radioGetRxRtwpOfAntenna",
    "radioGetRxRtwpOfAntennaIndBm",
    "radioGetTemperature",
    "radioSetTxPowerRegisters",
    "radioSetRxGainRegisters",
    "radioGetOscillatorDacWidth",
    "radioGetOscillatorDacValue",
    "radioSetOscillatorDacValue",
    "radioSetLoopback",
    "radioSpiWrite",
    "radioSpiRead",
};

TEST(RadioCatalogue, namesEveryFunctionInOrder)
{
    ASSERT_EQ(std::size(names), 44U);
    for (std::size_t i = 0; i < std::size(names); ++i) {
        ASSERT_NE(radioCommands[i].name, nullptr) << "only " << i << " functions";
        EXPECT_STREQ(radioCommands[i].name, names[i]) << i;
    }
    EXPECT_EQ(radioCommands[std::size(names)].name, nullptr);
}

TEST(RadioCatalogue, hasAFunctionOfItsOwnForEachName)
{
    std::set<lua_CFunction> functions;
    for (const CommandEntry *entry = radioCommands; entry->name != nullptr; ++entry) {
        EXPECT_NE(entry->function, nullptr) << entry->name;
        EXPECT_TRUE(functions.insert(entry->function).second) << entry->name;
    }
}

} // namespace
