// SPDX-License-Identifier: LicenseRef-Proprietary
// The tables of driver/README.md, for tests that hold them against the library.
#ifndef SOREL_TESTS_DRIVER_MARKDOWN_H
#define SOREL_TESTS_DRIVER_MARKDOWN_H

#include <map>
#include <string>
#include <vector>

namespace sorel_tests
{

// Cells by the header of their column, without the blanks and backquotes around them.
using MarkdownRow = std::map<std::string, std::string>;

// The rows of all tables of the section under that heading which have the first of these columns
// first. Rows of several tables with the same first cell are one row. A column that none of the
// tables has is a failure of the test.
std::vector<MarkdownRow> readmeTable(const std::string &heading,
                                     const std::vector<std::string> &columns);

// The parts of a text between separators, without blanks around them; none of an empty text.
std::vector<std::string> split(const std::string &text, char separator);

} // namespace sorel_tests

#endif
