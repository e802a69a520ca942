// SPDX-License-Identifier: LicenseRef-Proprietary
// The names of enumerations and members, held against the members written out for the tests.
#include "sorel.h"
#include "trace/names.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

namespace sorel_tests
{

namespace
{

bool isNumberOnly(std::string_view name)
{
    return name.ends_with("_COUNT") || name.ends_with("_INVALID");
}

// The members of each enumeration by value, as tests/include/members.inc has them.
std::map<std::string, std::map<int, std::string>> writtenOut()
{
    std::map<std::string, std::map<int, std::string>> result;
#define MEMBER(enumeration, member, value)                                                         \
    if (!isNumberOnly(#member))                                                                    \
        result[#enumeration][value] = #member;
#include "../../include/members.inc"
#undef MEMBER
    return result;
}

template <class Enumeration>
void expectNames(const std::map<int, std::string> &expected)
{
    ASSERT_FALSE(expected.empty());
    for (int value = -300; value <= 300; ++value) {
        const auto found = expected.find(value);
        const std::string name = found == expected.end() ? "" : found->second;
        EXPECT_EQ(sorel::nameOf(static_cast<Enumeration>(value)), name) << value;
        Enumeration back{};
        EXPECT_EQ(sorel::valueOf(name, back), !name.empty()) << name;
        EXPECT_EQ(back, name.empty() ? 0 : value) << name;
    }
    EXPECT_EQ(sorel::nameOf(static_cast<Enumeration>(INT32_MAX)), "");
    EXPECT_EQ(sorel::nameOf(static_cast<Enumeration>(INT32_MIN)), "");
}

TEST(Names, each_member_of_each_enumeration_has_its_name_and_no_other_value_has_one)
{
    const auto expected = writtenOut();
#define ENUMERATION(type)                                                                          \
    EXPECT_EQ(sorel::typeName<type>(), #type);                                                     \
    expectNames<type>(expected.at(#type));
#include "../../include/enumerations.inc"
#undef ENUMERATION
}

TEST(Names, a_name_that_is_none_leaves_the_value_alone)
{
    for (const char *name : {"", "RADIO_BAND_26", "RADIO_BAND_COUNT", "RADIO_BAND_INVALID",
                             "RADIO_CONF_MIMO", "radio_band_7", "RADIO_BAND_7 ", "7"}) {
        RadioBand band = RADIO_BAND_3;
        EXPECT_FALSE(sorel::valueOf(name, band)) << name;
        EXPECT_EQ(band, RADIO_BAND_3) << name;
    }
}

} // namespace

} // namespace sorel_tests
