// SPDX-License-Identifier: LicenseRef-Proprietary
// What the CPRI link carries, and which later calls it limits.
#include "radio_test.h"

namespace sorel_tests
{

namespace
{

using Link = RadioTest;

constexpr RadioMode LTE_20 = RADIO_MODE_4GENODEB_FDD_20MHZ;
constexpr RadioMode LTE_10 = RADIO_MODE_4GENODEB_FDD_10MHZ;

TEST_F(Link, a_slow_link_refuses_a_later_init_that_does_not_fit)
{
    const struct {
        RadioCpriRate rate;
        RadioConf configuration;
        RadioMode mode;
        RadioReturn expected;
    } rows[] = {
        {RADIO_CPRI_RATE_1, RADIO_CONF_SISO, LTE_10, RADIO_ESUCCESS},
        {RADIO_CPRI_RATE_1, RADIO_CONF_MIMO, LTE_10, RADIO_EERROR},
        {RADIO_CPRI_RATE_1, RADIO_CONF_SISO, LTE_20, RADIO_EERROR},
        {RADIO_CPRI_RATE_2, RADIO_CONF_SISO, LTE_20, RADIO_ESUCCESS},
        {RADIO_CPRI_RATE_2, RADIO_CONF_MIMO, LTE_10, RADIO_ESUCCESS},
        {RADIO_CPRI_RATE_2, RADIO_CONF_MIMO, LTE_20, RADIO_EERROR},
        {RADIO_CPRI_RATE_4, RADIO_CONF_MIMO, LTE_20, RADIO_ESUCCESS},
        {RADIO_CPRI_RATE_5, RADIO_CONF_MIMO, LTE_20, RADIO_ESUCCESS},
        {RADIO_CPRI_RATE_8, RADIO_CONF_MIMO, LTE_20, RADIO_ESUCCESS},
        {RADIO_CPRI_RATE_10, RADIO_CONF_MIMO, LTE_20, RADIO_ESUCCESS},
    };
    for (const auto &row : rows) {
        ASSERT_EQ(radioReset(context), RADIO_ESUCCESS);
        ASSERT_EQ(radioCpriInit(context, row.rate), RADIO_ESUCCESS);
        EXPECT_EQ(radioInit(context, row.configuration, row.mode, RADIO_BAND_7), row.expected)
            << row.rate << " " << row.configuration << " " << row.mode;
        EXPECT_EQ(radioInitByScript(context, row.configuration, row.mode, RADIO_BAND_7,
                                    SOREL_DATA_DIR "/good.script"),
                  row.expected);
    }
}

TEST_F(Link, a_link_that_is_down_limits_nothing)
{
    EXPECT_EQ(at(LINK), 0u);
    init(RADIO_CONF_MIMO, LTE_20, RADIO_BAND_7);
}

TEST_F(Link, a_refused_rate_keeps_the_former_one)
{
    ASSERT_EQ(radioCpriInit(context, RADIO_CPRI_RATE_4), RADIO_ESUCCESS);
    init();
    EXPECT_EQ(radioCpriInit(context, RADIO_CPRI_RATE_1), RADIO_EERROR);
    EXPECT_EQ(at(LINK), 4u);
    EXPECT_EQ(radioCpriInit(context, RADIO_CPRI_RATE_8), RADIO_ESUCCESS);
    EXPECT_EQ(at(LINK), 8u);
}

TEST_F(Link, another_platform_starts_without_the_link_and_its_limit)
{
    ASSERT_EQ(radioCpriInit(context, RADIO_CPRI_RATE_1), RADIO_ESUCCESS);
    ASSERT_EQ(radioSelectPlatform(RADIO_PLATFORM_TALWIN), RADIO_ESUCCESS);
    init();
    EXPECT_EQ(at(LINK), 0u);
    init();
}

TEST_F(Link, reset_takes_it_down)
{
    ASSERT_EQ(radioCpriInit(context, RADIO_CPRI_RATE_1), RADIO_ESUCCESS);
    EXPECT_EQ(radioInit(context, RADIO_CONF_MIMO, LTE_20, RADIO_BAND_7), RADIO_EERROR);
    ASSERT_EQ(radioReset(context), RADIO_ESUCCESS);
    EXPECT_EQ(at(LINK), 0u);
    init();
}

TEST_F(Link, init_does_not_take_it_down)
{
    ASSERT_EQ(radioCpriInit(context, RADIO_CPRI_RATE_2), RADIO_ESUCCESS);
    init(RADIO_CONF_SISO);
    EXPECT_EQ(at(LINK), 2u);
    EXPECT_EQ(radioInit(context, RADIO_CONF_MIMO, LTE_20, RADIO_BAND_7), RADIO_EERROR);
    EXPECT_EQ(at(SETUP) >> 8 & 0xff, uint32_t{RADIO_CONF_SISO});
}

TEST_F(Link, a_platform_without_cpri_or_that_rate_does_not_support_it)
{
    const struct {
        RadioPlatformSelectIndex platform;
        uint32_t rates;
    } rows[] = {{RADIO_PLATFORM_DEFAULT, 0x536},
                {RADIO_PLATFORM_TALWIN, 0x036},
                {RADIO_PLATFORM_MERRIK, 0},
                {RADIO_PLATFORM_OSTRAV, 0},
                {RADIO_PLATFORM_BELLAN, 0x530}};
    for (const auto &row : rows) {
        open(row.platform);
        for (const RadioCpriRate rate : {RADIO_CPRI_RATE_1, RADIO_CPRI_RATE_2, RADIO_CPRI_RATE_4,
                                         RADIO_CPRI_RATE_5, RADIO_CPRI_RATE_8, RADIO_CPRI_RATE_10})
            EXPECT_EQ(radioCpriInit(context, rate),
                      row.rates >> rate & 1 ? RADIO_ESUCCESS : RADIO_ENOTSUP)
                << row.platform << " " << rate;
    }
}

} // namespace

} // namespace sorel_tests
