// SPDX-License-Identifier: LicenseRef-Proprietary
#include "binding/radio/constants.h"

#include <gtest/gtest.h>
#include <iterator>

namespace
{

struct Expected {
    const char *name;
    long value;
};

constexpr Expected expected[] = {
#define MEMBER(enumeration, member, value) {#member, value},
#include "tests/include/members.inc"
#undef MEMBER
};

TEST(RadioConstants, areEveryMemberInOrderWithItsValue)
{
    ASSERT_EQ(std::size(expected), 118U);
    for (std::size_t i = 0; i < std::size(expected); ++i) {
        ASSERT_NE(radioConstants[i].kind, endOfConstants) << "only " << i << " constants";
        EXPECT_STREQ(radioConstants[i].name, expected[i].name) << i;
        EXPECT_EQ(radioConstants[i].integer, expected[i].value) << expected[i].name;
    }
    EXPECT_EQ(radioConstants[std::size(expected)].kind, endOfConstants);
}

TEST(RadioConstants, areIntegersAlone)
{
    for (const ConstantEntry *entry = radioConstants; entry->kind != endOfConstants; ++entry) {
        EXPECT_EQ(entry->kind, 1) << entry->name;
    }
}

} // namespace
