// SPDX-License-Identifier: LicenseRef-Proprietary
// What the built library exports, and its SONAME.
#include <gtest/gtest.h>

#include <cstdio>
#include <set>
#include <sstream>
#include <string>

namespace
{

std::string outputOf(const std::string &command)
{
    FILE *const pipe = popen(command.c_str(), "r");
    if (!pipe)
        return "";
    std::string output;
    char block[4096];
    for (std::size_t count; (count = std::fread(block, 1, sizeof block, pipe)) > 0;)
        output.append(block, count);
    EXPECT_EQ(pclose(pipe), 0) << command;
    return output;
}

TEST(Exports, the_library_exports_the_46_functions_and_nothing_else)
{
    const std::set<std::string> expected = {
        "radioSelectPlatform",
        "radioOpen",
        "radioClose",
        "radioSelect",
        "radioInit",
        "radioInitByScript",
        "radioCpriInit",
        "radioReset",
        "radioLoadCalibrationFile",
        "radioGetIntegerFromCalibration",
        "radioGetStringFromCalibration",
        "radioGetPlatformChipCount",
        "radioGetPlatformName",
        "radioVersion",
        "radioGetDriverNames",
        "radioSetTxFrequency",
        "radioSetTxChannel",
        "radioSetTxState",
        "radioSetTxStateOfAntenna",
        "radioSetTxMaxPower",
        "radioSetTxMaxPowerOfAntenna",
        "radioSetTxDcOffset",
        "radioSetTxPowerRegisters",
        "radioSetRxFrequency",
        "radioSetRxChannel",
        "radioSetRxState",
        "radioSetRxStateOfAntenna",
        "radioSetRxGain",
        "radioSetRxGainMode",
        "radioSetRxGainRegisters",
        "radioSetLoopback",
        "radioGetTemperature",
        "radioGetRxRtwp",
        "radioGetRxRtwpIndBm",
        "radioGetRxRtwpOfAntenna",
        "radioGetRxRtwpOfAntennaIndBm",
        "radioGetRxGainIndB",
        "radioGetRxGainOfAntennaIndB",
        "radioSpiRead",
        "radioSpiWrite",
        "radioSetOscillatorDacValue",
        "radioGetOscillatorDacValue",
        "radioGetOscillatorDacWidth",
        "radioGetDebugLevel",
        "radioSetDebugLevel",
        "radioSetDebugFile",
    };
    ASSERT_EQ(expected.size(), 46u);
    std::set<std::string> exported;
    std::istringstream lines(
        outputOf("nm -D --defined-only --format=posix '" SOREL_LIBRARY_FILE "'"));
    for (std::string line; std::getline(lines, line);)
        exported.insert(line.substr(0, line.find(' ')));
    EXPECT_EQ(exported, expected);
}

TEST(Exports, the_library_has_the_name_that_programs_ask_for)
{
    const std::string output = outputOf("objdump -p '" SOREL_LIBRARY_FILE "'");
    const std::size_t place = output.find("SONAME");
    ASSERT_NE(place, std::string::npos);
    std::istringstream words(output.substr(place));
    std::string tag, name;
    words >> tag >> name;
    EXPECT_EQ(name, "libsorel.so.1");
}

} // namespace
