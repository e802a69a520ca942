// SPDX-License-Identifier: LicenseRef-Proprietary
// Scenario files: what is read from them, what is refused and how that is said.
#include "hostile_texts.h"
#include "scenario_fixture.h"

namespace sorel_tests
{

namespace
{

using Scenarios = ScenarioTest;

const std::string everyKey = R"(platform = "talwin"
serial = 4711
ambient = 25.0
seed = 1
clock = "calls"
lock_time = 0.002

[[signals]]
frequency = 2_535_000_000
bandwidth = 18_000_000
power = -60.0
antenna = 1
start = 0.5
end = 1.0

[registers]
0x010 = 0xdeadbeef

[[faults]]
function = "radioSetTxFrequency"
first = 3
calls = 2
probability = 0.1
status = "RADIO_EIO"

[[faults]]
stuck = 0x042
value = 3

[[faults]]
synthesiser = "transmit"

[[faults]]
temperature = 130.0

[[faults]]
function = "radioGetPlatformName"
result = "null"
)";

TEST_F(Scenarios, a_file_with_every_key_is_accepted_in_silence)
{
    EXPECT_EQ(complaintsAbout(everyKey), "");
    EXPECT_NE(context, nullptr);
}

TEST_F(Scenarios, an_empty_file_and_an_empty_name_change_nothing)
{
    EXPECT_EQ(complaintsAbout(""), "");
    EXPECT_STREQ(radioGetPlatformName(context), "simulated board");
    EXPECT_EQ(at(SCRATCH), 0u);
    setenv("SOREL_SIM_SCENARIO", "", 1);
    open(RADIO_PLATFORM_DEFAULT);
}

std::string signal(const std::string &lines)
{
    return "[[signals]]\nfrequency = 1\npower = 0\n" + lines + "\n";
}

std::string fault(const std::string &lines)
{
    return "[[faults]]\n" + lines + "\n";
}

std::string repeated(const std::string &text, int count)
{
    std::string result;
    for (int i = 0; i < count; ++i)
        result += text;
    return result;
}

TEST_F(Scenarios, the_ends_of_every_range_are_accepted)
{
    const std::string texts[] = {
        "platform = \"default\"",
        "platform = \"bellan\"",
        "serial = 0",
        "serial = 4294967295",
        "ambient = -55",
        "ambient = 125.0",
        "seed = 0",
        "seed = 9223372036854775807",
        "clock = \"wall\"",
        "lock_time = 0",
        "lock_time = 10",
        "signals = [{frequency = 1, power = -200}]",
        "signals = [{frequency = 4294967295, power = 30, bandwidth = 4294967295}]",
        signal("bandwidth = 0"),
        signal("antenna = 2"),
        signal("start = 0\nend = 0.000000001"),
        signal("start = 999999999\nend = 1000000000"),
        repeated(signal(""), 64),
        "[registers]\n0x010 = -2147483648",
        "[registers]\n0x010 = 4294967295",
        "[registers]\n16 = 1",
        "[registers]\n\"0X10\" = 1",
        "[registers]\n0x033 = -600", // the second path's: after radioInit()
        fault("temperature = -55"),
        fault("temperature = 200"),
        fault("synthesiser = \"both\"\nfirst = 9223372036854775807\ncalls = 9223372036854775807"),
        fault("synthesiser = \"receive\"\nprobability = 0"),
        fault("synthesiser = \"receive\"\nprobability = 1"),
        fault("stuck = 0x003"),
        fault("stuck = 0x010\nvalue = -2147483648"),
        fault("function = \"radioVersion\"\nstuck = 0x010\nvalue = 4294967295"),
        fault("function = \"radioGetRxRtwp\"\nresult = -2147483648"),
        fault("function = \"radioSpiRead\"\nresult = 4294967295"),
        repeated(fault("temperature = 0"), 64),
        repeated(fault("stuck = 0x010"), 8),
    };
    for (const std::string &text : texts) {
        EXPECT_EQ(complaintsAbout(text), "") << text;
        EXPECT_NE(context, nullptr) << text;
    }
}

TEST_F(Scenarios, each_mistake_is_refused_and_says_what_would_be_right)
{
    const struct {
        std::string text;
        const char *complaint;
    } rows[] = {
        {"platform = 1", "1:12: platform is an integer, not \"default\", \"talwin\", \"merrik\", "
                         "\"ostrav\" or \"bellan\""},
        {"platform = \"Talwin\"", "1:12: platform is \"Talwin\", not \"default\", \"talwin\", "
                                  "\"merrik\", \"ostrav\" or \"bellan\""},
        {"serial = \"4711\"", "1:10: serial is a text, not an integer"},
        {"serial = -1", "1:10: serial is -1, not 0..4294967295"},
        {"serial = 4294967296", "1:10: serial is 4294967296, not 0..4294967295"},
        {"ambient = \"hot\"", "1:11: ambient is a text, not a number"},
        {"ambient = 125.5", "1:11: ambient is 125.5 degC, not -55..125"},
        {"ambient = -56", "1:11: ambient is -56 degC, not -55..125"},
        {"ambient = nan", "1:11: ambient is nan degC, not -55..125"},
        {"ambient = -inf", "1:11: ambient is -inf degC, not -55..125"},
        {"seed = 1.0", "1:8: seed is a float, not an integer"},
        {"seed = -1", "1:8: seed is -1, not 0..9223372036854775807"},
        {"clock = true", "1:9: clock is a boolean, not \"calls\" or \"wall\""},
        {"clock = \"real\"", "1:9: clock is \"real\", not \"calls\" or \"wall\""},
        {"lock_time = []", "1:13: lock_time is a list, not a number"},
        {"lock_time = 10.1", "1:13: lock_time is 10.1 s, not 0..10"},
        {"lock_time = 1979-05-27", "1:13: lock_time is a date or a time, not a number"},
        {"signals = 1", "1:11: signals is an integer, not a list of tables"},
        {"signals = [1]", "1:12: signals is an integer, not a list of tables"},
        {"[signals]", "1:1: signals is a table, not a list of tables"},
        {repeated(signal(""), 65), "1:1: signals are more than 64"},
        {"signals = [{power = 0}]", "1:12: frequency is missing in [[signals]]"},
        {"signals = [{frequency = 1}]", "1:12: power is missing in [[signals]]"},
        {"signals = [{power = 0, frequency = 0}]", "1:36: frequency is 0 Hz, not 1..4294967295"},
        {"signals = [{power = 0, frequency = 2.5e9}]",
         "1:36: frequency is a float, not an integer"},
        {"signals = [{frequency = 1, power = 31}]", "1:36: power is 31 dBm, not -200..30"},
        {"signals = [{frequency = 1, power = -200.5}]", "1:36: power is -200.5 dBm, not -200..30"},
        {"signals = [{frequency = 1, power = \"0\"}]", "1:36: power is a text, not a number"},
        {signal("bandwidth = -1"), "4:13: bandwidth is -1 Hz, not 0..4294967295"},
        {signal("bandwidth = 1.0"), "4:13: bandwidth is a float, not an integer"},
        {signal("antenna = 0"), "4:11: antenna is 0, not 1..2"},
        {signal("antenna = [1, 2]"), "4:11: antenna is a list, not an integer"},
        {signal("start = -0.1"), "4:9: start is -0.1 s, not 0..1000000000"},
        {signal("start = 07:32:00"), "4:9: start is a date or a time, not a number"},
        {signal("end = true"), "4:7: end is a boolean, not a number"},
        {signal("end = 1e9\nstart = 1e9"), "4:7: end is not later than start"},
        {signal("end = 0"), "4:7: end is not later than start"},
        {signal("end = inf"), "4:7: end is inf s, not 0..1000000000"},
        {signal("powr = 1"), "4:1: unknown key \"powr\" in [[signals]]; the keys are frequency, "
                             "bandwidth, power, antenna, start, end"},
        {"registers = []", "1:13: registers is a list, not a table, [registers]"},
        {"[registers]\nscratch = 1", "2:1: \"scratch\" is not an address, such as 0x010"},
        {"[registers]\n0x010 = 1.0", "2:9: \"0x010\" is a float, not an integer"},
        {"[registers]\n0x010 = 4294967296",
         "2:9: \"0x010\" is 4294967296, not -2147483648..4294967295"},
        {"[registers]\n0x003 = 1", "2:1: \"0x003\": the register is read-only"},
        {"[registers]\n0x999 = 1", "2:1: \"0x999\": the platform has no register at that address"},
        {"[registers]\n0x022 = 3", "2:1: \"0x022\": the register cannot hold that value"},
        {"[registers]\n0x010 = 1\n16 = 1", "3:1: \"16\" is given a value twice"},
        {"faults = 1", "1:10: faults is an integer, not a list of tables"},
        {repeated(fault("temperature = 0"), 65), "1:1: faults are more than 64"},
        {repeated(fault("stuck = 0x010"), 9), "1:1: faults have more than 8 stuck registers"},
        {fault(""), "1:1: no effect in [[faults]]; give one of status, result, stuck, "
                    "synthesiser, temperature"},
        {fault("stuck = 0x010\ntemperature = 1"),
         "1:1: more than one effect in [[faults]]; give one of status, result, stuck, "
         "synthesiser, temperature"},
        {fault("status = \"RADIO_EIO\""), "1:1: function is missing in [[faults]]"},
        {fault("result = 1"), "1:1: function is missing in [[faults]]"},
        {fault("temperature = 1\nvalue = 1"), "1:1: value goes with stuck only"},
        {fault("temperature = 1\nfunction = 1"),
         "3:12: function is an integer, not the name of a function"},
        {fault("temperature = 1\nfunction = \"radioFly\""),
         "3:12: function is \"radioFly\", not one of the driver's functions"},
        {fault("temperature = 1\nfirst = 0"), "3:9: first is 0, not 1..9223372036854775807"},
        {fault("temperature = 1\nfirst = 1.0"), "3:9: first is a float, not an integer"},
        {fault("temperature = 1\ncalls = 0"), "3:9: calls is 0, not 1..9223372036854775807"},
        {fault("temperature = 1\ncalls = \"1\""), "3:9: calls is a text, not an integer"},
        {fault("temperature = 1\nprobability = 1.01"), "3:15: probability is 1.01, not 0..1"},
        {fault("temperature = 1\nprobability = \"1\""),
         "3:15: probability is a text, not a number"},
        {fault("function = \"radioReset\"\nstatus = 1"),
         "3:10: status is an integer, not \"RADIO_EIO\", \"RADIO_ENOTSUP\", \"RADIO_EINVAL\", "
         "\"RADIO_EAGAIN\" or \"RADIO_EERROR\""},
        {fault("function = \"radioReset\"\nstatus = \"RADIO_ESUCCESS\""),
         "3:10: status is \"RADIO_ESUCCESS\", not \"RADIO_EIO\", \"RADIO_ENOTSUP\", "
         "\"RADIO_EINVAL\", \"RADIO_EAGAIN\" or \"RADIO_EERROR\""},
        {fault("function = \"radioGetTemperature\"\nresult = nan"),
         "3:10: result is a float, not \"null\", \"nan\" or an integer"},
        {fault("function = \"radioGetTemperature\"\nresult = \"NaN\""),
         "3:10: result is \"NaN\", not \"null\", \"nan\" or an integer"},
        {fault("function = \"radioSpiRead\"\nresult = -1"),
         "3:10: result does not fit radioSpiRead, which takes result = 0..4294967295"},
        {fault("function = \"radioGetRxRtwp\"\nresult = 2147483648"),
         "3:10: result does not fit radioGetRxRtwp, which takes result = "
         "-2147483648..2147483647"},
        {fault("stuck = \"0x010\""), "2:9: stuck is a text, not an integer"},
        {fault("stuck = -1"), "2:9: stuck is -1, not 0..4294967295"},
        {fault("stuck = 0x999"),
         "2:9: stuck cannot be: the platform has no register at that address"},
        {fault("stuck = 0x010\nvalue = 0.5"), "3:9: value is a float, not an integer"},
        {fault("stuck = 0x010\nvalue = 4294967296"),
         "3:9: value is 4294967296, not -2147483648..4294967295"},
        {fault("synthesiser = 1"),
         "2:15: synthesiser is an integer, not \"transmit\", \"receive\" or \"both\""},
        {fault("synthesiser = \"tx\""),
         "2:15: synthesiser is \"tx\", not \"transmit\", \"receive\" or \"both\""},
        {fault("temperature = \"hot\""), "2:15: temperature is a text, not a number"},
        {fault("temperature = 200.5"), "2:15: temperature is 200.5 degC, not -55..200"},
        {fault("temprature = 1\ntemperature = 1"),
         "2:1: unknown key \"temprature\" in [[faults]]; the keys are function, first, calls, "
         "probability, status, result, stuck, value, synthesiser, temperature"},
        {"a.b = 1", "1:1: unknown key \"a\"; the keys are platform, serial, ambient, seed, clock, "
                    "lock_time, signals, registers, faults"},
    };
    for (const auto &row : rows) {
        EXPECT_EQ(complaintsAbout(row.text), std::string(row.complaint) + "\n");
        EXPECT_EQ(context, nullptr) << row.text;
    }
}

TEST_F(Scenarios, too_many_registers_are_refused)
{
    std::string text = "[registers]\n";
    for (int i = 0; i < 257; ++i)
        text += std::to_string(i) + " = 0\n";
    EXPECT_EQ(complaintsAbout(text), "1:1: registers has more than 256 values\n");
}

TEST_F(Scenarios, every_mistake_is_reported_in_the_order_of_the_file)
{
    EXPECT_EQ(complaintsAbout("serial = -1\n"
                              "  clock = 3\n"
                              "colour = 'red'\n"
                              "\n"
                              "[[signals]]\n"
                              "frequency = 1\n"
                              "\tpower = 31\n"
                              "[[signals]]\n"
                              "power = 0\n"
                              "end = 0 # never there\n"
                              "[registers]\n"
                              "0x999 = 1\n"
                              "0x003 = 1\n"
                              "[[faults]]\n"
                              "function = 'radioReset'\n"
                              "result = 5\n"
                              "[[faults]]\n"),
              "1:10: serial is -1, not 0..4294967295\n"
              "2:11: clock is an integer, not \"calls\" or \"wall\"\n"
              "3:1: unknown key \"colour\"; the keys are platform, serial, ambient, seed, clock, "
              "lock_time, signals, registers, faults\n"
              "7:10: power is 31 dBm, not -200..30\n"
              "8:1: frequency is missing in [[signals]]\n"
              "10:7: end is not later than start\n"
              "12:1: \"0x999\": the platform has no register at that address\n"
              "13:1: \"0x003\": the register is read-only\n"
              "16:10: result does not fit radioReset, which takes status = \"RADIO_EIO\" or "
              "another\n"
              "17:1: no effect in [[faults]]; give one of status, result, stuck, synthesiser, "
              "temperature\n");
    EXPECT_EQ(context, nullptr);
}

TEST_F(Scenarios, a_refused_file_is_reported_at_each_opening)
{
    const std::string complaint = complaintsAbout("serial = -1\n");
    EXPECT_NE(complaint, "");
    EXPECT_EQ(complaintsAbout("serial = -1\n"), complaint);
}

TEST_F(Scenarios, more_than_100_mistakes_are_counted)
{
    std::string text;
    for (int i = 0; i < 300; ++i)
        text += std::to_string(i) + " = 0\n";
    const std::string said = complaintsAbout(text);
    EXPECT_EQ(std::count(said.begin(), said.end(), '\n'), 101);
    EXPECT_NE(said.find("\n 200 more mistakes\n"), std::string::npos)
        << said.substr(said.size() - 80);
}

TEST_F(Scenarios, a_syntax_error_has_its_place)
{
    EXPECT_EQ(complaintsAbout("serial = 1\nclock = \"calls\n").substr(0, 5), "2:15:");
    EXPECT_EQ(context, nullptr);
}

TEST_F(Scenarios, a_file_that_cannot_be_read_is_refused)
{
    for (const char *const name : {"/no/such/file", "/", "/dev/null"}) {
        setenv("SOREL_SIM_SCENARIO", name, 1);
        testing::internal::CaptureStderr();
        EXPECT_EQ(radioOpen(), nullptr);
        const std::string said = testing::internal::GetCapturedStderr();
        EXPECT_EQ(said.rfind(std::string(name) + ": ", 0), 0u) << said;
        EXPECT_EQ(std::count(said.begin(), said.end(), '\n'), 1) << said;
    }
}

TEST_F(Scenarios, control_characters_do_not_reach_the_terminal)
{
    EXPECT_EQ(complaintsAbout("clock = \"\\u001b[31m\\n\\u007f\\u009b\\u00e9\""),
              "1:9: clock is \"\\x1b[31m\\x0a\\x7f\\xc2\\x9b\xc3\xa9\", not \"calls\" or "
              "\"wall\"\n");
    setenv("SOREL_SIM_SCENARIO", "/no/\x1b[31m", 1);
    testing::internal::CaptureStderr();
    EXPECT_EQ(radioOpen(), nullptr);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "/no/\\x1b[31m: the file cannot be opened\n");
}

TEST_F(Scenarios, a_long_text_is_shown_in_part)
{
    std::string text = repeated("\xc3\xa9", 100); // two bytes each
    EXPECT_EQ(complaintsAbout("clock = \"" + text + "\""),
              "1:9: clock is \"" + text.substr(0, 40) + "...\", not \"calls\" or \"wall\"\n");
    text = "x" + text;
    EXPECT_EQ(complaintsAbout("clock = \"" + text + "\""),
              "1:9: clock is \"" + text.substr(0, 39) + "...\", not \"calls\" or \"wall\"\n");
}

TEST_F(Scenarios, deep_and_large_files_are_refused)
{
    const std::string texts[] = {
        "signals = " + std::string(100000, '[') + "\n",
        "signals = " + repeated("{a=", 100000) + "\n",
        "[a" + repeated(".a", 500000) + "]\n",
        "[a" + repeated(".a", 4000) + "]\n",
        "seed = 1\n" + std::string(1100000, '#'),
        repeated("[[faults]]\n", 90000),
    };
    for (const std::string &text : texts) {
        EXPECT_NE(complaintsAbout(text), "") << text.substr(0, 20);
        EXPECT_EQ(context, nullptr) << text.substr(0, 20);
    }
}

TEST_F(Scenarios, arbitrary_bytes_are_refused_or_accepted_but_never_crash)
{
    HostileTexts texts(everyKey);
    setenv("SOREL_SIM_SCENARIO", path.c_str(), 1);
    int refused = 0;
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    for (int i = 0; i < 4000; ++i) {
        texts.writeNext(path);
        RadioContext *const opened = radioOpen();
        refused += opened == nullptr;
        radioInit(opened, RADIO_CONF_MIMO, RADIO_MODE_4GENODEB_FDD_20MHZ, RADIO_BAND_7);
        radioGetTemperature(opened);
        EXPECT_EQ(radioClose(opened), opened ? RADIO_ESUCCESS : RADIO_EINVAL);
    }
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    const std::string said = testing::internal::GetCapturedStderr();
    for (const char character : said)
        ASSERT_TRUE(character == '\n' || static_cast<unsigned char>(character) >= 0x20);
    EXPECT_GT(refused, 1000);
    EXPECT_LT(refused, 4000);
}

} // namespace

} // namespace sorel_tests
