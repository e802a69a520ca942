// SPDX-License-Identifier: LicenseRef-Proprietary
// Receiver gain by hand, and the gain table.
#include "radio_test.h"

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
    }

    RadioReturn set(int gain)
    {
        return radioSetRxGain(context, static_cast<int16_t>(gain));
    }

    // Gains in 0.1 dB.
    RadioReturn load(const std::vector<uint32_t> &words)
    {
        return radioSetRxGainRegisters(context, words.data(), static_cast<uint32_t>(words.size()));
    }

    int gain()
    {
        return radioGetRxGainIndB(context);
    }
};

TEST_F(Receiver, manual_gain_is_what_was_set)
{
    for (int wanted = 0; wanted <= 76; ++wanted) {
        ASSERT_EQ(set(wanted), RADIO_ESUCCESS);
        ASSERT_EQ(gain(), wanted);
        ASSERT_EQ(at(RX_STEP), static_cast<uint32_t>(wanted));
    }
}

TEST_F(Receiver, steps_are_counted_from_the_platforms_lowest_gain)
{
    open(RADIO_PLATFORM_BELLAN); // 3 to 60 dB
    init(RADIO_CONF_SISO, RADIO_MODE_4GENODEB_TDD_20MHZ, RADIO_BAND_38);
    EXPECT_EQ(at(RX_STEP), 57u);
    ASSERT_EQ(set(3), RADIO_ESUCCESS);
    EXPECT_EQ(at(RX_STEP), 0u);
}

TEST_F(Receiver, manual_gain_holds_again_after_automatic)
{
    ASSERT_EQ(set(33), RADIO_ESUCCESS);
    ASSERT_EQ(radioSetRxGainMode(context, RADIO_RX_GAIN_AGC_FAST), RADIO_ESUCCESS);
    wait(100);
    EXPECT_NE(gain(), 33);
    ASSERT_EQ(radioSetRxGainMode(context, RADIO_RX_GAIN_MGC), RADIO_ESUCCESS);
    EXPECT_EQ(gain(), 33);
}

TEST_F(Receiver, a_gain_for_several_receivers_is_set_on_all_or_none)
{
    init(RADIO_CONF_MIMO);
    ASSERT_EQ(set(20), RADIO_ESUCCESS);
    ASSERT_EQ(radioSelect(context, RADIO_SELECT_1), RADIO_ESUCCESS);
    ASSERT_EQ(radioSetRxGainMode(context, RADIO_RX_GAIN_AGC_FAST), RADIO_ESUCCESS);
    ASSERT_EQ(radioSelect(context, RADIO_SELECT_ALL), RADIO_ESUCCESS);
    EXPECT_EQ(set(30), RADIO_EERROR);
    EXPECT_EQ(radioGetRxGainOfAntennaIndB(context, RADIO_RX_ANTENNA_1), 20);
}

TEST_F(Receiver, a_gain_table_can_be_read_back_and_replaced)
{
    ASSERT_EQ(load({0, 125, 760}), RADIO_ESUCCESS);
    EXPECT_EQ(at(GAIN_TABLE_COUNT), 3u);
    EXPECT_EQ(at(GAIN_TABLE + 1), 125u);
    EXPECT_EQ(at(GAIN_TABLE + 2), 760u);
    EXPECT_EQ(at(POWER_TABLE_COUNT), 0u);
    ASSERT_EQ(load({10}), RADIO_ESUCCESS);
    EXPECT_EQ(at(GAIN_TABLE_COUNT), 1u);
    EXPECT_EQ(at(GAIN_TABLE), 10u);
    EXPECT_EQ(at(GAIN_TABLE + 1), 0u);
}

TEST_F(Receiver, a_gain_goes_to_the_highest_step_that_is_not_above_it)
{
    ASSERT_EQ(load({100, 205, 300, 300, 520}), RADIO_ESUCCESS);
    const struct {
        int wanted, gain;
        uint32_t step;
    } rows[] = {{10, 10, 0}, {20, 10, 0}, {21, 21, 1} /* 20.5 dB to the nearest */,
                {29, 21, 1}, {30, 30, 3}, {51, 30, 3},
                {52, 52, 4}, {76, 52, 4}};
    for (const auto &row : rows) {
        ASSERT_EQ(set(row.wanted), RADIO_ESUCCESS) << row.wanted;
        EXPECT_EQ(gain(), row.gain) << row.wanted;
        EXPECT_EQ(at(RX_STEP), row.step) << row.wanted;
    }
    EXPECT_EQ(set(9), RADIO_EINVAL); // below the lowest
    EXPECT_EQ(at(RX_STEP), 4u);
}

TEST_F(Receiver, a_table_takes_the_receivers_to_the_steps_of_the_gains_they_were_set_to)
{
    ASSERT_EQ(set(30), RADIO_ESUCCESS);
    ASSERT_EQ(load({0, 255, 600}), RADIO_ESUCCESS);
    EXPECT_EQ(at(RX_STEP), 1u);
    ASSERT_EQ(load({0, 255, 600}), RADIO_ESUCCESS); // the same once more
    EXPECT_EQ(at(RX_STEP), 1u);
    ASSERT_EQ(load({0, 295, 600}), RADIO_ESUCCESS);
    EXPECT_EQ(at(RX_STEP), 1u);
    ASSERT_EQ(load({400, 600}), RADIO_ESUCCESS); // none is low enough: the lowest
    EXPECT_EQ(gain(), 40);
    ASSERT_EQ(load({}), RADIO_ESUCCESS);
    EXPECT_EQ(gain(), 30);
}

TEST_F(Receiver, gain_control_keeps_the_gain_of_its_step_under_the_same_table)
{
    ASSERT_EQ(load({0, 205}), RADIO_ESUCCESS);
    ASSERT_EQ(radioSetRxGainMode(context, RADIO_RX_GAIN_AGC_SLOW), RADIO_ESUCCESS);
    wait(100);
    ASSERT_EQ(at(RX_STEP), 1u); // 20.5 dB, with only noise coming in
    ASSERT_EQ(load({0, 205}), RADIO_ESUCCESS);
    EXPECT_EQ(at(RX_STEP), 1u);
}

TEST_F(Receiver, a_wrong_gain_table_is_refused_and_the_former_kept)
{
    ASSERT_EQ(load({100, 200}), RADIO_ESUCCESS);
    EXPECT_EQ(load({100, 761}), RADIO_EINVAL);        // above the platform's gains
    EXPECT_EQ(load({0xffffffff, 100}), RADIO_EINVAL); // -0.1 dB, below them
    EXPECT_EQ(load({100, 300, 299}), RADIO_EINVAL);   // falling
    EXPECT_EQ(load(std::vector<uint32_t>(257)), RADIO_EINVAL);
    EXPECT_EQ(at(GAIN_TABLE_COUNT), 2u);
    EXPECT_EQ(at(GAIN_TABLE + 1), 200u);
    EXPECT_EQ(load(std::vector<uint32_t>(256)), RADIO_ESUCCESS);
}

} // namespace

} // namespace sorel_tests
