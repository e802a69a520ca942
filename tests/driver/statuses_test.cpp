// SPDX-License-Identifier: LicenseRef-Proprietary
// Which calls succeed, up to the last value that is right, and which readings fail. What is refused
// is in provocations.cpp.
#include "right_calls.h"

#include <cmath>

namespace sorel_tests
{

namespace
{

struct Case {
    State state;
    const char *text;
    RadioReturn (*call)(RadioContext *c);
};

// clang-format off

// The first and the last value that is right, and the like.
const Case boundaries[] = {
    {Ready,      CALL(radioSetTxMaxPower(c, 240))},
    {Ready,      CALL(radioSetTxMaxPower(c, -600))},
    {Ready,      CALL(radioSetRxGain(c, 0))},
    {Ready,      CALL(radioSetRxGain(c, 76))},
    {Ready,      CALL(radioSetTxFrequency(c, 2620000000u))},
    {Ready,      CALL(radioSetTxFrequency(c, 2690000000u))},
    {Ready,      CALL(radioSetRxGainRegisters(c, nullptr, 0))},
    {Ready,      CALL(radioSetTxPowerRegisters(c, nullptr, 0))},
    {OnePath,    CALL(radioSelect(c, RADIO_SELECT_0))},
    {OnePath,    CALL(radioCpriInit(c, RADIO_CPRI_RATE_2))},
    {Deselected, CALL(radioSetTxStateOfAntenna(c, T1, ON))},
    {Tables,     CALL(radioSetTxMaxPower(c, 100))},
    {Tables,     CALL(radioSetRxGain(c, 10))},
    {Hot,        CALL(radioSetTxState(c, RADIO_STATE_DISABLE))},
    {Unlocked,   CALL(radioSetTxState(c, RADIO_STATE_DISABLE))},
    {Merrik,     CALL(radioSetOscillatorDacValue(c, 4095))},
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

RadioReturn statusOf(RadioReturn (*call)(RadioContext *c), State state)
{
    RadioContext *const context = bringTo(state);
    const RadioReturn status = call(context);
    leave(context);
    return status;
}

TEST(Statuses, a_right_call_succeeds)
{
    for (const RightCall &row : rightCalls)
        EXPECT_EQ(statusOf(row.call, Ready), RADIO_ESUCCESS) << row.text;
    for (const Case &row : boundaries)
        EXPECT_EQ(statusOf(row.call, row.state), RADIO_ESUCCESS) << row.text;
}

TEST(Statuses, what_needs_no_init_succeeds_before_it)
{
    for (const RightCall &row : rightCalls)
        if (!row.needsInit) {
            EXPECT_EQ(statusOf(row.call, Opened), RADIO_ESUCCESS) << row.text;
        }
}

TEST(Statuses, of_several_statuses_the_first_in_their_order_is_answered)
{
    const auto twice = [](RadioContext *c) { return radioSetTxStateOfAntenna(c, T2, ON); };
    // An argument before the state,
    EXPECT_EQ(statusOf([](auto c) { return radioSetRxGain(c, 77); }, Automatic), RADIO_EINVAL);
    EXPECT_EQ(statusOf([](auto c) { return radioSpiWrite(c, RX_GAIN, 77); }, Opened), RADIO_EINVAL);
    // a frequency after it, for only radioInit() tells the band,
    EXPECT_EQ(statusOf([](auto c) { return radioSetTxFrequency(c, 1); }, Opened), RADIO_EERROR);
    EXPECT_EQ(statusOf([](auto c) { return radioSetTxChannel(c, 1); }, Opened), RADIO_EERROR);
    // the state before what is lacking,
    EXPECT_EQ(statusOf(twice, Opened), RADIO_EERROR);
    EXPECT_EQ(statusOf([](auto c) { return radioInit(c, MIMO, FDD, RADIO_BAND_38); }, Linked),
              RADIO_EERROR);
    // and what is lacking before what is busy.
    RadioContext *const context = bringTo(OnePath, "lock_time = 10");
    EXPECT_EQ(twice(context), RADIO_ENOTSUP);
    leave(context);
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
            leave(context);
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
    leave(c);
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
