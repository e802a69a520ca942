// SPDX-License-Identifier: LicenseRef-Proprietary
// The functions whose types differ between driver headers behave the same with all of them.
#include "app/context.h"
#include "binding/radio_wrap.h"
#include "tests/binding/radio/header_variants/variant_driver.h"
#include "tests/binding/support/lua_test.h"

#include <limits>
#include <type_traits>

namespace
{

using SignedResult = decltype(radioGetRxRtwp(nullptr));

// Each variant does differ from the header of this tree.
static_assert(!std::is_same_v<SignedResult, std::int32_t>);
static_assert(
    !std::is_same_v<decltype(radioSetDebugLevel(nullptr, RADIO_DEBUG_NONE)), RadioReturn>);

class HeaderVariant : public LuaTest
{
protected:
    HeaderVariant()
    {
        radioModuleOpen(L);
        appContext = reinterpret_cast<RadioContext *>(this);
    }

    ~HeaderVariant() override
    {
        appContext = nullptr;
    }
};

TEST_F(HeaderVariant, keepsTheSignAndValueOfEveryReading)
{
    constexpr std::int64_t values[] = {
        0,
        1,
        -1,
        -1174,
        32767,
        -32768,
        static_cast<std::int64_t>(std::numeric_limits<SignedResult>::max()) >> 11 << 11,
        static_cast<std::int64_t>(std::numeric_limits<SignedResult>::min())};
    for (const char *const call :
         {"radioGetPlatformChipCount()", "radioGetRxRtwp()", "radioGetRxRtwpOfAntenna(0)",
          "radioGetRxGainIndB()", "radioGetRxGainOfAntennaIndB(0)", "radioGetOscillatorDacWidth()",
          "radioGetDebugLevel()"}) {
        for (const std::int64_t expected : values) {
            reading = expected;
            EXPECT_EQ(value(std::string("('%.0f'):format(radio.") + call + ")"),
                      std::to_string(expected))
                << call;
        }
    }
}

TEST_F(HeaderVariant, writesTheSigned32BitValueToARegister)
{
    struct {
        const char *text;
        std::int64_t value;
    } const cases[] = {
        {"5", 5},     {"-1", -1}, {"4294967295", 2147483647}, {"-1e10", -2147483648LL},
        {"'abc'", 0}, {"nil", 0}};
    for (const auto &test : cases) {
        run(std::string("radio.radioSpiWrite(16, ") + test.text + ")");
        const auto bits = static_cast<std::uint32_t>(writtenValue);
        EXPECT_EQ(bits, static_cast<std::uint32_t>(test.value)) << test.text;
    }
}

TEST_F(HeaderVariant, dropsWhateverSettingTheDebugLevelReturns)
{
    debugLevelCalls = 0;
    EXPECT_EQ(value("select('#', radio.radioSetDebugLevel(3))"), "0");
    EXPECT_EQ(debugLevelCalls, 1);
}

TEST_F(HeaderVariant, keepsTheOrderOfChecks)
{
    appContext = nullptr;
    EXPECT_EQ(raised("radio.radioSpiWrite(-1, 0)"), "number must not be negative");
    EXPECT_EQ(raised("radio.radioSpiWrite(1, {})"), "No radio context, call radioOpen() first");
    EXPECT_EQ(raised("radio.radioSetTxMaxPowerOfAntenna(-1, {})"),
              "Error in radioSetTxMaxPowerOfAntenna (arg 2), expected 'int16_t' got 'table'");
    EXPECT_EQ(raised("radio.radioSetTxMaxPowerOfAntenna(1, 200)"),
              "No radio context, call radioOpen() first");
    EXPECT_EQ(raised("radio.radioSetDebugLevel()"),
              "Error in radioSetDebugLevel expected 1..1 args, got 0");
}

} // namespace
