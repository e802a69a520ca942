// SPDX-License-Identifier: LicenseRef-Proprietary
// Receiver gain: by hand, and by each gain control.
#include "radio_test.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace sorel_tests
{

namespace
{

class Receiver : public RadioTest
{
protected:
    void SetUp() override
    {
        RadioTest::SetUp();
        init(RADIO_CONF_SISO);
        ASSERT_EQ(radioSetTxState(context, RADIO_STATE_ENABLE), RADIO_ESUCCESS);
        ASSERT_EQ(radioSetLoopback(context, RADIO_TX_TO_RX_LOOPBACK), RADIO_ESUCCESS);
    }

    // Brings the receiver's input to that level in dBm: the loopback loses 60 dB.
    void hear(int level)
    {
        ASSERT_EQ(radioSetTxMaxPower(context, static_cast<int16_t>((level + 60) * 10)),
                  RADIO_ESUCCESS);
    }

    void mode(RadioRxGainMode gainMode)
    {
        ASSERT_EQ(radioSetRxGainMode(context, gainMode), RADIO_ESUCCESS);
    }

    int gain()
    {
        return radioGetRxGainIndB(context);
    }
};

TEST_F(Receiver, manual_gain_is_what_was_set_whatever_comes_in)
{
    for (int16_t set = 0; set <= 76; ++set) {
        ASSERT_EQ(radioSetRxGain(context, set), RADIO_ESUCCESS);
        ASSERT_EQ(gain(), set);
    }
    hear(-80);
    EXPECT_EQ(gain(), 76);
}

TEST_F(Receiver, slow_control_brings_the_input_to_its_target)
{
    mode(RADIO_RX_GAIN_AGC_SLOW);
    for (int level = -89; level <= -36; ++level) {
        hear(level);
        // At the target of -18 dBm or less than a step below it.
        EXPECT_NEAR(gain() + level, -18.5, 0.5) << level;
    }
}

TEST_F(Receiver, fast_control_stays_lower_and_takes_coarse_steps)
{
    mode(RADIO_RX_GAIN_AGC_FAST);
    std::vector<int> gains;
    for (int level = -89; level <= -36; ++level) {
        hear(level);
        gains.push_back(gain());
        EXPECT_LE(gain() + level, -24) << level;
        EXPECT_GE(gain() + level, -24 - 4) << level;
        EXPECT_EQ(gain() % 3, 0) << level;
    }
    EXPECT_TRUE(std::is_sorted(gains.rbegin(), gains.rend()));
    EXPECT_GT(gains.front(), gains.back());
}

TEST_F(Receiver, gain_control_stays_in_the_platforms_range)
{
    ASSERT_EQ(radioSetTxState(context, RADIO_STATE_DISABLE), RADIO_ESUCCESS);
    mode(RADIO_RX_GAIN_AGC_SLOW);
    EXPECT_EQ(gain(), 76);
    mode(RADIO_RX_GAIN_AGC_FAST);
    EXPECT_EQ(gain(), 75);

    open(RADIO_PLATFORM_BELLAN); // 3 to 60 dB
    init(RADIO_CONF_SISO, RADIO_MODE_4GENODEB_TDD_20MHZ, RADIO_BAND_38);
    mode(RADIO_RX_GAIN_AGC_SLOW);
    EXPECT_EQ(gain(), 60);
    ASSERT_EQ(radioSetTxState(context, RADIO_STATE_ENABLE), RADIO_ESUCCESS);
    ASSERT_EQ(radioSetLoopback(context, RADIO_TX_TO_RX_LOOPBACK), RADIO_ESUCCESS);
    mode(RADIO_RX_GAIN_AGC_FAST);
    ASSERT_EQ(radioSetTxMaxPower(context, 265), RADIO_ESUCCESS);
    EXPECT_EQ(gain(), 9); // -33.5 dBm in, at most -24 dBm wanted, in steps of 3 dB from 3 dB on
}

TEST_F(Receiver, hybrid_control_acts_only_when_triggered)
{
    hear(-80);
    mode(RADIO_RX_GAIN_AGC_SLOW_HYBRID);
    const int first = gain();
    EXPECT_NEAR(first - 80, -18, 1);
    hear(-50);
    EXPECT_EQ(gain(), first);

    // Tuning triggers it,
    ASSERT_EQ(radioSetRxFrequency(context, 2540000000u), RADIO_ESUCCESS);
    const int second = gain();
    EXPECT_NEAR(second - 50, -18, 1);
    // and so does switching on,
    hear(-60);
    EXPECT_EQ(gain(), second);
    ASSERT_EQ(radioSetRxState(context, RADIO_STATE_ENABLE), RADIO_ESUCCESS);
    EXPECT_NEAR(gain() - 60, -18, 1);
    // and setting the mode.
    hear(-70);
    mode(RADIO_RX_GAIN_AGC_SLOW_HYBRID);
    EXPECT_NEAR(gain() - 70, -18, 1);
    // A transmit channel does not.
    const int third = gain();
    hear(-50);
    ASSERT_EQ(radioSetTxChannel(context, 2850), RADIO_ESUCCESS);
    EXPECT_EQ(gain(), third);
}

TEST_F(Receiver, manual_gain_holds_again_after_automatic)
{
    ASSERT_EQ(radioSetRxGain(context, 33), RADIO_ESUCCESS);
    mode(RADIO_RX_GAIN_AGC_SLOW);
    EXPECT_NE(gain(), 33);
    mode(RADIO_RX_GAIN_MGC);
    EXPECT_EQ(gain(), 33);
}

TEST_F(Receiver, a_gain_for_several_receivers_is_set_on_all_or_none)
{
    init(RADIO_CONF_MIMO);
    ASSERT_EQ(radioSetRxGain(context, 20), RADIO_ESUCCESS);
    ASSERT_EQ(radioSelect(context, RADIO_SELECT_1), RADIO_ESUCCESS);
    mode(RADIO_RX_GAIN_AGC_FAST);
    ASSERT_EQ(radioSelect(context, RADIO_SELECT_ALL), RADIO_ESUCCESS);
    EXPECT_EQ(radioSetRxGain(context, 30), RADIO_EERROR);
    EXPECT_EQ(radioGetRxGainOfAntennaIndB(context, RADIO_RX_ANTENNA_1), 20);
}

TEST_F(Receiver, the_gain_table_can_be_read_back)
{
    const uint32_t words[] = {0, 0xffffffff, 0x12345678};
    ASSERT_EQ(radioSetRxGainRegisters(context, words, 3), RADIO_ESUCCESS);
    EXPECT_EQ(at(GAIN_TABLE_COUNT), 3u);
    for (uint32_t i = 0; i < 3; ++i)
        EXPECT_EQ(at(GAIN_TABLE + i), words[i]);
    EXPECT_EQ(at(POWER_TABLE_COUNT), 0u);
    ASSERT_EQ(radioSetRxGainRegisters(context, words + 1, 1), RADIO_ESUCCESS);
    EXPECT_EQ(at(GAIN_TABLE_COUNT), 1u);
    EXPECT_EQ(at(GAIN_TABLE), 0xffffffffu);
    EXPECT_EQ(at(GAIN_TABLE + 1), 0u);
}

} // namespace

} // namespace sorel_tests
