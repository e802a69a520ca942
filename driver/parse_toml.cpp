// SPDX-License-Identifier: LicenseRef-Proprietary
// Parsing a TOML file of any content.
#include "parse_toml.h"

#include <algorithm>

namespace sorel
{

namespace
{

// toml++ limits how deep values nest, but not dotted keys, and takes tables apart recursively: a
// file of dots would exhaust the stack.
constexpr std::ptrdiff_t mostDots = 4096;

} // namespace

toml::parse_result parseToml(const std::string &text)
{
    if (std::count(text.begin(), text.end(), '.') > mostDots)
        return toml::parse_result(toml::parse_error(tooManyDots, toml::source_region()));
    return toml::parse(text);
}

} // namespace sorel
