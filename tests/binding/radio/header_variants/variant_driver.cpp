// SPDX-License-Identifier: LicenseRef-Proprietary
#include "tests/binding/radio/header_variants/variant_driver.h"

#include <sorel.h>

std::int64_t reading = 0;
std::int64_t writtenValue = 0;
int debugLevelCalls = 0;

namespace
{

// The result of a function; void has none.
template <class Result>
Result resultOf(std::int64_t value)
{
    return static_cast<Result>(value);
}

} // namespace

// Defined in the executable, these come before those of the driver that it is linked with.
#define READING(name, ...)                                                                         \
    decltype(name(__VA_ARGS__)) name READING_PARAMETERS                                            \
    {                                                                                              \
        return resultOf<decltype(name(__VA_ARGS__))>(reading);                                     \
    }

#define READING_PARAMETERS (RadioContext *)
READING(radioGetPlatformChipCount, nullptr)
READING(radioGetRxRtwp, nullptr)
READING(radioGetRxGainIndB, nullptr)
READING(radioGetOscillatorDacWidth, nullptr)
READING(radioGetDebugLevel, nullptr)
#undef READING_PARAMETERS

#define READING_PARAMETERS (RadioContext *, RadioRxAntenna)
READING(radioGetRxRtwpOfAntenna, nullptr, RADIO_RX_ANTENNA_1)
READING(radioGetRxGainOfAntennaIndB, nullptr, RADIO_RX_ANTENNA_1)
#undef READING_PARAMETERS

decltype(radioSetDebugLevel(nullptr, RADIO_DEBUG_NONE)) radioSetDebugLevel(RadioContext *,
                                                                           RadioDebug)
{
    ++debugLevelCalls;
    return resultOf<decltype(radioSetDebugLevel(nullptr, RADIO_DEBUG_NONE))>(5);
}

namespace
{

template <class Function>
struct LastParameter;

template <class Result, class First, class Second, class Third>
struct LastParameter<Result(First, Second, Third)> {
    using Type = Third;
};

} // namespace

RadioReturn radioSpiWrite(RadioContext *, std::uint32_t,
                          LastParameter<decltype(radioSpiWrite)>::Type value)
{
    writtenValue = value;
    return RADIO_ESUCCESS;
}
