// SPDX-License-Identifier: LicenseRef-Proprietary
// Tuning by the words of the synthesisers: multiples of 40 MHz, and steps above them.
#include "radio_test.h"

namespace sorel_tests
{

namespace
{

class Words : public RadioTest
{
protected:
    RadioReturn write(uint32_t address, uint32_t value)
    {
        return radioSpiWrite(context, address, static_cast<int32_t>(value));
    }
};

TEST_F(Words, words_say_the_frequency)
{
    init();
    ASSERT_EQ(radioSetTxFrequency(context, 2655000007u), RADIO_ESUCCESS);
    EXPECT_EQ(at(TX_INTEGER), 66u);
    EXPECT_EQ(at(TX_FRACTION), 15000007u);
    EXPECT_EQ(at(RX_INTEGER), 63u);
    EXPECT_EQ(at(RX_FRACTION), 15000000u);
}

TEST_F(Words, fractions_count_the_platforms_steps)
{
    open(RADIO_PLATFORM_MERRIK); // 100 Hz
    init();
    EXPECT_EQ(at(TX_FRACTION), 150000u);
    open(RADIO_PLATFORM_BELLAN);                                        // 1000 Hz
    init(RADIO_CONF_SISO, RADIO_MODE_4GENODEB_TDD_5MHZ, RADIO_BAND_38); // 2595 MHz
    EXPECT_EQ(at(TX_INTEGER), 64u);
    EXPECT_EQ(at(TX_FRACTION), 35000u);
}

TEST_F(Words, an_integer_waits_for_its_fraction)
{
    init();
    ASSERT_EQ(write(TX_INTEGER, 67), RADIO_ESUCCESS);
    EXPECT_EQ(at(TX_INTEGER), 67u);
    EXPECT_EQ(at(TX_FREQUENCY), 2655000000u);
    ASSERT_EQ(write(TX_FRACTION, 5), RADIO_ESUCCESS);
    EXPECT_EQ(at(TX_FREQUENCY), 2680000005u);
    ASSERT_EQ(write(RX_INTEGER, 64), RADIO_ESUCCESS);
    EXPECT_EQ(at(RX_FREQUENCY), 2535000000u);
    ASSERT_EQ(write(RX_FRACTION, 0), RADIO_ESUCCESS);
    EXPECT_EQ(at(RX_FREQUENCY), 2560000000u);
}

TEST_F(Words, an_integer_that_waits_is_forgotten_when_tuned_otherwise)
{
    init();
    ASSERT_EQ(write(TX_INTEGER, 67), RADIO_ESUCCESS);
    ASSERT_EQ(radioSetTxFrequency(context, 2655000000u), RADIO_ESUCCESS);
    EXPECT_EQ(at(TX_INTEGER), 66u);
    ASSERT_EQ(write(TX_FRACTION, 0), RADIO_ESUCCESS);
    EXPECT_EQ(at(TX_FREQUENCY), 2640000000u);
}

TEST_F(Words, words_beyond_the_band_or_any_frequency_are_refused_as_a_frequency_is)
{
    EXPECT_EQ(write(TX_INTEGER, 66), RADIO_EERROR);
    EXPECT_EQ(write(TX_FRACTION, 0), RADIO_EERROR);
    init();
    for (const uint32_t integer : {0u, 65u, 68u, 107u, 108u, 0x80000000u, 0xffffffffu}) {
        ASSERT_EQ(write(TX_INTEGER, integer), RADIO_ESUCCESS);
        EXPECT_EQ(write(TX_FRACTION, 0), RADIO_EINVAL) << integer;
    }
    ASSERT_EQ(write(TX_INTEGER, 66), RADIO_ESUCCESS);
    EXPECT_EQ(write(TX_FRACTION, 40000000), RADIO_EINVAL);
    EXPECT_EQ(write(TX_FRACTION, 0xffffffff), RADIO_EINVAL);
    EXPECT_EQ(at(TX_FREQUENCY), 2655000000u);
    EXPECT_EQ(write(TX_FRACTION, 39999999), RADIO_ESUCCESS);
}

TEST_F(Words, in_time_division_words_tune_both_directions)
{
    init(RADIO_CONF_SISO, RADIO_MODE_4GENODEB_TDD_5MHZ, RADIO_BAND_38);
    ASSERT_EQ(write(RX_FRACTION, 20000000), RADIO_ESUCCESS);
    EXPECT_EQ(at(RX_FREQUENCY), 2580000000u);
    EXPECT_EQ(at(TX_FREQUENCY), 2580000000u);
    EXPECT_EQ(at(TX_FRACTION), 20000000u);
}

} // namespace

} // namespace sorel_tests
