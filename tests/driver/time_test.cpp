// SPDX-License-Identifier: LicenseRef-Proprietary
// Simulated time: what passes by itself, and when. A signal that starts tells the time.
#include "radio_test.h"

#include <chrono>
#include <thread>

namespace sorel_tests
{

namespace
{

class Time : public RadioTest
{
protected:
    // In a scenario in which a loud signal comes after that many seconds.
    void openWithSignalAt(const std::string &start, const std::string &more = "")
    {
        openIn(more + "\n[[signals]]\nfrequency = 2535000000\npower = -60\nstart = " + start);
        init(RADIO_CONF_SISO); // the first call
    }

    bool hears()
    {
        return radioGetRxRtwpIndBm(context) > -80;
    }
};

TEST_F(Time, a_call_takes_100_us_before_it_acts)
{
    openWithSignalAt("0.001");
    wait(7);
    EXPECT_FALSE(hears()); // the ninth call, at 0.9 ms
    EXPECT_TRUE(hears());  // the tenth
}

TEST_F(Time, a_refused_call_takes_its_time_too)
{
    openWithSignalAt("0.001");
    for (int i = 0; i < 8; ++i)
        EXPECT_EQ(radioSetTxMaxPower(context, 1000), RADIO_EINVAL);
    EXPECT_TRUE(hears());
}

TEST_F(Time, a_call_without_an_open_context_takes_none)
{
    openWithSignalAt("0.001");
    for (int i = 0; i < 1000; ++i) {
        radioGetTemperature(nullptr);
        radioVersion(context);
        radioGetDriverNames(context);
    }
    EXPECT_FALSE(hears());
}

TEST_F(Time, measuring_in_the_2G_mode_takes_a_time_slot)
{
    openIn("[[signals]]\nfrequency = 947500000\npower = -60\nstart = 0.0015");
    init(RADIO_CONF_SISO, RADIO_MODE_2GUERX, RADIO_BAND_GSM_900); // 0.1 ms
    EXPECT_FALSE(hears());                                        // 0.677 ms
    EXPECT_FALSE(hears());                                        // 1.254 ms
    EXPECT_TRUE(hears());                                         // 1.831 ms
}

TEST_F(Time, init_and_reset_do_not_set_it_back)
{
    openWithSignalAt("0.001");
    wait(6);
    ASSERT_EQ(radioReset(context), RADIO_ESUCCESS);
    init(RADIO_CONF_SISO);
    EXPECT_TRUE(hears());
}

TEST_F(Time, each_board_has_its_own)
{
    openWithSignalAt("0.001");
    RadioContext *const other = radioOpen();
    for (int i = 0; i < 100; ++i)
        radioGetTemperature(other);
    EXPECT_FALSE(hears());
    EXPECT_EQ(radioClose(other), RADIO_ESUCCESS);
}

TEST_F(Time, with_the_wall_clock_it_follows_real_time)
{
    using namespace std::chrono;
    const auto start = steady_clock::now();
    openWithSignalAt("0.3", "clock = \"wall\"");
    while (!hears())
        ASSERT_LT(steady_clock::now() - start, 60s);
    EXPECT_GE(steady_clock::now() - start, 300ms);
}

TEST_F(Time, with_the_wall_clock_a_scripts_delay_is_waited_for)
{
    using namespace std::chrono;
    const std::string script = file("delay 100 ms\n");
    const auto bringUp = [&] {
        const auto start = steady_clock::now();
        EXPECT_EQ(radioInitByScript(context, RADIO_CONF_SISO, RADIO_MODE_4GENODEB_FDD_20MHZ,
                                    RADIO_BAND_7, script.c_str()),
                  RADIO_ESUCCESS);
        return steady_clock::now() - start;
    };
    openWithSignalAt("0.1", "clock = \"wall\"");
    EXPECT_GE(bringUp(), 100ms);
    EXPECT_TRUE(hears());
}

TEST_F(Time, with_the_wall_clock_it_passes_while_nothing_is_called)
{
    openWithSignalAt("0.1", "clock = \"wall\"");
    std::this_thread::sleep_for(std::chrono::milliseconds(150));
    EXPECT_TRUE(hears());
}

} // namespace

} // namespace sorel_tests
