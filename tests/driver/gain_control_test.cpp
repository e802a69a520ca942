// SPDX-License-Identifier: LicenseRef-Proprietary
// The gain controls: where they bring the converter, how fast, and when they act at all.
#include "radio_test.h"

#include <algorithm>

namespace sorel_tests
{

namespace
{

constexpr RadioRxGainMode MANUAL = RADIO_RX_GAIN_MGC;
constexpr RadioRxGainMode FAST = RADIO_RX_GAIN_AGC_FAST;
constexpr RadioRxGainMode SLOW = RADIO_RX_GAIN_AGC_SLOW;
constexpr RadioRxGainMode HYBRID = RADIO_RX_GAIN_AGC_SLOW_HYBRID;

class GainControl : public RadioTest
{
protected:
    // What comes in is what is sent, less 60 dB.
    void listen(const std::string &scenario = "")
    {
        openIn(scenario);
        init(RADIO_CONF_SISO);
        wait(1000);
        ASSERT_EQ(radioSetTxState(context, RADIO_STATE_ENABLE), RADIO_ESUCCESS);
        ASSERT_EQ(radioSetLoopback(context, RADIO_TX_TO_RX_LOOPBACK), RADIO_ESUCCESS);
    }

    // Brings the receiver's input to that level in dBm.
    void hear(double level)
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

    int settled()
    {
        wait(2000);
        return gain();
    }

    // By how much the gain changes in each of the next calls, 0.1 ms each.
    std::vector<int> changes(int calls)
    {
        std::vector<int> steps;
        for (int before = gain(); calls > 0; --calls) {
            const int now = gain();
            steps.push_back(now - before);
            before = now;
        }
        return steps;
    }

    // Settles at -80 dBm, then hears 30 dB more: the calls until the last change of the gain.
    std::ptrdiff_t callsToFollowAStep(RadioRxGainMode gainMode)
    {
        listen();
        hear(-80);
        mode(gainMode);
        wait(2000);
        hear(-50);
        const std::vector<int> steps = changes(2000);
        const auto last =
            std::find_if(steps.rbegin(), steps.rend(), [](int step) { return step != 0; });
        return steps.rend() - last;
    }
};

// Levels in dB of full scale.
void expectWithin(double level, double low, double high)
{
    EXPECT_GE(level, low);
    EXPECT_LE(level, high);
}

TEST_F(GainControl, each_mode_brings_the_converter_into_its_window_from_above_and_below)
{
    const struct {
        RadioRxGainMode mode;
        double low, high;
    } rows[] = {{FAST, -28, -20}, {SLOW, -21, -15}, {HYBRID, -21, -15}};
    listen();
    for (const auto &row : rows)
        for (int level = -80; level <= -36; level += 4)
            for (const int16_t start : {int16_t{0}, int16_t{76}}) {
                SCOPED_TRACE(testing::Message() << row.mode << ' ' << level << ' ' << start);
                mode(MANUAL);
                hear(level);
                ASSERT_EQ(radioSetRxGain(context, start), RADIO_ESUCCESS);
                mode(row.mode);
                expectWithin(level + settled(), row.low, row.high);
            }
}

TEST_F(GainControl, manual_gain_never_moves)
{
    EXPECT_EQ(callsToFollowAStep(MANUAL), 0);
    EXPECT_EQ(gain(), 76);
}

TEST_F(GainControl, a_step_of_30_dB_settles_in_less_than_a_millisecond_when_fast)
{
    const auto calls = callsToFollowAStep(FAST);
    EXPECT_GT(calls, 0);
    EXPECT_LT(calls, 10);
    expectWithin(-50 + gain(), -28, -20);
}

TEST_F(GainControl, a_step_of_30_dB_takes_more_than_10_milliseconds_when_slow)
{
    EXPECT_GT(callsToFollowAStep(SLOW), 100);
    expectWithin(-50 + gain(), -21, -15);
}

TEST_F(GainControl, a_step_of_30_dB_is_not_followed_when_hybrid)
{
    EXPECT_EQ(callsToFollowAStep(HYBRID), 0);
}

TEST_F(GainControl, fast_control_takes_3_steps_each_50_microseconds_and_9_when_overloaded)
{
    listen();
    hear(-40); // 76 dB of gain are 36 dB too much
    mode(FAST);
    // 18 dB more have gone when the gain is read first; -9 dBFS are no longer an overload.
    EXPECT_EQ(changes(6), (std::vector<int>{-18, -9 - 3, -3 - 3, -3, 0, 0}));
}

TEST_F(GainControl, fast_control_goes_up_as_fast_but_never_above_its_window)
{
    listen();
    ASSERT_EQ(radioSetRxGain(context, 0), RADIO_ESUCCESS);
    hear(-40);
    mode(FAST);
    int level = -40;
    for (const int step : changes(20)) {
        EXPECT_LE(step, 6);
        level += step;
        EXPECT_LE(level, -20);
    }
    expectWithin(-40 + gain(), -28, -20);
}

TEST_F(GainControl, slow_control_takes_a_step_each_millisecond_and_2_when_overloaded)
{
    listen();
    hear(-72); // 76 dB of gain are 4 dB too much
    mode(SLOW);
    std::vector<int> expected(25, 0);
    std::fill_n(expected.begin(), 17, -1);
    std::fill_n(expected.begin(), 3, -2); // from 4, 2 and, with the noise, a little above 0 dBFS
    std::vector<int> eachMillisecond;
    for (int before = gain(); eachMillisecond.size() < expected.size();) {
        wait(9);
        const int now = gain();
        eachMillisecond.push_back(now - before);
        before = now;
    }
    EXPECT_EQ(eachMillisecond, expected);
}

TEST_F(GainControl, hybrid_control_acts_until_settled_once_triggered)
{
    listen();
    hear(-80);
    mode(HYBRID);
    const int first = settled();
    expectWithin(-80 + first, -21, -15);
    hear(-50);
    EXPECT_EQ(settled(), first);

    // Tuning triggers it,
    ASSERT_EQ(radioSetRxFrequency(context, 2540000000u), RADIO_ESUCCESS);
    const int second = settled();
    expectWithin(-50 + second, -21, -15);
    // and so does switching on,
    hear(-65);
    EXPECT_EQ(settled(), second);
    ASSERT_EQ(radioSetRxState(context, RADIO_STATE_ENABLE), RADIO_ESUCCESS);
    const int third = settled();
    expectWithin(-65 + third, -21, -15);
    // and setting the mode.
    hear(-75);
    mode(HYBRID);
    const int fourth = settled();
    expectWithin(-75 + fourth, -21, -15);
    // A transmit channel does not.
    hear(-50);
    ASSERT_EQ(radioSetTxChannel(context, 2850), RADIO_ESUCCESS);
    EXPECT_EQ(settled(), fourth);
}

TEST_F(GainControl, gains_stay_in_the_platforms_range)
{
    open(RADIO_PLATFORM_BELLAN); // 3 to 60 dB
    init(RADIO_CONF_SISO, RADIO_MODE_4GENODEB_TDD_20MHZ, RADIO_BAND_38);
    ASSERT_EQ(radioSetRxGain(context, 3), RADIO_ESUCCESS);
    mode(FAST);
    EXPECT_EQ(settled(), 60);
}

TEST_F(GainControl, controls_move_along_the_gain_table)
{
    listen();
    const std::vector<uint32_t> table = {0, 120, 240, 360, 480, 600};
    ASSERT_EQ(radioSetRxGainRegisters(context, table.data(), 6), RADIO_ESUCCESS);
    hear(-56);
    mode(SLOW);
    EXPECT_EQ(settled(), 36); // -20 dBFS; a step up would lead to -8
    hear(-68);
    EXPECT_EQ(settled(), 48);
    hear(-61); // -13 dBFS, above the window: down to -25, below it, and no way up
    EXPECT_EQ(settled(), 36);
}

TEST_F(GainControl, each_receiver_has_its_own_control)
{
    openIn("");
    init();
    wait(1);
    ASSERT_EQ(radioSetTxStateOfAntenna(context, RADIO_TX_ANTENNA_2, RADIO_STATE_ENABLE),
              RADIO_ESUCCESS);
    ASSERT_EQ(radioSetLoopback(context, RADIO_TX_TO_RX_LOOPBACK), RADIO_ESUCCESS);
    mode(SLOW);
    wait(2000);
    EXPECT_EQ(radioGetRxGainOfAntennaIndB(context, RADIO_RX_ANTENNA_1), 76);
    expectWithin(24 - 60 + radioGetRxGainOfAntennaIndB(context, RADIO_RX_ANTENNA_2), -21, -15);
}

TEST_F(GainControl, control_stands_still_while_the_receiver_is_off)
{
    listen();
    hear(-40);
    mode(FAST);
    ASSERT_EQ(radioSetRxState(context, RADIO_STATE_DISABLE), RADIO_ESUCCESS);
    const int before = gain();
    EXPECT_EQ(settled(), before);
    ASSERT_EQ(radioSetRxState(context, RADIO_STATE_ENABLE), RADIO_ESUCCESS);
    expectWithin(-40 + settled(), -28, -20);
}

} // namespace

} // namespace sorel_tests
