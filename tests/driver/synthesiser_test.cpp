// SPDX-License-Identifier: LicenseRef-Proprietary
// The synthesisers: their steps, their lock, their words, and the oscillator under them.
#include "radio_test.h"

#include <cmath>

namespace sorel_tests
{

namespace
{

constexpr uint32_t bothLocked = 3;

class Synthesiser : public RadioTest
{
protected:
    // In a scenario in which they need 10 ms to lock.
    void openSlow(RadioPlatformSelectIndex platform = RADIO_PLATFORM_DEFAULT)
    {
        openIn("lock_time = 0.01", platform);
    }

    RadioReturn enable()
    {
        return radioSetTxState(context, RADIO_STATE_ENABLE);
    }

    RadioReturn write(uint32_t address, uint32_t value)
    {
        return radioSpiWrite(context, address, static_cast<int32_t>(value));
    }
};

TEST_F(Synthesiser, frequencies_are_rounded_to_the_platforms_step)
{
    const struct {
        RadioPlatformSelectIndex platform;
        RadioMode mode;
        RadioBand band;
        uint32_t wanted, given;
    } rows[] = {
        {RADIO_PLATFORM_DEFAULT, RADIO_MODE_4GENODEB_FDD_5MHZ, RADIO_BAND_7, 2655000049,
         2655000049},
        {RADIO_PLATFORM_MERRIK, RADIO_MODE_4GENODEB_FDD_5MHZ, RADIO_BAND_7, 2655000049, 2655000000},
        {RADIO_PLATFORM_MERRIK, RADIO_MODE_4GENODEB_FDD_5MHZ, RADIO_BAND_7, 2655000050, 2655000100},
        {RADIO_PLATFORM_BELLAN, RADIO_MODE_4GENODEB_TDD_5MHZ, RADIO_BAND_38, 2600000499,
         2600000000},
        {RADIO_PLATFORM_BELLAN, RADIO_MODE_4GENODEB_TDD_5MHZ, RADIO_BAND_38, 2600000500,
         2600001000},
    };
    for (const auto &row : rows) {
        open(row.platform);
        init(RADIO_CONF_SISO, row.mode, row.band);
        ASSERT_EQ(radioSetTxFrequency(context, row.wanted), RADIO_ESUCCESS);
        EXPECT_EQ(at(TX_FREQUENCY), row.given) << row.platform << ' ' << row.wanted;
    }
}

TEST_F(Synthesiser, band_7_channel_2850_is_2630_MHz)
{
    init();
    ASSERT_EQ(radioSetTxChannel(context, 2850), RADIO_ESUCCESS);
    EXPECT_EQ(at(TX_FREQUENCY), 2630000000u);
}

TEST_F(Synthesiser, a_plain_session_never_finds_it_without_lock)
{
    for (int platform = 0; platform < RADIO_PLATFORM_COUNT; ++platform) {
        const auto selected = static_cast<RadioPlatformSelectIndex>(platform);
        open(selected);
        const bool isTerminal = selected == RADIO_PLATFORM_OSTRAV;
        const bool isTimeDivision = selected == RADIO_PLATFORM_BELLAN;
        init(RADIO_CONF_SISO,
             isTerminal       ? RADIO_MODE_4GUERX_FDD_5MHZ
             : isTimeDivision ? RADIO_MODE_4GENODEB_TDD_5MHZ
                              : RADIO_MODE_4GENODEB_FDD_5MHZ,
             isTimeDivision ? RADIO_BAND_38 : RADIO_BAND_7);
        EXPECT_EQ(at(LOCKS), bothLocked) << platform;
        EXPECT_EQ(enable(), RADIO_ESUCCESS) << platform;
    }
}

TEST_F(Synthesiser, before_init_nothing_is_locked)
{
    EXPECT_EQ(at(LOCKS), 0u);
}

TEST_F(Synthesiser, it_locks_after_its_time)
{
    openSlow();
    init();
    wait(98); // and 2 calls more are 10 ms
    EXPECT_EQ(at(LOCKS), 0u);
    EXPECT_EQ(at(LOCKS), bothLocked);
}

TEST_F(Synthesiser, tuning_to_another_frequency_loses_the_lock_of_that_direction)
{
    openSlow();
    init();
    wait(100);
    ASSERT_EQ(radioSetTxFrequency(context, 2655000000u), RADIO_ESUCCESS); // where it was
    EXPECT_EQ(at(LOCKS), bothLocked);
    ASSERT_EQ(radioSetTxFrequency(context, 2655000001u), RADIO_ESUCCESS);
    EXPECT_EQ(at(LOCKS), 2u);
    wait(100);
    ASSERT_EQ(radioSetRxChannel(context, 20850), RADIO_ESUCCESS);
    EXPECT_EQ(at(LOCKS), 1u);
}

TEST_F(Synthesiser, time_division_has_one_for_both_directions)
{
    openSlow();
    init(RADIO_CONF_SISO, RADIO_MODE_TD_SCDMA_NODEB, RADIO_BAND_34);
    wait(100);
    ASSERT_EQ(radioSetRxFrequency(context, 2020000000u), RADIO_ESUCCESS);
    EXPECT_EQ(at(LOCKS), 0u);
    EXPECT_EQ(at(TX_FREQUENCY), 2020000000u);
    wait(100);
    EXPECT_EQ(at(LOCKS), bothLocked);
}

TEST_F(Synthesiser, without_lock_no_transmitter_is_switched_on_but_off)
{
    openSlow();
    init();
    EXPECT_EQ(enable(), RADIO_EAGAIN);
    EXPECT_EQ(radioSetTxStateOfAntenna(context, RADIO_TX_ANTENNA_2, RADIO_STATE_ENABLE),
              RADIO_EAGAIN);
    EXPECT_EQ(write(TX_STATE, 1), RADIO_EAGAIN);
    EXPECT_EQ(at(TX_STATE), 0u);
    EXPECT_EQ(radioSetTxState(context, RADIO_STATE_DISABLE), RADIO_ESUCCESS);
    wait(100);
    EXPECT_EQ(enable(), RADIO_ESUCCESS);
    EXPECT_EQ(at(TX_STATE), 1u);
}

TEST_F(Synthesiser, without_lock_a_transmitter_is_mute)
{
    openSlow();
    init();
    wait(100);
    ASSERT_EQ(enable(), RADIO_ESUCCESS);
    EXPECT_EQ(decibelsAt(TX_POWER), 24);
    ASSERT_EQ(radioSetTxFrequency(context, 2650000000u), RADIO_ESUCCESS);
    EXPECT_EQ(at(TX_STATE), 1u);
    EXPECT_EQ(at(TX_POWER), NOTHING);
    wait(100);
    EXPECT_EQ(decibelsAt(TX_POWER), 24);
}

TEST_F(Synthesiser, without_lock_nothing_is_measured)
{
    openSlow();
    init();
    EXPECT_TRUE(std::isnan(radioGetRxRtwpIndBm(context)));
    EXPECT_EQ(radioGetRxRtwp(context), INT32_MIN);
    EXPECT_EQ(radioGetRxRtwpOfAntenna(context, RADIO_RX_ANTENNA_2), INT32_MIN);
    EXPECT_EQ(at(RX_RTWP), NOTHING);
    EXPECT_EQ(radioGetRxGainIndB(context), 76); // the gain is no measurement
    wait(100);
    EXPECT_FALSE(std::isnan(radioGetRxRtwpIndBm(context)));
}

TEST_F(Synthesiser, the_log_says_that_such_a_reading_lacks_the_lock)
{
    openSlow();
    init();
    FILE *const log = std::tmpfile();
    ASSERT_EQ(radioSetDebugFile(context, log), RADIO_ESUCCESS);
    ASSERT_EQ(radioSetDebugLevel(context, RADIO_DEBUG_ERROR), RADIO_ESUCCESS);
    radioGetRxRtwp(context);
    ASSERT_EQ(radioSetDebugLevel(context, RADIO_DEBUG_NONE), RADIO_ESUCCESS);
    std::rewind(log);
    char text[1000] = {};
    EXPECT_GT(std::fread(text, 1, sizeof text - 1, log), 0u);
    EXPECT_NE(std::string(text).find("synthesiser has not locked"), std::string::npos) << text;
    radioSetDebugFile(context, nullptr);
    std::fclose(log);
}

TEST_F(Synthesiser, without_lock_gain_control_stands_still)
{
    openSlow();
    init(RADIO_CONF_SISO);
    ASSERT_EQ(radioSetRxGain(context, 20), RADIO_ESUCCESS);
    ASSERT_EQ(radioSetRxGainMode(context, RADIO_RX_GAIN_AGC_FAST), RADIO_ESUCCESS);
    wait(90);
    EXPECT_EQ(radioGetRxGainIndB(context), 20);
    wait(100);
    EXPECT_EQ(radioGetRxGainIndB(context), 68); // noise of -26 dBFS
}

TEST_F(Synthesiser, gain_control_decides_on_whole_periods_also_after_locking)
{
    init(RADIO_CONF_SISO);
    ASSERT_EQ(radioSetRxGain(context, 20), RADIO_ESUCCESS);
    ASSERT_EQ(radioSetRxGainMode(context, RADIO_RX_GAIN_AGC_FAST), RADIO_ESUCCESS);
    // Locked 60 us later: of the two decisions in the time of a call, one.
    ASSERT_EQ(radioSetRxFrequency(context, 2540000000u), RADIO_ESUCCESS);
    const int before = 20 + 2 * 3; // what went before
    EXPECT_EQ(radioGetRxGainIndB(context), before + 3);
}

TEST_F(Synthesiser, a_lost_lock_is_remembered_until_it_is_cleared)
{
    init();
    EXPECT_EQ(at(EVENTS), TX_UNLOCKED | RX_UNLOCKED);
    ASSERT_EQ(write(EVENTS, TX_UNLOCKED), RADIO_ESUCCESS);
    EXPECT_EQ(at(EVENTS), uint32_t{RX_UNLOCKED});
    ASSERT_EQ(write(EVENTS, RX_UNLOCKED), RADIO_ESUCCESS);
    EXPECT_EQ(at(EVENTS), 0u);
    ASSERT_EQ(radioSetTxChannel(context, 2850), RADIO_ESUCCESS);
    EXPECT_EQ(at(EVENTS), uint32_t{TX_UNLOCKED});
}

TEST_F(Synthesiser, the_oscillator_shifts_what_it_gives)
{
    const struct {
        RadioPlatformSelectIndex platform;
        RadioMode mode;
        RadioBand band;
        double step; // of the DAC, of the frequency
        uint16_t highest;
    } rows[] = {
        {RADIO_PLATFORM_DEFAULT, RADIO_MODE_4GUERX_TDD_5MHZ, RADIO_BAND_43, 3e-10, 65535},
        {RADIO_PLATFORM_TALWIN, RADIO_MODE_4GUERX_FDD_5MHZ, RADIO_BAND_7, 3e-10, 65535},
        {RADIO_PLATFORM_MERRIK, RADIO_MODE_4GUERX_FDD_5MHZ, RADIO_BAND_7, 50e-10, 4095},
        {RADIO_PLATFORM_OSTRAV, RADIO_MODE_4GUERX_FDD_5MHZ, RADIO_BAND_7, 12e-10, 16383},
        {RADIO_PLATFORM_BELLAN, RADIO_MODE_4GUERX_TDD_5MHZ, RADIO_BAND_38, 200e-10, 1023},
    };
    for (const auto &row : rows) {
        open(row.platform);
        init(RADIO_CONF_SISO, row.mode, row.band);
        const uint32_t tx = at(TX_FREQUENCY), rx = at(RX_FREQUENCY);
        const uint32_t words[] = {at(TX_INTEGER), at(TX_FRACTION)};
        const int middle = (row.highest + 1) / 2;
        for (const int dac : {0, 1, middle - 1, middle, middle + 1, row.highest + 0}) {
            ASSERT_EQ(radioSetOscillatorDacValue(context, static_cast<uint16_t>(dac)),
                      RADIO_ESUCCESS);
            const double factor = 1 + (dac - middle) * row.step;
            EXPECT_NEAR(at(TX_FREQUENCY), tx * factor, 0.501) << row.platform << ' ' << dac;
            EXPECT_NEAR(at(RX_FREQUENCY), rx * factor, 0.501) << row.platform << ' ' << dac;
        }
        EXPECT_EQ(at(TX_INTEGER), words[0]);
        EXPECT_EQ(at(TX_FRACTION), words[1]);
        EXPECT_EQ(at(LOCKS), bothLocked);
    }
}

} // namespace

} // namespace sorel_tests
