// SPDX-License-Identifier: LicenseRef-Proprietary
// Temperature: what it follows, how fast, and that it is the same on every run.
#include "radio_test.h"

#include <vector>

namespace sorel_tests
{

namespace
{

class Thermal : public RadioTest
{
protected:
    void wait(int calls)
    {
        for (int i = 0; i < calls; ++i)
            radioGetDebugLevel(context);
    }

    std::vector<float> warmUp()
    {
        open(RADIO_PLATFORM_TALWIN);
        init();
        radioSetTxState(context, RADIO_STATE_ENABLE);
        std::vector<float> readings;
        for (int i = 0; i < 100; ++i) {
            wait(1000);
            readings.push_back(radioGetTemperature(context));
        }
        return readings;
    }
};

TEST_F(Thermal, an_idle_board_stays_at_its_temperature)
{
    EXPECT_NEAR(radioGetTemperature(context), 25 + 8 * 0.4, 1.0 / 16);
    const float before = radioGetTemperature(context);
    wait(100000);
    EXPECT_EQ(radioGetTemperature(context), before);
}

TEST_F(Thermal, more_chips_are_warmer)
{
    const float one = radioGetTemperature(context);
    open(RADIO_PLATFORM_TALWIN);
    EXPECT_NEAR(radioGetTemperature(context) - one, 8 * 0.4, 0.1);
}

TEST_F(Thermal, a_working_board_warms_up_by_its_heat_and_time_constant)
{
    const float before = radioGetTemperature(context);
    init();
    const double rise = 8 * (0.2 + 2 * 0.15);
    wait(8192);
    EXPECT_NEAR(radioGetTemperature(context) - before, rise * 0.632, 0.1);
    wait(200000);
    EXPECT_NEAR(radioGetTemperature(context) - before, rise, 0.1);
}

TEST_F(Thermal, a_receiver_that_is_off_is_cooler)
{
    init();
    wait(200000);
    const float on = radioGetTemperature(context);
    ASSERT_EQ(radioSetRxState(context, RADIO_STATE_DISABLE), RADIO_ESUCCESS);
    wait(200000);
    EXPECT_NEAR(on - radioGetTemperature(context), 8 * 2 * 0.15, 0.1);
}

TEST_F(Thermal, reset_keeps_the_temperature_and_lets_it_cool)
{
    init();
    wait(200000);
    const float warm = radioGetTemperature(context);
    ASSERT_EQ(radioReset(context), RADIO_ESUCCESS);
    EXPECT_NEAR(radioGetTemperature(context), warm, 0.1);
    wait(200000);
    EXPECT_NEAR(radioGetTemperature(context), 25 + 8 * 0.4, 0.1);
}

TEST_F(Thermal, the_same_calls_give_the_same_temperatures)
{
    const std::vector<float> first = warmUp();
    EXPECT_LT(first.front(), first.back());
    EXPECT_EQ(first, warmUp());
}

TEST_F(Thermal, the_register_is_the_same_reading)
{
    init();
    wait(5000);
    EXPECT_EQ(static_cast<float>(at(TEMPERATURE)) / 16, radioGetTemperature(context));
}

} // namespace

} // namespace sorel_tests
