// SPDX-License-Identifier: LicenseRef-Proprietary
// What the built libraries export, and their SONAME.
#include "function_names.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <set>
#include <sstream>
#include <string>

namespace sorel_tests
{

namespace
{

std::string outputOf(const std::string &command)
{
    FILE *const pipe = popen(command.c_str(), "r");
    if (!pipe)
        return "";
    std::string output;
    char block[4096];
    for (std::size_t count; (count = std::fread(block, 1, sizeof block, pipe)) > 0;)
        output.append(block, count);
    EXPECT_EQ(pclose(pipe), 0) << command;
    return output;
}

class Exports : public testing::TestWithParam<const char *>
{
};

TEST_P(Exports, the_library_exports_the_46_functions_and_nothing_else)
{
    ASSERT_EQ(functionNames().size(), 46u);
    std::set<std::string> exported;
    std::istringstream lines(
        outputOf("nm -D --defined-only --format=posix '" + std::string(GetParam()) + "'"));
    for (std::string line; std::getline(lines, line);)
        exported.insert(line.substr(0, line.find(' ')));
    EXPECT_EQ(exported, functionNames());
}

TEST_P(Exports, the_library_has_the_name_that_programs_ask_for)
{
    const std::string output = outputOf("objdump -p '" + std::string(GetParam()) + "'");
    const std::size_t place = output.find("SONAME");
    ASSERT_NE(place, std::string::npos);
    std::istringstream words(output.substr(place));
    std::string tag, name;
    words >> tag >> name;
    EXPECT_EQ(name, "libsorel.so.1");
    EXPECT_EQ(output.find("libstdc++"), std::string::npos);
}

INSTANTIATE_TEST_SUITE_P(of_the_board_and_of_the_library_in_front, Exports,
                         testing::Values(SOREL_LIBRARY_FILE, SOREL_FORWARDING_FILE));

} // namespace

} // namespace sorel_tests
