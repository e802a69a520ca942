// SPDX-License-Identifier: LicenseRef-Proprietary
// Transmitters: switching, limits, offsets and tables, seen in registers and in the heat.
#include "radio_test.h"

namespace sorel_tests
{

namespace
{

class Transmitter : public RadioTest
{
protected:
    // Waits until the temperature no longer changes, and returns it.
    float settled()
    {
        for (int i = 0; i < 200000; ++i)
            radioGetDebugLevel(context);
        return radioGetTemperature(context);
    }
};

TEST_F(Transmitter, antennas_are_switched_and_limited_one_by_one)
{
    init();
    ASSERT_EQ(radioSetTxStateOfAntenna(context, RADIO_TX_ANTENNA_2, RADIO_STATE_ENABLE),
              RADIO_ESUCCESS);
    ASSERT_EQ(radioSetTxMaxPowerOfAntenna(context, RADIO_TX_ANTENNA_2, -123), RADIO_ESUCCESS);
    EXPECT_EQ(at(TX_STATE), 0u);
    EXPECT_EQ(at(TX_STATE + 1), 1u);
    EXPECT_EQ(at(TX_MAX_POWER), 240u);
    EXPECT_EQ(static_cast<int32_t>(at(TX_MAX_POWER + 1)), -123);
}

TEST_F(Transmitter, offsets_are_kept_for_each_antenna)
{
    init();
    ASSERT_EQ(radioSetTxDcOffset(context, RADIO_TX_ANTENNA_1, -1, 2047), RADIO_ESUCCESS);
    ASSERT_EQ(radioSetTxDcOffset(context, RADIO_TX_ANTENNA_2, 5, -2048), RADIO_ESUCCESS);
    EXPECT_EQ(at(TX_DC_OFFSET), 0x07ffffffu);
    EXPECT_EQ(at(TX_DC_OFFSET + 1), 0xf8000005u);
}

TEST_F(Transmitter, the_power_table_can_be_read_back)
{
    const uint32_t words[] = {9, 8};
    init();
    ASSERT_EQ(radioSetTxPowerRegisters(context, words, 2), RADIO_ESUCCESS);
    EXPECT_EQ(at(POWER_TABLE_COUNT), 2u);
    EXPECT_EQ(at(POWER_TABLE), 9u);
    EXPECT_EQ(at(POWER_TABLE + 1), 8u);
    EXPECT_EQ(at(GAIN_TABLE_COUNT), 0u);
}

TEST_F(Transmitter, more_power_is_more_heat)
{
    init(RADIO_CONF_SISO);
    const float idle = settled();
    ASSERT_EQ(radioSetTxMaxPower(context, -600), RADIO_ESUCCESS);
    ASSERT_EQ(radioSetTxState(context, RADIO_STATE_ENABLE), RADIO_ESUCCESS);
    EXPECT_NEAR(settled() - idle, 0.4 * 8, 0.1);
    ASSERT_EQ(radioSetTxMaxPower(context, 200), RADIO_ESUCCESS);
    EXPECT_NEAR(settled() - idle, (0.4 + 3 * 0.1) * 8, 0.1);
}

TEST_F(Transmitter, receive_to_transmit_loopback_transmits_what_is_received)
{
    init(RADIO_CONF_SISO);
    ASSERT_EQ(radioSetTxState(context, RADIO_STATE_ENABLE), RADIO_ESUCCESS);
    const float full = settled();
    ASSERT_EQ(radioSetLoopback(context, RADIO_RX_TO_TX_LOOPBACK), RADIO_ESUCCESS);
    // Noise only, some -20 dBm: the heat of 3 * 251 mW is gone.
    EXPECT_NEAR(full - settled(), 3 * 0.251 * 8, 0.1);
}

} // namespace

} // namespace sorel_tests
