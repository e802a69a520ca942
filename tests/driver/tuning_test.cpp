// SPDX-License-Identifier: LicenseRef-Proprietary
// Which direction a mode transmits in, and what tuning leaves in the frequency registers.
#include "radio_test.h"

namespace sorel_tests
{

namespace
{

using Tuning = RadioTest;

TEST_F(Tuning, a_base_station_transmits_the_downlink)
{
    init(RADIO_CONF_MIMO, RADIO_MODE_4GENODEB_FDD_20MHZ, RADIO_BAND_7);
    EXPECT_EQ(radioSetTxChannel(context, 2850), RADIO_ESUCCESS);
    EXPECT_EQ(radioSetRxChannel(context, 20850), RADIO_ESUCCESS);
    EXPECT_EQ(at(TX_FREQUENCY), 2630000000u);
    EXPECT_EQ(at(RX_FREQUENCY), 2510000000u);
}

TEST_F(Tuning, a_terminal_transmits_the_uplink)
{
    init(RADIO_CONF_MIMO, RADIO_MODE_4GUERX_FDD_20MHZ, RADIO_BAND_7);
    EXPECT_EQ(radioSetTxChannel(context, 2850), RADIO_EINVAL);
    EXPECT_EQ(radioSetTxChannel(context, 20850), RADIO_ESUCCESS);
    EXPECT_EQ(radioSetRxChannel(context, 2850), RADIO_ESUCCESS);
    EXPECT_EQ(at(TX_FREQUENCY), 2510000000u);
    EXPECT_EQ(at(RX_FREQUENCY), 2630000000u);
}

TEST_F(Tuning, frequency_division_tunes_each_direction_alone)
{
    init();
    ASSERT_EQ(radioSetTxFrequency(context, 2655000001u), RADIO_ESUCCESS);
    ASSERT_EQ(radioSetRxFrequency(context, 2501000000u), RADIO_ESUCCESS);
    EXPECT_EQ(at(TX_FREQUENCY), 2655000001u);
    EXPECT_EQ(at(RX_FREQUENCY), 2501000000u);
}

TEST_F(Tuning, time_division_tunes_both_directions)
{
    for (const RadioMode mode : {RADIO_MODE_4GENODEB_TDD_10MHZ, RADIO_MODE_TD_SCDMA_NODEB}) {
        init(RADIO_CONF_SISO, mode, RADIO_BAND_38);
        ASSERT_EQ(radioSetTxFrequency(context, 2600000000u), RADIO_ESUCCESS);
        EXPECT_EQ(at(TX_FREQUENCY), 2600000000u);
        EXPECT_EQ(at(RX_FREQUENCY), 2600000000u);
        ASSERT_EQ(radioSetRxFrequency(context, 2610000000u), RADIO_ESUCCESS);
        EXPECT_EQ(at(TX_FREQUENCY), 2610000000u);
        EXPECT_EQ(at(RX_FREQUENCY), 2610000000u);
    }
}

TEST_F(Tuning, a_refused_frequency_changes_nothing)
{
    init();
    ASSERT_EQ(radioSetTxFrequency(context, 2655000000u), RADIO_ESUCCESS);
    EXPECT_EQ(radioSetTxFrequency(context, 1000000000u), RADIO_EINVAL);
    EXPECT_EQ(radioSetTxChannel(context, 0), RADIO_EINVAL);
    EXPECT_EQ(at(TX_FREQUENCY), 2655000000u);
}

TEST_F(Tuning, the_highest_band_fits_into_32_bits_of_hertz)
{
    init(RADIO_CONF_SISO, RADIO_MODE_4GENODEB_TDD_20MHZ, RADIO_BAND_43);
    EXPECT_EQ(radioSetTxFrequency(context, 3800000000u), RADIO_ESUCCESS);
    EXPECT_EQ(at(TX_FREQUENCY), 3800000000u);
    EXPECT_EQ(radioSetTxChannel(context, 45589), RADIO_ESUCCESS);
    EXPECT_EQ(at(TX_FREQUENCY), 3799900000u);
}

} // namespace

} // namespace sorel_tests
