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

TEST_F(Thermal, each_chip_of_a_platform_heats_it)
{
    open(RADIO_PLATFORM_TALWIN);
    EXPECT_NEAR(radioGetTemperature(context), 25 + 6 * 2 * 0.4, 1.0 / 16);
}

TEST_F(Thermal, heat_adds_to_the_ambient_temperature_also_below_zero)
{
    for (const char *const ambient : {"-40.0", "0.0", "60.0"}) {
        openIn(std::string("ambient = ") + ambient);
        EXPECT_NEAR(radioGetTemperature(context), std::atof(ambient) + 8 * 0.4, 1.0 / 16);
    }
}

TEST_F(Thermal, a_transmitter_heats_by_itself_and_by_three_times_its_output)
{
    init(RADIO_CONF_SISO);
    wait(200000);
    const float idle = radioGetTemperature(context);
    ASSERT_EQ(radioSetTxMaxPower(context, -600), RADIO_ESUCCESS);
    ASSERT_EQ(radioSetTxState(context, RADIO_STATE_ENABLE), RADIO_ESUCCESS);
    wait(200000);
    EXPECT_NEAR(radioGetTemperature(context) - idle, 0.4 * 8, 0.1);
    ASSERT_EQ(radioSetTxMaxPower(context, 200), RADIO_ESUCCESS);
    wait(200000);
    EXPECT_NEAR(radioGetTemperature(context) - idle, (0.4 + 3 * 0.1) * 8, 0.1);
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
    openIn("ambient = -40.0");
    const auto shown = static_cast<int32_t>(at(TEMPERATURE));
    EXPECT_EQ(static_cast<float>(shown) / 16, radioGetTemperature(context));
}

} // namespace

} // namespace sorel_tests
