// SPDX-License-Identifier: LicenseRef-Proprietary
// Parsing a TOML file of any content. Included in source files only: toml++ is large.
#ifndef SOREL_DRIVER_PARSE_TOML_H
#define SOREL_DRIVER_PARSE_TOML_H

#include "toml.h"

#include <string>

namespace sorel
{

// The error of a text that toml++ is not given: it has no place in the text.
constexpr const char *tooManyDots = "the file holds more than 4096 dots";

toml::parse_result parseToml(const std::string &text);

} // namespace sorel

#endif
