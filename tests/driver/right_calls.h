// SPDX-License-Identifier: LicenseRef-Proprietary
// A call that is right in the state Ready for each function with a status, and how to write calls.
#ifndef SOREL_TESTS_DRIVER_RIGHT_CALLS_H
#define SOREL_TESTS_DRIVER_RIGHT_CALLS_H

#include "radio_test.h"
#include "states.h"

namespace sorel_tests
{

// A call and its text.
#define CALL(expression) #expression, []([[maybe_unused]] RadioContext * c) { return expression; }

struct RightCall {
    const char *text;
    RadioReturn (*call)(RadioContext *c);
    bool needsInit;
};

constexpr RadioConf MIMO = RADIO_CONF_MIMO;
constexpr RadioMode FDD = RADIO_MODE_4GENODEB_FDD_20MHZ;
constexpr RadioMode TDD = RADIO_MODE_4GENODEB_TDD_20MHZ;
constexpr RadioBand B7 = RADIO_BAND_7;
constexpr RadioState ON = RADIO_STATE_ENABLE;
constexpr RadioTxAntenna T1 = RADIO_TX_ANTENNA_1;
constexpr RadioTxAntenna T2 = RADIO_TX_ANTENNA_2;
constexpr RadioRxAntenna R1 = RADIO_RX_ANTENNA_1;
constexpr RadioRxAntenna R2 = RADIO_RX_ANTENNA_2;

template <class Enum>
constexpr Enum valued(int32_t value)
{
    return static_cast<Enum>(value);
}

inline const uint32_t words[257] = {};
inline int32_t integer;
inline const char *text;

// clang-format off

// All but radioSelectPlatform() and radioClose(), and those that look calibration data up, of which
// none are loaded in any state.
inline const RightCall rightCalls[] = {
    {CALL(radioSelect(c, RADIO_SELECT_1)),                                     false},
    {CALL(radioInit(c, MIMO, FDD, B7)),                                        false},
    {CALL(radioInitByScript(c, MIMO, FDD, B7, SOREL_DATA_DIR "/good.script")), false},
    {CALL(radioCpriInit(c, RADIO_CPRI_RATE_4)),                                false},
    {CALL(radioReset(c)),                                                      false},
    {CALL(radioLoadCalibrationFile(c, SOREL_DATA_DIR "/good.toml")),           false},
    {CALL(radioSetTxFrequency(c, 2655000000u)),                                true},
    {CALL(radioSetTxChannel(c, 2850)),                                         true},
    {CALL(radioSetTxState(c, ON)),                                             true},
    {CALL(radioSetTxStateOfAntenna(c, T2, ON)),                                true},
    {CALL(radioSetTxMaxPower(c, 100)),                                         true},
    {CALL(radioSetTxMaxPowerOfAntenna(c, T2, 100)),                            true},
    {CALL(radioSetTxDcOffset(c, T2, -2048, 2047)),                             true},
    {CALL(radioSetTxPowerRegisters(c, words, 256)),                            true},
    {CALL(radioSetRxFrequency(c, 2535000000u)),                                true},
    {CALL(radioSetRxChannel(c, 20850)),                                        true},
    {CALL(radioSetRxState(c, ON)),                                             true},
    {CALL(radioSetRxStateOfAntenna(c, R2, ON)),                                true},
    {CALL(radioSetRxGain(c, 30)),                                              true},
    {CALL(radioSetRxGainMode(c, RADIO_RX_GAIN_AGC_SLOW)),                      true},
    {CALL(radioSetRxGainRegisters(c, words, 256)),                             true},
    {CALL(radioSetLoopback(c, RADIO_TX_TO_RX_LOOPBACK)),                       true},
    {CALL(radioSpiWrite(c, SCRATCH, -1)),                                      false},
    {CALL(radioSetOscillatorDacValue(c, 65535)),                               false},
    {CALL(radioSetDebugLevel(c, RADIO_DEBUG_NONE)),                            false},
    {CALL(radioSetDebugFile(c, nullptr)),                                      false},
};

// clang-format on

} // namespace sorel_tests

#endif
