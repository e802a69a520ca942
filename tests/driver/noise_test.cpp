// SPDX-License-Identifier: LicenseRef-Proprietary
// The noise of the readings: how much, and that it is the same again under the same seed.
#include "model.h"
#include "radio_test.h"

#include <functional>

namespace sorel_tests
{

namespace
{

constexpr int readings = 1000;

class Noise : public RadioTest
{
protected:
    double once()
    {
        return static_cast<double>(radioGetRxRtwpIndBm(context));
    }

    // From opening on: the noise of a board begins with it.
    std::vector<double> fresh(const std::function<double()> &reading)
    {
        open(RADIO_PLATFORM_DEFAULT);
        init(RADIO_CONF_SISO);
        return series(reading);
    }

    std::vector<double> series(const std::function<double()> &reading)
    {
        std::vector<double> values;
        while (values.size() < readings)
            values.push_back(reading());
        return values;
    }

    std::vector<double> ofSeed(const std::string &seed)
    {
        openIn("seed = " + seed);
        return fresh([&] { return once(); });
    }
};

// One measurement a row: the mode, and how far the mean may lie from the model in dB.
const struct {
    RadioMode mode;
    RadioBand band;
    double bandwidth;
    double meanWithin;
} rows[] = {
    {RADIO_MODE_3GNODEB, RADIO_BAND_1, 3.84e6, 0.05},
    {RADIO_MODE_3GUERX, RADIO_BAND_1, 3.84e6, 0.05},
    {RADIO_MODE_4GENODEB_FDD_3MHZ, RADIO_BAND_7, 2.7e6, 0.05},
    {RADIO_MODE_4GENODEB_FDD_5MHZ, RADIO_BAND_7, 4.5e6, 0.05},
    {RADIO_MODE_4GENODEB_FDD_10MHZ, RADIO_BAND_7, 9e6, 0.05},
    {RADIO_MODE_4GENODEB_FDD_15MHZ, RADIO_BAND_7, 13.5e6, 0.05},
    {RADIO_MODE_4GENODEB_FDD_20MHZ, RADIO_BAND_7, 18e6, 0.05},
    {RADIO_MODE_4GUERX_TDD_20MHZ, RADIO_BAND_38, 18e6, 0.05},
    {RADIO_MODE_TD_SCDMA_NODEB, RADIO_BAND_34, 1.28e6, 0.05},
    {RADIO_MODE_2GUERX, RADIO_BAND_GSM_900, 0.2e6, 0.05},
};

TEST_F(Noise, a_thousand_readings_scatter_about_the_model_as_averaged_noise_does)
{
    for (const auto &row : rows) {
        SCOPED_TRACE(row.mode);
        for (const char *const seed : {"1", "2", "3"}) {
            openIn(std::string("ambient = -50.0\nseed = ") + seed);
            init(RADIO_CONF_SISO, row.mode, row.band);
            const std::vector<double> values = series([&] { return once(); });
            EXPECT_NEAR(mean(values), thermalNoise(row.bandwidth) + 5, row.meanWithin) << seed;
            EXPECT_NEAR(standardDeviation(values) / readingSpread(row.bandwidth), 1, 0.1) << seed;
        }
    }
}

TEST_F(Noise, readings_are_in_steps_of_a_64th)
{
    for (const double value : fresh([&] { return once(); }))
        ASSERT_EQ(value * 64, std::round(value * 64));
}

TEST_F(Noise, the_receivers_together_scatter_as_one)
{
    init();
    const std::vector<double> values = series([&] { return once(); });
    EXPECT_NEAR(standardDeviation(values) / readingSpread(lte20), 1, 0.1);
}

TEST_F(Noise, every_reading_is_the_same_measurement_in_its_own_unit)
{
    const std::vector<double> exact = fresh([&] { return once(); });
    const auto tenths = [](double value) { return std::round(value * 10) / 10; };
    std::vector<double> rounded;
    for (const double value : exact)
        rounded.push_back(tenths(value));
    const RadioRxAntenna first = RADIO_RX_ANTENNA_1;
    EXPECT_EQ(fresh([&] { return radioGetRxRtwp(context) / 10.0; }), rounded);
    EXPECT_EQ(fresh([&] { return radioGetRxRtwpOfAntenna(context, first) / 10.0; }), rounded);
    EXPECT_EQ(fresh([&] { return double{radioGetRxRtwpOfAntennaIndBm(context, first)}; }), exact);
    EXPECT_EQ(fresh([&] { return decibelsAt(RX_RTWP); }), exact);
}

TEST_F(Noise, a_seed_gives_the_same_readings_every_time)
{
    const std::vector<double> first = ofSeed("7");
    EXPECT_EQ(ofSeed("7"), first);
    EXPECT_NE(ofSeed("8"), first);
}

TEST_F(Noise, without_a_scenario_the_seed_is_1)
{
    const std::vector<double> without = fresh([&] { return once(); });
    EXPECT_EQ(ofSeed("1"), without);
}

TEST_F(Noise, reset_and_init_do_not_begin_the_noise_again)
{
    const std::vector<double> first = fresh([&] { return once(); });
    ASSERT_EQ(radioReset(context), RADIO_ESUCCESS);
    init(RADIO_CONF_SISO);
    EXPECT_NE(series([&] { return once(); }), first);
}

} // namespace

} // namespace sorel_tests
