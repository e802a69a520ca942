// SPDX-License-Identifier: LicenseRef-Proprietary
// The scenario's signals: which part of them is received, where and when.
#include "model.h"
#include "radio_test.h"

namespace sorel_tests
{

namespace
{

constexpr int readings = 200;

class Signals : public RadioTest
{
protected:
    // LTE 20 MHz in band 7, around 2535 MHz, with these keys of a signal of -70 dBm.
    void hear(const std::string &signal)
    {
        openIn("ambient = -50.0\n[[signals]]\npower = -70\n" + signal);
        init();
        ASSERT_EQ(radioSetRxGain(context, 60), RADIO_ESUCCESS);
    }

    double measured(RadioRxAntenna antenna = RADIO_RX_ANTENNA_1)
    {
        std::vector<double> values;
        while (values.size() < readings)
            values.push_back(static_cast<double>(radioGetRxRtwpOfAntennaIndBm(context, antenna)));
        return mean(values);
    }

    const double tolerance = meanTolerance(lte20, readings);
    const double idle =
        sum({thermalNoise(lte20) + 5 + 16 * 0.25, quantisationNoise(12, lte20, lte20Rate, 60)});
};

TEST_F(Signals, the_part_inside_the_channel_counts)
{
    const struct {
        const char *place;
        double share; // of the power
    } rows[] = {
        {"frequency = 2535000000\nbandwidth = 5000000", 1},
        {"frequency = 2535000000\nbandwidth = 18000000", 1},
        {"frequency = 2535000000\nbandwidth = 36000000", 0.5},
        {"frequency = 2544000000\nbandwidth = 10000000", 0.5},
        {"frequency = 2526000000\nbandwidth = 10000000", 0.5},
        {"frequency = 2550000000\nbandwidth = 16000000", 1.0 / 8},
        {"frequency = 2550000000\nbandwidth = 12000000", 0},
        {"frequency = 2000000000\nbandwidth = 1000000", 0},
        // Bare carriers: inside, on the edge, and beyond it.
        {"frequency = 2530000000", 1},
        {"frequency = 2544000000\nbandwidth = 0", 1},
        {"frequency = 2544000001\nbandwidth = 0", 0},
    };
    for (const auto &row : rows) {
        hear(row.place);
        const double expected =
            row.share == 0 ? idle : sum({idle, -70 + 10 * std::log10(row.share)});
        EXPECT_NEAR(measured(), expected, tolerance) << row.place;
    }
}

TEST_F(Signals, the_channel_is_where_the_receiver_is_tuned_to)
{
    hear("frequency = 2510000000\nbandwidth = 10000000");
    EXPECT_NEAR(measured(), idle, tolerance);
    ASSERT_EQ(radioSetRxFrequency(context, 2510000000u), RADIO_ESUCCESS);
    EXPECT_NEAR(measured(), sum({idle, -70}), tolerance);
}

TEST_F(Signals, the_channel_moves_with_the_oscillator)
{
    hear("frequency = 2544000001");
    EXPECT_NEAR(measured(), idle, tolerance);
    ASSERT_EQ(radioSetOscillatorDacValue(context, 65535), RADIO_ESUCCESS); // 24.9 kHz higher
    EXPECT_NEAR(measured(), sum({idle, -70}), tolerance);
}

TEST_F(Signals, a_signal_arrives_at_its_antennas)
{
    const auto check = [&](const char *antenna, bool first, bool second) {
        hear(std::string("frequency = 2535000000\n") + antenna);
        EXPECT_NEAR(measured(RADIO_RX_ANTENNA_1), first ? sum({idle, -70}) : idle, tolerance);
        EXPECT_NEAR(measured(RADIO_RX_ANTENNA_2), second ? sum({idle, -70}) : idle, tolerance);
    };
    check("antenna = 1", true, false);
    check("antenna = 2", false, true);
    check("", true, true);
}

TEST_F(Signals, a_signal_is_there_from_its_start_to_its_end)
{
    hear("frequency = 2535000000\nstart = 0.01\nend = 0.02");
    std::vector<bool> heard;
    for (int call = 3; call <= 210; ++call) // 100 us each; two have gone before
        heard.push_back(radioGetRxRtwpOfAntennaIndBm(context, RADIO_RX_ANTENNA_1) > -80);
    for (int call = 3; call <= 210; ++call)
        EXPECT_EQ(heard[static_cast<std::size_t>(call - 3)], call >= 100 && call < 200) << call;
}

TEST_F(Signals, signals_add_up)
{
    openIn("ambient = -50.0\n"
           "[[signals]]\npower = -70\nfrequency = 2535000000\n"
           "[[signals]]\npower = -73\nfrequency = 2536000000\nbandwidth = 1000000\n");
    init();
    ASSERT_EQ(radioSetRxGain(context, 60), RADIO_ESUCCESS);
    EXPECT_NEAR(measured(), sum({idle, -70, -73}), tolerance);
}

TEST_F(Signals, gain_control_follows_a_signal_that_comes_between_two_calls)
{
    hear("frequency = 2535000000\nstart = 0.5\nend = 1.0");
    ASSERT_EQ(radioSetRxGain(context, 76), RADIO_ESUCCESS);
    ASSERT_EQ(radioSetRxGainMode(context, RADIO_RX_GAIN_AGC_FAST), RADIO_ESUCCESS);
    const auto expectInWindow = [&](double input) {
        const double level = input + radioGetRxGainIndB(context);
        EXPECT_GE(level, -28);
        EXPECT_LE(level, -20);
    };
    wait(4000);
    EXPECT_EQ(radioGetRxGainIndB(context), 76); // noise at -20.4 dBFS
    wait(1010);
    expectInWindow(-70);
    wait(5000);
    const int gain = radioGetRxGainIndB(context);
    EXPECT_GT(gain, 60);
    expectInWindow(thermalNoise(lte20) + 5 + 0.25 * (76 - gain));
}

TEST_F(Signals, a_signal_too_loud_for_the_converter_is_noticed)
{
    openIn("[[signals]]\npower = -10\nfrequency = 2535000000\nantenna = 2");
    init();
    EXPECT_EQ(at(EVENTS) & OVERLOAD, 0u);
    EXPECT_EQ(at(EVENTS) & (OVERLOAD << 1), uint32_t{OVERLOAD} << 1);
}

} // namespace

} // namespace sorel_tests
