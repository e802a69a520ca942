// SPDX-License-Identifier: LicenseRef-Proprietary
// Which status each function answers in which state, and which readings fail: one row a case.
#include "radio_test.h"

#include <cmath>
#include <vector>

namespace sorel_tests
{

namespace
{

enum State {
    Closed, // a context that was open
    Null,
    Opened,
    Ready,     // two paths, LTE 20 MHz, band 7
    OnePath,   // one path, otherwise the same
    Automatic, // Ready, with automatic gain
    Deselected // OnePath, but the second path had been selected before
};

RadioContext *bringTo(State state)
{
    if (state == Null)
        return nullptr;
    RadioContext *const context = radioOpen();
    EXPECT_NE(context, nullptr);
    if (state == Closed) {
        EXPECT_EQ(radioClose(context), RADIO_ESUCCESS);
        return context;
    }
    if (state == Deselected) {
        EXPECT_EQ(radioSelect(context, RADIO_SELECT_1), RADIO_ESUCCESS);
    }
    if (state >= Ready) {
        const bool isOne = state == OnePath || state == Deselected;
        EXPECT_EQ(radioInit(context, isOne ? RADIO_CONF_SISO : RADIO_CONF_MIMO,
                            RADIO_MODE_4GENODEB_FDD_20MHZ, RADIO_BAND_7),
                  RADIO_ESUCCESS);
    }
    if (state == Automatic) {
        EXPECT_EQ(radioSetRxGainMode(context, RADIO_RX_GAIN_AGC_FAST), RADIO_ESUCCESS);
    }
    return context;
}

struct Case {
    State state;
    const char *text;
    RadioReturn (*call)(RadioContext *c);
    RadioReturn expected;
};

#define CALL(expression) #expression, [](RadioContext * c) { return expression; }

template <class Enum>
constexpr Enum valued(int32_t value)
{
    return static_cast<Enum>(value);
}

constexpr RadioConf MIMO = RADIO_CONF_MIMO;
constexpr RadioMode FDD = RADIO_MODE_4GENODEB_FDD_20MHZ;
constexpr RadioMode TDD = RADIO_MODE_4GENODEB_TDD_20MHZ;
constexpr RadioBand B7 = RADIO_BAND_7;
constexpr RadioState ON = RADIO_STATE_ENABLE;
constexpr RadioTxAntenna T1 = RADIO_TX_ANTENNA_1;
constexpr RadioTxAntenna T2 = RADIO_TX_ANTENNA_2;
constexpr RadioRxAntenna R1 = RADIO_RX_ANTENNA_1;
constexpr RadioRxAntenna R2 = RADIO_RX_ANTENNA_2;
const uint32_t words[257] = {};
int32_t integer;
const char *text;

constexpr RadioReturn SUCCESS = RADIO_ESUCCESS;
constexpr RadioReturn EINVALID = RADIO_EINVAL;
constexpr RadioReturn EERROR = RADIO_EERROR;
constexpr RadioReturn NOTSUP = RADIO_ENOTSUP;

// clang-format off

// Every function that takes a context, with arguments that are right in the state Ready.
const Case rightCalls[] = {
    {Ready, CALL(radioSelect(c, RADIO_SELECT_1)),                                    SUCCESS},
    {Ready, CALL(radioInit(c, MIMO, FDD, B7)),                                       SUCCESS},
    {Ready, CALL(radioInitByScript(c, MIMO, FDD, B7, SOREL_DATA_DIR "/good.script")), SUCCESS},
    {Ready, CALL(radioCpriInit(c, RADIO_CPRI_RATE_4)),                               SUCCESS},
    {Ready, CALL(radioReset(c)),                                                     SUCCESS},
    {Ready, CALL(radioLoadCalibrationFile(c, SOREL_DATA_DIR "/good.toml")),          SUCCESS},
    {Ready, CALL(radioSetTxFrequency(c, 2655000000u)),                               SUCCESS},
    {Ready, CALL(radioSetTxChannel(c, 2850)),                                        SUCCESS},
    {Ready, CALL(radioSetTxState(c, ON)),                                            SUCCESS},
    {Ready, CALL(radioSetTxStateOfAntenna(c, T2, ON)),                               SUCCESS},
    {Ready, CALL(radioSetTxMaxPower(c, 100)),                                        SUCCESS},
    {Ready, CALL(radioSetTxMaxPowerOfAntenna(c, T2, 100)),                           SUCCESS},
    {Ready, CALL(radioSetTxDcOffset(c, T2, -2048, 2047)),                            SUCCESS},
    {Ready, CALL(radioSetTxPowerRegisters(c, words, 256)),                           SUCCESS},
    {Ready, CALL(radioSetRxFrequency(c, 2535000000u)),                               SUCCESS},
    {Ready, CALL(radioSetRxChannel(c, 20850)),                                       SUCCESS},
    {Ready, CALL(radioSetRxState(c, ON)),                                            SUCCESS},
    {Ready, CALL(radioSetRxStateOfAntenna(c, R2, ON)),                               SUCCESS},
    {Ready, CALL(radioSetRxGain(c, 30)),                                             SUCCESS},
    {Ready, CALL(radioSetRxGainMode(c, RADIO_RX_GAIN_AGC_SLOW)),                     SUCCESS},
    {Ready, CALL(radioSetRxGainRegisters(c, words, 256)),                            SUCCESS},
    {Ready, CALL(radioSetLoopback(c, RADIO_TX_TO_RX_LOOPBACK)),                      SUCCESS},
    {Ready, CALL(radioSpiWrite(c, SCRATCH, -1)),                                     SUCCESS},
    {Ready, CALL(radioSetOscillatorDacValue(c, 65535)),                              SUCCESS},
    {Ready, CALL(radioSetDebugLevel(c, RADIO_DEBUG_NONE)),                           SUCCESS},
    {Ready, CALL(radioSetDebugFile(c, nullptr)),                                     SUCCESS},
};

// The same calls in the state Opened: what needs radioInit() is refused.
const struct { const char *name; bool needsInit; } needs[] = {
    {"radioSelect", false},          {"radioInit", false},
    {"radioInitByScript", false},    {"radioCpriInit", false},
    {"radioReset", false},           {"radioLoadCalibrationFile", false},
    {"radioSetTxFrequency", true},   {"radioSetTxChannel", true},
    {"radioSetTxState", true},       {"radioSetTxStateOfAntenna", true},
    {"radioSetTxMaxPower", true},    {"radioSetTxMaxPowerOfAntenna", true},
    {"radioSetTxDcOffset", true},    {"radioSetTxPowerRegisters", true},
    {"radioSetRxFrequency", true},   {"radioSetRxChannel", true},
    {"radioSetRxState", true},       {"radioSetRxStateOfAntenna", true},
    {"radioSetRxGain", true},        {"radioSetRxGainMode", true},
    {"radioSetRxGainRegisters", true}, {"radioSetLoopback", true},
    {"radioSpiWrite", false},        {"radioSetOscillatorDacValue", false},
    {"radioSetDebugLevel", false},   {"radioSetDebugFile", false},
};

const Case refusals[] = {
    // What names no member of its enumeration, also before radioInit().
    {Opened, CALL(radioSelect(c, valued<RadioSelectIndex>(-1))),                 EINVALID},
    {Opened, CALL(radioSelect(c, valued<RadioSelectIndex>(3))),                  EINVALID},
    {Opened, CALL(radioInit(c, RADIO_CONF_NULL, FDD, B7)),                       EINVALID},
    {Opened, CALL(radioInit(c, RADIO_CONF_INVALID, FDD, B7)),                    EINVALID},
    {Opened, CALL(radioInit(c, MIMO, RADIO_MODE_NULL, B7)),                      EINVALID},
    {Opened, CALL(radioInit(c, MIMO, RADIO_MODE_INVALID, B7)),                   EINVALID},
    {Opened, CALL(radioInit(c, MIMO, FDD, RADIO_BAND_NULL)),                     EINVALID},
    {Opened, CALL(radioInit(c, MIMO, FDD, RADIO_BAND_INVALID)),                  EINVALID},
    {Opened, CALL(radioInit(c, MIMO, FDD, valued<RadioBand>(0))),                EINVALID},
    {Opened, CALL(radioInit(c, MIMO, FDD, valued<RadioBand>(26))),               EINVALID},
    {Opened, CALL(radioInit(c, MIMO, FDD, valued<RadioBand>(32))),               EINVALID},
    {Opened, CALL(radioInit(c, MIMO, FDD, valued<RadioBand>(49))),               EINVALID},
    {Opened, CALL(radioInit(c, MIMO, FDD, valued<RadioBand>(251))),              EINVALID},
    {Opened, CALL(radioInitByScript(c, RADIO_CONF_INVALID, FDD, B7, "")),        EINVALID},
    {Opened, CALL(radioCpriInit(c, valued<RadioCpriRate>(0))),                   EINVALID},
    {Opened, CALL(radioCpriInit(c, valued<RadioCpriRate>(3))),                   EINVALID},
    {Opened, CALL(radioCpriInit(c, valued<RadioCpriRate>(11))),                  EINVALID},
    {Opened, CALL(radioSetTxState(c, valued<RadioState>(2))),                    EINVALID},
    {Opened, CALL(radioSetTxState(c, valued<RadioState>(-1))),                   EINVALID},
    {Opened, CALL(radioSetTxStateOfAntenna(c, valued<RadioTxAntenna>(2), ON)),   EINVALID},
    {Opened, CALL(radioSetTxStateOfAntenna(c, T1, valued<RadioState>(2))),       EINVALID},
    {Opened, CALL(radioSetTxMaxPowerOfAntenna(c, valued<RadioTxAntenna>(2), 0)), EINVALID},
    {Opened, CALL(radioSetTxDcOffset(c, valued<RadioTxAntenna>(-1), 0, 0)),      EINVALID},
    {Opened, CALL(radioSetRxState(c, valued<RadioState>(7))),                    EINVALID},
    {Opened, CALL(radioSetRxStateOfAntenna(c, valued<RadioRxAntenna>(2), ON)),   EINVALID},
    {Opened, CALL(radioSetRxStateOfAntenna(c, R1, valued<RadioState>(2))),       EINVALID},
    {Opened, CALL(radioSetRxGainMode(c, valued<RadioRxGainMode>(4))),            EINVALID},
    {Opened, CALL(radioSetRxGainMode(c, valued<RadioRxGainMode>(-1))),           EINVALID},
    {Opened, CALL(radioSetLoopback(c, valued<RadioLoopback>(3))),                EINVALID},
    {Opened, CALL(radioSetDebugLevel(c, valued<RadioDebug>(6))),                 EINVALID},
    {Opened, CALL(radioSetDebugLevel(c, valued<RadioDebug>(-1))),                EINVALID},

    // Null pointers and files that are not there.
    {Opened, CALL(radioInitByScript(c, MIMO, FDD, B7, nullptr)),                 EINVALID},
    {Opened, CALL(radioInitByScript(c, MIMO, FDD, B7, "/no/such/file")),         EINVALID},
    {Opened, CALL(radioLoadCalibrationFile(c, nullptr)),                         EINVALID},
    {Opened, CALL(radioLoadCalibrationFile(c, "/no/such/file")),                 EINVALID},
    {Opened, CALL(radioGetIntegerFromCalibration(c, nullptr, &integer)),         EINVALID},
    {Opened, CALL(radioGetIntegerFromCalibration(c, "k", nullptr)),              EINVALID},
    {Opened, CALL(radioGetIntegerFromCalibration(c, "k", &integer)),             EINVALID},
    {Opened, CALL(radioGetStringFromCalibration(c, nullptr, &text)),             EINVALID},
    {Opened, CALL(radioGetStringFromCalibration(c, "k", nullptr)),               EINVALID},
    {Opened, CALL(radioGetStringFromCalibration(c, "k", &text)),                 EINVALID},
    {Opened, CALL(radioSetRxGainRegisters(c, nullptr, 1)),                       EINVALID},
    {Opened, CALL(radioSetTxPowerRegisters(c, nullptr, 1)),                      EINVALID},
    {Ready,  CALL(radioSetRxGainRegisters(c, nullptr, 0)),                       SUCCESS},
    {Ready,  CALL(radioSetTxPowerRegisters(c, nullptr, 0)),                      SUCCESS},

    // Beyond what the platform can be set to, also before radioInit().
    {Opened, CALL(radioSetTxMaxPower(c, 241)),                                   EINVALID},
    {Opened, CALL(radioSetTxMaxPower(c, -601)),                                  EINVALID},
    {Ready,  CALL(radioSetTxMaxPower(c, 240)),                                   SUCCESS},
    {Ready,  CALL(radioSetTxMaxPower(c, -600)),                                  SUCCESS},
    {Opened, CALL(radioSetTxMaxPowerOfAntenna(c, T1, 241)),                      EINVALID},
    {Opened, CALL(radioSetTxDcOffset(c, T1, 2048, 0)),                           EINVALID},
    {Opened, CALL(radioSetTxDcOffset(c, T1, 0, -2049)),                          EINVALID},
    {Opened, CALL(radioSetTxPowerRegisters(c, words, 257)),                      EINVALID},
    {Opened, CALL(radioSetRxGainRegisters(c, words, 257)),                       EINVALID},
    {Opened, CALL(radioSetRxGain(c, -1)),                                        EINVALID},
    {Opened, CALL(radioSetRxGain(c, 77)),                                        EINVALID},
    {Ready,  CALL(radioSetRxGain(c, 0)),                                         SUCCESS},
    {Ready,  CALL(radioSetRxGain(c, 76)),                                        SUCCESS},
    {Opened, CALL(radioSpiWrite(c, UNMAPPED, 0)),                                EINVALID},
    {Opened, CALL(radioSpiWrite(c, 0xffffffffu, 0)),                             EINVALID},
    {Opened, CALL(radioSpiWrite(c, IDENTITY, 0)),                                NOTSUP},

    // Outside the band, which is known after radioInit() only.
    {Opened, CALL(radioSetTxFrequency(c, 1)),                                    EERROR},
    {Opened, CALL(radioSetTxChannel(c, 1)),                                      EERROR},
    {Ready,  CALL(radioSetTxFrequency(c, 2619999999u)),                          EINVALID},
    {Ready,  CALL(radioSetTxFrequency(c, 2620000000u)),                          SUCCESS},
    {Ready,  CALL(radioSetTxFrequency(c, 2690000000u)),                          SUCCESS},
    {Ready,  CALL(radioSetTxFrequency(c, 2690000001u)),                          EINVALID},
    {Ready,  CALL(radioSetTxFrequency(c, 0)),                                    EINVALID},
    {Ready,  CALL(radioSetTxFrequency(c, 0xffffffffu)),                          EINVALID},
    {Ready,  CALL(radioSetTxChannel(c, 2749)),                                   EINVALID},
    {Ready,  CALL(radioSetTxChannel(c, 3450)),                                   EINVALID},
    {Ready,  CALL(radioSetTxChannel(c, 20850)),                                  EINVALID},
    {Ready,  CALL(radioSetRxFrequency(c, 2499999999u)),                          EINVALID},
    {Ready,  CALL(radioSetRxFrequency(c, 2570000001u)),                          EINVALID},
    {Ready,  CALL(radioSetRxFrequency(c, 2655000000u)),                          EINVALID},
    {Ready,  CALL(radioSetRxChannel(c, 2850)),                                   EINVALID},

    // Bands and modes that do not go together, or that no platform has.
    {Opened, CALL(radioInit(c, MIMO, FDD, RADIO_BAND_15)),                       NOTSUP},
    {Opened, CALL(radioInit(c, MIMO, FDD, RADIO_BAND_16)),                       NOTSUP},
    {Opened, CALL(radioInit(c, MIMO, FDD, RADIO_BAND_252)),                      NOTSUP},
    {Opened, CALL(radioInit(c, MIMO, TDD, RADIO_BAND_255)),                      NOTSUP},
    {Opened, CALL(radioInit(c, MIMO, FDD, RADIO_BAND_38)),                       NOTSUP},
    {Opened, CALL(radioInit(c, MIMO, TDD, B7)),                                  NOTSUP},
    {Opened, CALL(radioInit(c, MIMO, FDD, RADIO_BAND_GSM_900)),                  NOTSUP},
    {Opened, CALL(radioInit(c, MIMO, RADIO_MODE_2GUERX, RADIO_BAND_8)),          NOTSUP},
    {Opened, CALL(radioInit(c, MIMO, RADIO_MODE_3GNODEB, RADIO_BAND_17)),        NOTSUP},
    {Opened, CALL(radioInit(c, MIMO, RADIO_MODE_TD_SCDMA_NODEB, RADIO_BAND_1)),  NOTSUP},

    // The second antenna where there is one only.
    {OnePath,    CALL(radioSelect(c, RADIO_SELECT_1)),                           NOTSUP},
    {OnePath,    CALL(radioSelect(c, RADIO_SELECT_0)),                           SUCCESS},
    {OnePath,    CALL(radioSetTxStateOfAntenna(c, T2, ON)),                      NOTSUP},
    {OnePath,    CALL(radioSetTxMaxPowerOfAntenna(c, T2, 0)),                    NOTSUP},
    {OnePath,    CALL(radioSetTxDcOffset(c, T2, 0, 0)),                          NOTSUP},
    {OnePath,    CALL(radioSetRxStateOfAntenna(c, R2, ON)),                      NOTSUP},
    {Deselected, CALL(radioSetTxState(c, ON)),                                   NOTSUP},
    {Deselected, CALL(radioSetTxMaxPower(c, 0)),                                 NOTSUP},
    {Deselected, CALL(radioSetRxState(c, ON)),                                   NOTSUP},
    {Deselected, CALL(radioSetRxGain(c, 0)),                                     NOTSUP},
    {Deselected, CALL(radioSetRxGainMode(c, RADIO_RX_GAIN_MGC)),                 NOTSUP},
    {Deselected, CALL(radioSetTxStateOfAntenna(c, T1, ON)),                      SUCCESS},

    // Manual gain while the gain is automatic.
    {Automatic, CALL(radioSetRxGain(c, 30)),                                     EERROR},
    {Automatic, CALL(radioSetRxGain(c, 77)),                                     EINVALID},

    // A link that is too slow: 2 x 921.6 Mbit/s are set up.
    {Ready,   CALL(radioCpriInit(c, RADIO_CPRI_RATE_2)),                         EERROR},
    {OnePath, CALL(radioCpriInit(c, RADIO_CPRI_RATE_2)),                         SUCCESS},
    {OnePath, CALL(radioCpriInit(c, RADIO_CPRI_RATE_1)),                         EERROR},
};

struct Reading {
    const char *text;
    bool (*fails)(RadioContext *c);
    bool needsInit;
    bool needsPath2; // fails in OnePath
    bool ofSelected; // fails in Deselected
};

#define FLOAT(expression) #expression, [](RadioContext *c) { return std::isnan(expression); }
#define INT32(expression) #expression, [](RadioContext *c) { return (expression) == INT32_MIN; }
#define UINT32(expression) #expression, [](RadioContext *c) { return (expression) == UINT32_MAX; }

const Reading readings[] = {
    {FLOAT(radioGetTemperature(c)),                false, false, false},
    {INT32(radioGetRxRtwp(c)),                     true,  false, true},
    {FLOAT(radioGetRxRtwpIndBm(c)),                true,  false, true},
    {INT32(radioGetRxRtwpOfAntenna(c, R1)),        true,  false, false},
    {INT32(radioGetRxRtwpOfAntenna(c, R2)),        true,  true,  false},
    {FLOAT(radioGetRxRtwpOfAntennaIndBm(c, R1)),   true,  false, false},
    {FLOAT(radioGetRxRtwpOfAntennaIndBm(c, R2)),   true,  true,  false},
    {INT32(radioGetRxGainIndB(c)),                 true,  false, true},
    {INT32(radioGetRxGainOfAntennaIndB(c, R1)),    true,  false, false},
    {INT32(radioGetRxGainOfAntennaIndB(c, R2)),    true,  true,  false},
    {UINT32(radioSpiRead(c, SCRATCH)),             false, false, false},
    {UINT32(radioGetOscillatorDacValue(c)),        false, false, false},
    {INT32(radioGetOscillatorDacWidth(c)),         false, false, false},
    {INT32(radioGetDebugLevel(c)),                 false, false, false},
    {INT32(radioGetPlatformChipCount(c)),          false, false, false},
};

// clang-format on

void check(const Case &row, State state, RadioReturn expected)
{
    RadioContext *const context = bringTo(state);
    EXPECT_EQ(row.call(context), expected) << row.text << " in state " << state;
    if (state >= Opened)
        radioClose(context);
}

TEST(Statuses, a_right_call_succeeds)
{
    for (const Case &row : rightCalls)
        check(row, row.state, row.expected);
}

TEST(Statuses, a_closed_or_null_context_is_an_invalid_argument)
{
    for (const Case &row : rightCalls) {
        check(row, Closed, RADIO_EINVAL);
        check(row, Null, RADIO_EINVAL);
    }
    EXPECT_EQ(radioClose(nullptr), RADIO_EINVAL);
    EXPECT_EQ(radioGetIntegerFromCalibration(nullptr, "k", &integer), RADIO_EINVAL);
    EXPECT_EQ(radioGetStringFromCalibration(nullptr, "k", &text), RADIO_EINVAL);
}

TEST(Statuses, what_needs_init_is_an_error_before_it)
{
    ASSERT_EQ(std::size(rightCalls), std::size(needs));
    for (std::size_t i = 0; i < std::size(needs); ++i) {
        ASSERT_EQ(std::string(rightCalls[i].text).rfind(std::string(needs[i].name) + "(", 0), 0u);
        check(rightCalls[i], Opened, needs[i].needsInit ? RADIO_EERROR : RADIO_ESUCCESS);
    }
}

TEST(Statuses, refusals_are_as_the_table_says)
{
    for (const Case &row : refusals)
        check(row, row.state, row.expected);
}

TEST(Statuses, a_platform_that_is_not_one_cannot_be_selected)
{
    EXPECT_EQ(radioSelectPlatform(RADIO_PLATFORM_NULL), RADIO_EINVAL);
    EXPECT_EQ(radioSelectPlatform(RADIO_PLATFORM_COUNT), RADIO_EINVAL);
    EXPECT_STREQ(radioGetPlatformName(nullptr), "simulated board");
}

TEST(Statuses, a_failing_reading_is_the_documented_value)
{
    const std::vector<State> states = {Closed, Null, Opened, Ready, OnePath, Deselected};
    for (const Reading &row : readings)
        for (const State state : states) {
            const bool fails = state == Closed || state == Null ||
                               (state == Opened && row.needsInit) ||
                               ((state == OnePath || state == Deselected) && row.needsPath2) ||
                               (state == Deselected && row.ofSelected);
            RadioContext *const context = bringTo(state);
            EXPECT_EQ(row.fails(context), fails) << row.text << " in state " << state;
            if (state >= Opened)
                radioClose(context);
        }
}

TEST(Statuses, a_reading_of_no_antenna_fails)
{
    RadioContext *const c = bringTo(Ready);
    for (const int32_t value : {-1, 2, INT32_MIN, INT32_MAX}) {
        const auto antenna = static_cast<RadioRxAntenna>(value);
        EXPECT_EQ(radioGetRxRtwpOfAntenna(c, antenna), INT32_MIN);
        EXPECT_TRUE(std::isnan(radioGetRxRtwpOfAntennaIndBm(c, antenna)));
        EXPECT_EQ(radioGetRxGainOfAntennaIndB(c, antenna), INT32_MIN);
    }
    radioClose(c);
}

TEST(Statuses, texts_need_no_context_but_a_closed_one_has_no_platform)
{
    RadioContext *const closed = bringTo(Closed);
    EXPECT_EQ(radioGetPlatformName(closed), nullptr);
    EXPECT_STREQ(radioGetPlatformName(nullptr), "simulated board");
    EXPECT_STREQ(radioVersion(nullptr), radioVersion(closed));
    EXPECT_NE(radioVersion(nullptr), nullptr);
    EXPECT_NE(radioGetDriverNames(nullptr), nullptr);
}

} // namespace

} // namespace sorel_tests
