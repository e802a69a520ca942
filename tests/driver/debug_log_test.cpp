// SPDX-License-Identifier: LicenseRef-Proprietary
// Debug messages: what each level says, where it goes, and that nothing is said unasked.
#include "radio_test.h"

#include <cstdio>

namespace sorel_tests
{

namespace
{

class DebugLog : public RadioTest
{
protected:
    void SetUp() override
    {
        RadioTest::SetUp();
        log = std::tmpfile();
        ASSERT_NE(log, nullptr);
        ASSERT_EQ(radioSetDebugFile(context, log), RADIO_ESUCCESS);
    }

    void TearDown() override
    {
        RadioTest::TearDown();
        std::fclose(log);
    }

    void level(RadioDebug value)
    {
        ASSERT_EQ(radioSetDebugLevel(context, value), RADIO_ESUCCESS);
        said();
    }

    // What was said since the last time.
    std::string said()
    {
        std::string text;
        std::fseek(log, position, SEEK_SET);
        for (int character; (character = std::fgetc(log)) != EOF;)
            text += static_cast<char>(character);
        position = std::ftell(log);
        std::fseek(log, 0, SEEK_END);
        return text;
    }

    FILE *log = nullptr;
    long position = 0;
};

TEST_F(DebugLog, the_level_is_none_at_first_and_belongs_to_the_context)
{
    EXPECT_EQ(radioGetDebugLevel(context), RADIO_DEBUG_NONE);
    level(RADIO_DEBUG_TRACE);
    EXPECT_EQ(radioGetDebugLevel(context), RADIO_DEBUG_TRACE);
    RadioContext *const other = radioOpen();
    EXPECT_EQ(radioGetDebugLevel(other), RADIO_DEBUG_NONE);
    EXPECT_EQ(radioClose(other), RADIO_ESUCCESS);
}

TEST_F(DebugLog, at_none_nothing_is_said)
{
    radioSetTxFrequency(context, 1);
    radioSetTxState(context, static_cast<RadioState>(7));
    radioGetRxRtwp(context);
    init();
    EXPECT_EQ(said(), "");
}

TEST_F(DebugLog, at_error_a_refused_call_says_function_arguments_and_cause)
{
    level(RADIO_DEBUG_ERROR);
    radioSetTxFrequency(context, 4294967295u);
    EXPECT_EQ(said(), "libsorel: error: radioSetTxFrequency(4294967295) = RADIO_EERROR: "
                      "radioInit() has not been called\n");
    radioSetTxState(context, static_cast<RadioState>(-7));
    EXPECT_EQ(said(), "libsorel: error: radioSetTxState(-7) = RADIO_EINVAL: "
                      "argument 1 is not a RadioState\n");
    radioInit(context, RADIO_CONF_MIMO, RADIO_MODE_COUNT, RADIO_BAND_7);
    EXPECT_EQ(said(), "libsorel: error: radioInit(RADIO_CONF_MIMO, 18, RADIO_BAND_7) = "
                      "RADIO_EINVAL: argument 2 is not a RadioMode\n");
    radioLoadCalibrationFile(context, nullptr);
    EXPECT_EQ(said(), "libsorel: error: radioLoadCalibrationFile(null) = RADIO_EINVAL: "
                      "the path is a null pointer\n");
    init();
    EXPECT_EQ(said(), "");
}

TEST_F(DebugLog, at_error_a_failed_reading_says_why)
{
    level(RADIO_DEBUG_ERROR);
    radioGetRxGainIndB(context);
    EXPECT_EQ(said(), "libsorel: error: radioGetRxGainIndB() = -2147483648: "
                      "radioInit() has not been called\n");
    radioGetTemperature(context);
    EXPECT_EQ(said(), "");
}

TEST_F(DebugLog, a_mistake_in_a_file_is_named_with_its_line)
{
    level(RADIO_DEBUG_ERROR);
    const std::string script = file("write 0x10 1\nnonsense\n");
    radioInitByScript(context, RADIO_CONF_MIMO, RADIO_MODE_4GENODEB_FDD_20MHZ, RADIO_BAND_7,
                      script.c_str());
    EXPECT_NE(said().find("RADIO_EINVAL: not a command: write, check or delay (line 2)\n"),
              std::string::npos);
    const std::string calibration = file("[integers]\n\nserial = 1.5\n");
    radioLoadCalibrationFile(context, calibration.c_str());
    EXPECT_NE(said().find("serial is a float, not an integer (line 3)\n"), std::string::npos);
    const std::string noToml = file("[integers]\nserial 1\n");
    radioLoadCalibrationFile(context, noToml.c_str());
    EXPECT_NE(said().find("expected '=', saw '1' (line 2)\n"), std::string::npos);
}

TEST_F(DebugLog, at_warn_what_leaves_something_unusable_is_said)
{
    level(RADIO_DEBUG_WARN);
    init(RADIO_CONF_SISO);
    EXPECT_EQ(said(), "");
    ASSERT_EQ(radioReset(context), RADIO_ESUCCESS);
    ASSERT_EQ(radioSelect(context, RADIO_SELECT_1), RADIO_ESUCCESS);
    init(RADIO_CONF_SISO);
    EXPECT_EQ(said(), "libsorel: warn: radioInit(RADIO_CONF_SISO, RADIO_MODE_4GENODEB_FDD_20MHZ, "
                      "RADIO_BAND_7) = RADIO_ESUCCESS: "
                      "the selected path does not exist in this antenna configuration\n");
}

TEST_F(DebugLog, at_info_what_changes_the_state_is_said)
{
    level(RADIO_DEBUG_INFO);
    init();
    EXPECT_EQ(said(), "libsorel: info: radioInit(RADIO_CONF_MIMO, "
                      "RADIO_MODE_4GENODEB_FDD_20MHZ, RADIO_BAND_7) = RADIO_ESUCCESS\n");
    radioGetRxRtwp(context);
    const std::string calibration = file("[integers]\nserial = 4711\n");
    ASSERT_EQ(radioLoadCalibrationFile(context, calibration.c_str()), RADIO_ESUCCESS);
    said();
    int32_t serial = 0;
    ASSERT_EQ(radioGetIntegerFromCalibration(context, "serial", &serial), RADIO_ESUCCESS);
    EXPECT_EQ(said(), "");
}

TEST_F(DebugLog, at_debug_the_tuned_frequencies_are_said)
{
    init();
    level(RADIO_DEBUG_DEBUG);
    ASSERT_EQ(radioSetTxChannel(context, 2850), RADIO_ESUCCESS);
    EXPECT_NE(said().find("\nlibsorel: debug: simulated board, transmit 2630000000 Hz, "
                          "receive 2535000000 Hz, at 0.000400 s\n"),
              std::string::npos);
}

TEST_F(DebugLog, at_trace_readings_are_said)
{
    level(RADIO_DEBUG_TRACE);
    ASSERT_EQ(radioSpiWrite(context, SCRATCH, 17), RADIO_ESUCCESS);
    said();
    radioSpiRead(context, SCRATCH);
    EXPECT_EQ(said(), "libsorel: trace: radioSpiRead(0x10) = 0x11\n");
    const std::string calibration = file("[integers]\nserial = 4711\n");
    ASSERT_EQ(radioLoadCalibrationFile(context, calibration.c_str()), RADIO_ESUCCESS);
    said();
    int32_t serial = 0;
    ASSERT_EQ(radioGetIntegerFromCalibration(context, "serial", &serial), RADIO_ESUCCESS);
    EXPECT_EQ(said(), "libsorel: trace: radioGetIntegerFromCalibration(\"serial\", 4711) = "
                      "RADIO_ESUCCESS\n");
    radioVersion(context);
    EXPECT_NE(said().find("libsorel: trace: radioVersion() = \""), std::string::npos);
    radioGetDriverNames(context);
    EXPECT_EQ(said(), "libsorel: trace: radioGetDriverNames() = a list\n");
    radioGetPlatformName(context);
    EXPECT_EQ(said(), "libsorel: trace: radioGetPlatformName() = \"simulated board\"\n");
}

TEST_F(DebugLog, a_message_is_one_line_of_limited_length)
{
    level(RADIO_DEBUG_ERROR);
    radioLoadCalibrationFile(context, ("a\nb\x1b" + std::string(5000, 'c')).c_str());
    const std::string text = said();
    EXPECT_LT(text.size(), 400u);
    EXPECT_EQ(text.find('\n'), text.size() - 1);
    EXPECT_NE(text.find("(\"a\\nb\\x1bccc"), std::string::npos);
    EXPECT_NE(text.find("ccc\"...) = RADIO_EINVAL"), std::string::npos);
    const std::vector<uint32_t> words(256, UINT32_MAX);
    radioSetTxPowerRegisters(context, words.data(), 256);
    EXPECT_EQ(said(), "libsorel: error: radioSetTxPowerRegisters([256 words], 256) = "
                      "RADIO_EERROR: radioInit() has not been called\n");
}

TEST_F(DebugLog, a_value_out_of_range_is_said_with_the_range)
{
    init();
    level(RADIO_DEBUG_ERROR);
    radioSetTxFrequency(context, 2400000000);
    EXPECT_EQ(said(), "libsorel: error: radioSetTxFrequency(2400000000) = RADIO_EINVAL: "
                      "frequency 2400000000 is outside 2620000000..2690000000 Hz\n");
}

TEST_F(DebugLog, without_a_file_messages_go_to_standard_error_only)
{
    ASSERT_EQ(radioSetDebugFile(context, nullptr), RADIO_ESUCCESS);
    ASSERT_EQ(radioSetDebugLevel(context, RADIO_DEBUG_ERROR), RADIO_ESUCCESS);
    testing::internal::CaptureStderr();
    testing::internal::CaptureStdout();
    radioSetTxChannel(context, 1);
    EXPECT_NE(testing::internal::GetCapturedStderr().find("radioSetTxChannel(1)"),
              std::string::npos);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    EXPECT_EQ(said(), "");
}

} // namespace

} // namespace sorel_tests
