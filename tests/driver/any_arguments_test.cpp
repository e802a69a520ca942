// SPDX-License-Identifier: LicenseRef-Proprietary
// Any arguments in any state: every call comes back with a status, the board stays usable, and its
// registers and functions tell the same state.
#include "any_call.h"

#include <array>
#include <cmath>

namespace sorel_tests
{

namespace
{

struct AnyArguments : AnyCallTest {
    bool isSetUp()
    {
        return (at(SETUP) & 1) != 0;
    }

    // In 0.1 dB or dBm, from a table that functions have loaded.
    int32_t word(uint32_t table, uint32_t index)
    {
        return static_cast<int32_t>(at(table + index));
    }

    // What the functions say of one path, and what the registers do.
    void expectPathAgrees(uint32_t path);

    int highestGain()
    {
        constexpr int gains[RADIO_PLATFORM_COUNT] = {76, 72, 64, 76, 60};
        return gains[at(IDENTITY) & 0xff];
    }

    // In Hz.
    uint32_t tuningStep()
    {
        constexpr uint32_t steps[RADIO_PLATFORM_COUNT] = {1, 1, 100, 1, 1000};
        return steps[at(IDENTITY) & 0xff];
    }

    void expectSynthesisersAgree();
    void expectTableHolds(uint32_t table, uint32_t count, int32_t low, int32_t high);
    void expectAgreement();
};

void AnyArguments::expectPathAgrees(uint32_t path)
{
    const auto antenna = static_cast<RadioRxAntenna>(path);
    const bool exists = isSetUp() && (path == 0 || (at(SETUP) >> 8 & 0xff) == RADIO_CONF_MIMO);
    const int32_t gain = radioGetRxGainOfAntennaIndB(context, antenna);
    ASSERT_EQ(gain != INT32_MIN, exists);
    ASSERT_EQ(static_cast<int32_t>(at(RX_GAIN + path)), gain);
    const bool hears = exists && at(RX_STATE + path) == 1;
    const float power = radioGetRxRtwpOfAntennaIndBm(context, antenna);
    ASSERT_EQ(!std::isnan(power), hears);
    ASSERT_EQ(at(RX_RTWP + path) != NOTHING, hears);
    ASSERT_EQ(radioGetRxRtwpOfAntenna(context, antenna) != INT32_MIN, hears);
    if (hears) {
        ASSERT_GT(power, -130.0f);
        ASSERT_LT(power, 5.0f);
    }
    if (!exists)
        return;
    if (at(GAIN_TABLE_COUNT) != 0) {
        ASSERT_LT(at(RX_STEP + path), at(GAIN_TABLE_COUNT));
        ASSERT_EQ(gain, std::lround(word(GAIN_TABLE, at(RX_STEP + path)) / 10.0));
    }
    const bool isOn = at(TX_STATE + path) == 1;
    const bool isRepeater = at(LOOPBACK) == RADIO_RX_TO_TX_LOOPBACK;
    ASSERT_EQ(at(TX_POWER + path) != NOTHING, isOn && (!isRepeater || hears));
    if (at(TX_POWER + path) != NOTHING) {
        ASSERT_LE(decibelsAt(TX_POWER + path),
                  static_cast<int32_t>(at(TX_MAX_POWER + path)) / 10.0 + 1.0 / 128);
    }
    // The gain mode decides whether the gain can be written.
    const bool isManual = at(RX_GAIN_MODE + path) == RADIO_RX_GAIN_MGC;
    const RadioReturn status = radioSpiWrite(context, RX_GAIN + path, highestGain());
    ASSERT_EQ(status, isManual ? RADIO_ESUCCESS : RADIO_EERROR);
}

void AnyArguments::expectSynthesisersAgree()
{
    ASSERT_EQ(at(LOCKS), isSetUp() ? 3u : 0u);
    if (!isSetUp()) {
        ASSERT_EQ(at(TX_FREQUENCY), 0u);
        ASSERT_EQ(at(RX_FREQUENCY), 0u);
        return;
    }
    // The frequency that is tuned to, as words or as hertz, is one that can be tuned to again.
    const uint16_t dac = static_cast<uint16_t>(radioGetOscillatorDacValue(context));
    const int middle = 1 << (radioGetOscillatorDacWidth(context) - 1);
    ASSERT_EQ(at(DAC), dac);
    ASSERT_EQ(radioSetOscillatorDacValue(context, static_cast<uint16_t>(middle)), RADIO_ESUCCESS);
    const uint32_t tx = at(TX_FREQUENCY), rx = at(RX_FREQUENCY);
    ASSERT_EQ(radioSetTxFrequency(context, tx), RADIO_ESUCCESS);
    ASSERT_EQ(radioSetRxFrequency(context, rx), RADIO_ESUCCESS);
    const uint32_t step = tuningStep();
    ASSERT_EQ(at(TX_INTEGER) * 40000000 + at(TX_FRACTION) * step, tx);
    ASSERT_EQ(at(RX_INTEGER) * 40000000 + at(RX_FRACTION) * step, rx);
    ASSERT_EQ(at(TX_FREQUENCY), tx);
    ASSERT_EQ(at(RX_FREQUENCY), rx);
    ASSERT_EQ(radioSetOscillatorDacValue(context, dac), RADIO_ESUCCESS);
}

void AnyArguments::expectTableHolds(uint32_t table, uint32_t count, int32_t low, int32_t high)
{
    ASSERT_LE(at(count), 256u);
    int32_t previous = low;
    for (uint32_t i = 0; i < at(count); ++i) {
        ASSERT_GE(word(table, i), previous);
        ASSERT_LE(word(table, i), high);
        previous = word(table, i);
    }
}

void AnyArguments::expectAgreement()
{
    const float temperature = radioGetTemperature(context);
    // In the time of a call it may go on by a step of the converter.
    ASSERT_NEAR(temperature, static_cast<int32_t>(at(TEMPERATURE)) / 16.0, 1.0 / 16);
    expectSynthesisersAgree(); // tunes, which sets gain control going
    wait(1000);                // until it has settled
    expectPathAgrees(0);
    if (at(IDENTITY) != 0x534f5200u + uint32_t{RADIO_PLATFORM_BELLAN})
        expectPathAgrees(1);
    expectTableHolds(GAIN_TABLE, GAIN_TABLE_COUNT, 0, 760);
    expectTableHolds(POWER_TABLE, POWER_TABLE_COUNT, -600, 270);
    const uint32_t selected = at(SELECTED);
    const uint32_t path = selected == RADIO_SELECT_1 ? 1u : 0u;
    const int32_t gain = radioGetRxGainIndB(context);
    ASSERT_EQ(gain, radioGetRxGainOfAntennaIndB(context, static_cast<RadioRxAntenna>(path)));
}

TEST_F(AnyArguments, every_call_answers_with_a_status_that_is_one)
{
    std::array<int, functionCount> successes = {};
    for (int i = 0; i < 300000; ++i) {
        const int function = static_cast<int>(randomNumber() % functionCount);
        const RadioReturn status = call(function, anyContext());
        ASSERT_TRUE(status == RADIO_ESUCCESS || status == RADIO_EINVAL || status == RADIO_EERROR ||
                    status == RADIO_ENOTSUP)
            << function << ": " << status;
        successes[static_cast<std::size_t>(function)] += status == RADIO_ESUCCESS;
    }
    // The loop has reached what it is to reach: each function but 2 and 44, which have been handed
    // no open context, has also succeeded.
    for (int function = 0; function < functionCount; ++function) {
        const bool never = function == 2 || function == 44;
        EXPECT_EQ(successes[static_cast<std::size_t>(function)] == 0, never) << function;
    }
}

TEST_F(AnyArguments, readings_stay_within_reason_after_any_calls)
{
    for (int i = 0; i < 30000; ++i) {
        call(static_cast<int>(randomNumber() % functionCount), context);
        const float temperature = radioGetTemperature(context);
        ASSERT_GT(temperature, 24.0f);
        ASSERT_LT(temperature, 80.0f);
        const int32_t gain = radioGetRxGainIndB(context);
        ASSERT_TRUE(gain == INT32_MIN || (gain >= 0 && gain <= 76)) << gain;
        const int32_t power = radioGetRxRtwp(context);
        ASSERT_TRUE(power == INT32_MIN || (power > -1200 && power < 0)) << power;
    }
}

TEST_F(AnyArguments, after_any_calls_registers_and_functions_agree)
{
    for (const unsigned seed : {1u, 2u, 3u, 4u, 5u}) {
        engine.seed(seed);
        for (int i = 0; i < 10000; ++i) {
            const int function = static_cast<int>(randomNumber() % functionCount);
            call(function, anyContext());
            if (i % 50 == 0)
                expectAgreement();
            ASSERT_FALSE(HasFailure()) << "seed " << seed << ", call " << i << " of " << function;
        }
        expectAgreement();
    }
}

} // namespace

} // namespace sorel_tests
