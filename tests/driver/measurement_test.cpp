// SPDX-License-Identifier: LicenseRef-Proprietary
// RTWP: what adds up in it, and where it ends.
#include "model.h"
#include "radio_test.h"

namespace sorel_tests
{

namespace
{

constexpr std::size_t readings = 1000;
constexpr double noiseFigure = 5.0; // of the default platform at its highest gain

class Measurement : public RadioTest
{
protected:
    // In the cold the noise figure does not depend on the temperature.
    void SetUp() override
    {
        openIn("ambient = -50.0");
    }

    // The mean of many readings.
    double measured(RadioRxAntenna antenna = RADIO_RX_ANTENNA_1)
    {
        std::vector<double> values;
        while (values.size() < readings)
            values.push_back(static_cast<double>(radioGetRxRtwpOfAntennaIndBm(context, antenna)));
        return mean(values);
    }

    double measuredOfSelected()
    {
        std::vector<double> values;
        while (values.size() < readings)
            values.push_back(static_cast<double>(radioGetRxRtwpIndBm(context)));
        return mean(values);
    }

    void transmit()
    {
        ASSERT_EQ(radioSetTxState(context, RADIO_STATE_ENABLE), RADIO_ESUCCESS);
    }

    void loop(RadioLoopback loopback)
    {
        ASSERT_EQ(radioSetLoopback(context, loopback), RADIO_ESUCCESS);
    }

    void setGain(int16_t gain)
    {
        ASSERT_EQ(radioSetRxGain(context, gain), RADIO_ESUCCESS);
    }

    // The middle of the 20 MHz LTE readings has to be within this of the model, in dB.
    const double tolerance = meanTolerance(lte20, readings);
    const double idle = thermalNoise(lte20) + noiseFigure;
};

TEST_F(Measurement, an_idle_receiver_measures_thermal_noise_and_its_noise_figure)
{
    const struct {
        RadioMode mode;
        RadioBand band;
        double bandwidth;
        double noise; // thermal noise at 290 K in that bandwidth, in dBm
    } rows[] = {
        {RADIO_MODE_2GUERX, RADIO_BAND_GSM_900, 0.2e6, -120.96},
        {RADIO_MODE_TD_SCDMA_NODEB, RADIO_BAND_34, 1.28e6, -112.90},
        {RADIO_MODE_3GNODEB, RADIO_BAND_1, 3.84e6, -108.13},
        {RADIO_MODE_3GUERX, RADIO_BAND_1, 3.84e6, -108.13},
        {RADIO_MODE_4GENODEB_FDD_3MHZ, RADIO_BAND_7, 2.7e6, -109.66},
        {RADIO_MODE_4GENODEB_FDD_5MHZ, RADIO_BAND_7, 4.5e6, -107.44},
        {RADIO_MODE_4GENODEB_FDD_10MHZ, RADIO_BAND_7, 9e6, -104.43},
        {RADIO_MODE_4GENODEB_FDD_15MHZ, RADIO_BAND_7, 13.5e6, -102.67},
        {RADIO_MODE_4GENODEB_FDD_20MHZ, RADIO_BAND_7, 18e6, -101.42},
        {RADIO_MODE_4GENODEB_TDD_5MHZ, RADIO_BAND_38, 4.5e6, -107.44},
        {RADIO_MODE_4GENODEB_TDD_10MHZ, RADIO_BAND_38, 9e6, -104.43},
        {RADIO_MODE_4GENODEB_TDD_20MHZ, RADIO_BAND_38, 18e6, -101.42},
        {RADIO_MODE_4GUERX_FDD_5MHZ, RADIO_BAND_7, 4.5e6, -107.44},
        {RADIO_MODE_4GUERX_FDD_10MHZ, RADIO_BAND_7, 9e6, -104.43},
        {RADIO_MODE_4GUERX_FDD_20MHZ, RADIO_BAND_7, 18e6, -101.42},
        {RADIO_MODE_4GUERX_TDD_5MHZ, RADIO_BAND_38, 4.5e6, -107.44},
        {RADIO_MODE_4GUERX_TDD_10MHZ, RADIO_BAND_38, 9e6, -104.43},
        {RADIO_MODE_4GUERX_TDD_20MHZ, RADIO_BAND_38, 18e6, -101.42},
    };
    for (const auto &row : rows) {
        init(RADIO_CONF_SISO, row.mode, row.band);
        EXPECT_NEAR(measured(), row.noise + noiseFigure, meanTolerance(row.bandwidth, readings))
            << row.mode;
    }
}

TEST_F(Measurement, less_gain_means_more_noise_of_receiver_and_converter)
{
    init(RADIO_CONF_SISO);
    for (const int16_t gain : std::initializer_list<int16_t>{76, 56, 30, 10, 0}) {
        setGain(gain);
        const double expected =
            sum({idle + 0.25 * (76 - gain), quantisationNoise(12, lte20, lte20Rate, gain)});
        EXPECT_NEAR(measured(), expected, tolerance) << gain;
    }
}

TEST_F(Measurement, a_converter_of_fewer_bits_is_noisier)
{
    open(RADIO_PLATFORM_MERRIK);
    init(RADIO_CONF_SISO);
    setGain(0);
    const double converter = quantisationNoise(10, lte20, lte20Rate, 0);
    const double receiver = thermalNoise(lte20) + 6.5 + 0.30 * 64;
    ASSERT_GT(converter, receiver + 10);
    EXPECT_NEAR(measured(), sum({converter, receiver}), tolerance);
}

TEST_F(Measurement, a_narrow_channel_takes_its_share_of_the_converters_noise)
{
    init(RADIO_CONF_SISO, RADIO_MODE_2GUERX, RADIO_BAND_GSM_900);
    setGain(0);
    const double expected = sum(
        {thermalNoise(0.2e6) + noiseFigure + 0.25 * 76, quantisationNoise(12, 0.2e6, 1.92e6, 0)});
    EXPECT_NEAR(measured(), expected, meanTolerance(0.2e6, readings));
}

TEST_F(Measurement, a_warm_receiver_is_noisier)
{
    openIn("ambient = 60.0");
    init(RADIO_CONF_SISO);
    wait(200000); // until the temperature stays
    const double warmer = static_cast<double>(radioGetTemperature(context)) - 25;
    ASSERT_GT(warmer, 35);
    EXPECT_NEAR(measured(), idle + 0.010 * warmer, tolerance);
}

TEST_F(Measurement, the_own_transmitter_is_heard_through_the_isolation)
{
    init(RADIO_CONF_SISO);
    transmit();
    EXPECT_NEAR(measured(), sum({idle, 24 - 130}), tolerance);
    loop(RADIO_TX_TO_RX_LOOPBACK);
    setGain(30);
    const double noise =
        sum({idle + 0.25 * (76 - 30), quantisationNoise(12, lte20, lte20Rate, 30)});
    EXPECT_NEAR(measured(), sum({noise, 24 - 60}), tolerance);
    ASSERT_EQ(radioSetTxMaxPower(context, -300), RADIO_ESUCCESS);
    EXPECT_NEAR(measured(), sum({noise, -30 - 60}), tolerance);
    loop(RADIO_RX_TO_TX_LOOPBACK);
    EXPECT_NEAR(measured(), noise, tolerance);
}

TEST_F(Measurement, time_division_isolates_less)
{
    init(RADIO_CONF_SISO, RADIO_MODE_4GENODEB_TDD_20MHZ, RADIO_BAND_38);
    transmit();
    setGain(30);
    EXPECT_NEAR(
        measured(),
        sum({idle + 0.25 * (76 - 30), quantisationNoise(12, lte20, lte20Rate, 30), 24 - 100}),
        tolerance);
}

TEST_F(Measurement, a_transmitter_is_heard_on_its_own_path_only)
{
    init();
    loop(RADIO_TX_TO_RX_LOOPBACK);
    ASSERT_EQ(radioSetTxStateOfAntenna(context, RADIO_TX_ANTENNA_1, RADIO_STATE_ENABLE),
              RADIO_ESUCCESS);
    ASSERT_EQ(radioSetTxMaxPower(context, -300), RADIO_ESUCCESS);
    EXPECT_NEAR(measured(RADIO_RX_ANTENNA_1), sum({idle, -90}), tolerance);
    EXPECT_NEAR(measured(RADIO_RX_ANTENNA_2), idle, tolerance);
}

TEST_F(Measurement, an_overloaded_converter_shows_full_scale)
{
    init(RADIO_CONF_SISO);
    loop(RADIO_TX_TO_RX_LOOPBACK);
    EXPECT_EQ(at(EVENTS) & OVERLOAD, 0u);
    transmit(); // -36 dBm come in, which are 40 dB too much
    double highest = -1000;
    for (std::size_t i = 0; i < readings; ++i) {
        const auto power = static_cast<double>(radioGetRxRtwpIndBm(context));
        highest = std::max(highest, power);
        ASSERT_GT(power, -76 - 6 * readingSpread(lte20));
    }
    EXPECT_EQ(highest, -76);
    EXPECT_EQ(at(EVENTS) & OVERLOAD, uint32_t{OVERLOAD});
}

TEST_F(Measurement, the_selected_receivers_add_up)
{
    init();
    ASSERT_EQ(radioSelect(context, RADIO_SELECT_1), RADIO_ESUCCESS);
    setGain(40);
    const double second = sum({idle + 0.25 * 36, quantisationNoise(12, lte20, lte20Rate, 40)});
    EXPECT_NEAR(measuredOfSelected(), second, tolerance);
    ASSERT_EQ(radioSelect(context, RADIO_SELECT_ALL), RADIO_ESUCCESS);
    EXPECT_NEAR(measuredOfSelected(), sum({idle, second}), tolerance);
}

TEST_F(Measurement, a_receiver_that_is_off_measures_nothing)
{
    init();
    ASSERT_EQ(radioSetRxStateOfAntenna(context, RADIO_RX_ANTENNA_1, RADIO_STATE_DISABLE),
              RADIO_ESUCCESS);
    EXPECT_TRUE(std::isnan(radioGetRxRtwpOfAntennaIndBm(context, RADIO_RX_ANTENNA_1)));
    EXPECT_EQ(radioGetRxRtwpOfAntenna(context, RADIO_RX_ANTENNA_1), INT32_MIN);
    EXPECT_EQ(at(RX_RTWP), NOTHING);
    // The other one alone is measured.
    EXPECT_NEAR(measuredOfSelected(), idle, tolerance);
    ASSERT_EQ(radioSetRxState(context, RADIO_STATE_DISABLE), RADIO_ESUCCESS);
    EXPECT_EQ(radioGetRxRtwp(context), INT32_MIN);
    EXPECT_TRUE(std::isnan(radioGetRxRtwpIndBm(context)));
}

} // namespace

} // namespace sorel_tests
