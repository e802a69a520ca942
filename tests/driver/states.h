// SPDX-License-Identifier: LicenseRef-Proprietary
// States of a context that decide what its functions answer.
#ifndef SOREL_TESTS_DRIVER_STATES_H
#define SOREL_TESTS_DRIVER_STATES_H

#include "sorel.h"

#include <string>

namespace sorel_tests
{

enum State {
    Null,
    Closed, // a context that was open
    Opened,
    Ready,      // two paths, LTE 20 MHz, band 7
    OnePath,    // one path, otherwise the same
    Automatic,  // Ready, with automatic gain
    Deselected, // OnePath, but the second path had been selected before
    Tables,     // Ready, with tables of 10 dB and of 10 dBm alone
    Limited,    // Ready, with transmitters limited to 0 dBm
    Unlocked,   // Ready, with synthesisers that take their time
    Hot,        // Ready, at 120 degrees
    Linked,     // Opened, with the slowest CPRI link
    Merrik,     // Opened, on that platform
    Bellan,
    OtherBoard, // Opened, on a Talwin, with Merrik selected
};

// A context in that state. To be given back to leave().
RadioContext *bringTo(State state);

// Likewise, in a scenario of that content.
RadioContext *bringTo(State state, const std::string &scenario);

// Closes the context if it is open, and leaves platform and scenario.
void leave(RadioContext *context);

// A function's name, from the text of a call of it.
std::string functionOf(const std::string &text);

} // namespace sorel_tests

#endif
