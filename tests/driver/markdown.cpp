// SPDX-License-Identifier: LicenseRef-Proprietary
// The tables of driver/README.md, for tests that hold them against the library.
#include "markdown.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <set>
#include <sstream>

namespace sorel_tests
{

namespace
{

std::string trimmed(const std::string &text)
{
    constexpr const char *around = " `";
    const std::size_t first = text.find_first_not_of(around);
    if (first == std::string::npos)
        return "";
    return text.substr(first, text.find_last_not_of(around) - first + 1);
}

std::vector<std::string> cellsOf(const std::string &line)
{
    std::vector<std::string> cells;
    std::istringstream stream(line.substr(1)); // after the first bar
    for (std::string cell; std::getline(stream, cell, '|');)
        cells.push_back(trimmed(cell));
    return cells;
}

std::vector<std::string> linesOf(const std::string &heading)
{
    std::ifstream readme(SOREL_README);
    EXPECT_TRUE(readme) << SOREL_README;
    std::vector<std::string> lines;
    bool isInside = false;
    for (std::string line; std::getline(readme, line);) {
        if (line.starts_with("#"))
            isInside = line.substr(line.find_first_not_of("# ")) == heading;
        else if (isInside)
            lines.push_back(line);
    }
    EXPECT_FALSE(lines.empty()) << "no section " << heading;
    return lines;
}

} // namespace

std::vector<MarkdownRow> readmeTable(const std::string &heading,
                                     const std::vector<std::string> &columns)
{
    std::vector<MarkdownRow> rows;
    std::set<std::string> found;
    std::vector<std::string> header; // empty outside of a table
    for (const std::string &line : linesOf(heading)) {
        if (!line.starts_with("|")) {
            header.clear();
            continue;
        }
        const std::vector<std::string> cells = cellsOf(line);
        if (header.empty()) {
            header = cells;
            if (header[0] == columns[0])
                found.insert(header.begin(), header.end());
            continue;
        }
        if (header[0] != columns[0] || cells[0].starts_with("--"))
            continue;
        EXPECT_EQ(cells.size(), header.size()) << line;
        auto row = std::find_if(rows.begin(), rows.end(),
                                [&](MarkdownRow &known) { return known[columns[0]] == cells[0]; });
        if (row == rows.end())
            row = rows.insert(row, MarkdownRow());
        for (std::size_t i = 0; i < std::min(cells.size(), header.size()); ++i)
            (*row)[header[i]] = cells[i];
    }
    for (const std::string &column : columns)
        EXPECT_EQ(found.count(column), 1u) << heading << " lacks the column " << column;
    return rows;
}

std::vector<std::string> split(const std::string &text, char separator)
{
    std::vector<std::string> parts;
    std::istringstream stream(text);
    for (std::string part; std::getline(stream, part, separator);)
        parts.push_back(trimmed(part));
    return parts;
}

} // namespace sorel_tests
