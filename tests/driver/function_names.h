// SPDX-License-Identifier: LicenseRef-Proprietary
// The 46 functions of the interface.
#ifndef SOREL_TESTS_DRIVER_FUNCTION_NAMES_H
#define SOREL_TESTS_DRIVER_FUNCTION_NAMES_H

#include <set>
#include <string>

namespace sorel_tests
{

inline const std::set<std::string> &functionNames()
{
    static const std::set<std::string> names = {
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
    return names;
}

} // namespace sorel_tests

#endif
