// SPDX-License-Identifier: LicenseRef-Proprietary
// What each function answers when a fault of the scenario befalls it.
#include "scenario_fixture.h"

#include <cmath>
#include <set>

namespace sorel_tests
{

namespace
{

using Faults = ScenarioTest;

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

} // namespace

} // namespace sorel_tests
