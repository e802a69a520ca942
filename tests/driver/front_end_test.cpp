// SPDX-License-Identifier: LicenseRef-Proprietary
// What radioInit(), radioReset() and radioSelect() do to later calls.
#include "radio_test.h"

#include <cmath>

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
    const uint32_t word = 7;
    init();
    ASSERT_EQ(radioSetTxState(context, RADIO_STATE_ENABLE), RADIO_ESUCCESS);
    ASSERT_EQ(radioSetRxState(context, RADIO_STATE_DISABLE), RADIO_ESUCCESS);
    ASSERT_EQ(radioSetTxMaxPower(context, -50), RADIO_ESUCCESS);
    ASSERT_EQ(radioSetTxDcOffset(context, RADIO_TX_ANTENNA_1, 3, 4), RADIO_ESUCCESS);
    ASSERT_EQ(radioSetRxGain(context, 10), RADIO_ESUCCESS);
    ASSERT_EQ(radioSetRxGainMode(context, RADIO_RX_GAIN_AGC_FAST), RADIO_ESUCCESS);
    ASSERT_EQ(radioSetLoopback(context, RADIO_TX_TO_RX_LOOPBACK), RADIO_ESUCCESS);
    ASSERT_EQ(radioSetRxGainRegisters(context, &word, 1), RADIO_ESUCCESS);
    ASSERT_EQ(radioSetTxPowerRegisters(context, &word, 1), RADIO_ESUCCESS);
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

TEST_F(FrontEnd, reset_takes_back_all_but_calibration_and_debug_settings)
{
    ASSERT_EQ(radioLoadCalibrationFile(context, SOREL_DATA_DIR "/good.toml"), RADIO_ESUCCESS);
    init();
    ASSERT_EQ(radioSelect(context, RADIO_SELECT_1), RADIO_ESUCCESS);
    ASSERT_EQ(radioCpriInit(context, RADIO_CPRI_RATE_4), RADIO_ESUCCESS);
    ASSERT_EQ(radioSetOscillatorDacValue(context, 1), RADIO_ESUCCESS);
    ASSERT_EQ(radioSpiWrite(context, SCRATCH, 1), RADIO_ESUCCESS);

    ASSERT_EQ(radioReset(context), RADIO_ESUCCESS);

    EXPECT_EQ(radioSetTxFrequency(context, 2655000000u), RADIO_EERROR);
    EXPECT_TRUE(std::isnan(radioGetRxRtwpIndBm(context)));
    EXPECT_EQ(at(SETUP), 0u);
    EXPECT_EQ(at(TX_FREQUENCY), 0u);
    EXPECT_EQ(at(RX_FREQUENCY), 0u);
    EXPECT_EQ(at(SELECTED), uint32_t{RADIO_SELECT_ALL});
    EXPECT_EQ(at(LINK), 0u);
    EXPECT_EQ(at(SCRATCH), 0u);
    EXPECT_EQ(radioGetOscillatorDacValue(context), 32768u);
    int32_t serial = 0;
    EXPECT_EQ(radioGetIntegerFromCalibration(context, "serial", &serial), RADIO_ESUCCESS);
    EXPECT_EQ(serial, 4711);
}

TEST_F(FrontEnd, reset_keeps_the_debug_level)
{
    FILE *const file = std::tmpfile();
    ASSERT_EQ(radioSetDebugFile(context, file), RADIO_ESUCCESS);
    ASSERT_EQ(radioSetDebugLevel(context, RADIO_DEBUG_WARN), RADIO_ESUCCESS);
    ASSERT_EQ(radioReset(context), RADIO_ESUCCESS);
    EXPECT_EQ(radioGetDebugLevel(context), RADIO_DEBUG_WARN);
    ASSERT_EQ(radioSetDebugLevel(context, RADIO_DEBUG_NONE), RADIO_ESUCCESS);
    std::fclose(file);
}

TEST_F(FrontEnd, select_restricts_what_has_no_antenna_parameter)
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
    EXPECT_EQ(radioGetRxRtwp(context), radioGetRxRtwpOfAntenna(context, RADIO_RX_ANTENNA_2));

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

TEST_F(FrontEnd, select_leaves_the_functions_of_one_antenna_alone)
{
    init();
    ASSERT_EQ(radioSelect(context, RADIO_SELECT_1), RADIO_ESUCCESS);
    EXPECT_EQ(radioSetTxStateOfAntenna(context, RADIO_TX_ANTENNA_1, RADIO_STATE_ENABLE),
              RADIO_ESUCCESS);
    EXPECT_EQ(at(TX_STATE), 1u);
    EXPECT_EQ(at(TX_STATE + 1), 0u);
}

TEST_F(FrontEnd, a_selection_outlives_init)
{
    ASSERT_EQ(radioSelect(context, RADIO_SELECT_1), RADIO_ESUCCESS);
    init();
    ASSERT_EQ(radioSetTxState(context, RADIO_STATE_ENABLE), RADIO_ESUCCESS);
    EXPECT_EQ(at(TX_STATE), 0u);
    EXPECT_EQ(at(TX_STATE + 1), 1u);
}

TEST_F(FrontEnd, all_paths_of_one_are_the_first)
{
    init(RADIO_CONF_SISO);
    EXPECT_EQ(radioGetRxRtwp(context), radioGetRxRtwpOfAntenna(context, RADIO_RX_ANTENNA_1));
    EXPECT_EQ(radioSetTxState(context, RADIO_STATE_ENABLE), RADIO_ESUCCESS);
    EXPECT_EQ(at(TX_STATE + 1), 0u);
}

TEST_F(FrontEnd, the_second_path_of_a_platform_with_one_cannot_be_selected)
{
    open(RADIO_PLATFORM_BELLAN);
    EXPECT_EQ(radioSelect(context, RADIO_SELECT_1), RADIO_ENOTSUP);
    EXPECT_EQ(radioSelect(context, RADIO_SELECT_ALL), RADIO_ESUCCESS);
}

} // namespace

} // namespace sorel_tests
