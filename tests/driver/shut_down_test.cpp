// SPDX-License-Identifier: LicenseRef-Proprietary
// What the board does when it is too hot: at 110 degrees off, below 100 on again.
#include "radio_test.h"

namespace sorel_tests
{

namespace
{

class ShutDown : public RadioTest
{
protected:
    // Air of that temperature, to which the receivers add 8.8 degrees and the transmitters up to
    // 18.4 more.
    void openAt(const std::string &ambient)
    {
        openIn("ambient = " + ambient);
        init();
    }

    RadioReturn enable()
    {
        return radioSetTxState(context, RADIO_STATE_ENABLE);
    }

    // Lets time pass until the transmitters are off, and returns the temperature before.
    float hottest()
    {
        float before = 0;
        for (int calls = 0; calls < 300000 && at(TX_STATE) == 1; ++calls)
            before = radioGetTemperature(context);
        return before;
    }
};

TEST_F(ShutDown, at_110_degrees_the_transmitters_are_switched_off)
{
    openAt("95.0");
    ASSERT_EQ(enable(), RADIO_ESUCCESS);
    EXPECT_EQ(at(EVENTS) & SHUT_DOWN, 0u);
    EXPECT_NEAR(hottest(), 110, 2.0 / 16);
    EXPECT_EQ(at(TX_STATE), 0u);
    EXPECT_EQ(at(TX_STATE + 1), 0u);
    EXPECT_EQ(at(TX_POWER), NOTHING);
    EXPECT_EQ(at(RX_STATE), 1u);
    EXPECT_EQ(at(EVENTS) & SHUT_DOWN, uint32_t{SHUT_DOWN});
}

TEST_F(ShutDown, until_below_100_degrees_they_cannot_be_switched_on)
{
    openAt("90.0"); // with the receivers alone it cools down to 98.8
    ASSERT_EQ(enable(), RADIO_ESUCCESS);
    ASSERT_GT(hottest(), 109);
    EXPECT_EQ(enable(), RADIO_EERROR);
    EXPECT_EQ(radioSetTxStateOfAntenna(context, RADIO_TX_ANTENNA_2, RADIO_STATE_ENABLE),
              RADIO_EERROR);
    EXPECT_EQ(radioSpiWrite(context, TX_STATE, 1), RADIO_EERROR);
    EXPECT_EQ(radioSetTxState(context, RADIO_STATE_DISABLE), RADIO_ESUCCESS);
    for (int calls = 0; calls < 300000 && radioGetTemperature(context) >= 100; ++calls)
        ASSERT_EQ(enable(), RADIO_EERROR) << radioGetTemperature(context);
    EXPECT_LT(radioGetTemperature(context), 100.0f);
    EXPECT_EQ(enable(), RADIO_ESUCCESS);
}

TEST_F(ShutDown, the_event_is_remembered_until_it_is_cleared)
{
    openAt("95.0");
    ASSERT_EQ(enable(), RADIO_ESUCCESS);
    hottest();
    ASSERT_EQ(radioSpiWrite(context, EVENTS, SHUT_DOWN), RADIO_ESUCCESS);
    EXPECT_EQ(at(EVENTS) & SHUT_DOWN, 0u);
    wait(1000); // it is hot still, but that is no new event
    EXPECT_EQ(at(EVENTS) & SHUT_DOWN, 0u);
    EXPECT_EQ(enable(), RADIO_EERROR);
}

TEST_F(ShutDown, neither_init_nor_reset_makes_a_hot_board_transmit)
{
    openAt("120.0");
    EXPECT_EQ(enable(), RADIO_EERROR);
    init();
    EXPECT_EQ(enable(), RADIO_EERROR);
    ASSERT_EQ(radioReset(context), RADIO_ESUCCESS);
    init();
    EXPECT_EQ(enable(), RADIO_EERROR);
}

TEST_F(ShutDown, a_board_just_below_the_limit_transmits)
{
    openIn("ambient = 100.0");
    init(RADIO_CONF_SISO); // 100 + 6
    ASSERT_EQ(radioSetTxMaxPower(context, -600), RADIO_ESUCCESS);
    ASSERT_EQ(enable(), RADIO_ESUCCESS); // and 3.2 more
    wait(200000);
    EXPECT_EQ(at(TX_STATE), 1u);
    EXPECT_GT(radioGetTemperature(context), 109.0f);
}

} // namespace

} // namespace sorel_tests
