// SPDX-License-Identifier: LicenseRef-Proprietary
// What radioSelect() does to each later call.
#include "radio_test.h"

#include <cmath>

namespace sorel_tests
{

namespace
{

using Select = RadioTest;

TEST_F(Select, select_restricts_what_has_no_antenna_parameter)
{
    init();
    ASSERT_EQ(radioSetRxGain(context, 40), RADIO_ESUCCESS);
    ASSERT_EQ(radioSelect(context, RADIO_SELECT_1), RADIO_ESUCCESS);
    ASSERT_EQ(radioSetTxState(context, RADIO_STATE_ENABLE), RADIO_ESUCCESS);
    ASSERT_EQ(radioSetTxMaxPower(context, 0), RADIO_ESUCCESS);
    ASSERT_EQ(radioSetRxGain(context, 10), RADIO_ESUCCESS);
    EXPECT_EQ(at(TX_STATE), 0u);
    EXPECT_EQ(at(TX_STATE + 1), 1u);
    EXPECT_EQ(at(TX_MAX_POWER), 240u);
    EXPECT_EQ(at(TX_MAX_POWER + 1), 0u);
    EXPECT_EQ(radioGetRxGainOfAntennaIndB(context, RADIO_RX_ANTENNA_1), 40);
    EXPECT_EQ(radioGetRxGainOfAntennaIndB(context, RADIO_RX_ANTENNA_2), 10);
    EXPECT_EQ(radioGetRxGainIndB(context), 10);

    ASSERT_EQ(radioSelect(context, RADIO_SELECT_0), RADIO_ESUCCESS);
    ASSERT_EQ(radioSetRxState(context, RADIO_STATE_DISABLE), RADIO_ESUCCESS);
    EXPECT_EQ(at(RX_STATE), 0u);
    EXPECT_EQ(at(RX_STATE + 1), 1u);
    EXPECT_EQ(radioGetRxGainIndB(context), 40);
    EXPECT_TRUE(std::isnan(radioGetRxRtwpIndBm(context)));

    ASSERT_EQ(radioSelect(context, RADIO_SELECT_1), RADIO_ESUCCESS);
    ASSERT_EQ(radioSetRxGainMode(context, RADIO_RX_GAIN_AGC_SLOW), RADIO_ESUCCESS);
    EXPECT_EQ(at(RX_GAIN_MODE), 0u);
    EXPECT_EQ(at(RX_GAIN_MODE + 1), 2u);
}

TEST_F(Select, select_leaves_the_functions_of_one_antenna_alone)
{
    init();
    ASSERT_EQ(radioSelect(context, RADIO_SELECT_1), RADIO_ESUCCESS);
    EXPECT_EQ(radioSetTxStateOfAntenna(context, RADIO_TX_ANTENNA_1, RADIO_STATE_ENABLE),
              RADIO_ESUCCESS);
    EXPECT_EQ(at(TX_STATE), 1u);
    EXPECT_EQ(at(TX_STATE + 1), 0u);
}

TEST_F(Select, a_selection_outlives_init)
{
    ASSERT_EQ(radioSelect(context, RADIO_SELECT_1), RADIO_ESUCCESS);
    init();
    ASSERT_EQ(radioSetTxState(context, RADIO_STATE_ENABLE), RADIO_ESUCCESS);
    EXPECT_EQ(at(TX_STATE), 0u);
    EXPECT_EQ(at(TX_STATE + 1), 1u);
}

TEST_F(Select, all_paths_of_one_are_the_first)
{
    init(RADIO_CONF_SISO);
    EXPECT_EQ(radioGetRxGainIndB(context), 76);
    EXPECT_EQ(radioSetTxState(context, RADIO_STATE_ENABLE), RADIO_ESUCCESS);
    EXPECT_EQ(at(TX_STATE + 1), 0u);
}

TEST_F(Select, the_second_path_of_a_platform_with_one_cannot_be_selected)
{
    open(RADIO_PLATFORM_BELLAN);
    EXPECT_EQ(radioSelect(context, RADIO_SELECT_1), RADIO_ENOTSUP);
    EXPECT_EQ(radioSelect(context, RADIO_SELECT_ALL), RADIO_ESUCCESS);
}

TEST_F(Select, power_readings_are_of_the_selected_receivers)
{
    init();
    ASSERT_EQ(radioSetRxStateOfAntenna(context, RADIO_RX_ANTENNA_1, RADIO_STATE_DISABLE),
              RADIO_ESUCCESS);
    const auto reads = [&](RadioSelectIndex paths) {
        EXPECT_EQ(radioSelect(context, paths), RADIO_ESUCCESS);
        const bool hasInteger = radioGetRxRtwp(context) != INT32_MIN;
        EXPECT_EQ(hasInteger, !std::isnan(radioGetRxRtwpIndBm(context)));
        return hasInteger;
    };
    EXPECT_FALSE(reads(RADIO_SELECT_0));
    EXPECT_TRUE(reads(RADIO_SELECT_1));
    EXPECT_TRUE(reads(RADIO_SELECT_ALL));
}

TEST_F(Select, tuning_loopback_and_tables_are_of_the_whole_front_end)
{
    init();
    ASSERT_EQ(radioSelect(context, RADIO_SELECT_1), RADIO_ESUCCESS);
    ASSERT_EQ(radioSetTxChannel(context, 2850), RADIO_ESUCCESS);
    EXPECT_EQ(at(TX_FREQUENCY), 2630000000u);
    ASSERT_EQ(radioSetLoopback(context, RADIO_TX_TO_RX_LOOPBACK), RADIO_ESUCCESS);
    EXPECT_EQ(at(LOOPBACK), 1u);
    const uint32_t gain = 100;
    ASSERT_EQ(radioSetRxGainRegisters(context, &gain, 1), RADIO_ESUCCESS);
    EXPECT_EQ(at(RX_GAIN), 10u);
    EXPECT_EQ(at(RX_GAIN + 1), 10u);
}

TEST_F(Select, a_selection_that_the_configuration_lacks_is_not_supported_until_changed)
{
    ASSERT_EQ(radioSelect(context, RADIO_SELECT_1), RADIO_ESUCCESS);
    init(RADIO_CONF_SISO);
    EXPECT_EQ(radioSetRxState(context, RADIO_STATE_ENABLE), RADIO_ENOTSUP);
    EXPECT_EQ(radioGetRxGainIndB(context), INT32_MIN);
    EXPECT_EQ(radioGetRxRtwp(context), INT32_MIN);
    ASSERT_EQ(radioSelect(context, RADIO_SELECT_0), RADIO_ESUCCESS);
    EXPECT_EQ(radioSetRxState(context, RADIO_STATE_ENABLE), RADIO_ESUCCESS);
    EXPECT_EQ(radioGetRxGainIndB(context), 76);
}

} // namespace

} // namespace sorel_tests
