// SPDX-License-Identifier: LicenseRef-Proprietary
// The functions of the interface by name, and what kind of result each returns.
#include "functions.h"

#include "sorel.h"

#include <type_traits>

namespace sorel
{

namespace
{

template <class Result>
constexpr ResultKind kindOf()
{
    if constexpr (std::is_pointer_v<Result>)
        return ResultKind::Pointer;
    else if constexpr (std::is_same_v<Result, float>)
        return ResultKind::Float;
    else if constexpr (std::is_same_v<Result, int32_t>)
        return ResultKind::Int32;
    else if constexpr (std::is_same_v<Result, uint32_t>)
        return ResultKind::Uint32;
    else {
        static_assert(std::is_same_v<Result, RadioReturn>);
        return ResultKind::Status;
    }
}

template <class Result, class... Parameters>
constexpr Function row(std::string_view name, Result (*)(Parameters...))
{
    return {name, kindOf<Result>()};
}

// The kind of the result follows from the declaration.
#define ROW(function) row(#function, function)

const Function functions[] = {
    ROW(radioSelectPlatform),
    ROW(radioOpen),
    ROW(radioClose),
    ROW(radioSelect),
    ROW(radioInit),
    ROW(radioInitByScript),
    ROW(radioCpriInit),
    ROW(radioReset),
    ROW(radioLoadCalibrationFile),
    ROW(radioGetIntegerFromCalibration),
    ROW(radioGetStringFromCalibration),
    ROW(radioGetPlatformChipCount),
    ROW(radioGetPlatformName),
    ROW(radioVersion),
    ROW(radioGetDriverNames),
    ROW(radioSetTxFrequency),
    ROW(radioSetTxChannel),
    ROW(radioSetTxState),
    ROW(radioSetTxStateOfAntenna),
    ROW(radioSetTxMaxPower),
    ROW(radioSetTxMaxPowerOfAntenna),
    ROW(radioSetTxDcOffset),
    ROW(radioSetTxPowerRegisters),
    ROW(radioSetRxFrequency),
    ROW(radioSetRxChannel),
    ROW(radioSetRxState),
    ROW(radioSetRxStateOfAntenna),
    ROW(radioSetRxGain),
    ROW(radioSetRxGainMode),
    ROW(radioSetRxGainRegisters),
    ROW(radioSetLoopback),
    ROW(radioGetTemperature),
    ROW(radioGetRxRtwp),
    ROW(radioGetRxRtwpIndBm),
    ROW(radioGetRxRtwpOfAntenna),
    ROW(radioGetRxRtwpOfAntennaIndBm),
    ROW(radioGetRxGainIndB),
    ROW(radioGetRxGainOfAntennaIndB),
    ROW(radioSpiRead),
    ROW(radioSpiWrite),
    ROW(radioSetOscillatorDacValue),
    ROW(radioGetOscillatorDacValue),
    ROW(radioGetOscillatorDacWidth),
    ROW(radioGetDebugLevel),
    ROW(radioSetDebugLevel),
    ROW(radioSetDebugFile),
};

} // namespace

const Function *functionNamed(std::string_view name)
{
    for (const Function &function : functions)
        if (function.name == name)
            return &function;
    return nullptr;
}

} // namespace sorel
