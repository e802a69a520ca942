// SPDX-License-Identifier: LicenseRef-Proprietary
// Which calls the faults of a scenario befall.
#include "scenario_fixture.h"

#include <cmath>
#include <set>

namespace sorel_tests
{

namespace
{

using FaultCalls = ScenarioTest;

TEST_F(FaultCalls, a_fault_begins_and_ends_with_the_calls_it_says)
{
    openIn(fault("radioSpiWrite", "first = 3\ncalls = 2\nstatus = \"RADIO_EIO\""));
    std::string statuses;
    for (int i = 0; i < 6; ++i) {
        radioSpiRead(context, SCRATCH); // does not count
        statuses += std::to_string(radioSpiWrite(context, SCRATCH, i));
    }
    EXPECT_EQ(statuses, "001100");
    EXPECT_EQ(at(SCRATCH), 5u);
}

TEST_F(FaultCalls, a_fault_without_a_number_of_calls_is_for_good)
{
    openIn(fault("radioGetTemperature", "first = 2\nresult = \"nan\""));
    EXPECT_FALSE(std::isnan(radioGetTemperature(context)));
    for (int i = 0; i < 1000; ++i)
        ASSERT_TRUE(std::isnan(radioGetTemperature(context)));
}

TEST_F(FaultCalls, of_two_faults_of_one_call_the_first_in_the_file_answers)
{
    openIn(fault("radioReset", "calls = 1\nstatus = \"RADIO_EAGAIN\"") +
           fault("radioReset", "calls = 2\nstatus = \"RADIO_EIO\""));
    EXPECT_EQ(radioReset(context), RADIO_EAGAIN);
    EXPECT_EQ(radioReset(context), RADIO_EIO);
    EXPECT_EQ(radioReset(context), RADIO_ESUCCESS);
}

TEST_F(FaultCalls, an_argument_that_is_no_member_is_refused_first_but_counts)
{
    openIn(fault("radioSetTxState", "calls = 2\nstatus = \"RADIO_EIO\""));
    init();
    EXPECT_EQ(radioSetTxState(context, static_cast<RadioState>(7)), RADIO_EINVAL);
    EXPECT_EQ(radioSetTxState(context, RADIO_STATE_ENABLE), RADIO_EIO);
    EXPECT_EQ(radioSetTxState(context, RADIO_STATE_ENABLE), RADIO_ESUCCESS);

    openIn(fault("radioGetRxRtwpOfAntenna", "result = -5"));
    EXPECT_EQ(radioGetRxRtwpOfAntenna(context, static_cast<RadioRxAntenna>(7)), INT32_MIN);
}

TEST_F(FaultCalls, calls_without_an_open_context_do_not_count)
{
    openIn(fault("radioReset", "calls = 1\nstatus = \"RADIO_EIO\""));
    EXPECT_EQ(radioReset(nullptr), RADIO_EINVAL);
    EXPECT_EQ(radioReset(context), RADIO_EIO);
}

TEST_F(FaultCalls, the_name_of_the_selected_platform_can_fail)
{
    openIn(fault("radioGetPlatformName", "result = \"null\"\ncalls = 1"));
    EXPECT_EQ(radioGetPlatformName(nullptr), nullptr);
    EXPECT_STREQ(radioGetPlatformName(nullptr), "simulated board");
}

TEST_F(FaultCalls, counting_goes_on_while_the_file_is_the_same)
{
    const std::string text = fault("radioOpen", "first = 2\ncalls = 2\nresult = \"null\"");
    openIn(text);
    EXPECT_NE(context, nullptr);
    openIn(text);
    EXPECT_EQ(context, nullptr);
    ASSERT_EQ(radioSelectPlatform(RADIO_PLATFORM_TALWIN), RADIO_ESUCCESS);
    openIn(text);
    EXPECT_EQ(context, nullptr);
    openIn(text);
    EXPECT_NE(context, nullptr);
}

TEST_F(FaultCalls, counting_starts_with_a_changed_file)
{
    const std::string text = fault("radioReset", "calls = 1\nstatus = \"RADIO_EIO\"");
    openIn(text);
    EXPECT_EQ(radioReset(context), RADIO_EIO);
    EXPECT_EQ(radioReset(context), RADIO_ESUCCESS);
    openIn(text + "#");
    EXPECT_EQ(radioReset(context), RADIO_EIO);
    EXPECT_NE(complaintsAbout("nonsense"), "");
    openIn(text + "#");
    EXPECT_EQ(radioReset(context), RADIO_EIO);
}

TEST_F(FaultCalls, no_fault_is_left_when_there_is_no_scenario_or_a_refused_one)
{
    const std::string text = fault("radioVersion", "result = \"null\"");
    openIn(text);
    EXPECT_EQ(radioVersion(nullptr), nullptr);
    EXPECT_NE(complaintsAbout("nonsense"), "");
    EXPECT_NE(radioVersion(nullptr), nullptr);
    openIn(text);
    EXPECT_EQ(radioVersion(nullptr), nullptr);
    unsetenv("SOREL_SIM_SCENARIO");
    open(RADIO_PLATFORM_DEFAULT);
    EXPECT_NE(radioVersion(nullptr), nullptr);
}

TEST_F(FaultCalls, the_debug_messages_name_the_cause_and_the_line)
{
    openIn(std::string("\n") + fault("radioReset", "status = \"RADIO_EAGAIN\"") +
           fault("radioGetRxRtwp", "result = -5"));
    FILE *const log = std::tmpfile();
    ASSERT_NE(log, nullptr);
    radioSetDebugFile(context, log);
    radioSetDebugLevel(context, RADIO_DEBUG_ERROR);
    radioReset(context);
    radioGetRxRtwp(context);
    std::rewind(log);
    char written[1000] = "";
    written[std::fread(written, 1, sizeof written - 1, log)] = '\0';
    EXPECT_STREQ(written, "libsorel: error: radioReset() = RADIO_EAGAIN: injected by the scenario "
                          "(line 2)\n"
                          "libsorel: error: radioGetRxRtwp() = -5: injected by the scenario "
                          "(line 5)\n");
    radioSetDebugFile(context, nullptr);
    std::fclose(log);
}

class FaultProbability : public ScenarioTest
{
protected:
    // Which of 10000 calls fail; text is the rest of the file.
    std::vector<bool> failures(const std::string &probability, const std::string &text = "")
    {
        openIn(text +
               fault("radioSpiWrite", "status = \"RADIO_EIO\"\nprobability = " + probability));
        std::vector<bool> failed;
        for (int i = 0; i < 10000; ++i)
            failed.push_back(radioSpiWrite(context, SCRATCH, i) != RADIO_ESUCCESS);
        return failed;
    }

    static long count(const std::vector<bool> &failed)
    {
        return std::count(failed.begin(), failed.end(), true);
    }
};

// Five standard deviations to either side.
TEST_F(FaultProbability, about_that_share_of_the_calls_fails)
{
    EXPECT_NEAR(static_cast<double>(count(failures("0.1"))), 1000, 150);
    EXPECT_NEAR(static_cast<double>(count(failures("0.5"))), 5000, 250);
    EXPECT_NEAR(static_cast<double>(count(failures("0.1", "seed = 0\n"))), 1000, 150);
    EXPECT_EQ(count(failures("0")), 0);
    EXPECT_EQ(count(failures("1")), 10000);
}

TEST_F(FaultProbability, the_same_calls_fail_in_each_run)
{
    const std::vector<bool> first = failures("0.1");
    EXPECT_EQ(failures("0.1", "# another run\n"), first);
    EXPECT_EQ(failures("0.1", "seed = 1\n"), first) << "the default";
}

TEST_F(FaultProbability, other_calls_fail_under_another_seed_and_in_another_fault)
{
    const std::vector<bool> first = failures("0.1");
    EXPECT_NE(failures("0.1", "seed = 2\n"), first);
    EXPECT_NE(failures("0.1", "seed = 9223372036854775807\n"), first);
    EXPECT_NE(failures("0.1", fault("radioReset", "status = \"RADIO_EIO\"")), first);
}

} // namespace

} // namespace sorel_tests
