// SPDX-License-Identifier: LicenseRef-Proprietary
// RTWP: noise, noise figure, loopback, and how the readings relate.
#include "radio_test.h"

#include <cmath>

namespace sorel_tests
{

namespace
{

class Measurement : public RadioTest
{
protected:
    double ofFirst()
    {
        return static_cast<double>(radioGetRxRtwpOfAntennaIndBm(context, RADIO_RX_ANTENNA_1));
    }

    double ofSelected()
    {
        return static_cast<double>(radioGetRxRtwpIndBm(context));
    }
};

double sum(double a, double b)
{
    return 10 * std::log10(std::pow(10, a / 10) + std::pow(10, b / 10));
}

constexpr double step = 1.0 / 64;
constexpr double noiseFigure = 5.0; // of the default platform at its highest gain

TEST_F(Measurement, an_idle_receiver_measures_thermal_noise_and_its_noise_figure)
{
    const struct {
        RadioMode mode;
        RadioBand band;
        double noise; // thermal noise at 290 K in the mode's bandwidth, in dBm
    } rows[] = {
        {RADIO_MODE_2GUERX, RADIO_BAND_GSM_900, -120.96},
        {RADIO_MODE_TD_SCDMA_NODEB, RADIO_BAND_34, -112.90},
        {RADIO_MODE_3GNODEB, RADIO_BAND_1, -108.13},
        {RADIO_MODE_3GUERX, RADIO_BAND_1, -108.13},
        {RADIO_MODE_4GENODEB_FDD_3MHZ, RADIO_BAND_7, -109.66},
        {RADIO_MODE_4GENODEB_FDD_5MHZ, RADIO_BAND_7, -107.44},
        {RADIO_MODE_4GENODEB_FDD_10MHZ, RADIO_BAND_7, -104.43},
        {RADIO_MODE_4GENODEB_FDD_15MHZ, RADIO_BAND_7, -102.67},
        {RADIO_MODE_4GENODEB_FDD_20MHZ, RADIO_BAND_7, -101.42},
        {RADIO_MODE_4GENODEB_TDD_5MHZ, RADIO_BAND_38, -107.44},
        {RADIO_MODE_4GENODEB_TDD_10MHZ, RADIO_BAND_38, -104.43},
        {RADIO_MODE_4GENODEB_TDD_20MHZ, RADIO_BAND_38, -101.42},
        {RADIO_MODE_4GUERX_FDD_5MHZ, RADIO_BAND_7, -107.44},
        {RADIO_MODE_4GUERX_FDD_10MHZ, RADIO_BAND_7, -104.43},
        {RADIO_MODE_4GUERX_FDD_20MHZ, RADIO_BAND_7, -101.42},
        {RADIO_MODE_4GUERX_TDD_5MHZ, RADIO_BAND_38, -107.44},
        {RADIO_MODE_4GUERX_TDD_10MHZ, RADIO_BAND_38, -104.43},
        {RADIO_MODE_4GUERX_TDD_20MHZ, RADIO_BAND_38, -101.42},
    };
    for (const auto &row : rows) {
        init(RADIO_CONF_SISO, row.mode, row.band);
        EXPECT_NEAR(ofFirst(), row.noise + noiseFigure, step) << row.mode;
    }
}

TEST_F(Measurement, less_gain_means_more_noise)
{
    init(RADIO_CONF_SISO);
    const double best = ofFirst();
    ASSERT_EQ(radioSetRxGain(context, 56), RADIO_ESUCCESS);
    EXPECT_NEAR(ofFirst(), best + 20 * 0.25, step);
    ASSERT_EQ(radioSetRxGain(context, 0), RADIO_ESUCCESS);
    EXPECT_NEAR(ofFirst(), best + 76 * 0.25, step);
}

TEST_F(Measurement, the_selected_receivers_add_up)
{
    init();
    ASSERT_EQ(radioSelect(context, RADIO_SELECT_1), RADIO_ESUCCESS);
    ASSERT_EQ(radioSetRxGain(context, 40), RADIO_ESUCCESS);
    const double second = ofSelected();
    ASSERT_EQ(radioSelect(context, RADIO_SELECT_ALL), RADIO_ESUCCESS);
    EXPECT_NE(second, ofFirst());
    EXPECT_NEAR(ofSelected(), sum(ofFirst(), second), 2 * step);
}

TEST_F(Measurement, a_receiver_that_is_off_measures_nothing)
{
    init();
    ASSERT_EQ(radioSetRxStateOfAntenna(context, RADIO_RX_ANTENNA_1, RADIO_STATE_DISABLE),
              RADIO_ESUCCESS);
    EXPECT_TRUE(std::isnan(ofFirst()));
    EXPECT_EQ(radioGetRxRtwpOfAntenna(context, RADIO_RX_ANTENNA_1), INT32_MIN);
    EXPECT_EQ(at(RX_RTWP), 0x80000000u);
    // The other one alone is measured.
    EXPECT_EQ(radioGetRxRtwp(context), radioGetRxRtwpOfAntenna(context, RADIO_RX_ANTENNA_2));
    ASSERT_EQ(radioSetRxState(context, RADIO_STATE_DISABLE), RADIO_ESUCCESS);
    EXPECT_EQ(radioGetRxRtwp(context), INT32_MIN);
    EXPECT_TRUE(std::isnan(ofSelected()));
}

TEST_F(Measurement, loopback_lets_the_receiver_hear_its_transmitter)
{
    init(RADIO_CONF_SISO);
    const double idle = ofFirst();
    ASSERT_EQ(radioSetTxState(context, RADIO_STATE_ENABLE), RADIO_ESUCCESS);
    EXPECT_EQ(ofFirst(), idle);
    ASSERT_EQ(radioSetLoopback(context, RADIO_TX_TO_RX_LOOPBACK), RADIO_ESUCCESS);
    EXPECT_NEAR(ofFirst(), 24 - 60, step);
    ASSERT_EQ(radioSetTxMaxPower(context, -360), RADIO_ESUCCESS);
    EXPECT_NEAR(ofFirst(), sum(-36 - 60, idle), step);
    ASSERT_EQ(radioSetTxState(context, RADIO_STATE_DISABLE), RADIO_ESUCCESS);
    EXPECT_EQ(ofFirst(), idle);
}

TEST_F(Measurement, loopback_stays_within_its_path)
{
    init();
    ASSERT_EQ(radioSetLoopback(context, RADIO_TX_TO_RX_LOOPBACK), RADIO_ESUCCESS);
    const float idle = radioGetRxRtwpOfAntennaIndBm(context, RADIO_RX_ANTENNA_2);
    ASSERT_EQ(radioSetTxStateOfAntenna(context, RADIO_TX_ANTENNA_1, RADIO_STATE_ENABLE),
              RADIO_ESUCCESS);
    EXPECT_EQ(radioGetRxRtwpOfAntennaIndBm(context, RADIO_RX_ANTENNA_2), idle);
    EXPECT_GT(ofFirst(), static_cast<double>(idle));
}

TEST_F(Measurement, the_integer_reading_is_the_same_in_tenths)
{
    init(RADIO_CONF_SISO);
    ASSERT_EQ(radioSetTxState(context, RADIO_STATE_ENABLE), RADIO_ESUCCESS);
    ASSERT_EQ(radioSetLoopback(context, RADIO_TX_TO_RX_LOOPBACK), RADIO_ESUCCESS);
    for (int16_t power = -600; power <= 240; ++power) {
        ASSERT_EQ(radioSetTxMaxPower(context, power), RADIO_ESUCCESS);
        ASSERT_EQ(radioGetRxRtwp(context), std::lround(ofSelected() * 10)) << power;
        ASSERT_EQ(radioGetRxRtwpOfAntenna(context, RADIO_RX_ANTENNA_1),
                  std::lround(ofFirst() * 10));
        ASSERT_EQ(static_cast<int32_t>(at(RX_RTWP)), std::lround(ofFirst() * 64));
    }
}

} // namespace

} // namespace sorel_tests
