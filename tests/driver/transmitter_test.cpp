// SPDX-License-Identifier: LicenseRef-Proprietary
// Transmitters: switching, limits, power tables and carrier leakage.
#include "radio_test.h"

#include <cmath>

namespace sorel_tests
{

namespace
{

class Transmitter : public RadioTest
{
protected:
    // Powers in 0.1 dBm.
    RadioReturn load(const std::vector<int32_t> &powers)
    {
        const std::vector<uint32_t> words(powers.begin(), powers.end());
        return radioSetTxPowerRegisters(context, words.data(), static_cast<uint32_t>(words.size()));
    }

    void transmit()
    {
        ASSERT_EQ(radioSetTxState(context, RADIO_STATE_ENABLE), RADIO_ESUCCESS);
    }

    RadioReturn limit(int power)
    {
        return radioSetTxMaxPower(context, static_cast<int16_t>(power));
    }

    // The offset of one component with the least leakage while the other stays as it is.
    int16_t best(bool isQuadrature, int16_t other)
    {
        double lowest = 1000;
        int16_t found = 0;
        for (int16_t offset = -64; offset <= 64; ++offset) {
            radioSetTxDcOffset(context, RADIO_TX_ANTENNA_1, isQuadrature ? other : offset,
                               isQuadrature ? offset : other);
            const double leakage = decibelsAt(TX_LEAKAGE);
            if (leakage < lowest)
                found = offset;
            lowest = std::min(lowest, leakage);
        }
        return found;
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

TEST_F(Transmitter, the_output_is_the_limit)
{
    init();
    EXPECT_EQ(at(TX_POWER), NOTHING);
    transmit();
    for (const int power : {240, 100, 0, -7, -600}) {
        ASSERT_EQ(limit(power), RADIO_ESUCCESS);
        EXPECT_NEAR(decibelsAt(TX_POWER), power / 10.0, 1.0 / 128) << power;
        EXPECT_NEAR(decibelsAt(TX_POWER + 1), power / 10.0, 1.0 / 128) << power;
    }
    ASSERT_EQ(radioSetTxStateOfAntenna(context, RADIO_TX_ANTENNA_1, RADIO_STATE_DISABLE),
              RADIO_ESUCCESS);
    EXPECT_EQ(at(TX_POWER), NOTHING);
    EXPECT_NE(at(TX_POWER + 1), NOTHING);
}

TEST_F(Transmitter, a_power_table_can_be_read_back)
{
    init();
    ASSERT_EQ(load({-100, 90}), RADIO_ESUCCESS);
    EXPECT_EQ(at(POWER_TABLE_COUNT), 2u);
    EXPECT_EQ(at(POWER_TABLE), static_cast<uint32_t>(-100));
    EXPECT_EQ(at(POWER_TABLE + 1), 90u);
    EXPECT_EQ(at(GAIN_TABLE_COUNT), 0u);
}

TEST_F(Transmitter, with_a_table_the_output_is_the_highest_power_not_above_the_limit)
{
    init();
    ASSERT_EQ(load({-300, -100, 0, 100}), RADIO_ESUCCESS);
    transmit();
    const struct {
        int limit;
        double output;
    } rows[] = {{240, 10}, {100, 10}, {99, 0}, {0, 0}, {-1, -10}, {-299, -30}, {-300, -30}};
    for (const auto &row : rows) {
        ASSERT_EQ(limit(row.limit), RADIO_ESUCCESS) << row.limit;
        EXPECT_EQ(decibelsAt(TX_POWER), row.output) << row.limit;
    }
    EXPECT_EQ(limit(-301), RADIO_EINVAL); // nothing in the table is that low
    EXPECT_EQ(static_cast<int32_t>(at(TX_MAX_POWER)), -300);
    ASSERT_EQ(load({}), RADIO_ESUCCESS);
    EXPECT_EQ(limit(-301), RADIO_ESUCCESS);
}

TEST_F(Transmitter, a_wrong_power_table_is_refused_and_the_former_kept)
{
    init();
    ASSERT_EQ(radioSetTxMaxPowerOfAntenna(context, RADIO_TX_ANTENNA_2, 50), RADIO_ESUCCESS);
    ASSERT_EQ(load({50}), RADIO_ESUCCESS);
    EXPECT_EQ(load({51, 60}), RADIO_EINVAL); // above the limit of the second transmitter
    EXPECT_EQ(load({0, 241}), RADIO_EINVAL);
    EXPECT_EQ(load({-601, 0}), RADIO_EINVAL);
    EXPECT_EQ(load({0, -1}), RADIO_EINVAL); // falling
    EXPECT_EQ(load(std::vector<int32_t>(257)), RADIO_EINVAL);
    EXPECT_EQ(at(POWER_TABLE_COUNT), 1u);
    EXPECT_EQ(at(POWER_TABLE), 50u);
}

TEST_F(Transmitter, offsets_are_kept_for_each_antenna)
{
    init();
    ASSERT_EQ(radioSetTxDcOffset(context, RADIO_TX_ANTENNA_1, -1, 2047), RADIO_ESUCCESS);
    ASSERT_EQ(radioSetTxDcOffset(context, RADIO_TX_ANTENNA_2, 5, -2048), RADIO_ESUCCESS);
    EXPECT_EQ(at(TX_DC_OFFSET), 0x07ffffffu);
    EXPECT_EQ(at(TX_DC_OFFSET + 1), 0xf8000005u);
}

TEST_F(Transmitter, the_right_offsets_cancel_the_carrier)
{
    for (const char *const serial : {"1", "2", "4711", "4294967295"}) {
        openIn(std::string("serial = ") + serial);
        init(RADIO_CONF_SISO);
        // Coarsely first: what the other component leaks hides the last steps of each.
        const int16_t quadrature = best(true, best(false, 0));
        const int16_t inPhase = best(false, quadrature);
        ASSERT_EQ(radioSetTxDcOffset(context, RADIO_TX_ANTENNA_1, inPhase, quadrature),
                  RADIO_ESUCCESS);
        // A quarter of a step of 2048 is left.
        EXPECT_NEAR(decibelsAt(TX_LEAKAGE), 20 * std::log10(0.25 / 2048), 1.0 / 128) << serial;
        const int16_t off = static_cast<int16_t>(inPhase + 30);
        const int16_t also = static_cast<int16_t>(quadrature - 40);
        ASSERT_EQ(radioSetTxDcOffset(context, RADIO_TX_ANTENNA_1, off, also), RADIO_ESUCCESS);
        EXPECT_NEAR(decibelsAt(TX_LEAKAGE), 10 * std::log10((900 + 1600 + 0.0625) / 2048 / 2048),
                    1.0 / 128);
    }
}

TEST_F(Transmitter, each_board_and_each_path_leaks_otherwise)
{
    init();
    const double first = decibelsAt(TX_LEAKAGE), second = decibelsAt(TX_LEAKAGE + 1);
    EXPECT_NE(first, second);
    openIn("serial = 2");
    EXPECT_EQ(at(SERIAL), 2u);
    EXPECT_EQ(at(TX_LEAKAGE), NOTHING); // before radioInit()
    init();
    EXPECT_NE(decibelsAt(TX_LEAKAGE), first);
    openIn("serial = 1");
    init(RADIO_CONF_SISO);
    EXPECT_EQ(decibelsAt(TX_LEAKAGE), first);
    EXPECT_EQ(at(TX_LEAKAGE + 1), NOTHING);
}

TEST_F(Transmitter, receive_to_transmit_loopback_transmits_what_is_received)
{
    openIn("ambient = -50.0");
    init(RADIO_CONF_SISO);
    transmit();
    ASSERT_EQ(radioSetLoopback(context, RADIO_RX_TO_TX_LOOPBACK), RADIO_ESUCCESS);
    EXPECT_NEAR(decibelsAt(TX_POWER), -101.42 + 5 + 76, 1.0 / 64); // noise, and the gain
    ASSERT_EQ(radioSetRxGain(context, 50), RADIO_ESUCCESS);
    EXPECT_NEAR(decibelsAt(TX_POWER), -101.42 + 5 + 26 * 0.25 + 50, 2.0 / 64);
    ASSERT_EQ(limit(-500), RADIO_ESUCCESS);
    EXPECT_EQ(decibelsAt(TX_POWER), -50);
    ASSERT_EQ(radioSetRxState(context, RADIO_STATE_DISABLE), RADIO_ESUCCESS);
    EXPECT_EQ(at(TX_POWER), NOTHING);
}

} // namespace

} // namespace sorel_tests
