// SPDX-License-Identifier: LicenseRef-Proprietary
// What radioInit() sets up.
#include "radio_test.h"

namespace sorel_tests
{

namespace
{

using FrontEnd = RadioTest;

TEST_F(FrontEnd, init_turns_receivers_on_and_transmitters_off)
{
    init();
    for (uint32_t path = 0; path < 2; ++path) {
        EXPECT_EQ(at(RX_STATE + path), 1u);
        EXPECT_EQ(at(TX_STATE + path), 0u);
    }
    init(RADIO_CONF_SISO);
    EXPECT_EQ(at(RX_STATE), 1u);
    EXPECT_EQ(at(RX_STATE + 1), 0u);
}

TEST_F(FrontEnd, init_tunes_to_the_centre_of_the_band)
{
    init();
    EXPECT_EQ(at(TX_FREQUENCY), 2655000000u);
    EXPECT_EQ(at(RX_FREQUENCY), 2535000000u);
}

TEST_F(FrontEnd, init_says_in_its_register_what_was_set_up)
{
    EXPECT_EQ(at(SETUP), 0u);
    init(RADIO_CONF_MIMO, RADIO_MODE_4GUERX_TDD_10MHZ, RADIO_BAND_40);
    EXPECT_EQ(at(SETUP), 1u | 1u << 8 | 15u << 16 | 40u << 24);
}

TEST_F(FrontEnd, init_takes_everything_back_to_its_default)
{
    const uint32_t gain = 70, power = static_cast<uint32_t>(-500);
    init();
    ASSERT_EQ(radioSetTxState(context, RADIO_STATE_ENABLE), RADIO_ESUCCESS);
    ASSERT_EQ(radioSetRxState(context, RADIO_STATE_DISABLE), RADIO_ESUCCESS);
    ASSERT_EQ(radioSetTxMaxPower(context, -50), RADIO_ESUCCESS);
    ASSERT_EQ(radioSetTxDcOffset(context, RADIO_TX_ANTENNA_1, 3, 4), RADIO_ESUCCESS);
    ASSERT_EQ(radioSetRxGain(context, 10), RADIO_ESUCCESS);
    ASSERT_EQ(radioSetRxGainMode(context, RADIO_RX_GAIN_AGC_FAST), RADIO_ESUCCESS);
    ASSERT_EQ(radioSetLoopback(context, RADIO_TX_TO_RX_LOOPBACK), RADIO_ESUCCESS);
    ASSERT_EQ(radioSetRxGainRegisters(context, &gain, 1), RADIO_ESUCCESS);
    ASSERT_EQ(radioSetTxPowerRegisters(context, &power, 1), RADIO_ESUCCESS);
    init();
    EXPECT_EQ(at(TX_STATE), 0u);
    EXPECT_EQ(at(RX_STATE), 1u);
    EXPECT_EQ(at(TX_MAX_POWER), 240u);
    EXPECT_EQ(at(TX_DC_OFFSET), 0u);
    EXPECT_EQ(at(RX_GAIN), 76u);
    EXPECT_EQ(at(RX_GAIN_MODE), 0u);
    EXPECT_EQ(at(LOOPBACK), 0u);
    EXPECT_EQ(at(GAIN_TABLE_COUNT), 0u);
    EXPECT_EQ(at(GAIN_TABLE), 0u);
    EXPECT_EQ(at(POWER_TABLE_COUNT), 0u);
    EXPECT_EQ(at(POWER_TABLE), 0u);
}

TEST_F(FrontEnd, a_refused_init_changes_nothing)
{
    init();
    ASSERT_EQ(radioSetTxState(context, RADIO_STATE_ENABLE), RADIO_ESUCCESS);
    EXPECT_EQ(radioInit(context, RADIO_CONF_SISO, RADIO_MODE_3GNODEB, RADIO_BAND_7 /* has it */),
              RADIO_ESUCCESS);
    const uint32_t setup = at(SETUP);
    EXPECT_EQ(radioInit(context, RADIO_CONF_MIMO, RADIO_MODE_3GNODEB, RADIO_BAND_38),
              RADIO_ENOTSUP);
    EXPECT_EQ(radioInit(context, RADIO_CONF_NULL, RADIO_MODE_3GNODEB, RADIO_BAND_7), RADIO_EINVAL);
    EXPECT_EQ(at(SETUP), setup);
}

} // namespace

} // namespace sorel_tests
