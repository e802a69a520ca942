// SPDX-License-Identifier: LicenseRef-Proprietary
// What the platforms have and lack, and when a selection takes effect.
#include "radio_test.h"

namespace sorel_tests
{

namespace
{

using Platforms = RadioTest;

const struct {
    RadioPlatformSelectIndex platform;
    const char *name;
    int chips;
    int dacWidth;
    int converterWidth;
    int16_t lowestPower, highestPower;
    int16_t lowestGain, highestGain;
    RadioMode mode; // one that it has, with a band and the rest of the row in it
    RadioBand band;
    RadioConf configuration;
} rows[] = {
    {RADIO_PLATFORM_DEFAULT, "simulated board", 1, 16, 12, -600, 240, 0, 76,
     RADIO_MODE_4GENODEB_FDD_20MHZ, RADIO_BAND_7, RADIO_CONF_MIMO},
    {RADIO_PLATFORM_TALWIN, "simulated Talwin", 2, 16, 14, -600, 240, 0, 72,
     RADIO_MODE_4GENODEB_FDD_20MHZ, RADIO_BAND_7, RADIO_CONF_MIMO},
    {RADIO_PLATFORM_MERRIK, "simulated Merrik", 1, 12, 10, -500, 200, 0, 64,
     RADIO_MODE_4GENODEB_FDD_20MHZ, RADIO_BAND_7, RADIO_CONF_MIMO},
    {RADIO_PLATFORM_OSTRAV, "simulated Ostrav", 1, 14, 12, -500, 230, 0, 76,
     RADIO_MODE_4GUERX_TDD_20MHZ, RADIO_BAND_42, RADIO_CONF_MIMO},
    {RADIO_PLATFORM_BELLAN, "simulated Bellan", 1, 10, 12, -400, 270, 3, 60,
     RADIO_MODE_4GENODEB_TDD_20MHZ, RADIO_BAND_38, RADIO_CONF_SISO},
};

TEST_F(Platforms, ranges_are_those_of_the_platform)
{
    for (const auto &row : rows) {
        SCOPED_TRACE(row.name);
        open(row.platform);
        EXPECT_STREQ(radioGetPlatformName(context), row.name);
        EXPECT_EQ(at(IDENTITY), 0x534f5200u + static_cast<uint32_t>(row.platform));
        EXPECT_EQ(radioGetPlatformChipCount(context), row.chips);
        EXPECT_EQ(radioGetOscillatorDacWidth(context), row.dacWidth);
        EXPECT_EQ(radioGetOscillatorDacValue(context), 1u << (row.dacWidth - 1));
        const uint32_t highest = (1u << row.dacWidth) - 1;
        EXPECT_EQ(radioSetOscillatorDacValue(context, static_cast<uint16_t>(highest)),
                  RADIO_ESUCCESS);
        if (row.dacWidth < 16) {
            EXPECT_EQ(radioSetOscillatorDacValue(context, static_cast<uint16_t>(highest + 1)),
                      RADIO_EINVAL);
        }
        EXPECT_EQ(radioGetOscillatorDacValue(context), highest);

        init(row.configuration, row.mode, row.band);
        const auto power = [&](int value) {
            return radioSetTxMaxPower(context, static_cast<int16_t>(value));
        };
        EXPECT_EQ(power(row.lowestPower - 1), RADIO_EINVAL);
        EXPECT_EQ(power(row.lowestPower), RADIO_ESUCCESS);
        EXPECT_EQ(power(row.highestPower), RADIO_ESUCCESS);
        EXPECT_EQ(power(row.highestPower + 1), RADIO_EINVAL);
        const auto gain = [&](int value) {
            return radioSetRxGain(context, static_cast<int16_t>(value));
        };
        EXPECT_EQ(gain(row.lowestGain - 1), RADIO_EINVAL);
        EXPECT_EQ(gain(row.lowestGain), RADIO_ESUCCESS);
        EXPECT_EQ(gain(row.highestGain), RADIO_ESUCCESS);
        EXPECT_EQ(gain(row.highestGain + 1), RADIO_EINVAL);
        const auto offset = [&](int value) {
            return radioSetTxDcOffset(context, RADIO_TX_ANTENNA_1, 0, static_cast<int16_t>(value));
        };
        const int limit = 1 << (row.converterWidth - 1);
        EXPECT_EQ(offset(-limit - 1), RADIO_EINVAL);
        EXPECT_EQ(offset(-limit), RADIO_ESUCCESS);
        EXPECT_EQ(offset(limit - 1), RADIO_ESUCCESS);
        EXPECT_EQ(offset(limit), RADIO_EINVAL);
    }
}

TEST_F(Platforms, what_a_platform_lacks_is_not_supported)
{
    const auto status = [&](RadioPlatformSelectIndex platform, RadioConf configuration,
                            RadioMode mode, RadioBand band) {
        EXPECT_EQ(radioSelectPlatform(platform), RADIO_ESUCCESS);
        return radioInit(context, configuration, mode, band);
    };
    const RadioConf one = RADIO_CONF_SISO, two = RADIO_CONF_MIMO;
    const RadioMode fdd = RADIO_MODE_4GENODEB_FDD_20MHZ, tdd = RADIO_MODE_4GENODEB_TDD_20MHZ;

    EXPECT_EQ(status(RADIO_PLATFORM_TALWIN, two, fdd, RADIO_BAND_22), RADIO_ENOTSUP);
    EXPECT_EQ(status(RADIO_PLATFORM_TALWIN, two, tdd, RADIO_BAND_42), RADIO_ENOTSUP);
    EXPECT_EQ(status(RADIO_PLATFORM_TALWIN, two, tdd, RADIO_BAND_41), RADIO_ESUCCESS);
    EXPECT_EQ(status(RADIO_PLATFORM_MERRIK, two, tdd, RADIO_BAND_38), RADIO_ENOTSUP);
    EXPECT_EQ(status(RADIO_PLATFORM_MERRIK, two, fdd, RADIO_BAND_22), RADIO_ENOTSUP);
    EXPECT_EQ(status(RADIO_PLATFORM_MERRIK, two, RADIO_MODE_2GUERX, RADIO_BAND_GSM_1900),
              RADIO_ESUCCESS);
    EXPECT_EQ(status(RADIO_PLATFORM_OSTRAV, two, fdd, RADIO_BAND_7), RADIO_ENOTSUP);
    EXPECT_EQ(status(RADIO_PLATFORM_OSTRAV, two, RADIO_MODE_4GUERX_FDD_20MHZ, RADIO_BAND_22),
              RADIO_ESUCCESS);
    EXPECT_EQ(status(RADIO_PLATFORM_BELLAN, one, fdd, RADIO_BAND_7), RADIO_ENOTSUP);
    EXPECT_EQ(status(RADIO_PLATFORM_BELLAN, two, tdd, RADIO_BAND_38), RADIO_ENOTSUP);
    EXPECT_EQ(status(RADIO_PLATFORM_BELLAN, one, tdd, RADIO_BAND_38), RADIO_ESUCCESS);
}

TEST_F(Platforms, each_platform_has_as_many_modes_as_it_says)
{
    const struct {
        RadioPlatformSelectIndex platform;
        uint32_t modes;
    } expected[] = {{RADIO_PLATFORM_DEFAULT, 0x3ffff},
                    {RADIO_PLATFORM_TALWIN, 0x3ffff},
                    {RADIO_PLATFORM_MERRIK, 0x038ff},
                    {RADIO_PLATFORM_OSTRAV, 0x1f806},
                    {RADIO_PLATFORM_BELLAN, 0x3c700}};
    for (const auto &row : expected) {
        radioSelectPlatform(row.platform);
        uint32_t modes = 0;
        for (int mode = 0; mode < RADIO_MODE_COUNT; ++mode)
            for (const RadioBand band : {RADIO_BAND_1, RADIO_BAND_38, RADIO_BAND_GSM_900})
                if (radioInit(context, RADIO_CONF_SISO, static_cast<RadioMode>(mode), band) ==
                    RADIO_ESUCCESS)
                    modes |= 1u << mode;
        EXPECT_EQ(modes, row.modes) << row.platform;
    }
}

TEST_F(Platforms, a_selection_holds_for_contexts_opened_later)
{
    ASSERT_EQ(radioSelectPlatform(RADIO_PLATFORM_MERRIK), RADIO_ESUCCESS);
    EXPECT_STREQ(radioGetPlatformName(nullptr), "simulated Merrik");
    EXPECT_STREQ(radioGetPlatformName(context), "simulated board");
    RadioContext *const later = radioOpen();
    EXPECT_STREQ(radioGetPlatformName(later), "simulated Merrik");
    EXPECT_EQ(radioClose(later), RADIO_ESUCCESS);
}

TEST_F(Platforms, a_selection_holds_for_the_open_context_from_its_next_init)
{
    init();
    ASSERT_EQ(radioSelectPlatform(RADIO_PLATFORM_TALWIN), RADIO_ESUCCESS);
    EXPECT_EQ(radioGetPlatformChipCount(context), 1);
    EXPECT_EQ(radioReset(context), RADIO_ESUCCESS);
    EXPECT_EQ(radioGetPlatformChipCount(context), 1);
    init();
    EXPECT_EQ(radioGetPlatformChipCount(context), 2);
    EXPECT_STREQ(radioGetPlatformName(context), "simulated Talwin");
}

TEST_F(Platforms, a_refused_init_keeps_the_platform)
{
    init();
    ASSERT_EQ(radioSelectPlatform(RADIO_PLATFORM_BELLAN), RADIO_ESUCCESS);
    EXPECT_EQ(radioInit(context, RADIO_CONF_MIMO, RADIO_MODE_4GENODEB_FDD_20MHZ, RADIO_BAND_7),
              RADIO_ENOTSUP);
    EXPECT_STREQ(radioGetPlatformName(context), "simulated board");
    EXPECT_EQ(radioSetTxFrequency(context, 2655000000u), RADIO_ESUCCESS);
}

TEST_F(Platforms, another_platform_is_other_hardware)
{
    ASSERT_EQ(radioSpiWrite(context, SCRATCH, 5), RADIO_ESUCCESS);
    ASSERT_EQ(radioCpriInit(context, RADIO_CPRI_RATE_4), RADIO_ESUCCESS);
    init();
    EXPECT_EQ(at(SCRATCH), 5u);
    EXPECT_EQ(at(LINK), 4u);
    ASSERT_EQ(radioSelectPlatform(RADIO_PLATFORM_MERRIK), RADIO_ESUCCESS);
    init();
    EXPECT_EQ(at(SCRATCH), 0u);
    EXPECT_EQ(at(LINK), UINT32_MAX); // without CPRI
    EXPECT_EQ(radioGetOscillatorDacValue(context), 2048u);
    ASSERT_EQ(radioSelectPlatform(RADIO_PLATFORM_TALWIN), RADIO_ESUCCESS);
    init();
    EXPECT_EQ(at(LINK), 0u);
}

TEST_F(Platforms, the_first_session_gives_plausible_numbers_everywhere)
{
    for (const auto platform :
         {RADIO_PLATFORM_DEFAULT, RADIO_PLATFORM_TALWIN, RADIO_PLATFORM_MERRIK}) {
        SCOPED_TRACE(platform);
        ASSERT_EQ(radioSelectPlatform(platform), RADIO_ESUCCESS);
        init();
        ASSERT_EQ(radioSetTxFrequency(context, 2655000000u), RADIO_ESUCCESS);
        ASSERT_EQ(radioSetRxFrequency(context, 2535000000u), RADIO_ESUCCESS);
        ASSERT_EQ(radioSetRxGainMode(context, RADIO_RX_GAIN_AGC_SLOW), RADIO_ESUCCESS);
        ASSERT_EQ(radioSetTxState(context, RADIO_STATE_ENABLE), RADIO_ESUCCESS);
        EXPECT_GT(radioGetTemperature(context), 25.0f);
        EXPECT_LT(radioGetTemperature(context), 60.0f);
        EXPECT_NEAR(radioGetRxRtwpIndBm(context), -93, 2);
        EXPECT_GT(radioGetRxGainIndB(context), 40);
        EXPECT_LT(radioGetRxGainIndB(context), 80);
        ASSERT_EQ(radioSpiWrite(context, SCRATCH, -1), RADIO_ESUCCESS);
        EXPECT_EQ(radioSpiRead(context, SCRATCH), 0xffffffffu);
    }
}

} // namespace

} // namespace sorel_tests
