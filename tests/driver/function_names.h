// SPDX-License-Identifier: LicenseRef-Proprietary
// The 46 functions of the interface.
#ifndef SOREL_TESTS_DRIVER_FUNCTION_NAMES_H
#define SOREL_TESTS_DRIVER_FUNCTION_NAMES_H

#include <set>
#include <string>

namespace sorel_tests
{

inline const std::set<std::string> &functionNames()
{
    static const std::set<std::string> names = {
#define FUNCTION(result, name, parameters) #name,
#include "../include/functions.inc"
#undef FUNCTION
    };
    return names;
}

} // namespace sorel_tests

#endif
