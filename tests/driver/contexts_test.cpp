// SPDX-License-Identifier: LicenseRef-Proprietary
// Open, closed and invented contexts.
#include "radio_test.h"

#include <cmath>
#include <set>
#include <vector>

namespace sorel_tests
{

namespace
{

constexpr int openLimit = 16;
constexpr int opensBeforeReuse = 4080;

RadioContext *opened()
{
    RadioContext *const context = radioOpen();
    EXPECT_NE(context, nullptr);
    return context;
}

TEST(Contexts, a_closed_context_is_recognised)
{
    RadioContext *const context = opened();
    ASSERT_EQ(radioClose(context), RADIO_ESUCCESS);
    EXPECT_EQ(radioReset(context), RADIO_EINVAL);
    EXPECT_TRUE(std::isnan(radioGetTemperature(context)));
    EXPECT_EQ(radioClose(context), RADIO_EINVAL);
}

TEST(Contexts, a_closed_context_is_recognised_after_another_has_been_opened)
{
    RadioContext *const first = opened();
    ASSERT_EQ(radioClose(first), RADIO_ESUCCESS);
    for (int i = 0; i < opensBeforeReuse; ++i) {
        RadioContext *const next = opened();
        ASSERT_NE(next, first);
        ASSERT_EQ(radioSpiWrite(first, SCRATCH, 1), RADIO_EINVAL);
        ASSERT_EQ(radioSpiRead(next, SCRATCH), 0u);
        ASSERT_EQ(radioClose(next), RADIO_ESUCCESS);
    }
}

TEST(Contexts, many_opens_succeed_while_one_stays_open)
{
    RadioContext *const kept = opened();
    ASSERT_EQ(radioSpiWrite(kept, SCRATCH, 42), RADIO_ESUCCESS);
    for (int i = 0; i < 10000; ++i) {
        RadioContext *const next = opened();
        ASSERT_NE(next, kept);
        ASSERT_EQ(radioClose(next), RADIO_ESUCCESS);
    }
    EXPECT_EQ(radioSpiRead(kept, SCRATCH), 42u);
    EXPECT_EQ(radioClose(kept), RADIO_ESUCCESS);
}

TEST(Contexts, no_more_than_the_limit_can_be_open_at_once)
{
    std::set<RadioContext *> contexts;
    for (int i = 0; i < openLimit; ++i)
        contexts.insert(opened());
    EXPECT_EQ(contexts.size(), std::size_t{openLimit});
    EXPECT_EQ(radioOpen(), nullptr);
    EXPECT_EQ(radioClose(*contexts.begin()), RADIO_ESUCCESS);
    contexts.erase(contexts.begin());
    contexts.insert(opened());
    EXPECT_EQ(contexts.size(), std::size_t{openLimit});
    for (RadioContext *const context : contexts)
        EXPECT_EQ(radioClose(context), RADIO_ESUCCESS);
}

TEST(Contexts, contexts_do_not_share_their_state)
{
    RadioContext *const a = opened();
    RadioContext *const b = opened();
    ASSERT_EQ(radioInit(a, RADIO_CONF_SISO, RADIO_MODE_3GNODEB, RADIO_BAND_1), RADIO_ESUCCESS);
    EXPECT_EQ(radioSetTxState(b, RADIO_STATE_ENABLE), RADIO_EERROR);
    EXPECT_EQ(radioSetTxState(a, RADIO_STATE_ENABLE), RADIO_ESUCCESS);
    EXPECT_EQ(radioClose(a), RADIO_ESUCCESS);
    EXPECT_EQ(radioSetTxState(b, RADIO_STATE_ENABLE), RADIO_EERROR);
    EXPECT_EQ(radioClose(b), RADIO_ESUCCESS);
}

TEST(Contexts, an_invented_pointer_is_no_context)
{
    RadioContext *const context = opened();
    const auto address = reinterpret_cast<uintptr_t>(context);
    int local = 0;
    std::vector<uintptr_t> addresses = {1,
                                        4096,
                                        UINTPTR_MAX,
                                        UINTPTR_MAX / 2,
                                        reinterpret_cast<uintptr_t>(&local),
                                        reinterpret_cast<uintptr_t>(&radioOpen)};
    for (uintptr_t offset = 1; offset < sizeof(void *); ++offset) {
        addresses.push_back(address + offset);
        addresses.push_back(address - offset);
    }
    // Neighbours in memory, well beyond whatever the contexts lie in.
    for (uintptr_t offset = sizeof(void *); offset < 16 * 4096; offset += sizeof(void *)) {
        addresses.push_back(address + offset);
        addresses.push_back(address - offset);
    }
    for (const uintptr_t invented : addresses) {
        RadioContext *const garbage = reinterpret_cast<RadioContext *>(invented);
        ASSERT_EQ(radioReset(garbage), RADIO_EINVAL) << invented;
        ASSERT_EQ(radioSpiRead(garbage, SCRATCH), UINT32_MAX) << invented;
        ASSERT_EQ(radioClose(garbage), RADIO_EINVAL) << invented;
    }
    EXPECT_EQ(radioClose(context), RADIO_ESUCCESS);
}

TEST(Contexts, the_driver_names_can_be_written_over)
{
    char **const names = radioGetDriverNames(nullptr);
    ASSERT_NE(names, nullptr);
    ASSERT_NE(names[0], nullptr);
    EXPECT_GT(std::string(names[0]).size(), 0u);
    int count = 0;
    while (names[count])
        ++count;
    EXPECT_GE(count, 1);

    RadioContext *const context = opened();
    ASSERT_EQ(radioLoadCalibrationFile(context, SOREL_DATA_DIR "/good.toml"), RADIO_ESUCCESS);
    // What a script can do: use the list as the place for the answer.
    ASSERT_EQ(radioGetStringFromCalibration(context, "site", const_cast<const char **>(names)),
              RADIO_ESUCCESS);
    EXPECT_STREQ(names[0], "roof, north");
    ASSERT_EQ(radioClose(context), RADIO_ESUCCESS);
    // The text is gone; the list is the same one, and is not looked into.
    EXPECT_EQ(radioGetDriverNames(nullptr), names);
    RadioContext *const next = opened();
    EXPECT_EQ(radioGetDriverNames(next), names);
    EXPECT_EQ(radioClose(next), RADIO_ESUCCESS);
}

} // namespace

} // namespace sorel_tests
