// SPDX-License-Identifier: LicenseRef-Proprietary
// How calls, arguments and results are written.
#include "trace/call_text.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

namespace sorel_tests
{

namespace
{

using namespace sorel;

class TextOutput : public Output
{
public:
    void write(std::string_view bytes) override
    {
        text += bytes;
    }

    std::string text;
};

constexpr Style whole = {SIZE_MAX, 4};

template <class... Arguments>
std::string call(const char *function, Arguments... arguments)
{
    TextOutput output;
    {
        Line line(output);
        putCall(line, styleOf(function, whole), function, arguments...);
    }
    return output.text;
}

template <class Value>
std::string value(Value given, Style style = whole)
{
    TextOutput output;
    {
        Line line(output);
        putValue(line, style, given);
    }
    return output.text;
}

std::string seconds(int64_t nanoseconds)
{
    TextOutput output;
    {
        Line line(output);
        line.putSeconds(nanoseconds);
    }
    return output.text;
}

RadioContext *const noContext = nullptr;

TEST(CallText, numbers)
{
    EXPECT_EQ(value(uint32_t{4294967295u}), "4294967295");
    EXPECT_EQ(value(INT32_MIN), "-2147483648");
    EXPECT_EQ(value(int16_t{-45}), "-45");
    EXPECT_EQ(value(uint16_t{65535}), "65535");
    EXPECT_EQ(value(int64_t{INT64_MIN}), "-9223372036854775808");
}

TEST(CallText, fractions_have_two_decimals)
{
    EXPECT_EQ(value(28.1875f), "28.19");
    EXPECT_EQ(value(-92.90625f), "-92.91");
    EXPECT_EQ(value(0.0f), "0.00");
    EXPECT_EQ(value(std::numeric_limits<float>::max()).size(), 39u + 3u);
    EXPECT_EQ(value(-std::numeric_limits<double>::max()).size(), 1u + 309u + 3u);
    EXPECT_EQ(value(std::numeric_limits<float>::infinity()), "inf");
    EXPECT_EQ(value(-std::numeric_limits<float>::infinity()), "-inf");
    EXPECT_EQ(value(std::numeric_limits<float>::quiet_NaN()), "nan");
    EXPECT_EQ(value(-std::numeric_limits<float>::quiet_NaN()), "nan");
}

TEST(CallText, texts_are_quoted_and_escaped)
{
    EXPECT_EQ(value<const char *>("a \"b\" \\"), R"("a \"b\" \\")");
    EXPECT_EQ(value<const char *>("\n\t\r\x01\x1f\x7f\x80\xc3\xa4"),
              "\"\\n\\t\\x0d\\x01\\x1f\\x7f\x80\xc3\xa4\"");
    EXPECT_EQ(value<const char *>(""), "\"\"");
    EXPECT_EQ(value<const char *>(nullptr), "null");
    const std::string large(100000, 'x');
    EXPECT_EQ(value(large.c_str()), '"' + large + '"');
}

TEST(CallText, a_limit_cuts_texts_that_are_longer)
{
    EXPECT_EQ(value<const char *>("12345", {5, 0}), "\"12345\"");
    EXPECT_EQ(value<const char *>("123456", {5, 0}), "\"12345\"...");
}

TEST(CallText, pointers_show_what_they_are)
{
    char *names[] = {nullptr};
    EXPECT_EQ(value(stdout), "a file");
    EXPECT_EQ(value(static_cast<FILE *>(nullptr)), "null");
    EXPECT_EQ(value(static_cast<char **>(names)), "a list");
    EXPECT_EQ(value(static_cast<char **>(nullptr)), "null");
    EXPECT_EQ(value(reinterpret_cast<RadioContext *>(names)), "a context");
}

TEST(CallText, arguments_follow_the_function_without_the_context)
{
    EXPECT_EQ(call("radioReset", noContext), "radioReset()");
    EXPECT_EQ(call("radioInit", noContext, RADIO_CONF_NULL, RADIO_MODE_COUNT, RADIO_BAND_255),
              "radioInit(RADIO_CONF_NULL, 18, RADIO_BAND_255)");
    EXPECT_EQ(call("radioSelectPlatform", RADIO_PLATFORM_TALWIN),
              "radioSelectPlatform(RADIO_PLATFORM_TALWIN)");
}

TEST(CallText, registers_are_hexadecimal)
{
    EXPECT_EQ(call("radioSpiWrite", noContext, uint32_t{0x999}, int32_t{-1}),
              "radioSpiWrite(0x999, 0xffffffff)");
    EXPECT_EQ(call("radioSpiRead", noContext, uint32_t{0}), "radioSpiRead(0x0)");
}

TEST(CallText, arrays_are_listed_up_to_a_number_of_words)
{
    const std::vector<uint32_t> words = {1, 4294967295u, 3, 4, 5};
    const char *const name = "radioSetRxGainRegisters";
    EXPECT_EQ(call(name, noContext, words.data(), uint32_t{2}),
              "radioSetRxGainRegisters([1, 4294967295], 2)");
    EXPECT_EQ(call(name, noContext, words.data(), uint32_t{4}),
              "radioSetRxGainRegisters([1, 4294967295, 3, 4], 4)");
    EXPECT_EQ(call(name, noContext, words.data(), uint32_t{5}),
              "radioSetRxGainRegisters([5 words], 5)");
    EXPECT_EQ(call(name, noContext, words.data(), uint32_t{0}), "radioSetRxGainRegisters([], 0)");
    const uint32_t *const nothing = nullptr;
    EXPECT_EQ(call(name, noContext, nothing, uint32_t{300}), "radioSetRxGainRegisters(null, 300)");
}

// What is written before and after a call that stores through value.
template <class Value>
std::string stored(Value *value, bool isFound)
{
    const char *const key = "key";
    TextOutput output;
    {
        Line line(output);
        putCall(line, whole, "f", noContext, key, value);
        line.put(" | ");
        putOutcome(line, whole, isFound, noContext, key, value);
    }
    return output.text;
}

TEST(CallText, what_a_function_stores_is_written_after_it)
{
    int32_t integer = -42;
    const char *text = "roof";
    EXPECT_EQ(stored(&integer, true), "f(\"key\" | , -42) = ");
    EXPECT_EQ(stored(&integer, false), "f(\"key\" | , out) = ");
    EXPECT_EQ(stored<int32_t>(nullptr, true), "f(\"key\" | , null) = ");
    EXPECT_EQ(stored(&text, true), "f(\"key\" | , \"roof\") = ");
    EXPECT_EQ(stored(&text, false), "f(\"key\" | , out) = ");
    text = nullptr;
    EXPECT_EQ(stored(&text, true), "f(\"key\" | , null) = ");
}

TEST(CallText, times_are_seconds_cut_to_microseconds)
{
    EXPECT_EQ(seconds(0), "0.000000");
    EXPECT_EQ(seconds(300'000), "0.000300");
    EXPECT_EQ(seconds(12'345'678'999), "12.345678");
    EXPECT_EQ(seconds(INT64_MAX), "9223372036.854775");
}

} // namespace

} // namespace sorel_tests
