// SPDX-License-Identifier: LicenseRef-Proprietary
// Every function, called rightly and in every wrong way, with each of its allocations failing.
#include "binding/radio/catalogue.h"
#include "tests/binding/radio/allocations/failing_calls.h"
#include "tests/binding/radio/differential/memory_driver.h"

#include <gtest/gtest.h>
#include <set>

namespace
{

enum Result { status, nothing, number, text, names };

struct Function {
    const char *name;
    std::vector<const char *> arguments; // that are accepted
    Result result;
};

// clang-format off

const Function functions[] = {
    {"radioSelect",                    {"2"},                       status},
    {"radioSelectPlatform",            {"1"},                       status},
    {"radioReset",                     {},                          status},
    {"radioLoadCalibrationFile",       {"12.5"},                    status},
    {"radioGetIntegerFromCalibration", {"12.5", "nil"},             status},
    {"radioGetStringFromCalibration",  {"12.5", "nil"},             status},
    {"radioSetDebugFile",              {"nil"},                     nothing},
    {"radioSetDebugLevel",             {"3"},                       nothing},
    {"radioGetDebugLevel",             {},                          number},
    {"radioVersion",                   {},                          text},
    {"radioGetPlatformName",           {},                          text},
    {"radioGetPlatformChipCount",      {},                          number},
    {"radioGetDriverNames",            {},                          names},
    {"radioInit",                      {"1", "7", "25"},            status},
    {"radioInitByScript",              {"1", "7", "25", "12.5"},    status},
    {"radioCpriInit",                  {"10"},                      status},
    {"radioSetTxState",                {"1"},                       status},
    {"radioSetTxStateOfAntenna",       {"1", "1"},                  status},
    {"radioSetRxState",                {"1"},                       status},
    {"radioSetRxStateOfAntenna",       {"1", "1"},                  status},
    {"radioSetTxMaxPower",             {"-45"},                     status},
    {"radioSetTxMaxPowerOfAntenna",    {"1", "-45"},                status},
    {"radioSetRxChannel",              {"3100"},                    status},
    {"radioSetRxFrequency",            {"'2535000000'"},            status},
    {"radioSetTxChannel",              {"3100"},                    status},
    {"radioSetTxFrequency",            {"2655000000"},              status},
    {"radioSetRxGainMode",             {"3"},                       status},
    {"radioSetRxGain",                 {"-45"},                     status},
    {"radioGetRxGainIndB",             {},                          number},
    {"radioGetRxGainOfAntennaIndB",    {"1"},                       number},
    {"radioSetTxDcOffset",             {"1", "10", "-10"},          status},
    {"radioGetRxRtwp",                 {},                          number},
    {"radioGetRxRtwpIndBm",            {},                          number},
    {"radioGetRxRtwpOfAntenna",        {"1"},                       number},
    {"radioGetRxRtwpOfAntennaIndBm",   {"1"},                       number},
    {"radioGetTemperature",            {},                          number},
    {"radioSetTxPowerRegisters",       {"{1, '2', 3.5}"},           status},
    {"radioSetRxGainRegisters",        {"setmetatable({1}, {})"},   status},
    {"radioGetOscillatorDacWidth",     {},                          number},
    {"radioGetOscillatorDacValue",     {},                          number},
    {"radioSetOscillatorDacValue",     {"30000"},                   status},
    {"radioSetLoopback",               {"2"},                       status},
    {"radioSpiWrite",                  {"16", "{}"},                status},
    {"radioSpiRead",                   {"16"},                      number},
};

// clang-format on

std::string joined(const std::vector<const char *> &arguments)
{
    std::string text;
    for (const char *const argument : arguments) {
        text += (text.empty() ? "" : ", ") + std::string(argument);
    }
    return text;
}

std::string callOf(const Function &function, const std::vector<const char *> &arguments)
{
    return std::string("return ") + function.name + "(" + joined(arguments) + ")";
}

bool isRegisterSetter(const Function &function)
{
    return std::string(function.name).ends_with("Registers");
}

class Calls : public testing::TestWithParam<Function>
{
protected:
    Calls()
    {
        answers = {};
        answers.text = "a text of the driver's";
        answers.names = driverNames;
        answers.integer = -7;
        answers.reading = -7;
        answers.word = 7;
    }

    // The call must be what the function's result says.
    static std::string rightOutcome()
    {
        switch (GetParam().result) {
        case status:
        case nothing:
            return "nil";
        case number:
            return std::string(GetParam().name).starts_with("radioSpi") ||
                           std::string(GetParam().name) == "radioGetOscillatorDacValue"
                       ? "7"
                       : "-7";
        case text:
            return answers.text;
        case names:
            return "char **";
        }
        return {};
    }

    static std::string rightCall()
    {
        std::string call = callOf(GetParam(), GetParam().arguments);
        if (GetParam().result == names) {
            call = "return swig_type(radioGetDriverNames())";
        }
        return call;
    }

    static void expectError(const std::string &call, const std::string &error,
                            const char *before = "")
    {
        Expected expected = {error};
        if (isRegisterSetter(GetParam())) {
            expected.withoutMalloc = "Out of memory";
        }
        expectEachFailing(call, expected, before);
    }

    char *driverNames[1] = {nullptr};
};

TEST_P(Calls, succeedOnceThereIsMemory)
{
    const bool setter = isRegisterSetter(GetParam());
    expectEachFailing(rightCall(), {rightOutcome(), setter ? "Out of memory" : "(there is none)"});
}

TEST_P(Calls, reachTheDriverOnceOrNotAtAll)
{
    const std::vector<Attempt> attempts = runWithEachFailing(rightCall());
    const bool afterwards = GetParam().result == text || GetParam().result == names;
    for (const Attempt &attempt : attempts) {
        // Memory for a result is taken after the call.
        if (attempt.failed == Allocation::none) {
            EXPECT_EQ(attempt.driverCalls, 1);
        } else {
            EXPECT_LE(attempt.driverCalls, afterwards ? 1 : 0);
        }
    }
}

TEST_P(Calls, withAnArgumentTooMany)
{
    std::vector<const char *> arguments = GetParam().arguments;
    arguments.push_back("nil");
    const std::string count = std::to_string(GetParam().arguments.size());
    expectError(callOf(GetParam(), arguments),
                std::string("Error in ") + GetParam().name + " expected " + count + ".." + count +
                    " args, got " + std::to_string(arguments.size()));
}

TEST_P(Calls, withAValueOfAnotherType)
{
    for (std::size_t i = 0; i < GetParam().arguments.size(); ++i) {
        std::vector<const char *> arguments = GetParam().arguments;
        arguments[i] = "true";
        const std::string call = callOf(GetParam(), arguments);
        const std::string error = outcomeOf(call);
        if (std::string(GetParam().name) == "radioSpiWrite" && i == 1) {
            EXPECT_EQ(error, "nil") << "any value is taken";
        } else if (isRegisterSetter(GetParam())) {
            EXPECT_EQ(error, "Data values must be a table");
        } else {
            EXPECT_TRUE(error.starts_with(std::string("Error in ") + GetParam().name + " (arg " +
                                          std::to_string(i + 1) + "), expected '"))
                << error;
        }
        expectError(call, error);
    }
}

TEST_P(Calls, withoutARadio)
{
    const bool needsNone = std::string(GetParam().name) == "radioSelectPlatform";
    expectError(rightCall(), needsNone ? "nil" : "No radio context, call radioOpen() first",
                "withoutRadio()");
}

TEST_P(Calls, withADriverThatRefuses)
{
    answers.status = RADIO_EIO;
    expectError(rightCall(), GetParam().result == status
                                 ? std::string(GetParam().name) + "() did not return success"
                                 : rightOutcome());
}

INSTANTIATE_TEST_SUITE_P(EveryFunction, Calls, testing::ValuesIn(functions),
                         [](const auto &tested) { return tested.param.name; });

TEST(Catalogue, hasNoOtherFunctions)
{
    std::set<std::string> called;
    for (const Function &function : functions) {
        called.insert(function.name);
    }
    EXPECT_EQ(called.size(), 44U);
    for (const CommandEntry *entry = radioCommands; entry->name != nullptr; ++entry) {
        EXPECT_EQ(called.count(entry->name), 1U) << entry->name;
    }
}

struct Text {
    const char *name;
    const char *call;
    const char *outcome;
};

class OtherCalls : public testing::TestWithParam<Text>
{
};

TEST_P(OtherCalls, failCleanly)
{
    answers = {};
    expectEachFailing(GetParam().call, {GetParam().outcome, "Out of memory"});
}

// clang-format off

const Text otherCalls[] = {
    {"negativeNumber",   "return radioSetTxFrequency(-1)",   "number must not be negative"},
    {"nullTexts",        "return radioVersion()",            "nil"},
    {"nullNames",        "return radioGetDriverNames()",     "nil"},
    {"noRegisters",      "return radioSetRxGainRegisters({})", "nil"},
    {"badRegister",      "return radioSetRxGainRegisters({1, {}})", "Expected integer values in data"},
    {"badRegisterBehindAMetatable",
     "return radioSetRxGainRegisters(setmetatable({1, {}}, {}))", "Expected integer values in data"},
    {"manyRegisters",    "local t = {} for i = 1, 100 do t[i] = i end return radioSetTxPowerRegisters(t)", "nil"},
    {"computedRegisters",
     "local t = setmetatable({1, false, 3}, {__index = function(_, k) return '1' .. k end}) t[2] = nil "
     "return radioSetRxGainRegisters(t)", "nil"},
    {"raisingRegisters",
     "local t = setmetatable({1, false, 3}, {__index = function(_, k) error('no ' .. k, 0) end}) t[2] = nil "
     "return radioSetTxPowerRegisters(t)", "no 2"},
    {"nestedRegisters",
     "local inner = setmetatable({1, false, 3}, {__index = function(_, k) return '1' .. k end}) inner[2] = nil "
     "local t = setmetatable({1, false, 3}, {__index = function(_, k) radioSetRxGainRegisters(inner) return k end}) "
     "t[2] = nil return radioSetTxPowerRegisters(t)", "nil"},
    {"unknownUserdata",  "return radioSetDebugFile(newproxy())",
     "Error in radioSetDebugFile (arg 2), expected 'FILE *' got 'no value'"},
    {"hooksForAFile",    "return radioSetDebugFile(allocate)",
     "Error in radioSetDebugFile (arg 2), expected 'FILE *' got 'no value'"},
    {"typeOfObject",     "return swig_type(allocate)",       "void *(*)(size_t)"},
    {"equalObjects",     "return swig_equals(allocate, allocate)", "true"},
    {"constants",        "return radio.RADIO_BAND_7",        "7"},
    {"unknownField",     "return radio.noSuch",              "nil"},
    {"newField",         "radio.another = 'x' .. 1 return radio.another", "x1"},
};

// clang-format on

INSTANTIATE_TEST_SUITE_P(EachAllocationOf, OtherCalls, testing::ValuesIn(otherCalls),
                         [](const auto &tested) { return tested.param.name; });

} // namespace
