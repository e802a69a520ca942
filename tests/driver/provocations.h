// SPDX-License-Identifier: LicenseRef-Proprietary
// Calls that are refused, with the reason in the words of driver/README.md's table of statuses.
#ifndef SOREL_TESTS_DRIVER_PROVOCATIONS_H
#define SOREL_TESTS_DRIVER_PROVOCATIONS_H

#include "states.h"

#include <functional>
#include <vector>

namespace sorel_tests
{

struct Provocation {
    State state;
    std::string text; // of the call
    std::function<RadioReturn(RadioContext *c)> call;
    RadioReturn status;
    std::string reason;
    std::string scenario; // empty: that of the state
};

// Every function, status and reason at least once.
std::vector<Provocation> provocations();

} // namespace sorel_tests

#endif
