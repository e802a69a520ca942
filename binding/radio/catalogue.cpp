// SPDX-License-Identifier: LicenseRef-Proprietary
#include "binding/radio/catalogue.h"

#include "binding/radio/native_pointers.h"
#include "binding/radio/register_tables.h"
#include "binding/radio/wrapper.h"

namespace
{

template <FixedString name, auto *function, WrapperOptions options>
constexpr lua_CFunction wrapperOf()
{
    if constexpr (takesKnownTypes<function, options>() && returnsKnownType<function, options>()) {
        return Wrapper<name, function, options>::call;
    } else {
        return nullptr; // only one error is reported, that of PLAIN
    }
}

} // namespace

// clang-format off

// A driver function that the common frame wraps, with WrapperOptions where it needs any.
#define PLAIN(name, ...)                                                                           \
    {#name, [] {                                                                                   \
         constexpr WrapperOptions options{__VA_ARGS__};                                            \
         static_assert(takesKnownTypes<::name, options>(),                                         \
                       #name ": sorel.h declares a parameter of a type that has no argument kind;" \
                             " the kinds are in binding/radio/arguments.h");                       \
         static_assert(returnsKnownType<::name, options>(),                                        \
                       #name ": sorel.h declares a result of a type that has no form in Lua;"      \
                             " see pushResult() in binding/radio/results.h");                      \
         return wrapperOf<#name, ::name, options>();                                               \
     }()}

// A driver function with a wrapper of its own.
#define OWN(name) {#name, name##Wrapper}

constinit const CommandEntry radioCommands[] = {
    PLAIN(radioSelect),
    PLAIN(radioSelectPlatform),
    PLAIN(radioReset),
    PLAIN(radioLoadCalibrationFile),
    OWN(radioGetIntegerFromCalibration),
    OWN(radioGetStringFromCalibration),
    OWN(radioSetDebugFile),
    PLAIN(radioSetDebugLevel, .ignoresResult = true),
    PLAIN(radioGetDebugLevel),
    PLAIN(radioVersion),
    PLAIN(radioGetPlatformName),
    PLAIN(radioGetPlatformChipCount),
    OWN(radioGetDriverNames),
    PLAIN(radioInit),
    PLAIN(radioInitByScript),
    PLAIN(radioCpriInit),
    PLAIN(radioSetTxState),
    PLAIN(radioSetTxStateOfAntenna),
    PLAIN(radioSetRxState),
    PLAIN(radioSetRxStateOfAntenna),
    PLAIN(radioSetTxMaxPower),
    PLAIN(radioSetTxMaxPowerOfAntenna),
    PLAIN(radioSetRxChannel),
    PLAIN(radioSetRxFrequency),
    PLAIN(radioSetTxChannel),
    PLAIN(radioSetTxFrequency),
    PLAIN(radioSetRxGainMode),
    PLAIN(radioSetRxGain),
    PLAIN(radioGetRxGainIndB),
    PLAIN(radioGetRxGainOfAntennaIndB),
    PLAIN(radioSetTxDcOffset),
    PLAIN(radioGetRxRtwp),
    PLAIN(radioGetRxRtwpIndBm),
    PLAIN(radioGetRxRtwpOfAntenna),
    PLAIN(radioGetRxRtwpOfAntennaIndBm),
    PLAIN(radioGetTemperature),
    OWN(radioSetTxPowerRegisters),
    OWN(radioSetRxGainRegisters),
    PLAIN(radioGetOscillatorDacWidth),
    PLAIN(radioGetOscillatorDacValue),
    PLAIN(radioSetOscillatorDacValue),
    PLAIN(radioSetLoopback),
    PLAIN(radioSpiWrite, .uncheckedArgument = 2),
    PLAIN(radioSpiRead),
    {nullptr, nullptr},
};

// clang-format on
