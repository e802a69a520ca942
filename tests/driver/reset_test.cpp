// SPDX-License-Identifier: LicenseRef-Proprietary
// What radioReset() does to each later call.
#include "radio_test.h"

#include <cmath>

namespace sorel_tests
{

namespace
{

class Reset : public RadioTest
{
protected:
    void reset()
    {
        ASSERT_EQ(radioReset(context), RADIO_ESUCCESS);
    }
};

TEST_F(Reset, what_needs_init_is_refused_until_the_next_one)
{
    const uint32_t none = 0;
    const RadioState on = RADIO_STATE_ENABLE;
    init();
    reset();
    EXPECT_EQ(radioSetTxFrequency(context, 2655000000u), RADIO_EERROR);
    EXPECT_EQ(radioSetTxChannel(context, 2850), RADIO_EERROR);
    EXPECT_EQ(radioSetTxState(context, on), RADIO_EERROR);
    EXPECT_EQ(radioSetTxStateOfAntenna(context, RADIO_TX_ANTENNA_1, on), RADIO_EERROR);
    EXPECT_EQ(radioSetTxMaxPower(context, 0), RADIO_EERROR);
    EXPECT_EQ(radioSetTxMaxPowerOfAntenna(context, RADIO_TX_ANTENNA_1, 0), RADIO_EERROR);
    EXPECT_EQ(radioSetTxDcOffset(context, RADIO_TX_ANTENNA_1, 0, 0), RADIO_EERROR);
    EXPECT_EQ(radioSetTxPowerRegisters(context, &none, 1), RADIO_EERROR);
    EXPECT_EQ(radioSetRxFrequency(context, 2535000000u), RADIO_EERROR);
    EXPECT_EQ(radioSetRxChannel(context, 20850), RADIO_EERROR);
    EXPECT_EQ(radioSetRxState(context, on), RADIO_EERROR);
    EXPECT_EQ(radioSetRxStateOfAntenna(context, RADIO_RX_ANTENNA_1, on), RADIO_EERROR);
    EXPECT_EQ(radioSetRxGain(context, 0), RADIO_EERROR);
    EXPECT_EQ(radioSetRxGainMode(context, RADIO_RX_GAIN_MGC), RADIO_EERROR);
    EXPECT_EQ(radioSetRxGainRegisters(context, &none, 1), RADIO_EERROR);
    EXPECT_EQ(radioSetLoopback(context, RADIO_NO_LOOPBACK), RADIO_EERROR);
    EXPECT_TRUE(std::isnan(radioGetRxRtwpIndBm(context)));
    EXPECT_TRUE(std::isnan(radioGetRxRtwpOfAntennaIndBm(context, RADIO_RX_ANTENNA_1)));
    EXPECT_EQ(radioGetRxRtwp(context), INT32_MIN);
    EXPECT_EQ(radioGetRxRtwpOfAntenna(context, RADIO_RX_ANTENNA_1), INT32_MIN);
    EXPECT_EQ(radioGetRxGainIndB(context), INT32_MIN);
    EXPECT_EQ(radioGetRxGainOfAntennaIndB(context, RADIO_RX_ANTENNA_1), INT32_MIN);
    init();
    EXPECT_EQ(radioSetTxState(context, on), RADIO_ESUCCESS);
}

TEST_F(Reset, registers_are_as_after_opening)
{
    std::vector<uint32_t> fresh;
    for (uint32_t address = 0; address < 0x300; ++address)
        fresh.push_back(at(address));
    init();
    const uint32_t gain = 70, power = 0;
    ASSERT_EQ(radioSetRxGainRegisters(context, &gain, 1), RADIO_ESUCCESS);
    ASSERT_EQ(radioSetTxPowerRegisters(context, &power, 1), RADIO_ESUCCESS);
    ASSERT_EQ(radioSetTxState(context, RADIO_STATE_ENABLE), RADIO_ESUCCESS);
    ASSERT_EQ(radioSetTxDcOffset(context, RADIO_TX_ANTENNA_2, 1, 2), RADIO_ESUCCESS);
    ASSERT_EQ(radioSetRxGainMode(context, RADIO_RX_GAIN_AGC_SLOW), RADIO_ESUCCESS);
    ASSERT_EQ(radioSetLoopback(context, RADIO_TX_TO_RX_LOOPBACK), RADIO_ESUCCESS);
    ASSERT_EQ(radioSelect(context, RADIO_SELECT_1), RADIO_ESUCCESS);
    ASSERT_EQ(radioCpriInit(context, RADIO_CPRI_RATE_4), RADIO_ESUCCESS);
    ASSERT_EQ(radioSetOscillatorDacValue(context, 1), RADIO_ESUCCESS);
    ASSERT_EQ(radioSpiWrite(context, SCRATCH, 1), RADIO_ESUCCESS);
    ASSERT_NE(at(EVENTS), 0u);
    reset();
    for (uint32_t address = 0; address < 0x300; ++address)
        if (address != TEMPERATURE) {
            EXPECT_EQ(at(address), fresh[address]) << address;
        }
    EXPECT_EQ(radioGetOscillatorDacValue(context), 32768u);
}

TEST_F(Reset, all_paths_are_selected_again)
{
    ASSERT_EQ(radioSelect(context, RADIO_SELECT_1), RADIO_ESUCCESS);
    reset();
    init();
    ASSERT_EQ(radioSetTxState(context, RADIO_STATE_ENABLE), RADIO_ESUCCESS);
    EXPECT_EQ(at(TX_STATE), 1u);
    EXPECT_EQ(at(TX_STATE + 1), 1u);
}

TEST_F(Reset, the_link_no_longer_limits_init)
{
    ASSERT_EQ(radioCpriInit(context, RADIO_CPRI_RATE_1), RADIO_ESUCCESS);
    reset();
    init();
}

TEST_F(Reset, calibration_and_debug_level_are_kept)
{
    ASSERT_EQ(radioLoadCalibrationFile(context, SOREL_DATA_DIR "/good.toml"), RADIO_ESUCCESS);
    FILE *const log = std::tmpfile();
    ASSERT_EQ(radioSetDebugFile(context, log), RADIO_ESUCCESS);
    ASSERT_EQ(radioSetDebugLevel(context, RADIO_DEBUG_WARN), RADIO_ESUCCESS);
    reset();
    EXPECT_EQ(radioGetDebugLevel(context), RADIO_DEBUG_WARN);
    int32_t serial = 0;
    EXPECT_EQ(radioGetIntegerFromCalibration(context, "serial", &serial), RADIO_ESUCCESS);
    EXPECT_EQ(serial, 4711);
    ASSERT_EQ(radioSetDebugLevel(context, RADIO_DEBUG_NONE), RADIO_ESUCCESS);
    std::fclose(log);
}

TEST_F(Reset, the_platform_is_kept_also_when_another_has_been_selected)
{
    ASSERT_EQ(radioSelectPlatform(RADIO_PLATFORM_TALWIN), RADIO_ESUCCESS);
    reset();
    EXPECT_STREQ(radioGetPlatformName(context), "simulated board");
}

TEST_F(Reset, the_temperature_goes_on)
{
    init();
    wait(200000);
    const float warm = radioGetTemperature(context);
    reset();
    EXPECT_NEAR(radioGetTemperature(context), warm, 0.1);
    wait(200000);
    EXPECT_NEAR(radioGetTemperature(context), 25 + 8 * 0.4, 0.1);
}

} // namespace

} // namespace sorel_tests
