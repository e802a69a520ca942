// SPDX-License-Identifier: LicenseRef-Proprietary
// The board that a scenario describes.
#include "scenario_fixture.h"

#include <filesystem>

namespace sorel_tests
{

namespace
{

using InScenario = ScenarioTest;

TEST_F(InScenario, the_platform_that_is_there_is_the_default_one)
{
    openIn("platform = \"merrik\"");
    EXPECT_STREQ(radioGetPlatformName(context), "simulated Merrik");
    EXPECT_STREQ(radioGetPlatformName(nullptr), "simulated Merrik");
    EXPECT_EQ(radioGetOscillatorDacWidth(context), 12);
    init();
    EXPECT_EQ(at(IDENTITY), 0x534f5202u);

    unsetenv("SOREL_SIM_SCENARIO");
    open(RADIO_PLATFORM_DEFAULT);
    EXPECT_STREQ(radioGetPlatformName(nullptr), "simulated board");
}

TEST_F(InScenario, another_platform_than_the_one_that_is_there_cannot_be_set_up)
{
    const std::string script = file("write 0x10 1\n");
    const auto initialise = [&] {
        return radioInit(context, RADIO_CONF_MIMO, RADIO_MODE_4GENODEB_FDD_20MHZ, RADIO_BAND_7);
    };
    const auto initialiseByScript = [&](const char *name) {
        return radioInitByScript(context, RADIO_CONF_MIMO, RADIO_MODE_4GENODEB_FDD_20MHZ,
                                 RADIO_BAND_7, name);
    };
    ASSERT_EQ(radioSelectPlatform(RADIO_PLATFORM_TALWIN), RADIO_ESUCCESS);
    openIn("platform = \"merrik\"");
    EXPECT_STREQ(radioGetPlatformName(context), "simulated Merrik");
    EXPECT_STREQ(radioGetPlatformName(nullptr), "simulated Talwin");
    EXPECT_EQ(initialise(), RADIO_ENOTSUP);
    EXPECT_EQ(initialiseByScript(script.c_str()), RADIO_ENOTSUP);
    EXPECT_EQ(initialiseByScript("/no/such/file"), RADIO_EINVAL);
    EXPECT_EQ(at(SCRATCH), 0u);
    ASSERT_EQ(radioSelectPlatform(RADIO_PLATFORM_DEFAULT), RADIO_ESUCCESS);
    EXPECT_EQ(initialise(), RADIO_ESUCCESS);
    ASSERT_EQ(radioSelectPlatform(RADIO_PLATFORM_MERRIK), RADIO_ESUCCESS);
    EXPECT_EQ(initialiseByScript(script.c_str()), RADIO_ESUCCESS);
}

TEST_F(InScenario, registers_hold_their_values_from_the_opening_on)
{
    openIn("[registers]\n0x010 = 0xdeadbeef\n17 = 1234\n0x033 = -100\n");
    EXPECT_EQ(at(SCRATCH), 0xdeadbeefu);
    EXPECT_EQ(radioGetOscillatorDacValue(context), 1234u);
    EXPECT_EQ(at(TX_MAX_POWER + 1), 0u) << "before radioInit() there is no limit";
    radioSpiWrite(context, SCRATCH, 5);
    init();
    EXPECT_EQ(at(TX_MAX_POWER + 1), static_cast<uint32_t>(-100));
    EXPECT_EQ(at(TX_MAX_POWER), 240u);
    EXPECT_EQ(at(SCRATCH), 5u) << "held since the opening, and then written";
    ASSERT_EQ(radioReset(context), RADIO_ESUCCESS);
    EXPECT_EQ(at(SCRATCH), 0xdeadbeefu);
    EXPECT_EQ(at(TX_MAX_POWER + 1), 0u);
    init();
    EXPECT_EQ(at(TX_MAX_POWER + 1), static_cast<uint32_t>(-100));
}

TEST_F(InScenario, a_script_writes_over_the_first_values)
{
    openIn("[registers]\n0x010 = 1\n0x032 = -100\n0x033 = -100\n");
    ASSERT_EQ(initByScript("write 0x32 50\nwrite 0x10 2\n"), RADIO_ESUCCESS);
    EXPECT_EQ(at(TX_MAX_POWER), 50u);
    EXPECT_EQ(at(TX_MAX_POWER + 1), static_cast<uint32_t>(-100));
    EXPECT_EQ(at(SCRATCH), 2u);
}

TEST_F(InScenario, another_platform_starts_with_the_first_values_too)
{
    openIn("[registers]\n0x010 = 1\n");
    radioSpiWrite(context, SCRATCH, 5);
    ASSERT_EQ(radioSelectPlatform(RADIO_PLATFORM_TALWIN), RADIO_ESUCCESS);
    init();
    EXPECT_EQ(at(SCRATCH), 1u);
}

TEST_F(InScenario, addresses_and_values_are_those_of_the_platform)
{
    // 12 bits of oscillator DAC.
    EXPECT_EQ(complaintsAbout("[registers]\n0x011 = 65535\n"), "");
    EXPECT_NE(complaintsAbout("platform = \"merrik\"\n[registers]\n0x011 = 65535\n"), "");
    ASSERT_EQ(radioSelectPlatform(RADIO_PLATFORM_MERRIK), RADIO_ESUCCESS);
    EXPECT_NE(complaintsAbout("[registers]\n0x011 = 65535\n"), "");
    EXPECT_EQ(complaintsAbout("platform = \"talwin\"\n[registers]\n0x011 = 65535\n"), "");
}

TEST_F(InScenario, an_unchanged_file_is_judged_again_for_another_platform)
{
    const std::string text = "[registers]\n0x011 = 65535\n";
    EXPECT_EQ(complaintsAbout(text), "");
    ASSERT_EQ(radioSelectPlatform(RADIO_PLATFORM_MERRIK), RADIO_ESUCCESS);
    EXPECT_NE(complaintsAbout(text), "");
}

TEST_F(InScenario, boards_keep_the_scenario_that_they_were_opened_in)
{
    openIn("[registers]\n0x010 = 1\n");
    RadioContext *const first = context;
    context = nullptr;
    openIn("[registers]\n0x010 = 2\n");
    EXPECT_EQ(at(SCRATCH), 2u);
    ASSERT_EQ(radioReset(first), RADIO_ESUCCESS);
    EXPECT_EQ(radioSpiRead(first, SCRATCH), 1u);
    EXPECT_EQ(radioClose(first), RADIO_ESUCCESS);
}

TEST_F(InScenario, the_ready_scenarios_are_accepted_in_silence)
{
    int count = 0;
    for (const auto &entry : std::filesystem::directory_iterator(SOREL_SCENARIO_DIR)) {
        setenv("SOREL_SIM_SCENARIO", entry.path().c_str(), 1);
        testing::internal::CaptureStderr();
        RadioContext *const opened = radioOpen();
        EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
        EXPECT_NE(opened, nullptr) << entry.path();
        radioClose(opened);
        ++count;
    }
    EXPECT_EQ(count, 5);
}

} // namespace

} // namespace sorel_tests
