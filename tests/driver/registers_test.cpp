// SPDX-License-Identifier: LicenseRef-Proprietary
// The SPI register file.
#include "radio_test.h"

namespace sorel_tests
{

namespace
{

class Registers : public RadioTest
{
protected:
    RadioReturn write(uint32_t address, int32_t value)
    {
        return radioSpiWrite(context, address, value);
    }
};

TEST_F(Registers, scratch_holds_32_bits_on_every_platform)
{
    for (int platform = 0; platform < RADIO_PLATFORM_COUNT; ++platform) {
        open(static_cast<RadioPlatformSelectIndex>(platform));
        for (const int32_t value : {-1, 0, 1, INT32_MIN, INT32_MAX, 0x12345678}) {
            EXPECT_EQ(write(SCRATCH, value), RADIO_ESUCCESS);
            EXPECT_EQ(at(SCRATCH), static_cast<uint32_t>(value));
        }
    }
}

TEST_F(Registers, an_address_without_a_register_reads_ones_and_refuses_writes)
{
    for (const uint32_t address :
         {8u, 0x12u, 0x28u, 0x3au, 0x4au, 0xfdu, 0x300u, UNMAPPED + 0u, 0xffffffffu}) {
        EXPECT_EQ(at(address), UINT32_MAX) << address;
        EXPECT_EQ(write(address, 0), RADIO_EINVAL) << address;
    }
}

TEST_F(Registers, read_only_registers_refuse_writes_and_keep_their_value)
{
    init();
    for (const uint32_t address :
         {IDENTITY, SETUP, LINK, TEMPERATURE, SELECTED, SERIAL, INTERFACES, TX_FREQUENCY,
          RX_FREQUENCY, LOCKS, TX_POWER, TX_LEAKAGE, RX_RTWP, RX_STEP, GAIN_TABLE_COUNT,
          POWER_TABLE_COUNT, GAIN_TABLE, POWER_TABLE}) {
        const uint32_t before = at(address);
        EXPECT_EQ(write(address, ~static_cast<int32_t>(before)), RADIO_ENOTSUP) << address;
        if (address != RX_RTWP) { // which is another measurement each time
            EXPECT_EQ(at(address), before) << address;
        }
    }
}

TEST_F(Registers, a_platform_without_a_second_antenna_or_cpri_lacks_their_registers)
{
    const auto has = [&](uint32_t address) { return write(address, 0) != RADIO_EINVAL; };
    for (int platform = 0; platform < RADIO_PLATFORM_COUNT; ++platform) {
        open(static_cast<RadioPlatformSelectIndex>(platform));
        const bool hasTwo = platform != RADIO_PLATFORM_BELLAN;
        const bool hasCpri = platform != RADIO_PLATFORM_MERRIK && platform != RADIO_PLATFORM_OSTRAV;
        EXPECT_EQ(has(LINK), hasCpri) << platform;
        EXPECT_EQ(at(LINK), hasCpri ? 0 : UINT32_MAX) << platform;
        for (const uint32_t address : {TX_STATE, TX_DC_OFFSET, TX_POWER, TX_LEAKAGE, RX_STATE,
                                       RX_GAIN_MODE, RX_RTWP, RX_STEP}) {
            EXPECT_TRUE(has(address)) << platform << ' ' << address;
            EXPECT_EQ(has(address + 1), hasTwo) << platform << ' ' << address;
            EXPECT_EQ(at(address + 1) == UINT32_MAX, !hasTwo) << platform << ' ' << address;
        }
    }
}

TEST_F(Registers, events_are_cleared_by_writing_ones)
{
    EXPECT_EQ(at(EVENTS), 0u);
    init();
    EXPECT_EQ(at(EVENTS), TX_UNLOCKED | RX_UNLOCKED);
    EXPECT_EQ(write(EVENTS, 0), RADIO_ESUCCESS);
    EXPECT_EQ(at(EVENTS), TX_UNLOCKED | RX_UNLOCKED);
    EXPECT_EQ(write(EVENTS, -1), RADIO_ESUCCESS);
    EXPECT_EQ(at(EVENTS), 0u);
}

TEST_F(Registers, writing_state_is_setting_it)
{
    init();
    ASSERT_EQ(write(RX_GAIN, 21), RADIO_ESUCCESS);
    ASSERT_EQ(write(RX_GAIN + 1, 22), RADIO_ESUCCESS);
    EXPECT_EQ(radioGetRxGainOfAntennaIndB(context, RADIO_RX_ANTENNA_1), 21);
    EXPECT_EQ(radioGetRxGainOfAntennaIndB(context, RADIO_RX_ANTENNA_2), 22);
    ASSERT_EQ(write(DAC, 1234), RADIO_ESUCCESS);
    EXPECT_EQ(radioGetOscillatorDacValue(context), 1234u);
    ASSERT_EQ(write(RX_STATE, 0), RADIO_ESUCCESS);
    EXPECT_EQ(radioGetRxRtwpOfAntenna(context, RADIO_RX_ANTENNA_1), INT32_MIN);
    ASSERT_EQ(write(RX_STATE, 1), RADIO_ESUCCESS);
    ASSERT_EQ(write(TX_STATE, 1), RADIO_ESUCCESS);
    ASSERT_EQ(write(TX_MAX_POWER, -100), RADIO_ESUCCESS);
    ASSERT_EQ(write(LOOPBACK, RADIO_TX_TO_RX_LOOPBACK), RADIO_ESUCCESS);
    EXPECT_NEAR(radioGetRxRtwpOfAntennaIndBm(context, RADIO_RX_ANTENNA_1), -70, 0.5);
    ASSERT_EQ(write(RX_GAIN_MODE, RADIO_RX_GAIN_AGC_SLOW), RADIO_ESUCCESS);
    wait(1000);
    EXPECT_NEAR(radioGetRxGainOfAntennaIndB(context, RADIO_RX_ANTENNA_1), 70 - 18, 3);
    EXPECT_EQ(radioSetRxGain(context, 1), RADIO_EERROR);
    ASSERT_EQ(write(TX_DC_OFFSET + 1, static_cast<int32_t>(0xffff0001)), RADIO_ESUCCESS);
    EXPECT_EQ(at(TX_DC_OFFSET + 1), 0xffff0001u);
}

TEST_F(Registers, setting_state_is_writing_its_register)
{
    init();
    ASSERT_EQ(radioSetOscillatorDacValue(context, 99), RADIO_ESUCCESS);
    EXPECT_EQ(at(DAC), 99u);
    ASSERT_EQ(radioSetRxGain(context, 12), RADIO_ESUCCESS);
    EXPECT_EQ(at(RX_GAIN), 12u);
    ASSERT_EQ(radioSetLoopback(context, RADIO_RX_TO_TX_LOOPBACK), RADIO_ESUCCESS);
    EXPECT_EQ(at(LOOPBACK), 2u);
    ASSERT_EQ(radioSelect(context, RADIO_SELECT_0), RADIO_ESUCCESS);
    EXPECT_EQ(at(SELECTED), 0u);
}

TEST_F(Registers, a_write_is_refused_as_the_function_would_be)
{
    EXPECT_EQ(write(TX_STATE, 1), RADIO_EERROR);
    EXPECT_EQ(write(RX_GAIN, 10), RADIO_EERROR);
    EXPECT_EQ(write(RX_GAIN, 77), RADIO_EINVAL);
    EXPECT_EQ(write(DAC, 65536), RADIO_EINVAL);
    EXPECT_EQ(write(DAC, -1), RADIO_EINVAL);
    init(RADIO_CONF_SISO);
    EXPECT_EQ(write(TX_STATE, 2), RADIO_EINVAL);
    EXPECT_EQ(write(RX_STATE, -1), RADIO_EINVAL);
    EXPECT_EQ(write(RX_GAIN_MODE, 4), RADIO_EINVAL);
    EXPECT_EQ(write(LOOPBACK, 3), RADIO_EINVAL);
    EXPECT_EQ(write(RX_GAIN, 0x10000 + 10), RADIO_EINVAL);
    EXPECT_EQ(write(TX_MAX_POWER, 241), RADIO_EINVAL);
    EXPECT_EQ(write(TX_MAX_POWER, INT32_MIN), RADIO_EINVAL);
    EXPECT_EQ(write(TX_DC_OFFSET, 0x0800), RADIO_EINVAL);
    EXPECT_EQ(write(TX_STATE + 1, 1), RADIO_ENOTSUP);
    EXPECT_EQ(write(RX_GAIN + 1, 10), RADIO_ENOTSUP);
    EXPECT_EQ(write(RX_GAIN_MODE + 1, 1), RADIO_ENOTSUP);
    EXPECT_EQ(write(RX_GAIN_MODE, 1), RADIO_ESUCCESS);
    EXPECT_EQ(write(RX_GAIN, 10), RADIO_EERROR);
}

TEST_F(Registers, gain_of_no_receiver_reads_as_none)
{
    EXPECT_EQ(at(RX_GAIN), 0x80000000u);
    init(RADIO_CONF_SISO);
    EXPECT_EQ(at(RX_GAIN), 76u);
    EXPECT_EQ(at(RX_GAIN + 1), 0x80000000u);
}

} // namespace

} // namespace sorel_tests
