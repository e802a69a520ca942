// SPDX-License-Identifier: LicenseRef-Proprietary
// What the faults of a scenario do: which calls they befall, and what these then answer.
#include "scenario_fixture.h"

#include <cmath>
#include <set>

namespace sorel_tests
{

namespace
{

using Faults = ScenarioTest;

// ---- Every function, with each effect ----

std::string shown(RadioReturn status)
{
    return std::string("status ") + std::to_string(status);
}

std::string shown(const void *pointer)
{
    return pointer ? "pointer" : "null";
}

std::string shown(float number)
{
    return std::isnan(number) ? "nan" : "float";
}

std::string shown(int32_t number)
{
    return std::string("int32_t ") + std::to_string(number);
}

std::string shown(uint32_t number)
{
    return std::string("uint32_t ") + std::to_string(number);
}

// The key that fits, and what the function then answers.
struct Fitting {
    const char *key;
    const char *answer;
};

constexpr Fitting status = {"status = \"RADIO_EAGAIN\"", "status 4"};
constexpr Fitting null = {"result = \"null\"", "null"};
constexpr Fitting notANumber = {"result = \"nan\"", "nan"};
constexpr Fitting signedNumber = {"result = -5", "int32_t -5"};
constexpr Fitting unsignedNumber = {"result = 4294967294", "uint32_t 4294967294"};

const Fitting everyFitting[] = {status, null, notANumber, signedNumber, unsignedNumber};

struct Row {
    const char *function;
    Fitting fitting;
    std::string (*call)(RadioContext *c);
};

#define ROW(function, fitting, ...)                                                                \
    {                                                                                              \
#function, fitting, [](RadioContext * c) { return (void)c, shown(function(__VA_ARGS__)); } \
    }

constexpr RadioMode FDD = RADIO_MODE_4GENODEB_FDD_20MHZ;
int32_t integer = 7;
const char *site = "untouched";

// clang-format off

// Arguments with which each would succeed after radioInit().
const Row rows[] = {
    ROW(radioSelectPlatform,            status,         RADIO_PLATFORM_DEFAULT),
    ROW(radioOpen,                      null),
    ROW(radioClose,                     status,         c),
    ROW(radioSelect,                    status,         c, RADIO_SELECT_1),
    ROW(radioInit,                      status,         c, RADIO_CONF_MIMO, FDD, RADIO_BAND_7),
    ROW(radioInitByScript,              status,         c, RADIO_CONF_MIMO, FDD, RADIO_BAND_7, SOREL_DATA_DIR "/good.script"),
    ROW(radioCpriInit,                  status,         c, RADIO_CPRI_RATE_10),
    ROW(radioReset,                     status,         c),
    ROW(radioLoadCalibrationFile,       status,         c, SOREL_DATA_DIR "/good.toml"),
    ROW(radioGetIntegerFromCalibration, status,         c, "serial", &integer),
    ROW(radioGetStringFromCalibration,  status,         c, "site", &site),
    ROW(radioGetPlatformChipCount,      signedNumber,   c),
    ROW(radioGetPlatformName,           null,           c),
    ROW(radioVersion,                   null,           c),
    ROW(radioGetDriverNames,            null,           c),
    ROW(radioSetTxFrequency,            status,         c, 2640000000),
    ROW(radioSetTxChannel,              status,         c, 2800),
    ROW(radioSetTxState,                status,         c, RADIO_STATE_ENABLE),
    ROW(radioSetTxStateOfAntenna,       status,         c, RADIO_TX_ANTENNA_2, RADIO_STATE_ENABLE),
    ROW(radioSetTxMaxPower,             status,         c, 100),
    ROW(radioSetTxMaxPowerOfAntenna,    status,         c, RADIO_TX_ANTENNA_2, 100),
    ROW(radioSetTxDcOffset,             status,         c, RADIO_TX_ANTENNA_2, 1, 1),
    ROW(radioSetTxPowerRegisters,       status,         c, nullptr, 0),
    ROW(radioSetRxFrequency,            status,         c, 2520000000),
    ROW(radioSetRxChannel,              status,         c, 20800),
    ROW(radioSetRxState,                status,         c, RADIO_STATE_DISABLE),
    ROW(radioSetRxStateOfAntenna,       status,         c, RADIO_RX_ANTENNA_2, RADIO_STATE_DISABLE),
    ROW(radioSetRxGain,                 status,         c, 30),
    ROW(radioSetRxGainMode,             status,         c, RADIO_RX_GAIN_AGC_FAST),
    ROW(radioSetRxGainRegisters,        status,         c, nullptr, 0),
    ROW(radioSetLoopback,               status,         c, RADIO_TX_TO_RX_LOOPBACK),
    ROW(radioGetTemperature,            notANumber,     c),
    ROW(radioGetRxRtwp,                 signedNumber,   c),
    ROW(radioGetRxRtwpIndBm,            notANumber,     c),
    ROW(radioGetRxRtwpOfAntenna,        signedNumber,   c, RADIO_RX_ANTENNA_2),
    ROW(radioGetRxRtwpOfAntennaIndBm,   notANumber,     c, RADIO_RX_ANTENNA_2),
    ROW(radioGetRxGainIndB,             signedNumber,   c),
    ROW(radioGetRxGainOfAntennaIndB,    signedNumber,   c, RADIO_RX_ANTENNA_2),
    ROW(radioSpiRead,                   unsignedNumber, c, SCRATCH),
    ROW(radioSpiWrite,                  status,         c, SCRATCH, 5),
    ROW(radioSetOscillatorDacValue,     status,         c, 5),
    ROW(radioGetOscillatorDacValue,     unsignedNumber, c),
    ROW(radioGetOscillatorDacWidth,     signedNumber,   c),
    ROW(radioGetDebugLevel,             signedNumber,   c),
    ROW(radioSetDebugLevel,             status,         c, RADIO_DEBUG_NONE),
    ROW(radioSetDebugFile,              status,         c, nullptr),
};

// clang-format on

#define FUNCTION(result, name, parameters) #name,
const std::set<std::string> everyFunction = {
#include "../include/functions.inc"
};

std::string fault(const std::string &function, const std::string &lines)
{
    return "[[faults]]\nfunction = \"" + function + "\"\n" + lines + "\n";
}

TEST_F(Faults, every_function_answers_what_fits_it)
{
    std::set<std::string> names;
    for (const Row &row : rows) {
        SCOPED_TRACE(row.function);
        names.insert(row.function);
        // The first call of radioOpen() is the one that begins the counting.
        const bool opens = std::string(row.function) == "radioOpen";
        const std::string lines =
            std::string(opens ? "first = 2\n" : "calls = 1\n") + row.fitting.key;
        ASSERT_EQ(complaintsAbout(fault(row.function, lines)), "");
        ASSERT_NE(context, nullptr);
        EXPECT_EQ(row.call(context), row.fitting.answer);
        unsetenv("SOREL_SIM_SCENARIO");
        open(RADIO_PLATFORM_DEFAULT);
    }
    EXPECT_EQ(names, everyFunction);
    EXPECT_EQ(integer, 7) << "what could not be read has not been stored";
    EXPECT_STREQ(site, "untouched");
}

TEST_F(Faults, what_does_not_fit_a_function_is_refused)
{
    for (const Row &row : rows)
        for (const Fitting &fitting : everyFitting) {
            const bool fits = std::string(fitting.key) == row.fitting.key;
            const std::string said = complaintsAbout(fault(row.function, fitting.key));
            EXPECT_EQ(said.empty(), fits) << row.function << ' ' << fitting.key << ' ' << said;
        }
}

class FaultyState : public ScenarioTest
{
protected:
    // Whether the row's call, in that scenario, leaves the registers as they are that hold what has
    // been set.
    bool leavesState(const Row &row, const std::string &scenario)
    {
        openIn(scenario);
        if (std::string(row.function) != "radioInit")
            init();
        const std::vector<uint32_t> before = state();
        row.call(context);
        return state() == before;
    }

private:
    std::vector<uint32_t> state()
    {
        std::vector<uint32_t> words;
        for (const uint32_t address : {SETUP, LINK, SELECTED, SCRATCH, DAC, TX_FREQUENCY,
                                       RX_FREQUENCY, LOOPBACK, GAIN_TABLE_COUNT, POWER_TABLE_COUNT})
            words.push_back(at(address));
        for (const uint32_t first :
             {TX_STATE, TX_MAX_POWER, TX_DC_OFFSET, RX_STATE, RX_GAIN, RX_GAIN_MODE})
            for (const uint32_t second : {0u, 1u})
                words.push_back(at(first + second));
        return words;
    }
};

TEST_F(FaultyState, a_call_that_fails_by_a_fault_does_nothing)
{
    std::set<std::string> withoutState;
    for (const Row &row : rows) {
        const std::string name = row.function;
        if (row.fitting.key != status.key || name == "radioClose")
            continue;
        EXPECT_TRUE(leavesState(row, fault(name, "calls = 1\n" + std::string(status.key)))) << name;
        if (leavesState(row, ""))
            withoutState.insert(name);
    }
    // The others do something when there is no fault.
    EXPECT_EQ(withoutState, (std::set<std::string>{
                                "radioSelectPlatform", "radioLoadCalibrationFile",
                                "radioGetIntegerFromCalibration", "radioGetStringFromCalibration",
                                "radioSetTxPowerRegisters", "radioSetRxGainRegisters",
                                "radioSetDebugLevel", "radioSetDebugFile"}));
}

TEST_F(Faults, a_context_whose_closing_fails_stays_open)
{
    openIn(fault("radioClose", "calls = 1\nstatus = \"RADIO_EIO\""));
    EXPECT_EQ(radioClose(context), RADIO_EIO);
    EXPECT_EQ(radioReset(context), RADIO_ESUCCESS);
    EXPECT_EQ(radioClose(context), RADIO_ESUCCESS);
}

// ---- Which calls ----

TEST_F(Faults, a_fault_begins_and_ends_with_the_calls_it_says)
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

TEST_F(Faults, a_fault_without_a_number_of_calls_is_for_good)
{
    openIn(fault("radioGetTemperature", "first = 2\nresult = \"nan\""));
    EXPECT_FALSE(std::isnan(radioGetTemperature(context)));
    for (int i = 0; i < 1000; ++i)
        ASSERT_TRUE(std::isnan(radioGetTemperature(context)));
}

TEST_F(Faults, of_two_faults_of_one_call_the_first_in_the_file_answers)
{
    openIn(fault("radioReset", "calls = 1\nstatus = \"RADIO_EAGAIN\"") +
           fault("radioReset", "calls = 2\nstatus = \"RADIO_EIO\""));
    EXPECT_EQ(radioReset(context), RADIO_EAGAIN);
    EXPECT_EQ(radioReset(context), RADIO_EIO);
    EXPECT_EQ(radioReset(context), RADIO_ESUCCESS);
}

TEST_F(Faults, an_argument_that_is_no_member_is_refused_first_but_counts)
{
    openIn(fault("radioSetTxState", "calls = 2\nstatus = \"RADIO_EIO\""));
    init();
    EXPECT_EQ(radioSetTxState(context, static_cast<RadioState>(7)), RADIO_EINVAL);
    EXPECT_EQ(radioSetTxState(context, RADIO_STATE_ENABLE), RADIO_EIO);
    EXPECT_EQ(radioSetTxState(context, RADIO_STATE_ENABLE), RADIO_ESUCCESS);

    openIn(fault("radioGetRxRtwpOfAntenna", "result = -5"));
    EXPECT_EQ(radioGetRxRtwpOfAntenna(context, static_cast<RadioRxAntenna>(7)), INT32_MIN);
}

TEST_F(Faults, calls_without_an_open_context_do_not_count)
{
    openIn(fault("radioReset", "calls = 1\nstatus = \"RADIO_EIO\""));
    EXPECT_EQ(radioReset(nullptr), RADIO_EINVAL);
    EXPECT_EQ(radioReset(context), RADIO_EIO);
}

TEST_F(Faults, the_name_of_the_selected_platform_can_fail)
{
    openIn(fault("radioGetPlatformName", "result = \"null\"\ncalls = 1"));
    EXPECT_EQ(radioGetPlatformName(nullptr), nullptr);
    EXPECT_STREQ(radioGetPlatformName(nullptr), "simulated board");
}

TEST_F(Faults, counting_goes_on_while_the_file_is_the_same)
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

TEST_F(Faults, counting_starts_with_a_changed_file)
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

TEST_F(Faults, no_fault_is_left_when_there_is_no_scenario_or_a_refused_one)
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

TEST_F(Faults, the_debug_messages_name_the_cause_and_the_line)
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

// ---- Probability ----

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

// ---- Stuck registers ----

TEST_F(Faults, a_stuck_register_reads_its_value_and_takes_no_other)
{
    openIn("[[faults]]\nstuck = 0x010\nvalue = -2\n");
    EXPECT_EQ(at(SCRATCH), 0xfffffffeu);
    EXPECT_EQ(radioSpiWrite(context, SCRATCH, 5), RADIO_ESUCCESS);
    EXPECT_EQ(at(SCRATCH), 0xfffffffeu);
    EXPECT_EQ(radioSpiWrite(context, DAC, 5), RADIO_ESUCCESS);
    EXPECT_EQ(at(DAC), 5u);
}

TEST_F(Faults, a_register_is_stuck_at_what_it_read_when_the_fault_began)
{
    openIn(fault("radioSpiWrite", "first = 3\ncalls = 2\nstuck = 0x010"));
    for (int value = 1; value <= 5; ++value) {
        EXPECT_EQ(radioSpiWrite(context, SCRATCH, value), RADIO_ESUCCESS);
        EXPECT_EQ(at(SCRATCH), value < 3 || value > 4 ? static_cast<uint32_t>(value) : 2u);
    }
}

TEST_F(Faults, the_state_behind_a_stuck_register_does_not_change)
{
    openIn("[[faults]]\nstuck = 0x030\nvalue = 0\n[[faults]]\nstuck = 0x011\nvalue = 77\n");
    init();
    EXPECT_EQ(radioSetTxState(context, RADIO_STATE_ENABLE), RADIO_ESUCCESS);
    EXPECT_EQ(at(TX_STATE), 0u);
    EXPECT_EQ(at(TX_STATE + 1), 1u);
    EXPECT_EQ(radioGetOscillatorDacValue(context), 77u);
    EXPECT_EQ(radioSetOscillatorDacValue(context, 5), RADIO_ESUCCESS);
    EXPECT_EQ(radioGetOscillatorDacValue(context), 77u);
    EXPECT_EQ(radioReset(context), RADIO_ESUCCESS);
    EXPECT_EQ(radioGetOscillatorDacValue(context), 77u);
}

TEST_F(Faults, the_state_stays_where_it_was_stuck_when_the_fault_ends)
{
    openIn(fault("radioSetTxState", "calls = 1\nstuck = 0x030"));
    init();
    EXPECT_EQ(radioSetTxState(context, RADIO_STATE_ENABLE), RADIO_ESUCCESS);
    EXPECT_EQ(at(TX_STATE), 0u);
    EXPECT_EQ(radioSetTxStateOfAntenna(context, RADIO_TX_ANTENNA_1, RADIO_STATE_ENABLE),
              RADIO_ESUCCESS)
        << "the fault lasts until the next call of its function";
    EXPECT_EQ(at(TX_STATE), 0u);
    EXPECT_EQ(radioSetTxState(context, RADIO_STATE_ENABLE), RADIO_ESUCCESS);
    EXPECT_EQ(at(TX_STATE), 1u);
}

TEST_F(Faults, an_initialisation_script_does_not_move_a_stuck_register)
{
    openIn("[[faults]]\nstuck = 0x010\nvalue = 3\n[[faults]]\nstuck = 0x032\nvalue = 7\n");
    const std::string script = file("write 0x10 1\nwrite 0x32 50\nwrite 0x33 50\n");
    ASSERT_EQ(radioInitByScript(context, RADIO_CONF_MIMO, RADIO_MODE_4GENODEB_FDD_20MHZ,
                                RADIO_BAND_7, script.c_str()),
              RADIO_ESUCCESS);
    EXPECT_EQ(at(SCRATCH), 3u);
    EXPECT_EQ(at(TX_MAX_POWER), 7u);
    EXPECT_EQ(at(TX_MAX_POWER + 1), 50u);
}

TEST_F(Faults, a_register_that_can_only_be_read_can_be_stuck)
{
    openIn("[[faults]]\nstuck = 0x003\nvalue = 1\n");
    EXPECT_EQ(at(TEMPERATURE), 1u);
    EXPECT_EQ(radioSpiWrite(context, TEMPERATURE, 5), RADIO_ENOTSUP);
    EXPECT_GT(radioGetTemperature(context), 20.0f) << "the register is stuck, not the converter";
}

TEST_F(Faults, a_board_opened_before_is_free_when_the_faults_end)
{
    openIn("[[faults]]\nstuck = 0x010\nvalue = 3\n");
    EXPECT_EQ(at(SCRATCH), 3u);
    RadioContext *const first = context;
    context = nullptr;
    openIn("seed = 1");
    radioSpiWrite(first, SCRATCH, 5);
    EXPECT_EQ(radioSpiRead(first, SCRATCH), 5u);
    EXPECT_EQ(radioClose(first), RADIO_ESUCCESS);
}

// ---- Synthesisers and temperature ----

TEST_F(Faults, a_board_as_hot_as_the_fault_says_switches_no_transmitter_on)
{
    openIn("[[faults]]\ntemperature = 130.5\n");
    init();
    EXPECT_EQ(radioGetTemperature(context), 130.5f);
    EXPECT_EQ(radioSetTxState(context, RADIO_STATE_ENABLE), RADIO_EERROR);
}

TEST_F(Faults, heat_ends_with_its_fault)
{
    openIn(fault("radioGetTemperature", "first = 2\ncalls = 1\ntemperature = 130"));
    const float before = radioGetTemperature(context);
    EXPECT_LT(before, 50.0f);
    EXPECT_EQ(radioGetTemperature(context), 130.0f);
    EXPECT_LT(radioGetTemperature(context), 50.0f);
}

TEST_F(Faults, a_transmitter_whose_synthesiser_never_locks_cannot_be_switched_on)
{
    openIn(fault("radioSetTxFrequency", "first = 2\ncalls = 1\nsynthesiser = \"transmit\""));
    init();
    const auto tuneAndSwitchOn = [&] {
        EXPECT_EQ(radioSetTxFrequency(context, 2640000000), RADIO_ESUCCESS);
        for (int i = 0; i < 100; ++i) // ample time to lock
            at(SCRATCH);
        return radioSetTxState(context, RADIO_STATE_ENABLE);
    };
    EXPECT_EQ(tuneAndSwitchOn(), RADIO_ESUCCESS);
    EXPECT_EQ(radioSetTxState(context, RADIO_STATE_DISABLE), RADIO_ESUCCESS);
    EXPECT_EQ(tuneAndSwitchOn(), RADIO_EAGAIN);
    EXPECT_EQ(tuneAndSwitchOn(), RADIO_ESUCCESS);
}

} // namespace

} // namespace sorel_tests
