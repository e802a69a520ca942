// SPDX-License-Identifier: LicenseRef-Proprietary
// The table in driver/README.md of which function gives which status, held against the library:
// each cell by a call that provokes it.
#include "function_names.h"
#include "markdown.h"
#include "provocations.h"

#include <gtest/gtest.h>

#include <set>

namespace sorel_tests
{

namespace
{

const std::pair<const char *, RadioReturn> statuses[] = {
    {"RADIO_EINVAL", RADIO_EINVAL},   {"RADIO_EERROR", RADIO_EERROR},
    {"RADIO_ENOTSUP", RADIO_ENOTSUP}, {"RADIO_EAGAIN", RADIO_EAGAIN},
    {"RADIO_EIO", RADIO_EIO},
};

std::vector<MarkdownRow> table()
{
    std::vector<std::string> columns = {"function"};
    for (const auto &[name, status] : statuses)
        columns.push_back(name);
    return readmeTable("Which function gives which status", columns);
}

// Cells as "function: status: reason".
std::set<std::string> cells()
{
    std::set<std::string> all;
    for (const MarkdownRow &row : table())
        for (const auto &[name, status] : statuses)
            for (const std::string &reason : split(row.at(name), ','))
                EXPECT_TRUE(all.insert(row.at("function") + ": " + name + ": " + reason).second)
                    << "twice: " << row.at("function") << ' ' << reason;
    return all;
}

std::string cellOf(const Provocation &provocation)
{
    for (const auto &[name, status] : statuses)
        if (status == provocation.status)
            return functionOf(provocation.text) + ": " + name + ": " + provocation.reason;
    return "";
}

TEST(StatusTable, each_function_of_the_interface_has_its_row)
{
    std::vector<std::string> functions;
    for (const MarkdownRow &row : table())
        functions.push_back(row.at("function"));
    EXPECT_EQ(functions.size(), functionNames().size());
    EXPECT_EQ(std::set<std::string>(functions.begin(), functions.end()), functionNames());
}

TEST(StatusTable, each_cell_can_be_provoked_and_each_provocation_is_a_cell)
{
    std::set<std::string> provoked;
    for (const Provocation &provocation : provocations())
        provoked.insert(cellOf(provocation));
    EXPECT_EQ(provoked, cells());
}

TEST(StatusTable, each_provocation_gives_its_status)
{
    for (const Provocation &row : provocations()) {
        RadioContext *const context =
            row.scenario.empty() ? bringTo(row.state) : bringTo(row.state, row.scenario);
        EXPECT_EQ(row.call(context), row.status)
            << row.text << ", " << row.reason << ", in state " << row.state;
        leave(context);
    }
}

TEST(StatusTable, a_function_with_a_status_and_a_context_refuses_a_context_that_is_not_open)
{
    std::set<std::string> withStatus, withContext;
    for (const std::string &cell : cells()) {
        withStatus.insert(functionOf(cell.substr(0, cell.find(':'))));
        if (cell.ends_with(": context"))
            withContext.insert(cell.substr(0, cell.find(':')));
    }
    withStatus.erase("radioSelectPlatform");
    EXPECT_EQ(withContext, withStatus);
}

} // namespace

} // namespace sorel_tests
